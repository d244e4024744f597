#include "system/Errands.h"

#include <atomic>
#include <future>
#include <vector>

#include <gmock/gmock.h>

namespace {
using namespace std::chrono_literals;
using testing::ElementsAre;

/// An errand that takes as long as the test wants.
class TSlowErrand {
public:
    std::function<void()> Run() {
        return [begun = &begun_, released = release_.get_future().share()] {
            begun->set_value();
            released.wait();
        };
    }
    void WaitForItsBegin() { begun_.get_future().wait(); }
    void Release() { release_.set_value(); }

private:
    std::promise<void> begun_;
    std::promise<void> release_;
};

TEST(Errands, AreDoneOneAfterAnotherByAnotherThread) {
    TErrands errands;
    std::vector<int> done;
    std::thread::id thread;
    EXPECT_TRUE(errands.Send(
        "a", [&] { thread = std::this_thread::get_id(); }, 10s));
    EXPECT_NE(thread, std::this_thread::get_id());
    for (int i = 0; i < 5; ++i)
        errands.Send(
            std::to_string(i), [&, i] { done.push_back(i); }, 0s);
    errands.Finish();
    EXPECT_THAT(done, ElementsAre(0, 1, 2, 3, 4));
}

TEST(Errands, AreNotWaitedForLongerThanOneHasPatience) {
    TSlowErrand slow;
    TErrands errands;
    EXPECT_FALSE(errands.Send("slow", slow.Run(), 1ms));
    slow.Release();
    errands.Finish();
    EXPECT_TRUE(errands.Send(
        "next", [] {}, 10s));
}

TEST(Errands, OfTheSameNameThatStillWaitAreLeftOut) {
    TSlowErrand slow;
    TErrands errands;
    std::vector<std::string> done;
    const auto note = [&](const std::string &text) {
        return [&done, text] { done.push_back(text); };
    };
    errands.Send("a", slow.Run(), 0s);
    slow.WaitForItsBegin();
    errands.Send("a", note("a1"), 0s);
    errands.Send("b", note("b"), 0s);
    errands.Send("a", note("a2"), 0s);
    slow.Release();
    errands.Finish();
    EXPECT_THAT(done, ElementsAre("b", "a2"));
}

TEST(Errands, AreAllDoneAtTheEnd) {
    TSlowErrand slow;
    std::atomic<int> done = 0;
    {
        TErrands errands;
        errands.Send("slow", slow.Run(), 0s);
        for (int i = 0; i < 9; ++i)
            errands.Send(
                std::to_string(i), [&] { ++done; }, 0s);
        slow.Release();
    }
    EXPECT_EQ(done, 9);
}

TEST(Errands, WithNothingToDoMakeNoThreadAndEnd) {
    TErrands errands;
    errands.Finish();
}
} // namespace
