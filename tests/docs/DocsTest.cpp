// Every document of the project: its links lead somewhere, and the commands, files and classes it
// names are there.

#include "docs/Commands.h"
#include "docs/Markdown.h"

#include <regex>

#include <gmock/gmock.h>

namespace fs = std::filesystem;
using testing::IsEmpty;

namespace {
std::vector<std::string> Documents() {
    std::vector<std::string> names;
    for (const char *folder : {"", "docs", "samples"})
        for (const auto &entry : fs::directory_iterator(fs::path(FERROLYN_SOURCE_DIR) / folder))
            if (entry.path().extension() == ".md")
                names.push_back((fs::path(folder) / entry.path().filename()).string());
    return names;
}

/// What is wrong with a link of `document`; empty when nothing is. Links to other machines are not
/// followed.
std::string LinkFinding(const std::string &link, const fs::path &document) {
    if (std::regex_match(link, std::regex("(https?|mailto):.*")))
        return {};
    const std::size_t hash = link.find('#');
    const std::string file = link.substr(0, hash);
    const fs::path target = file.empty() ? document : document.parent_path() / file;
    if (!fs::exists(target))
        return "there is no " + link;
    if (hash != std::string::npos &&
        !ReadMarkdown(TextOf(target)).anchors.contains(link.substr(hash + 1)))
        return "there is no heading for " + link;
    return {};
}

class Docs : public testing::TestWithParam<std::string> {
protected:
    const fs::path document = fs::path(FERROLYN_SOURCE_DIR) / GetParam();
    const TMarkdown markdown = ReadMarkdown(TextOf(document));
};
} // namespace

TEST_P(Docs, LinksLeadSomewhere) {
    for (const std::string &link : markdown.links)
        EXPECT_EQ(LinkFinding(link, document), "");
}

TEST_P(Docs, CommandsExist) {
    for (const std::string &line : markdown.codeLines)
        EXPECT_THAT(CommandFindings(line, Project()), IsEmpty()) << line;
}

TEST_P(Docs, NamedFilesAndClassesExist) {
    for (const std::string &code : markdown.inlineCodes)
        EXPECT_THAT(InlineFindings(code, Project()), IsEmpty()) << code;
}

INSTANTIATE_TEST_SUITE_P(Each, Docs, testing::ValuesIn(Documents()), [](const auto &document) {
    return std::regex_replace(document.param, std::regex("[^A-Za-z]"), "_");
});

TEST(DocsLinks, WhatIsMissingIsFound) {
    const fs::path readme = fs::path(FERROLYN_SOURCE_DIR) / "README.md";
    EXPECT_EQ(LinkFinding("LICENSE", readme), "");
    EXPECT_EQ(LinkFinding("LICENCE", readme), "there is no LICENCE");
    EXPECT_EQ(LinkFinding("CONTRIBUTING.md#build", readme), "");
    EXPECT_EQ(LinkFinding("CONTRIBUTING.md#bild", readme),
              "there is no heading for CONTRIBUTING.md#bild");
    EXPECT_EQ(LinkFinding("#nowhere", readme), "there is no heading for #nowhere");
    EXPECT_EQ(LinkFinding("https://example.org/nothing", readme), "");
}
