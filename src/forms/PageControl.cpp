#include "forms/PageControl.h"

#include "forms/Guard.h"
#include "forms/Hint.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QTabBar>
#include <QWheelEvent>

namespace {
constexpr int wheelNotch = 120; // eighths of a degree, the toolkit's unit for one notch

/// The toolkit's tab bar selects by itself on these events; this one hands the wish on.
class TAskingTabBar : public QTabBar {
public:
    explicit TAskingTabBar(TPageControl &pages) : QTabBar(&pages), pages_(pages) {
        // A click takes the focus as well, so that an open edit in the page is left first.
        setFocusPolicy(Qt::StrongFocus);
    }

protected:
    void mousePressEvent(QMouseEvent *event) override {
        event->accept();
        if (event->button() == Qt::LeftButton)
            pages_.SelectByMouse(tabAt(event->position().toPoint()));
    }

    void wheelEvent(QWheelEvent *event) override {
        event->accept();
        const QPoint turned = event->angleDelta();
        turned_ += qAbs(turned.x()) > qAbs(turned.y()) ? turned.x() : turned.y();
        const int notches = turned_ / wheelNotch;
        turned_ %= wheelNotch;
        if (notches != 0)
            pages_.SelectByMouse(pages_.TabAtStep(notches > 0 ? -1 : 1, false));
    }

    void keyPressEvent(QKeyEvent *event) override {
        const int forward = isRightToLeft() ? -1 : 1;
        switch (event->key()) {
        case Qt::Key_Left:
            return pages_.SelectByUser(pages_.TabAtStep(-forward, false));
        case Qt::Key_Right:
            return pages_.SelectByUser(pages_.TabAtStep(forward, false));
        case Qt::Key_Home:
            return pages_.SelectByUser(0);
        case Qt::Key_End:
            return pages_.SelectByUser(count() - 1);
        default:
            event->ignore();
        }
    }

private:
    TPageControl &pages_;
    int turned_ = 0;
};

/// The keys that go to the next (+1) and the previous (-1) tab from anywhere in a page.
constexpr std::pair<QKeyCombination, int> tabKeys[] = {{Qt::CTRL | Qt::Key_Tab, 1},
                                                       {Qt::CTRL | Qt::SHIFT | Qt::Key_Tab, -1},
                                                       {Qt::CTRL | Qt::Key_PageDown, 1},
                                                       {Qt::CTRL | Qt::Key_PageUp, -1}};

int StepOfKey(const QKeyEvent &event) {
    const bool back = event.key() == Qt::Key_Backtab; // which is Shift and Tab
    const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
    const QKeyCombination pressed(back ? held | Qt::ShiftModifier : held,
                                  back ? Qt::Key_Tab : Qt::Key(event.key()));
    for (const auto &[keys, step] : tabKeys)
        if (keys == pressed)
            return step;
    return 0;
}
} // namespace

TPageControl::TPageControl(QWidget *parent) : QTabWidget(parent) {
    setObjectName("PageControl1");
    setTabBar(new TAskingTabBar(*this));
    SetHint(tabBar(), tr("Ctrl+Tab goes to the next page, Ctrl+Shift+Tab to the one before"));
    connect(this, &QTabWidget::currentChanged, this, [this] { CurrentTabChanged(); });
    // Grids and memos keep some of these keys for themselves, hence shortcuts and not key events
    // alone.
    for (const auto &[keys, step] : tabKeys) {
        auto *shortcut = new QShortcut(keys, this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this,
                [this, by = step] { SelectByUser(TabAtStep(by, true)); });
    }
}

void TPageControl::SelectByUser(int index) {
    if (asking_ || index == currentIndex() || !isTabEnabled(index) || !isTabVisible(index))
        return;
    const QPointer<QWidget> wanted = widget(index);
    if (!MayChange())
        return;
    // The tab may have gone while the page was asked; the page then is entered anew.
    if (wanted)
        SelectByProgram(indexOf(wanted));
    if (OnChange)
        Guarded(OnChange);
}

bool TPageControl::MayChange() {
    const QScopedValueRollback<bool> asking(asking_, true);
    TakeFocusOutOfPage();
    bool may = true;
    const bool answered = Guarded([&] { may = !OnChanging || OnChanging(); });
    return answered && may;
}

void TPageControl::SelectByProgram(int index) {
    if (!widget(index))
        return;
    accepted_ = widget(index);
    setCurrentIndex(index);
}

void TPageControl::AddInOneGo(const std::function<void()> &add) {
    const int first = count();
    const QPointer<QWidget> focus = QApplication::focusWidget();
    const auto layOut = qScopeGuard([&] {
        adding_ = false;
        for (int index = first; index < count(); ++index)
            tabBar()->setTabVisible(index, true);
        show();
        if (focus)
            focus->setFocus(); // which hiding has moved
    });
    hide();
    adding_ = true;
    add();
}

void TPageControl::tabInserted(int index) {
    if (adding_)
        tabBar()->setTabVisible(index, false); // what is not visible is not laid out
}

void TPageControl::SelectByMouse(int index) {
    SelectByUser(index);
    if (index >= 0 && index == currentIndex() && !asking_ && OnMouseChoice)
        Guarded(OnMouseChoice);
}

int TPageControl::TabAtStep(int step, bool wrap) const {
    for (int tried = 1, index = currentIndex(); tried < count(); ++tried) {
        index += step;
        if (wrap)
            index = (index + count()) % count();
        if (isTabEnabled(index) && isTabVisible(index))
            return index;
    }
    return -1;
}

void TPageControl::keyPressEvent(QKeyEvent *event) {
    const int step = StepOfKey(*event);
    event->setAccepted(step != 0);
    if (step != 0)
        SelectByUser(TabAtStep(step, true));
}

/// Accessibility tools set the index directly. Such a change is taken back and asked for in the
/// regular way; one that follows from removing or adding a tab stands.
void TPageControl::CurrentTabChanged() {
    const int before = accepted_ ? indexOf(accepted_) : -1;
    const int wanted = currentIndex();
    if (before < 0)
        accepted_ = currentWidget();
    if (before < 0 || before == wanted)
        return;
    setCurrentIndex(before);
    SelectByUser(wanted);
}

/// So that an open edit in the page is finished before the page is asked.
void TPageControl::TakeFocusOutOfPage() {
    const QWidget *focus = QApplication::focusWidget();
    if (currentWidget() && focus && currentWidget()->isAncestorOf(focus))
        tabBar()->setFocus(Qt::ShortcutFocusReason);
}
