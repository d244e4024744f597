// Linux alone: a device that has a name like a file.
#include "changes/RecoveryFixture.h"

#include <gmock/gmock.h>

namespace {
TEST_F(TRecoveryProblems, SaysWhyADeviceThatASaveWritesToIsNotKept) {
    TProgram program(state);
    program.Load(image);
    program.recovery.KeepReplaced("/dev/null", "20261122");
    EXPECT_THAT(program.recovery.TakeProblem(), testing::HasSubstr("/dev/null"));
    EXPECT_FALSE(std::filesystem::exists(state));
}
} // namespace
