#include "spec/StateButton.h"

#include "forms/Guard.h"
#include "forms/Hint.h"

#include <algorithm>

#include <QMenu>
#include <QStyleOptionButton>

namespace {
constexpr int leastLetters = 6; // of the line that stay readable in a narrow window
constexpr int heightRoom = 4;   // pixels, above and below the line
constexpr int signGap = 4;      // pixels, as the toolkit has it behind an icon
constexpr int mostLetters = 44; // that it may claim: the bottom line says other things too

QString ButtonText(QString text) {
    return text.replace('&', "&&");
}
} // namespace

TStateButton::TStateButton(QWidget *parent) : QPushButton(parent), list(new QMenu(this)) {
    setObjectName("btnState");
    setFlat(true);
    setFocusPolicy(Qt::NoFocus); // its key opens the list from anywhere
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    setStatusTip(tr("What is edited, what is not saved, which mapping is in force: click or F9"));
    list->setObjectName("mnuState");
    list->setAccessibleName(tr("State"));
    ConnectGuarded(this, &QPushButton::clicked, this, [this] { OpenList(); });
}

void TStateButton::ShowState(const std::vector<TStateText> &texts) {
    const bool warning = std::any_of(texts.begin(), texts.end(),
                                     [](const TStateText &text) { return text.warning; });
    QFont lineFont;
    if (warning)
        lineFont.setBold(true);
    setFont(lineFont);
    setIcon(warning ? style()->standardIcon(QStyle::SP_MessageBoxWarning) : QIcon());
    line_ = QString::fromStdString(StateLine(texts));
    setAccessibleName(tr("State: %1").arg(line_));
    FillList(texts);
    updateGeometry();
    CutLine();
}

void TStateButton::FillList(const std::vector<TStateText> &texts) {
    QStringList sentences;
    list->clear();
    for (const TStateText &text : texts) {
        sentences << QString::fromStdString(text.sentence);
        QAction *item = list->addAction(ButtonText(sentences.back()));
        if (text.warning)
            item->setIcon(style()->standardIcon(QStyle::SP_MessageBoxWarning));
        ConnectGuarded(item, &QAction::triggered, this, [this, tab = text.tab] {
            if (OnChoose)
                OnChoose(tab);
        });
    }
    setAccessibleDescription(sentences.join("; "));
    SetPlainToolTip(*this, sentences.join('\n'));
}

void TStateButton::OpenList() {
    const QSize size = list->sizeHint();
    list->popup(mapToGlobal(QPoint(width() - size.width(), -size.height())));
    list->setActiveAction(list->actions().value(0));
}

QSize TStateButton::sizeHint() const {
    return SizeFor(mostLetters);
}

QSize TStateButton::minimumSizeHint() const {
    return SizeFor(leastLetters);
}

QSize TStateButton::SizeFor(int letters) const {
    QStyleOptionButton option;
    initStyleOption(&option);
    const int text = std::min(fontMetrics().horizontalAdvance(line_),
                              letters * fontMetrics().averageCharWidth());
    const int height = std::max(fontMetrics().height(), iconSize().height());
    const QSize whole = style()->sizeFromContents(QStyle::CT_PushButton, &option,
                                                  {text + SignWidth(), height}, this);
    return {whole.width(), height + heightRoom}; // the line keeps the height of its text
}

int TStateButton::SignWidth() const {
    return icon().isNull() ? 0 : iconSize().width() + signGap;
}

void TStateButton::resizeEvent(QResizeEvent *event) {
    QPushButton::resizeEvent(event);
    CutLine();
}

void TStateButton::CutLine() {
    QStyleOptionButton option;
    initStyleOption(&option);
    const QRect room = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this);
    setText(
        ButtonText(fontMetrics().elidedText(line_, Qt::ElideRight, room.width() - SignWidth())));
}
