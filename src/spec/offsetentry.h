// The dialog in which the six maps are placed by hand, when no spec file fits. Values are integers,
// decimal or hexadecimal behind a "$".
#pragma once

#include "forms/baseform.h"
#include "model/Workspace.h"
#include "spec/MappingChoice.h"

#include <array>

#include <QLineEdit>

class TfrmOffsetEntry : public TfrmBaseForm {
    Q_OBJECT
public:
    /// Always starts afresh. `workspace` outlives the dialog.
    TfrmOffsetEntry(QWidget *owner, TWorkspace &workspace);

    /// The six map offsets as they stand: places in the whole file, as in spec files. The data
    /// offset is not added (docs/peculiarities.md).
    TTypedOffsets Typed() const;

    /// Places the maps one by one at their offsets plus the data offset, idle and full throttle
    /// with the load point 0. No control calls it.
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
