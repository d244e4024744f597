#include "filedisplay/Overview.h"

#include "filedisplay/FileGrid.h"
#include "filedisplay/OverviewLines.h"
#include "forms/AligridColors.h"
#include "forms/Hint.h"

#include <algorithm>

#include <QEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

namespace {
constexpr int usualWidth = 24;
constexpr int leastWidth = 12;      // leaves the grid its room on small screens
constexpr int stripEdge = 2;        // the focus is seen by it
constexpr int leastFrameHeight = 7; // pixels, so that it can be seen whatever the image's size
constexpr double leastMarkContrast = 1.3; // contrast of a line, whose colour must stay what it is

void DrawFrame(QPainter &painter, const QRect &outer, int thickness, const QColor &color) {
    painter.fillRect(outer.left(), outer.top(), outer.width(), thickness, color);
    painter.fillRect(outer.left(), outer.bottom() - thickness + 1, outer.width(), thickness, color);
    painter.fillRect(outer.left(), outer.top(), thickness, outer.height(), color);
    painter.fillRect(outer.right() - thickness + 1, outer.top(), thickness, outer.height(), color);
}

QColor AccentColor(const QPalette &palette) {
    return Legible(palette.color(QPalette::Active, QPalette::Highlight),
                   palette.color(QPalette::Base), leastLineContrast);
}
} // namespace

TOverview::TOverview(TStringAlignGrid &grid, QWidget *parent)
    : QAbstractSlider(parent), grid_(grid) {
    setInvertedControls(true); // down is onwards
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Expanding);
    setAccessibleName(tr("Overview"));
    SetHint(this, tr("The whole image with its marks: a click or the arrow keys go there"));
    const QScrollBar &bar = *grid.verticalScrollBar();
    connect(&bar, &QScrollBar::rangeChanged, this, &TOverview::Follow);
    connect(&bar, &QScrollBar::valueChanged, this, &TOverview::setValue);
    connect(this, &TOverview::valueChanged, &bar, &QScrollBar::setValue);
    connect(grid.model(), &QAbstractItemModel::dataChanged, this, &TOverview::Renew);
    connect(grid.model(), &QAbstractItemModel::modelReset, this, &TOverview::Renew);
}

QSize TOverview::sizeHint() const {
    return {usualWidth, usualWidth};
}

QSize TOverview::minimumSizeHint() const {
    return {leastWidth, leastWidth};
}

void TOverview::Renew() {
    marks_ = {};
    update();
}

void TOverview::Follow() {
    const QScrollBar &bar = *grid_.verticalScrollBar();
    setRange(bar.minimum(), bar.maximum());
    setPageStep(grid_.VisibleRowCount());
}

int TOverview::Rows() const {
    return grid_.RowCount() - 1;
}

QRect TOverview::Inside() const {
    return rect().adjusted(stripEdge, stripEdge, -stripEdge, -stripEdge);
}

QRect TOverview::VisiblePart() const {
    const QRect inside = Inside();
    if (Rows() == 0)
        return {};
    const int shown = std::min(grid_.VisibleRowCount(), Rows());
    const double rowHeight = double(inside.height()) / Rows();
    const int height =
        std::min(std::max(qRound(shown * rowHeight), leastFrameHeight), inside.height());
    const int top = qRound((value() + shown / 2.0) * rowHeight - height / 2.0);
    return {inside.left(), inside.top() + std::clamp(top, 0, inside.height() - height),
            inside.width(), height};
}

/// The row at `y` comes to the middle of the grid.
void TOverview::GoTo(int y) {
    const QRect inside = Inside();
    const int row = Rows() * (y - inside.top()) / std::max(inside.height(), 1);
    setSliderPosition(row - grid_.VisibleRowCount() / 2);
}

const QImage &TOverview::Marks(int lines) {
    const int width = std::max(Inside().width(), 0);
    if (marks_.size() == QSize(width, lines))
        return marks_;
    marks_ = QImage(width, lines, QImage::Format_RGB32);
    const QColor base = palette().color(QPalette::Base);
    marks_.fill(base);
    QPainter painter(&marks_);
    int y = 0;
    for (const TOverviewLine &line : OverviewLines(SeenMarks(grid_), std::size_t(lines))) {
        const int count = static_cast<int>(line.size());
        for (int i = 0; i < count; ++i) {
            const int left = i * width / count;
            painter.fillRect(
                left, y, (i + 1) * width / count - left, 1,
                Legible(PaintedColor(line[std::size_t(i)], palette()), base, leastMarkContrast));
        }
        ++y;
    }
    return marks_;
}

void TOverview::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const QColor base = palette().color(QPalette::Base);
    const QColor accent = AccentColor(palette());
    painter.fillRect(rect(), base);
    const QRect inside = Inside();
    painter.drawImage(inside, Marks(std::max(qRound(inside.height() * devicePixelRatioF()), 0)));
    if (const QRect part = VisiblePart(); !part.isEmpty()) {
        DrawFrame(painter, part, 3, base); // parts it from marks of its colour
        DrawFrame(painter, part, 2, accent);
    }
    if (hasFocus())
        DrawFrame(painter, rect(), stripEdge, accent);
    else
        DrawFrame(painter, rect(), 1, Blended(palette().color(QPalette::Text), base, 0.35));
}

void TOverview::changeEvent(QEvent *event) {
    QAbstractSlider::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        Renew();
}

void TOverview::mousePressEvent(QMouseEvent *event) {
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    grid_.setFocus(Qt::MouseFocusReason); // as a click on its scroll bar does
    setSliderDown(true);
    GoTo(event->position().toPoint().y());
}

void TOverview::mouseMoveEvent(QMouseEvent *event) {
    if (isSliderDown())
        GoTo(event->position().toPoint().y());
}

void TOverview::mouseReleaseEvent(QMouseEvent *event) {
    if (event->button() == Qt::LeftButton)
        setSliderDown(false);
}
