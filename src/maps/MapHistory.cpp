#include "maps/MapHistory.h"

#include "maps/Maps.h"
#include "model/ROMImage.h"

#include <utility>

#include <QScopeGuard>
#include <QUndoCommand>

namespace {
using TBytes = std::vector<std::uint8_t>;

TBytes ImageBytes() {
    const TROMImage *image = ROMImage();
    return image ? TBytes(image->data.begin(), image->data.end()) : TBytes();
}

std::vector<TByteChange> ChangesSince(const TBytes &before) {
    std::vector<TByteChange> changes;
    if (!before.empty())
        for (const auto &[offset, length] : DifferingRuns(before, ROMImage()->data))
            for (std::uint32_t i = offset; i < offset + length; ++i)
                changes.push_back({i, before[i], ROMImage()->data[i]});
    return changes;
}

class TStep : public QUndoCommand {
public:
    TStep(TMapHistory &history, const QString &text, TMapPageState before, TMapPageState after,
          std::vector<TByteChange> bytes, bool merge)
        : QUndoCommand(text),
          history_(history),
          before_(std::move(before)),
          after_(std::move(after)),
          bytes_(std::move(bytes)),
          merge_(merge) {}

    void undo() override {
        for (const TByteChange &byte : bytes_)
            ROMImage()->Poke(byte.offset, byte.before);
        history_.Restore(before_);
    }

    void redo() override {
        if (!std::exchange(undone_, true))
            return; // pushed: the action has just been done
        for (const TByteChange &byte : bytes_)
            ROMImage()->Poke(byte.offset, byte.after);
        history_.Restore(after_);
    }

    int id() const override { return merge_ ? 1 : -1; }

    bool mergeWith(const QUndoCommand *next) override {
        after_ = static_cast<const TStep *>(next)->after_;
        return true;
    }

private:
    TMapHistory &history_;
    TMapPageState before_;
    TMapPageState after_;
    std::vector<TByteChange> bytes_;
    bool merge_;
    bool undone_ = false;
};
} // namespace

void TMapHistory::Begin() {
    stack_.clear();
    last_ = Current();
}

void TMapHistory::Do(const QString &text, const std::function<void()> &action, bool merge,
                     bool onImage) {
    if (running_)
        return action();
    if (!last_.rows.front().grid)
        Begin();
    running_ = true;
    const TBytes before = onImage ? ImageBytes() : TBytes();
    const auto keep = qScopeGuard([&] {
        running_ = false;
        Keep(text, ChangesSince(before), merge);
    });
    action();
}

void TMapHistory::Undo() {
    page_.CloseEditors();
    stack_.undo();
}

void TMapHistory::Redo() {
    page_.CloseEditors();
    stack_.redo();
}

void TMapHistory::Keep(const QString &text, std::vector<TByteChange> bytes, bool merge) {
    TMapPageState now = Current();
    if (now != last_ || !bytes.empty())
        stack_.push(new TStep(*this, text, last_, now, std::move(bytes), merge));
    last_ = std::move(now);
    page_.TellState();
}

void TMapHistory::Restore(const TMapPageState &state) {
    running_ = true;
    page_.Restore(state);
    running_ = false;
    last_ = state;
    page_.TellState();
}

TMapPageState TMapHistory::Current() const {
    return page_.State(last_);
}
