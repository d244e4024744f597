#include "spec/offsetentry.h"

#include "model/Numbers.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
struct TField {
    const char *name;
    const char *label;
};

constexpr TField dataField{
    "edtDataOffset", QT_TRANSLATE_NOOP("TfrmOffsetEntry", "Main Data Offset (try $0 or $100)")};
constexpr std::array<TField, 6> mapFields{{
    {"edtFuelPTMapOffset", QT_TRANSLATE_NOOP("TfrmOffsetEntry", "Fuel PT Offset")},
    {"edtFuelIdMapOffset", QT_TRANSLATE_NOOP("TfrmOffsetEntry", "Fuel Idle Offset")},
    {"edtFuelFTMapOffset", QT_TRANSLATE_NOOP("TfrmOffsetEntry", "Fuel WOT Offset")},
    {"edtTimingPTMapOffset", QT_TRANSLATE_NOOP("TfrmOffsetEntry", "Timing PT Offset")},
    {"edtTimingIdMapOffset", QT_TRANSLATE_NOOP("TfrmOffsetEntry", "Timing Idle Offset")},
    {"edtTimingFTMapOffset", QT_TRANSLATE_NOOP("TfrmOffsetEntry", "Timing WOT Offset")},
}};

constexpr int editMargins = 24; // pixels, both sides together

int OffsetIn(const QLineEdit &edit) {
    return ParseInteger(edit.text().toStdString());
}

QLineEdit *AddField(QGridLayout &grid, const TField &field) {
    auto *edit = new QLineEdit;
    edit->setObjectName(field.name);
    edit->setAccessibleDescription(TfrmOffsetEntry::tr("Decimal, or hexadecimal behind a $"));
    edit->setLayoutDirection(Qt::LeftToRight); // "$" stands before its number everywhere
    edit->setMinimumWidth(edit->fontMetrics().horizontalAdvance("$FFFFF") + editMargins);
    auto *label = new QLabel(TfrmOffsetEntry::tr(field.label));
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
    edtDataOffset_ = AddField(*grid, dataField);
    grid->addWidget(new QLabel(tr("$ = Hex Value")), grid->rowCount() - 1, 2);
    for (std::size_t i = 0; i < mapFields.size(); ++i)
        edtMapOffsets_[i] = AddField(*grid, mapFields[i]);
    Contents()->addLayout(grid);
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
    for (std::size_t i = 0; i < typed.size(); ++i)
        typed[i] = edtMapOffsets_[i]->text().toStdString();
    return typed;
}

bool TfrmOffsetEntry::LoadOffsets() {
    const int dataOffset = ParseInteger(edtDataOffset_->text().trimmed().toStdString());
    const auto place = [&](TMap &map, std::size_t field) {
        const auto sum = std::int64_t{OffsetIn(*edtMapOffsets_[field])} + dataOffset;
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
