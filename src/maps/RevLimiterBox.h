// The spin edit of the rev limiter with its label "Max RPM". What is done with its value is the
// fuel page's, in FuelMaps.h.
#pragma once

#include "model/MapViews.h"

#include <QLabel>
#include <QSpinBox>

class TRevLimiterBox : public QSpinBox {
    Q_OBJECT
public:
    /// Box and label are children of `parent`.
    explicit TRevLimiterBox(QWidget *parent);

    QLabel *const label;

    /// Shows or hides the box and its label.
    void SetPresent(bool present);
    /// Gives the text that colour, as far as it is readable in the theme.
    void SetTextColor(TColor color);
    TColor TextColor() const { return color_; }

protected:
    /// Leaves undo and redo to the page, whose steps know more than the digits.
    bool event(QEvent *event) override;
    /// Turns the value only while the box has the focus: whoever scrolls the page over it means
    /// the page.
    void wheelEvent(QWheelEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    TColor color_ = clWindowText;
};
