// How often a control is painted.
#pragma once

#include <utility>

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

/// Counts from now on; the control outlives the counter.
class TPaintings : public QObject {
public:
    explicit TPaintings(QWidget &control) {
        QCoreApplication::processEvents(); // what is to be painted already does not count
        control.installEventFilter(this);
    }
    /// Since the last call, once all that waits to be painted is painted.
    int Count() {
        QCoreApplication::processEvents();
        return std::exchange(count_, 0);
    }
    bool eventFilter(QObject *, QEvent *event) override {
        count_ += event->type() == QEvent::Paint;
        return false;
    }

private:
    int count_ = 0;
};
