#include "forms/MousePress.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>

namespace {
/// Lives until control returns to the event loop.
class TPressStopper : public QObject {
public:
    TPressStopper() {
        QCoreApplication::instance()->installEventFilter(this);
        deleteLater();
    }
    bool eventFilter(QObject *, QEvent *event) override {
        return event->type() == QEvent::MouseButtonPress ||
               event->type() == QEvent::MouseButtonDblClick;
    }
};
} // namespace

TMousePress::TMousePress() : held_(QGuiApplication::mouseButtons()) {}

TMousePress::~TMousePress() {
    if (held_ & ~QGuiApplication::mouseButtons())
        new TPressStopper; // frees itself
}
