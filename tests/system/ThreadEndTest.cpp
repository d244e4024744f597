#include "system/ThreadEnd.h"

#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>

namespace {
using testing::ElementsAre;

std::vector<std::string> removed;

void Note(void *name) {
    removed.push_back(static_cast<const char *>(name));
}

TEST(ThreadEnd, RemovesWhatCameLastFirst) {
    removed.clear();
    char first[] = "first";
    char second[] = "second";
    std::thread thread([&] {
        AtThreadEnd(Note, first);
        AtThreadEnd(Note, second);
        EXPECT_THAT(removed, ElementsAre());
    });
    thread.join();
    EXPECT_THAT(removed, ElementsAre("second", "first"));
}

/// Large enough to be in memory of its own, which is not there any more when it is freed.
struct TLarge {
    std::vector<char> room = std::vector<char>(0x400000, 'x');
    ~TLarge() { removed.push_back(std::string(1, room.back())); }
};

TLarge &Large() {
    thread_local TLarge *own = nullptr;
    return OfThread(own);
}

TEST(ThreadEnd, RemovesAThreadsOwnObject) {
    removed.clear();
    const TLarge *ofFirst = nullptr;
    const TLarge *ofSecond = nullptr;
    std::thread first([&] {
        ofFirst = &Large();
        EXPECT_EQ(ofFirst, &Large());
        std::thread second([&] { ofSecond = &Large(); });
        second.join();
        EXPECT_THAT(removed, ElementsAre("x"));
    });
    first.join();
    EXPECT_NE(ofFirst, ofSecond);
    EXPECT_THAT(removed, ElementsAre("x", "x"));
}
} // namespace
