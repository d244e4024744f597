// The buttons that turn, tilt and zoom a chart: four arrows and the zoom pair, in a row. What a
// step does is the form's: the graphical pages (MapsGraphical.h) and the quick chart (QuickChart.h)
// turn opposite ways.
#pragma once

#include "forms/Guard.h"

#include <QToolButton>

class TViewButtons : public QWidget {
    Q_OBJECT
public:
    explicit TViewButtons(QWidget *parent);

    // Each repeats while it is held.
    QToolButton *const btnLeft;
    QToolButton *const btnUp;
    QToolButton *const btnDown;
    QToolButton *const btnRight;
    QWidget *const udZoom; ///< holds the pair, one above the other
    QToolButton *const udZoomUp;
    QToolButton *const udZoomDown;

    /// Runs the handlers of `form` that carry the buttons' names; udZoomClick gets 1 for the upper
    /// and -1 for the lower button.
    template <class Form>
    void ConnectTo(Form &form) {
        constexpr auto clicked = &QToolButton::clicked;
        ConnectGuarded(btnUp, clicked, &form, [&form] { form.btnUpClick(); });
        ConnectGuarded(btnDown, clicked, &form, [&form] { form.btnDownClick(); });
        ConnectGuarded(btnLeft, clicked, &form, [&form] { form.btnLeftClick(); });
        ConnectGuarded(btnRight, clicked, &form, [&form] { form.btnRightClick(); });
        ConnectGuarded(udZoomUp, clicked, &form, [&form] { form.udZoomClick(1); });
        ConnectGuarded(udZoomDown, clicked, &form, [&form] { form.udZoomClick(-1); });
    }

private:
    QToolButton *NewButton(QWidget *parent, const char *name, Qt::ArrowType arrow,
                           const QString &hint);
    void LayOut();
};
