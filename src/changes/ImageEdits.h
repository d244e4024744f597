// What a page does to the bytes of the image in memory past the maps, with undo and redo: putting
// back what was, bringing back what was kept. Sibling: MapHistory.h, which keeps the steps of a map
// page.
#pragma once

#include "changes/ByteRuns.h"
#include "model/Workspace.h"

#include <functional>
#include <span>

#include <QUndoStack>

class TEmbeddedForm;

class TImageEdits {
public:
    /// Of `page`, which gets the commands "Undo" and "Redo"; both outlive this.
    TImageEdits(TEmbeddedForm &page, TWorkspace &workspace);

    /// Runs behind each step, also behind one that is undone or redone.
    std::function<void()> OnStep;

    /// Forgets all steps. To be called when the page is entered: elsewhere the image may have
    /// changed.
    void Begin() { steps_.clear(); }

    /// Lets `change` write into the committed bytes, and keeps that as a step when any differs
    /// then. The maps are read anew, the page has changed data, the notebook is told. Nothing of
    /// this when `change` throws, which must then have changed nothing.
    void Run(const QString &text, const std::function<void(std::span<std::uint8_t>)> &change);

private:
    class TStep;
    void Put(const std::vector<TByteChange> &bytes, bool before);

    TEmbeddedForm &page_;
    TWorkspace &workspace_;
    QUndoStack steps_;
};
