// The strip beside the grid of the contents view: the whole image from top to bottom, the marks in
// their colours, the part that the grid shows framed. Its value is the grid's first row that is
// seen, so that keys, the wheel and other tools move it like a scroll bar. Which colour a line has
// is OverviewLines.h's.
#pragma once

#include <QAbstractSlider>
#include <QImage>

class TStringAlignGrid;

class TOverview : public QAbstractSlider {
    Q_OBJECT
public:
    /// Of `grid` (FileGrid.h), which outlives it.
    TOverview(TStringAlignGrid &grid, QWidget *parent);

    /// Takes the colours anew from the grid at the next repaint.
    void Renew();

    /// The frame, in the widget's coordinates; empty where no row is shown.
    QRect VisiblePart() const;
    /// Where the whole image is shown.
    QRect Inside() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void Follow();
    int Rows() const;
    void GoTo(int y);
    const QImage &Marks(int lines);

    TStringAlignGrid &grid_;
    QImage marks_; ///< the lines; empty when the colours are to be taken anew
};
