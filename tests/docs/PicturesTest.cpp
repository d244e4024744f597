// The pictures of the documents: each is there in the size that the log beside it tells, is told of
// in the log, and is shown somewhere. Whether they are current is for the tour's test to say.

#include "docs/Markdown.h"
#include "docs/Tree.h"

#include <regex>
#include <set>

#include <gmock/gmock.h>

namespace fs = std::filesystem;

namespace {
const fs::path pictureFolder = Project().Top() / "docs" / "pictures";

/// "800 x 600", out of the file's header.
std::string SizeOf(const fs::path &png) {
    const std::string bytes = TextOf(png);
    if (!bytes.starts_with("\x89PNG") || bytes.size() < 24)
        return "no picture";
    const auto number = [&](std::size_t at) {
        unsigned value = 0;
        for (std::size_t i = at; i < at + 4; ++i)
            value = value * 256 + static_cast<unsigned char>(bytes[i]);
        return std::to_string(value);
    };
    return number(16) + " x " + number(20);
}

/// Names and sizes that the log tells.
std::set<std::pair<std::string, std::string>> Logged() {
    const std::string log = TextOf(pictureFolder / "log.txt");
    const std::regex head(R"((?:^|\n)(\S+\.png) (\d+ x \d+)\n)");
    std::set<std::pair<std::string, std::string>> pictures;
    for (std::sregex_iterator i(log.begin(), log.end(), head), end; i != end; ++i)
        pictures.emplace((*i)[1], (*i)[2]);
    return pictures;
}

std::set<std::string> ShownIn(const std::string &document) {
    std::set<std::string> names;
    for (const std::string &link : ReadMarkdown(TextOf(Project().Top() / document)).links)
        if (link.ends_with(".png"))
            names.insert(fs::path(link).filename().string());
    return names;
}
} // namespace

TEST(Pictures, AreThoseOfTheLogInTheSizesThatItTells) {
    std::set<std::pair<std::string, std::string>> pictures;
    for (const auto &entry : fs::directory_iterator(pictureFolder))
        if (entry.path().extension() == ".png")
            pictures.emplace(entry.path().filename().string(), SizeOf(entry.path()));
    EXPECT_FALSE(pictures.empty());
    EXPECT_EQ(pictures, Logged());
}

TEST(Pictures, AreAllShownInTheReadme) {
    std::set<std::string> names;
    for (const auto &[name, size] : Logged())
        names.insert(name);
    EXPECT_EQ(ShownIn("README.md"), names);
}

TEST(Pictures, AreOfModestSize) {
    for (const auto &entry : fs::directory_iterator(pictureFolder))
        EXPECT_LT(entry.file_size(), 200'000U) << entry.path();
}
