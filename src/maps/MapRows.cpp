#include "maps/MapRows.h"

#include <algorithm>

#include <QVBoxLayout>

namespace {
constexpr int smallestWidth = 480;   // pixels
constexpr int smallestChart = 260;   // pixels
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

QSize TMapRows::minimumSizeHint() const {
    return {smallestWidth, QWidget::minimumSizeHint().height()};
}

void TMapRows::resizeEvent(QResizeEvent *event) {
    QWidget::resizeEvent(event);
    const int chartWidth =
        std::max({smallestChart, chartLines * fontMetrics().height(), width() / chartShare});
    for (TMapPanel *row : rows_)
        row->gridView.SetAvailableWidth(width() - chartWidth - layout_->horizontalSpacing());
}
