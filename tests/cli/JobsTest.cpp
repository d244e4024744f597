// Running over many images: which files of a folder, the order of the answers, broken files.
#include "cli/JobsFixture.h"

namespace {
using testing::ElementsAre;

TEST_F(TCliJobsTest, AnswersEachImageInALineInTheOrderGiven) {
    const std::string text = Done({"find", "64K.BIN", "32K.BIN", "64K.BIN"});
    EXPECT_THAT(Field(text, "image"), ElementsAre("64K.BIN", "32K.BIN", "64K.BIN"));
    EXPECT_THAT(Field(text, "schema"),
                ElementsAre("ferrolyn-cli/1", "ferrolyn-cli/1", "ferrolyn-cli/1"));
}

TEST_F(TCliJobsTest, TakesTheImageFilesOfAFolder) {
    for (const char *name : {"MANY/b.bin", "MANY/C.BIN", "MANY/a.BiN", "MANY/x.hex", "MANY/bin"})
        std::filesystem::copy_file(folder / "32K.BIN", folder / name);
    std::filesystem::create_directory(folder / "MANY/D.BIN");
    std::filesystem::copy_file(folder / "32K.BIN", folder / "MANY/D.BIN/E.BIN");
    PutFile(folder / "MANY/FULL.BIN", std::vector<std::uint8_t>(0x100000, 0xFF));
    PutFile(folder / "MANY/LARGE.BIN", std::vector<std::uint8_t>(0x100001, 0xFF));
    EXPECT_THAT(
        Field(Done({"find", "64K.BIN", "MANY"}), "image"),
        ElementsAre("64K.BIN", Many("C.BIN"), Many("FULL.BIN"), Many("a.BiN"), Many("b.bin")));
}

TEST_F(TCliJobsTest, AFolderOfOneImageIsAnsweredInALineToo) {
    std::filesystem::copy_file(folder / "32K.BIN", folder / "MANY/1.BIN");
    EXPECT_THAT(Field(Done({"find", "MANY"}), "image"), ElementsAre(Many("1.BIN")));
    EXPECT_EQ(Lines(Done({"check", "MANY", "--spec", "32K.SPC", "--format", "json"})).size(), 1U);
}

TEST_F(TCliJobsTest, OneImageIsALineWhenAsked) {
    const TCliResult found = Run({"find", "32K.BIN", "--format", "jsonl"});
    EXPECT_EQ(found.exit, 0);
    EXPECT_EQ(Lines(found.out).size(), 1U);
    const TCliResult broken = Run({"find", "NONE.BIN", "--format", "jsonl"});
    EXPECT_EQ(broken.exit, 2);
    EXPECT_EQ(broken.err, "");
    EXPECT_THAT(Field(broken.out, "error"), ElementsAre(NotThere("NONE.BIN")));
    EXPECT_EQ(Lines(Done({"check", "32K.BIN", "--spec", "32K.SPC", "--format", "jsonl"})).size(),
              1U);
    EXPECT_GT(Lines(Done({"check", "32K.BIN", "--spec", "32K.SPC", "--format", "json"})).size(),
              1U);
}

TEST_F(TCliJobsTest, ABrokenImageIsALineAndNoEnd) {
    PutText("EMPTY.BIN", "");
    const TCliResult result = Run({"find", "32K.BIN", "NONE.BIN", "EMPTY.BIN", "64K.BIN"});
    EXPECT_EQ(result.exit, 2);
    EXPECT_EQ(result.err, "");
    EXPECT_THAT(Field(result.out, "image"),
                ElementsAre("32K.BIN", "NONE.BIN", "EMPTY.BIN", "64K.BIN"));
    EXPECT_THAT(Field(result.out, "error"),
                ElementsAre("", NotThere("NONE.BIN"),
                            "EMPTY.BIN: an image of 0 bytes has nothing in it", ""));
}

TEST_F(TCliJobsTest, ABrokenImageIsALineOfACheckToo) {
    const std::vector<std::string> check{"check", "32K.BIN", "NONE.BIN", "--spec", "32K.SPC"};
    const TCliResult text = Run(check);
    EXPECT_EQ(text.exit, 2);
    EXPECT_EQ(text.out, "32K.BIN: nothing found\n"
                        "NONE.BIN: error: " +
                            NotThere("NONE.BIN") + "\n");
    std::vector<std::string> words = check;
    words.insert(words.end(), {"--format", "json"});
    EXPECT_THAT(Field(Run(words).out, "error"), ElementsAre("", NotThere("NONE.BIN")));
}

TEST_F(TCliJobsTest, AFindingIsTheExitOfManyWithoutABrokenOne) {
    EXPECT_EQ(Run({"check", "32K.BIN", "64K.BIN", "32K.BIN", "--spec", "32K.SPC"}).exit, 1);
    EXPECT_EQ(Run({"check", "32K.BIN", "32K.BIN", "--spec", "32K.SPC"}).exit, 0);
    EXPECT_EQ(Run({"check", "NONE.BIN", "64K.BIN", "--spec", "32K.SPC"}).exit, 2);
}

TEST_F(TCliJobsTest, SaysTheSameWithAnyNumberOfJobs) {
    PutImages(40);
    const std::vector<std::vector<std::string>> commands{
        {"find", "MANY", "--reasons"},
        {"find", "MANY", "--most", "20"},
        {"check", "MANY", "--spec", "32P.SPC"},
        {"check", "MANY", "--spec", "32K.SPC", "--format", "json"}};
    for (const std::vector<std::string> &command : commands) {
        const TCliResult one = Run(command);
        EXPECT_EQ(one.exit, 2); // one file is broken
        for (const char *jobs : {"2", "3", "40", "256"}) {
            std::vector<std::string> words = command;
            words.insert(words.end(), {"--jobs", jobs});
            const TCliResult several = Run(words);
            EXPECT_TRUE(several.out == one.out) << command.front() << " --jobs " << jobs;
            EXPECT_EQ(several.exit, one.exit);
        }
    }
}

TEST_F(TCliJobsTest, NamesWhatIsWrong) {
    ExpectRefused({"find", "32K.BIN", "MANY"},
                  "MANY: no image is in the folder: a file *.BIN of 1 MiB at most");
    ExpectRefused({"find", "32K.BIN", "--jobs", "0"}, "--jobs: Value 0 not in range 1 to 256");
    ExpectRefused({"check", "32K.BIN", "--spec", "32K.SPC", "--jobs", "many"},
                  "--jobs: Value many not in range 1 to 256");
}
} // namespace
