// For Windows alone: the system has the library itself, with every function that is looked up.
#include "model/Messages.h"
#include "spec/NetUtils.h"
#include "system/NtFamily.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

TEST(LibraryLoader, LoadsWhatThePlatformHas) {
    TLibraryLoader loader;
    ASSERT_TRUE(loader.Load("NETAPI32.DLL"));
    EXPECT_NE(loader.Resolve("NetShareAdd"), nullptr);
    EXPECT_EQ(loader.Resolve("xcb_connect"), nullptr);
}

TEST(NetUtilsStart, TheSystemHasAllThatIsLookedUp) {
    TLibraryLoader loader;
    const TNetFunctions functions = LoadNetworkFunctions(loader, IsNtFamily());
    EXPECT_EQ(functions.size(), 12U);
    for (const auto &[name, function] : functions)
        EXPECT_NE(function, nullptr) << name;
    std::vector<std::string> messages;
    const TMessageHook before =
        SetMessageHook([&](const std::string &text) { messages.push_back(text); });
    TellOfMissingFunctions(functions);
    SetMessageHook(before);
    EXPECT_EQ(messages, std::vector<std::string>());
}
