#include "spec/offsetentry.h"

#include "forms/Hint.h"
#include "forms/Named.h"
#include "model/Numbers.h"

#include <algorithm>

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr int editMargins = 24; // pixels, both sides together

std::string TextOf(const QLineEdit *edit) {
    return edit->text().toStdString();
}

QLineEdit *AddField(QGridLayout &grid, const char *name, const QString &caption) {
    auto *edit = Named(name, new QLineEdit);
    edit->setAccessibleDescription(TfrmOffsetEntry::tr("Decimal, or hexadecimal behind a $"));
    SetHint(edit, edit->accessibleDescription());
    edit->setLayoutDirection(Qt::LeftToRight); // "$" stands before its number everywhere
    edit->setMinimumWidth(edit->fontMetrics().horizontalAdvance("$FFFFF") + editMargins);
    auto *label = new QLabel(caption);
    label->setBuddy(edit);
    const int row = grid.rowCount();
    grid.addWidget(label, row, 0);
    grid.addWidget(edit, row, 1);
    return edit;
}
} // namespace

TfrmOffsetEntry::TfrmOffsetEntry(QWidget *owner, TWorkspace &workspace)
    : TfrmBaseForm(owner), edtDataOffset_(nullptr), edtMapOffsets_{}, workspace_(workspace) {
    setObjectName("frmOffsetEntry");
    setWindowTitle(tr("Offset Entry"));
    btnOK->setText(tr("&OK"));
    auto *grid = new QGridLayout;
    edtDataOffset_ = AddField(*grid, "edtDataOffset", tr("Main Data Offset (try $0 or $100)"));
    grid->addWidget(new QLabel(tr("$ = Hex Value")), grid->rowCount() - 1, 2);
    edtMapOffsets_ = {AddField(*grid, "edtFuelPTMapOffset", tr("Fuel PT Offset")),
                      AddField(*grid, "edtFuelIdMapOffset", tr("Fuel Idle Offset")),
                      AddField(*grid, "edtFuelFTMapOffset", tr("Fuel WOT Offset")),
                      AddField(*grid, "edtTimingPTMapOffset", tr("Timing PT Offset")),
                      AddField(*grid, "edtTimingIdMapOffset", tr("Timing Idle Offset")),
                      AddField(*grid, "edtTimingFTMapOffset", tr("Timing WOT Offset"))};
    Contents()->addLayout(grid);
    SetHint(btnOK, tr("Take the offsets and close"));
    SetHint(btnCancel, tr("Close without placing any map"));
    for (QLineEdit *edit : findChildren<QLineEdit *>())
        connect(edit, &QLineEdit::textChanged, this, [this] { modified = true; });
    resize(405, 293);
}

void TfrmOffsetEntry::FormShow() {
    TfrmBaseForm::FormShow();
    for (QLineEdit *edit : edtMapOffsets_)
        if (edit->text().isEmpty())
            edit->setText("$0");
    modified = false; // the dialog's own "$0" is no change of the user's
}

void TfrmOffsetEntry::btnOKClick() {
    modified = false;
    TfrmBaseForm::btnOKClick();
}

TTypedOffsets TfrmOffsetEntry::Typed() const {
    TTypedOffsets typed;
    std::transform(edtMapOffsets_.begin(), edtMapOffsets_.end(), typed.begin(), TextOf);
    return typed;
}

bool TfrmOffsetEntry::LoadOffsets() {
    const std::int64_t dataOffset = ParseInteger(edtDataOffset_->text().trimmed().toStdString());
    const auto place = [&](TMap &map, std::size_t field) {
        const std::int64_t sum = ParseInteger(TextOf(edtMapOffsets_[field])) + dataOffset;
        map.SetOffset(static_cast<std::int32_t>(sum));
    };
    place(*workspace_.fuelMapSet.PTMap, 0);
    place(*workspace_.timingMapSet.PTMap, 3);
    place(*workspace_.fuelMapSet.IdleMap, 1);
    place(*workspace_.timingMapSet.IdleMap, 4);
    place(*workspace_.fuelMapSet.WOTMap, 2);
    place(*workspace_.timingMapSet.WOTMap, 5);
    return true;
}
