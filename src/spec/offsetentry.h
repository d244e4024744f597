// The dialog in which the six maps are placed by hand, when no spec file fits. Values are integers,
// decimal or hexadecimal behind a "$".
#pragma once

#include "forms/baseform.h"
#include "model/Workspace.h"

#include <array>

#include <QLineEdit>

class TfrmOffsetEntry : public TfrmBaseForm {
    Q_OBJECT
public:
    /// Always starts afresh. `workspace` outlives the dialog.
    TfrmOffsetEntry(QWidget *owner, TWorkspace &workspace);

    /// Sets both map sets to zero and places them at the six offsets as typed; the data offset is
    /// not added, the six are absolute. This is intended, and so is that nothing is placed when one
    /// of them is no integer.
    /// @throws EConvertError for a text that is no integer, before anything has changed
    void PlaceMaps();

    /// Places the maps one by one at their offsets plus the data offset. No control calls it.
    /// @throws EConvertError for a text that is no integer; the maps placed before it stay placed
    bool LoadOffsets();

    void btnOKClick() override;

protected:
    void FormShow() override;

private:
    QLineEdit *edtDataOffset_;
    /// Fuel PT, idle, WOT, then timing PT, idle, WOT.
    std::array<QLineEdit *, 6> edtMapOffsets_;
    TWorkspace &workspace_;
};
