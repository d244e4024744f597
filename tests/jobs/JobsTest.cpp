// Work on many images side by side, inside one process, so that the thread sanitizer sees it.
#include "cli/Jobs.h"

#include "cli/RunCli.h"
#include "support/TemporaryFolder.h"

#include <sstream>

#include <gmock/gmock.h>

namespace {
/// What the command says on its output, with its exit code.
std::string Said(const std::vector<std::string> &words) {
    std::ostringstream out;
    std::ostringstream err;
    TConsole console{out, err};
    const TExit exit = RunCli(words, console);
    return out.str() + err.str() + "exit " + std::to_string(static_cast<int>(exit));
}

TEST(Jobs, GiveAnswersInOrder) {
    std::string all;
    RunInOrder(
        100, 4, [](std::size_t number) { return TAnswer{std::to_string(number) + " "}; },
        [&](const TAnswer &answer) { all += answer.text; });
    std::string expected;
    for (int number = 0; number < 100; ++number)
        expected += std::to_string(number) + " ";
    EXPECT_EQ(all, expected);
}

TEST(Jobs, EndWhenAnAnswerIsNotTaken) {
    const auto refuse = [](const TAnswer &) { throw std::runtime_error("full"); };
    const auto answer = [](std::size_t) { return TAnswer{"text"}; };
    EXPECT_THROW(RunInOrder(100, 4, answer, refuse), std::runtime_error);
}

TEST(Jobs, LookAtImagesWithoutTouchingEachOthers) {
    const std::filesystem::path samples = std::filesystem::path(FERROLYN_SOURCE_DIR) / "samples";
    const TTemporaryFolder folder;
    for (int copy = 0; copy < 4; ++copy)
        for (const char *name : {"FERRO32K.BIN", "FERRO64K.BIN"})
            std::filesystem::copy_file(samples / name, folder / (std::to_string(copy) + name));
    PutFile(folder / "BROKEN.BIN", {});
    const std::string spec = (samples / "FERRO32K.SPC").string();
    for (const std::vector<std::string> &words :
         {std::vector<std::string>{"find", folder.Path().string()},
          {"check", folder.Path().string(), "--spec", spec}}) {
        std::vector<std::string> withJobs = words;
        withJobs.insert(withJobs.end(), {"--jobs", "4"});
        const std::string said = Said(withJobs);
        EXPECT_EQ(said, Said(words));
        EXPECT_THAT(said, testing::HasSubstr("BROKEN.BIN"));
    }
}
} // namespace
