#include "maps/MapNote.h"

#include "forms/AligridColors.h"

#include <QEvent>

namespace {
constexpr double greyShare = 0.6; // of the text's colour over the window's
constexpr int textMargin = 4;     // pixels
constexpr int lines = 2;
} // namespace

TMapNote::TMapNote(QWidget *parent, const QString &name) : QLabel(parent) {
    setObjectName(name);
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setMargin(textMargin);
    setAlignment(Qt::AlignLeading | Qt::AlignTop);
    hide();
    TakeThemeColors();
}

QSize TMapNote::minimumSizeHint() const {
    return {0, lines * fontMetrics().lineSpacing() + 2 * textMargin};
}

void TMapNote::TakeThemeColors() {
    QPalette colors;
    const QColor window = colors.color(QPalette::Window);
    const QColor grey = Blended(colors.color(QPalette::WindowText), window, greyShare);
    colors.setColor(QPalette::WindowText, Legible(grey, window));
    setPalette(colors);
}

void TMapNote::changeEvent(QEvent *event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        TakeThemeColors();
}
