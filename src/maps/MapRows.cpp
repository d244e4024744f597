#include "maps/MapRows.h"

#include <algorithm>

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

QSize TMapRows::minimumSizeHint() const {
    int chart = 0;
    for (const TMapPanel *row : rows_)
        chart = std::max(chart, row->chart->minimumSizeHint().width());
    return {LeastPanelWidth() + layout_->horizontalSpacing() + chart,
            QWidget::minimumSizeHint().height()};
}

void TMapRows::resizeEvent(QResizeEvent *event) {
    QWidget::resizeEvent(event);
    const int chart =
        std::max({usualChart, chartLines * fontMetrics().height(), width() / chartShare});
    const int beside = width() - chart - layout_->horizontalSpacing();
    for (TMapPanel *row : rows_)
        row->gridView.SetAvailableWidth(std::max(beside, LeastPanelWidth()));
}
