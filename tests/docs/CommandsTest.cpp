// The checks themselves: what is there passes, what is not is found.

#include "docs/Commands.h"

#include "docs/Markdown.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

TEST(Commands, ThatAreThereAreLeftAlone) {
    for (const char *line :
         {"./run     # builds and starts", "./test all", "./test CHECK",
          "tools/bare-root.sh --fresh FOLDER .ci/run", "JOBS=3 ./test tsan",
          "cmake --preset dev && cmake --build --preset dev --target test_forms",
          "cmake -S . -B build/x -DFERROLYN_SANITIZE=address", "ctest --preset dev -R '^forms\\.'",
          "build/dev/tests/forms/test_forms --gtest_filter='Hint.*'", "build/fuzz/fuzz/fuzz_NAME",
          "sudo apt install something --else", "; a comment of a spec file", "pt_offset=$6000"})
        EXPECT_THAT(CommandFindings(line, Project()), IsEmpty()) << line;
}

TEST(Commands, ThatAreNotThereAreFound) {
    for (const auto &[line, finding] :
         {std::pair("tools/no-such.sh", "there is no script tools/no-such.sh"),
          {"./test everything", "test knows no everything"},
          {"tools/bare-root.sh --stale X", "tools/bare-root.sh knows no --stale"},
          {"tools/xvfb.sh bash tests/gone.sh", "there is no script tests/gone.sh"},
          {"JOPS=3 ./test", "nobody reads the variable JOPS"},
          {"cmake --preset fast", "no preset fast in configurePresets"},
          {"ctest --preset fuzz", "no preset fuzz in testPresets"},
          {"true && cmake --build --preset dev --target nothing", "no target nothing"},
          {"cmake -S . -B x -DFERROLYN_SPEED=1", "no switch FERROLYN_SPEED"},
          {"build/dev/src/ferolyn", "there is no target ferolyn"},
          {"build/old/src/ferrolyn", "there is no preset for build/old/src/ferrolyn"}})
        EXPECT_THAT(CommandFindings(line, Project()), ElementsAre(finding)) << line;
}

TEST(Names, ThatAreThereAreLeftAlone) {
    const char *const names[] = {"src/model/",
                                 "spec/IniFile",
                                 "forms/Dialogs.h",
                                 "tests/faults",
                                 "Axes.h",
                                 "tests/model/*Properties*",
                                 "FERRO32K.BIN",
                                 "*.SPC",
                                 "TMap::Save",
                                 "NAME.txt",
                                 "fuzz/corpus/NAME",
                                 "build/tour/",
                                 "./run",
                                 "$7F",
                                 "model/",
                                 "std::unique_ptr",
                                 "CHANGELOG.md",
                                 "EDITED.BIN",
                                 "build/bench/report.txt",
                                 "share/ferrolyn/samples/",
                                 "usr/lib/ferrolyn/",
                                 ".ci/run",
                                 ".clang-tidy"};
    for (const char *name : names)
        EXPECT_THAT(InlineFindings(name, Project()), IsEmpty()) << name;
}

TEST(Names, ThatAreNotThereAreFound) {
    for (const char *name :
         {"src/modell/", "spec/IniFiles", "forms/Dialog.h", "Axles.h", "tests/model/*Propertys*",
          "FERRO16K.BIN", "TMap::Safe", "TMapp", "./runs", "share/ferrolyn/sample/",
          "usr/lib/ferolyn/", "tools/none.sh"})
        EXPECT_THAT(InlineFindings(name, Project()), testing::SizeIs(1)) << name;
}

TEST(Markdown, KeepsLinksAnchorsAndCodeApart) {
    const TMarkdown markdown =
        ReadMarkdown("# Wie man's macht, 2\n"
                     "See [this](a.md) and ![that](b/c.png), not `[no](link)`.\n"
                     "```sh\n"
                     "one \\\n"
                     "  two\n"
                     "# no heading\n"
                     "```\n"
                     "## Last_one\n");
    EXPECT_THAT(markdown.links, ElementsAre("a.md", "b/c.png"));
    EXPECT_THAT(markdown.anchors, UnorderedElementsAre("wie-mans-macht-2", "last_one"));
    EXPECT_THAT(markdown.codeLines, ElementsAre("one   two", "# no heading"));
    EXPECT_THAT(markdown.inlineCodes, ElementsAre("[no](link)"));
}
