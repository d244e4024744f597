#include "maps/MapRows.h"

#include <algorithm>

#include <QEvent>
#include <QVBoxLayout>

namespace {
constexpr int usualChart = 260;      // pixels, as long as the panels have room beside it
constexpr int chartLines = 9;        // line heights, which are more than that in large fonts
constexpr int chartShare = 3;        // of the width a third
constexpr int partThrottleShare = 3; // of the free height, the others' being 1
} // namespace

TMapRows::TMapRows(QWidget *parent) : QWidget(parent), layout_(new QGridLayout(this)) {
    layout_->setContentsMargins(0, 0, 0, 0);
    layout_->setColumnStretch(1, 1);
    for (const TMapKind kind : allMapKinds) {
        const auto place = static_cast<std::size_t>(kind);
        rows_[place] = new TMapPanel(*this, PanelTraits(kind));
        const TMapPanel &row = *rows_[place];
        const int line = static_cast<int>(place);
        layout_->addWidget(row.panel, line, 0, Qt::AlignLeading | Qt::AlignTop);
        auto *right = new QVBoxLayout;
        right->addWidget(row.note);
        right->addWidget(row.chart, 1);
        layout_->addLayout(right, line, 1);
        layout_->setRowStretch(line, kind == TMapKind::PT ? partThrottleShare : 1);
    }
}

void TMapRows::ShowOnly(TMapKind kind) {
    for (const TMapKind other : allMapKinds) {
        if (other == kind)
            continue;
        Row(other).HideForGood();
        layout_->setRowStretch(static_cast<int>(other), 0);
    }
}

int TMapRows::LeastPanelWidth() const {
    int width = 0;
    for (const TMapPanel *row : rows_)
        if (!row->panel->isHidden())
            width = std::max(width, row->HeadWidth());
    return width;
}

bool TMapRows::HasPTGrid() const {
    return !Row(TMapKind::PT).panel->isHidden() && !Row(TMapKind::PT).grid->isHidden();
}

int TMapRows::HeightBesidesPTGrid() const {
    int height = -layout_->verticalSpacing();
    for (const TMapPanel *row : rows_)
        if (!row->panel->isHidden())
            height += row->panel->layout()->minimumSize().height() + layout_->verticalSpacing();
    return HasPTGrid() ? height - Row(TMapKind::PT).grid->height() : height;
}

QSize TMapRows::minimumSizeHint() const {
    QSize chart;
    for (const TMapPanel *row : rows_)
        chart = chart.expandedTo(row->chart->minimumSizeHint());
    const int panels =
        HeightBesidesPTGrid() + (HasPTGrid() ? Row(TMapKind::PT).gridView.LeastHeight() : 0);
    return {LeastPanelWidth() + layout_->horizontalSpacing() + chart.width(),
            std::max(panels, chart.height())};
}

void TMapRows::ShareRoom() {
    const int chart =
        std::max({usualChart, chartLines * fontMetrics().height(), width() / chartShare});
    const int beside = width() - chart - layout_->horizontalSpacing();
    const int panel = std::max(beside, LeastPanelWidth());
    for (const TMapKind oneRow : {TMapKind::Idle, TMapKind::WOT})
        Row(oneRow).gridView.SetRoom({panel, height()});
    // Its rows give way so that the two maps below it are in sight.
    Row(TMapKind::PT).gridView.SetRoom({panel, height() - HeightBesidesPTGrid()});
}

bool TMapRows::event(QEvent *event) {
    if (event->type() == QEvent::LayoutRequest)
        ShareRoom();
    return QWidget::event(event);
}

void TMapRows::resizeEvent(QResizeEvent *event) {
    QWidget::resizeEvent(event);
    ShareRoom();
}
