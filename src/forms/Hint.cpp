#include "forms/Hint.h"

#include "forms/Guard.h"

#include <utility>

#include <QCoreApplication>
#include <QStatusTipEvent>
#include <QTextDocument>
#include <QWidget>

namespace {
/// Sees the status tip of whatever control the mouse enters and hands it to the handler in force.
class THintFilter : public QObject {
public:
    THintHandler handler;
    bool held = false;

    THintFilter() { QCoreApplication::instance()->installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override {
        const QEvent::Type type = event->type();
        if (type == QEvent::KeyPress || type == QEvent::MouseButtonPress)
            held = false;
        if (type != QEvent::StatusTip || !handler)
            return false;
        if (held)
            return true;
        const QString hint = static_cast<QStatusTipEvent *>(event)->tip();
        // A copy: the handler may replace itself.
        Guarded([hint, run = handler] { run(LongHint(hint)); });
        return true;
    }
};

THintFilter &HintFilter() {
    static THintFilter filter;
    return filter;
}
} // namespace

THintHandler SetApplicationHint(THintHandler handler) {
    return std::exchange(HintFilter().handler, std::move(handler));
}

void SetPlainToolTip(QWidget &control, const QString &text) {
    control.setToolTip(Qt::mightBeRichText(text) ? "<p>" + text.toHtmlEscaped() + "</p>" : text);
}

void SetHint(QWidget *control, const QString &hint) {
    SetPlainToolTip(*control, ShortHint(hint));
    control->setStatusTip(hint);
}

void HoldHints() {
    HintFilter().held = true;
}

QString ShortHint(const QString &hint) {
    return hint.section('|', 0, 0);
}

QString LongHint(const QString &hint) {
    return hint.contains('|') ? hint.section('|', 1) : hint;
}
