// The folder of the program's state among those of a user of Windows.
#include "support/Environment.h"
#include "system/StateFolder.h"

#include <gtest/gtest.h>

namespace {
TEST(StateFolder, IsInTheUsersLocalData) {
    const std::string before = Variable("LOCALAPPDATA");
    SetVariable("LOCALAPPDATA", "C:\\users\\me\\AppData\\Local");
    EXPECT_EQ(StateFolder(), "C:\\users\\me\\AppData\\Local\\ferrolyn");
    for (const char *none : {"", "Local", "\\Local"}) {
        SetVariable("LOCALAPPDATA", none);
        EXPECT_EQ(StateFolder(), std::nullopt) << none;
    }
    SetVariable("LOCALAPPDATA", before);
}
} // namespace
