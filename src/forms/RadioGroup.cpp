#include "forms/RadioGroup.h"

#include "forms/Guard.h"

#include <algorithm>

#include <QButtonGroup>
#include <QGridLayout>
#include <QHelpEvent>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QStyleOptionButton>
#include <QToolTip>

namespace {
constexpr int leastLetters = 8; // of a label that stay readable in a narrow group
constexpr int mostLetters = 60; // that a label may claim; longer ones are cut

bool IsControl(QChar letter) {
    return letter.category() == QChar::Other_Control ||
           letter.category() == QChar::Separator_Line ||
           letter.category() == QChar::Separator_Paragraph;
}

/// The text as a button shows it letter by letter.
QString ButtonText(QString text) {
    std::replace_if(text.begin(), text.end(), IsControl, QChar(QChar::ReplacementCharacter));
    return text.replace('&', "&&");
}

/// A radio button that tells a click from a change by program and cuts a label that is too long.
class TItemButton : public QRadioButton {
public:
    explicit TItemButton(const QString &text) : QRadioButton(ButtonText(text)) {
        setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    }

    bool inClick = false; ///< a click is under way, of which a signal will tell when it is done

    QSize sizeHint() const override { return Bounded(mostLetters); }
    QSize minimumSizeHint() const override { return Bounded(leastLetters); }

protected:
    void nextCheckState() override {
        const QScopedValueRollback<bool> clicking(inClick, true);
        QRadioButton::nextCheckState();
    }

    void initStyleOption(QStyleOptionButton *option) const override {
        QRadioButton::initStyleOption(option);
        option->text = fontMetrics().elidedText(text(), Qt::ElideRight, width() - Decoration(),
                                                Qt::TextShowMnemonic);
    }

    bool event(QEvent *event) override {
        if (event->type() != QEvent::ToolTip || width() >= QRadioButton::sizeHint().width())
            return QRadioButton::event(event);
        const QString shown = QString(text()).replace("&&", "&").toHtmlEscaped();
        QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), "<p>" + shown + "</p>",
                           this);
        return true;
    }

private:
    /// What the round mark and the gap behind it take.
    int Decoration() const {
        return style()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth, nullptr, this) +
               style()->pixelMetric(QStyle::PM_RadioButtonLabelSpacing, nullptr, this);
    }

    QSize Bounded(int letters) const {
        const QSize whole = QRadioButton::sizeHint();
        const int limit = Decoration() + letters * fontMetrics().averageCharWidth();
        return {qMin(whole.width(), limit), whole.height()};
    }
};
} // namespace

TRadioGroup::TRadioGroup(const QString &title, int columns, QWidget *parent)
    : QGroupBox(title, parent),
      columns_(columns),
      grid_(new QGridLayout(this)),
      buttons_(new QButtonGroup(this)),
      retired_(std::make_unique<QWidget>()) {
    // What is left over in height stays below the items instead of spreading them.
    grid_->setAlignment(Qt::AlignTop);
    for (int column = 0; column < columns_; ++column)
        grid_->setColumnStretch(column, 1);
}

TRadioGroup::~TRadioGroup() = default;

void TRadioGroup::Clear() {
    for (QAbstractButton *button : buttons_->buttons()) {
        buttons_->removeButton(button);
        // The click of this very button may be the caller.
        button->setParent(retired_.get());
        button->deleteLater();
    }
    items_.clear();
}

void TRadioGroup::AddItem(const QString &text) {
    auto *button = new TItemButton(text);
    button->setParent(this);
    button->setObjectName(objectName() + QString::number(ItemCount()));
    buttons_->addButton(button, ItemCount());
    const auto chosen = [this] {
        if (OnClick)
            OnClick();
    };
    ConnectGuarded(button, &QRadioButton::clicked, this, chosen);
    // Accessibility tools toggle without a click.
    connect(button, &QRadioButton::toggled, this, [this, button, chosen](bool checked) {
        OneTabStop();
        if (checked && !button->inClick)
            Guarded(chosen);
    });
    items_ << text;
    OneTabStop();
    Arrange();
    button->show();
}

void TRadioGroup::Arrange() {
    const int rows = (ItemCount() + columns_ - 1) / columns_;
    for (int index = 0; index < ItemCount(); ++index)
        grid_->addWidget(buttons_->button(index), index % rows, index / rows);
}

/// The chosen item, or the first one; the arrow keys go to the others. The toolkit sees to it only
/// once the user has chosen.
void TRadioGroup::OneTabStop() {
    const int stop = qMax(ItemIndex(), 0);
    for (QAbstractButton *button : buttons_->buttons())
        button->setFocusPolicy(buttons_->id(button) == stop ? Qt::StrongFocus : Qt::ClickFocus);
}

int TRadioGroup::ItemIndex() const {
    return buttons_->checkedId();
}

void TRadioGroup::SetItemIndex(int index) {
    buttons_->setExclusive(false);
    for (QAbstractButton *button : buttons_->buttons()) {
        const QSignalBlocker quiet(button);
        button->setChecked(buttons_->id(button) == index);
    }
    buttons_->setExclusive(true);
    OneTabStop();
}
