#include "cli/Jobs.h"

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

namespace {
constexpr std::size_t keptForEach = 8; ///< answers of a thread that wait for an earlier one

/// Hands out numbers to threads and keeps their answers until it is their turn.
class TOrderedAnswers {
public:
    TOrderedAnswers(std::size_t count, std::size_t kept) : count_(count), kept_(kept) {}

    /// The next number to work on; none at the end. Waits while too many answers are kept.
    std::optional<std::size_t> Begin() {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return ended_ || next_ < taken_ + kept_.size(); });
        if (ended_ || next_ == count_)
            return std::nullopt;
        return next_++;
    }

    void Put(std::size_t number, TAnswer answer) {
        const std::lock_guard lock(mutex_);
        kept_[number % kept_.size()] = std::move(answer);
        changed_.notify_all();
    }

    TAnswer Take() {
        std::unique_lock lock(mutex_);
        std::optional<TAnswer> &place = kept_[taken_ % kept_.size()];
        changed_.wait(lock, [&place] { return place.has_value(); });
        TAnswer answer = std::move(*place);
        place.reset();
        ++taken_;
        changed_.notify_all();
        return answer;
    }

    /// No thread begins anything after it.
    void End() {
        const std::lock_guard lock(mutex_);
        ended_ = true;
        changed_.notify_all();
    }

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    std::size_t count_;
    std::size_t next_ = 0;
    std::size_t taken_ = 0;
    bool ended_ = false;
    std::vector<std::optional<TAnswer>> kept_;
};

/// Ends the work when the one who takes it goes, however that goes.
struct TEnding {
    TOrderedAnswers &answers;
    ~TEnding() { answers.End(); }
};
} // namespace

void RunInOrder(std::size_t count, int jobs, const std::function<TAnswer(std::size_t)> &answer,
                const std::function<void(TAnswer)> &take) {
    const auto threads = static_cast<std::size_t>(jobs);
    TOrderedAnswers answers(count, threads * keptForEach);
    std::vector<std::jthread> workers;
    const TEnding ending{answers};
    for (std::size_t i = 0; i < std::min(threads, count); ++i)
        workers.emplace_back([&] {
            while (const std::optional<std::size_t> number = answers.Begin())
                answers.Put(*number, answer(*number));
        });
    for (std::size_t i = 0; i < count; ++i)
        take(answers.Take());
}
