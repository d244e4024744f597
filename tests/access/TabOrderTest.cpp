// Tab on every page and window: each control once, in the order in which one reads, seen to have
// the focus, and back to where it began.
#include "access/Scenes.h"
#include "forms/PageControl.h"
#include "maps/AreaChart.h"

#include <algorithm>
#include <set>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTabBar>

namespace {
using TStops = std::vector<QWidget *>;

constexpr int mostStops = 100;

std::string Name(const QWidget *widget) {
    return widget->objectName().isEmpty() ? widget->metaObject()->className()
                                          : widget->objectName().toStdString();
}

std::vector<std::string> Names(const TStops &stops) {
    std::vector<std::string> names;
    std::transform(stops.begin(), stops.end(), std::back_inserter(names), Name);
    return names;
}

bool TakesTab(const QWidget &widget) {
    return widget.isVisible() && widget.isEnabled() && !widget.focusProxy() &&
           (widget.focusPolicy() & Qt::TabFocus);
}

/// Presses `key` until the focus is back where it began; `look` sees each stop.
template <class Look>
TStops Walk(QWidget &window, Qt::Key key, Look look) {
    QWidget *start = window.nextInFocusChain();
    while (start != &window && !TakesTab(*start))
        start = start->nextInFocusChain();
    start->setFocus(Qt::TabFocusReason);
    TStops stops;
    do {
        stops.push_back(QApplication::focusWidget());
        look(*stops.back());
        QTest::keyClick(stops.back(), key);
        EXPECT_TRUE(QApplication::focusWidget()) << "after " << Name(stops.back());
    } while (QApplication::focusWidget() && QApplication::focusWidget() != start &&
             stops.size() < mostStops);
    return stops;
}

TStops Walk(QWidget &window, Qt::Key key) {
    return Walk(window, key, [](const QWidget &) {});
}

QRect OnScreen(const QWidget &widget) {
    return {widget.mapToGlobal(QPoint()), widget.size()};
}

/// What no scroll area or window cuts off.
QRect Uncut(const QWidget &widget) {
    QRect rest = OnScreen(widget);
    for (const QWidget *parent = widget.parentWidget(); parent && !widget.isWindow();
         parent = parent->isWindow() ? nullptr : parent->parentWidget())
        rest &= OnScreen(*parent);
    return rest;
}

/// The one of `inner` and its parents that is a child of `outer`.
const QWidget &ChildOf(const QWidget &outer, const QWidget &inner) {
    const QWidget *child = &inner;
    while (child->parentWidget() != &outer)
        child = child->parentWidget();
    return *child;
}

/// Whether one reads `a` before `b`: of the two groups in which they stand side by side, or of
/// themselves, that of `a` is the upper one, or the left one in the same row.
bool ReadsBefore(const QWidget &a, const QWidget &b) {
    const QWidget *common = &a;
    while (common != &b && !common->isAncestorOf(&b))
        common = common->parentWidget();
    if (common == &a || common == &b)
        return common == &a;
    const QRect first = OnScreen(ChildOf(*common, a));
    const QRect second = OnScreen(ChildOf(*common, b));
    if (first.bottom() < second.top() || second.bottom() < first.top())
        return first.bottom() < second.top();
    return first.left() < second.left();
}

/// What a user works with, whatever it says of the focus itself.
bool IsControl(const QWidget &widget) {
    if (widget.objectName().startsWith("qt_") || qobject_cast<const QHeaderView *>(&widget))
        return false;
    const auto *chart = qobject_cast<const TAreaChart *>(&widget);
    return qobject_cast<const QAbstractButton *>(&widget) ||
           qobject_cast<const QAbstractItemView *>(&widget) ||
           qobject_cast<const QAbstractSpinBox *>(&widget) ||
           qobject_cast<const QComboBox *>(&widget) || qobject_cast<const QLineEdit *>(&widget) ||
           qobject_cast<const QPlainTextEdit *>(&widget) ||
           qobject_cast<const QTabBar *>(&widget) || chart;
}

class TTabTest : public TSceneTest, public testing::WithParamInterface<TScene> {
protected:
    /// Tab reaches it, or the arrow keys do from another of its group, or it is a chart that is
    /// turned by other controls, or a key of its own does what it does.
    static bool Reached(const QWidget &control, const TStops &stops) {
        static const QStringList onKeys{"btnMenu", "btnState"}; // F10 and F9
        if (onKeys.contains(control.objectName()))
            return control.focusPolicy() == Qt::NoFocus;
        const auto stopsAt = [&](const QWidget *wanted) {
            return std::find(stops.begin(), stops.end(), wanted) != stops.end();
        };
        if (stopsAt(&control) || control.inherits("QTableCornerButton"))
            return true;
        if (qobject_cast<const QRadioButton *>(&control)) {
            const auto buttons = control.parentWidget()->findChildren<QRadioButton *>();
            return std::any_of(buttons.begin(), buttons.end(), stopsAt);
        }
        const auto turns = [](const QWidget *stop) { return stop->objectName() == "btnLeft"; };
        return control.inherits("TAreaChart") && std::any_of(stops.begin(), stops.end(), turns);
    }
};

TEST_P(TTabTest, VisitsEachControlOnceInReadingOrder) {
    QWidget &opened = Open(GetParam());
    const TStops stops = Walk(opened, Qt::Key_Tab);
    ASSERT_LT(stops.size(), std::size_t{mostStops}) << "never came back to the first control";
    SCOPED_TRACE(testing::PrintToString(Names(stops)));

    std::set<const QWidget *> once;
    for (const QWidget *stop : stops)
        EXPECT_TRUE(once.insert(stop).second) << Name(stop) << " twice";
    for (const QWidget *widget : VisibleWidgets(opened)) {
        if (TakesTab(*widget)) {
            EXPECT_TRUE(once.count(widget)) << Name(widget) << " is left out";
        }
        if (IsControl(*widget) && widget->isEnabled()) {
            EXPECT_TRUE(Reached(*widget, stops)) << Name(widget) << " is for the mouse alone";
        }
    }
    // What comes and goes above the others stands behind them.
    const auto *bar = opened.findChild<const QWidget *>("barRecovery");
    const auto comesAndGoes = [&](const QWidget *stop) { return bar && bar->isAncestorOf(stop); };
    for (std::size_t i = 1; i < stops.size() && !comesAndGoes(stops[i]); ++i)
        EXPECT_TRUE(ReadsBefore(*stops[i - 1], *stops[i]))
            << Name(stops[i]) << " stands before " << Name(stops[i - 1]);
}

TEST_P(TTabTest, ShiftTabGoesTheSameWayBack) {
    QWidget &opened = Open(GetParam());
    TStops forward = Walk(opened, Qt::Key_Tab);
    const TStops back = Walk(opened, Qt::Key_Backtab);
    std::reverse(forward.begin() + 1, forward.end());
    EXPECT_EQ(Names(back), Names(forward));
}

TEST_P(TTabTest, TheFocusCanBeSeen) {
    QWidget &opened = Open(GetParam());
    const TStops stops = Walk(opened, Qt::Key_Tab);
    for (std::size_t i = 0; i < stops.size() && stops.size() > 1; ++i) {
        stops[i]->setFocus(Qt::TabFocusReason);
        const QImage with = opened.grab().toImage();
        const QRect place(stops[i]->mapTo(&opened, QPoint()), stops[i]->size());
        QTest::keyClick(stops[i], Qt::Key_Tab);
        const QImage without = opened.grab().toImage();
        EXPECT_NE(with.copy(place), without.copy(place)) << Name(stops[i]);
    }
}

TEST_P(TTabTest, InASmallWindowTheFocusIsScrolledIntoSight) {
    QWidget &opened = Open(GetParam());
    opened.resize(opened.minimumSizeHint().expandedTo(QSize(500, 300)));
    QTest::qWait(0);
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab})
        Walk(opened, key, [](const QWidget &stop) {
            EXPECT_TRUE(Uncut(stop).contains(OnScreen(stop).center())) << Name(&stop);
        });
}

INSTANTIATE_TEST_SUITE_P(Scenes, TTabTest, testing::ValuesIn(AllScenes()),
                         [](const auto &tested) { return SceneName(tested.param); });
} // namespace
