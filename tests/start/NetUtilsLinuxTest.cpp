// For Linux alone: a library that every desktop of it has.
#include "spec/NetUtils.h"

#include <gtest/gtest.h>

TEST(LibraryLoader, LoadsWhatThePlatformHas) {
    TLibraryLoader loader;
    ASSERT_TRUE(loader.Load("libxcb.so.1"));
    EXPECT_NE(loader.Resolve("xcb_connect"), nullptr);
    EXPECT_EQ(loader.Resolve("NetFileClose"), nullptr);
}
