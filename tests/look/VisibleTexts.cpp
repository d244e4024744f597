#include "VisibleTexts.h"

#include "forms/ElidedLabel.h"

#include <algorithm>

#include <QAbstractButton>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionGroupBox>
#include <QStyleOptionTab>
#include <QTabBar>
#include <QToolButton>

namespace {
int WidthOf(const QWidget &control, const QString &text) {
    return control.fontMetrics().size(Qt::TextShowMnemonic, text).width();
}

template <class Button>
QRect ButtonPlace(const Button &button, QStyle::SubElement element) {
    QStyleOptionButton option;
    option.initFrom(&button);
    option.text = button.text();
    return button.style()->subElementRect(element, &option, &button);
}

QRect TextPlace(const QAbstractButton &button) {
    if (const auto *radio = qobject_cast<const QRadioButton *>(&button))
        return ButtonPlace(*radio, QStyle::SE_RadioButtonContents);
    if (const auto *check = qobject_cast<const QCheckBox *>(&button))
        return ButtonPlace(*check, QStyle::SE_CheckBoxContents);
    return ButtonPlace(button, QStyle::SE_PushButtonContents);
}

QRect TitlePlace(const QGroupBox &group) {
    QStyleOptionGroupBox option;
    option.initFrom(&group);
    option.text = group.title();
    option.lineWidth = 1;
    option.textAlignment = Qt::Alignment(group.alignment());
    option.subControls = QStyle::SC_GroupBoxFrame | QStyle::SC_GroupBoxLabel;
    return group.style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel,
                                         &group);
}

class TCollector {
public:
    explicit TCollector(const QWidget &window) : window_(window) {}

    std::vector<TVisibleText> Run() {
        if (const auto *menu = qobject_cast<const QMenu *>(&window_))
            AddMenu(*menu);
        Look(window_);
        return std::move(texts_);
    }

private:
    void Look(const QWidget &control) {
        if (const auto *label = qobject_cast<const QLabel *>(&control))
            AddLabel(*label);
        else if (const auto *button = qobject_cast<const QAbstractButton *>(&control))
            Add(control, button->text(), TextPlace(*button));
        else if (const auto *group = qobject_cast<const QGroupBox *>(&control))
            Add(control, group->title(), TitlePlace(*group));
        else if (const auto *tabs = qobject_cast<const QTabBar *>(&control))
            AddTabs(*tabs);
        else if (const auto *edit = qobject_cast<const QLineEdit *>(&control))
            Add(control, edit->text(), edit->rect().adjusted(4, 2, -4, -2));
        for (const QObject *child : control.children())
            if (const auto *widget = qobject_cast<const QWidget *>(child);
                widget && widget->isVisibleTo(&window_) && !widget->isWindow())
                Look(*widget);
    }

    void AddLabel(const QLabel &label) {
        const auto *elided = qobject_cast<const TElidedLabel *>(&label);
        Add(label, elided ? elided->ShownText() : label.text(), label.contentsRect());
        if (!texts_.empty() && texts_.back().control == &label) {
            if (label.wordWrap() || label.text().contains('\n'))
                texts_.back().neededWidth = 0;
            texts_.back().onPicture = label.objectName() == "lblStatus";
        }
    }

    void AddTabs(const QTabBar &tabs) {
        for (int i = 0; i < tabs.count(); ++i)
            if (IsShown(tabs, i))
                Add(tabs, tabs.tabText(i), tabs.tabRect(i).adjusted(4, 3, -4, -3));
    }

    /// Not scrolled away, nor behind the buttons that scroll.
    static bool IsShown(const QTabBar &tabs, int index) {
        QRect room = tabs.rect();
        for (const auto *button : tabs.findChildren<QToolButton *>())
            if (button->isVisible())
                room.setRight(std::min(room.right(), button->x() - 1));
        return room.contains(tabs.tabRect(index));
    }

    void AddMenu(const QMenu &menu) {
        for (QAction *action : menu.actions())
            Add(menu, action->text(), menu.actionGeometry(action).adjusted(4, 2, -4, -2));
    }

    void Add(const QWidget &control, const QString &text, const QRect &place) {
        if (text.isEmpty())
            return;
        const QPoint at = control.mapTo(&window_, place.topLeft());
        texts_.push_back({text,
                          QString(control.metaObject()->className()) + " " + control.objectName(),
                          &control,
                          {at, place.size()},
                          WidthOf(control, text),
                          control.isEnabled()});
    }

    const QWidget &window_;
    std::vector<TVisibleText> texts_;
};
} // namespace

std::vector<TVisibleText> VisibleTexts(const QWidget &window) {
    return TCollector(window).Run();
}
