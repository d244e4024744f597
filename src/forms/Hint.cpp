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

    THintFilter() { QCoreApplication::instance()->installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override {
        if (event->type() != QEvent::StatusTip || !handler)
            return false;
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

QString ShortHint(const QString &hint) {
    return hint.section('|', 0, 0);
}

QString LongHint(const QString &hint) {
    return hint.contains('|') ? hint.section('|', 1) : hint;
}
