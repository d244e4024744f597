#include "changes/ImageEdits.h"

#include "changes/MappedImage.h"
#include "forms/TEmbedFm.h"
#include "forms/UndoCommands.h"
#include "model/ROMImage.h"

#include <algorithm>
#include <utility>

#include <QUndoCommand>

class TImageEdits::TStep : public QUndoCommand {
public:
    TStep(TImageEdits &edits, const QString &text, std::vector<TByteChange> bytes)
        : QUndoCommand(text), edits_(edits), bytes_(std::move(bytes)) {}

    void undo() override { edits_.Put(bytes_, true); }
    void redo() override { edits_.Put(bytes_, false); } // also when it is pushed

private:
    TImageEdits &edits_;
    std::vector<TByteChange> bytes_;
};

TImageEdits::TImageEdits(TEmbeddedForm &page, TWorkspace &workspace)
    : page_(page), workspace_(workspace) {
    AddUndoCommands(
        page, steps_, [this] { steps_.undo(); }, [this] { steps_.redo(); });
}

void TImageEdits::Run(const QString &text,
                      const std::function<void(std::span<std::uint8_t>)> &change) {
    const std::vector<std::uint8_t> before = CommittedBytes(workspace_);
    std::vector<std::uint8_t> after = before;
    change(after);
    std::vector<TByteChange> bytes;
    for (const auto &[offset, length] : DifferingRuns(before, after))
        for (std::uint32_t i = offset; i < offset + length; ++i)
            bytes.push_back({i, before[i], after[i]});
    if (bytes.empty())
        return;
    std::copy(before.begin(), before.end(), ROMImage()->data.begin());
    steps_.push(new TStep(*this, text, std::move(bytes)));
}

void TImageEdits::Put(const std::vector<TByteChange> &bytes, bool before) {
    for (const TByteChange &byte : bytes)
        ROMImage()->Poke(byte.offset, before ? byte.before : byte.after);
    ROMImage()->modified = true;
    ReadMapsAnew(workspace_);
    page_.DataChanged = true;
    page_.TellState();
    if (OnStep)
        OnStep();
}
