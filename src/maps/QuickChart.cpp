#include "maps/QuickChart.h"

#include "forms/Hint.h"
#include "forms/OtherWindows.h"
#include "maps/ChartData.h"
#include "maps/OffsetEdit.h"
#include "maps/ViewButtons.h"
#include "model/Numbers.h"
#include "model/ROMImage.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr QSize usualSize(560, 400);
} // namespace

TfrmQuickChart::TfrmQuickChart(QWidget *owner)
    : TfrmBaseForm(owner),
      chart_(new TAreaChart(pnlMain, "chtMap")),
      chartView_(*chart_),
      view_(new TViewButtons(pnlMain)),
      edtOffset_(new TOffsetEdit(pnlMain, "edtOffset")) {
    setObjectName("frmQuickChart");
    setWindowTitle(tr("Quick Map"));
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_ShowWithoutActivating); // the user goes on in the page
    StopOnF6(*this);
    setWindowFlags(Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                   Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
    MakeControls();
    resize(usualSize);
}

void TfrmQuickChart::MakeControls() {
    chart_->setAccessibleName(windowTitle());
    chart_->StartWithSeries(12);
    chart_->SetBottomInverted(true);
    chart_->SetDepthTitle(tr("% Load"));
    // The buttons stay in their place when the map does not fit.
    QSizePolicy size = chart_->sizePolicy();
    size.setRetainSizeWhenHidden(true);
    chart_->setSizePolicy(size);
    auto *label = new QLabel(tr("Offset"), pnlMain);
    label->setBuddy(edtOffset_);
    SetHint(edtOffset_, tr("Where the map begins"));
    view_->ConnectTo(*this);

    auto *row = new QHBoxLayout;
    row->addWidget(view_);
    row->addStretch(1);
    row->addWidget(label);
    row->addWidget(edtOffset_);
    Contents()->addWidget(chart_, 1);
    Contents()->addLayout(row);
    btnOK->hide(); // there is nothing to accept
    btnCancel->hide();
}

void TfrmQuickChart::SetMapKind(int kind) {
    map_.axisCount = kind;
    map_.axes->axisCount = kind;
    ReadMap();
}

void TfrmQuickChart::SetMapOffset(int offset) {
    map_.SetOffset(offset);
}

void TfrmQuickChart::SetMapPointer(int pointerOffset, std::uint8_t mask) {
    map_.SetPointer(pointerOffset, mask);
}

void TfrmQuickChart::ReadMap() {
    if (map_.location->offset != -1)
        map_.SetPointer(map_.location->offset, map_.location->bitmask);
    else
        map_.SetOffset(map_.GetLocation());
}

void TfrmQuickChart::FormShow() {
    TfrmBaseForm::FormShow();
    if (!ROMImage() || ROMImage()->size == 0)
        return;
    ReadMap();
    const QString offset = QString::fromStdString(FormatOffset(map_.GetLocation()));
    setWindowTitle(tr("Map Offset: %1").arg(offset));
    chart_->setAccessibleName(windowTitle());
    map_.SizeChart(chartView_);
    FillQuickChart(map_, chartView_);
    edtOffset_->setText(offset);
}

void TfrmQuickChart::btnUpClick() {
    chart_->TiltBy(-turnStep);
}

void TfrmQuickChart::btnDownClick() {
    chart_->TiltBy(turnStep);
}

void TfrmQuickChart::btnLeftClick() {
    chart_->TurnBy(-turnStep);
}

void TfrmQuickChart::btnRightClick() {
    chart_->TurnBy(turnStep);
}

void TfrmQuickChart::udZoomClick(int direction) {
    chart_->ZoomBy(direction * zoomStep);
}
