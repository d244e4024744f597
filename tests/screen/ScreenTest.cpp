// What a window manager decides, on a real screen: which window gets the keys, which one lies on
// top, how large a window is. Keys come from outside, as from a keyboard.
#include "filedisplay/FileDisplay.h"
#include "forms/Aligrid.h"
#include "forms/PageControl.h"
#include "maps/Maps.h"
#include "pages/PageFixture.h"
#include "spec/Application.h"
#include "spec/main.h"
#include "start/WaitFor.h"

#include <QApplication>
#include <QProcess>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>
#include <QTimer>
#include <QWindow>

namespace {
constexpr int fuelTab = 1;
constexpr int contentsTab = 5;
constexpr QSize usualSize(800, 600);
constexpr QSize byHand(620, 460);

QByteArray Run(const QString &program, const QStringList &arguments) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished()) << program.toStdString();
    return process.readAllStandardOutput();
}

void Type(const QStringList &keys) {
    Run("xdotool", QStringList("key") + keys);
}

/// The windows from the lowest to the topmost.
QByteArray Stacking() {
    return Run("xprop", {"-root", "_NET_CLIENT_LIST_STACKING"}).trimmed();
}

bool IsTopmost(const QWidget &window) {
    return Stacking().endsWith(QByteArray("0x") + QByteArray::number(window.winId(), 16));
}

/// Whether the window manager has noticed, too, that the window is the active one.
bool IsManagedAsActive(const QWidget &window) {
    return Run("xprop", {"-root", "_NET_ACTIVE_WINDOW"})
        .trimmed()
        .endsWith(QByteArray("0x") + QByteArray::number(window.winId(), 16));
}

class TScreenTest : public TPageTest {
protected:
    TScreenTest() {
        SetUpApplication();
        PlantMaps();
        PlaceMaps(window.workspace);
        window.workspace.romFileName = "A.BIN"; // so that the contents view fills its grid
        window.setWindowTitle("Ferrolyn");
        window.show();
        window.tmrSplashTimer(); // what the first tick does
        EXPECT_TRUE(WaitFor([this] { return IsUp(window) && Normal(); }));
        Activate(window);
    }

    static bool IsUp(const QWidget &widget) {
        return widget.windowHandle() && widget.windowHandle()->isExposed();
    }
    bool Normal() const {
        return !(window.windowState() & (Qt::WindowMinimized | Qt::WindowMaximized));
    }
    static void Activate(QWidget &widget) {
        widget.activateWindow();
        EXPECT_TRUE(WaitFor([&] { return widget.isActiveWindow(); }));
    }
    /// What the user does and the next tick takes back. The window manager has then done all that
    /// was asked of it before.
    void MaximiseAndTick() {
        window.setWindowState(Qt::WindowMaximized);
        ASSERT_TRUE(WaitFor([this] { return window.size() != byHand; }));
        window.tmrSplashTimer();
        ASSERT_TRUE(WaitFor([this] { return Normal() && window.size() == byHand; }));
    }
    TStringAlignGrid &ContentsGrid() {
        return FindControl<TStringAlignGrid>(*window.Page(contentsTab), "grdFile");
    }
    TfrmFileContents &EnterContents() {
        window.PageControl1->SelectByMouse(contentsTab);
        EXPECT_TRUE(WaitFor([this] { return ContentsGrid().hasFocus(); }));
        ContentsGrid().SetCurrent(1, fuelPT / 16 + 1);
        return dynamic_cast<TfrmFileContents &>(*window.Page(contentsTab));
    }
    /// A key that is pressed now goes to the contents view.
    void ExpectKeysInThePage() {
        const int row = ContentsGrid().Row();
        Type({"Down"});
        EXPECT_TRUE(WaitFor([&] { return ContentsGrid().Row() == row + 1; }));
        EXPECT_TRUE(window.isActiveWindow());
    }
    /// F6 leads into a tool window and back.
    void ExpectF6(const QWidget &tool) {
        Type({"F6"});
        EXPECT_TRUE(WaitFor([&] { return tool.isActiveWindow(); }));
        EXPECT_TRUE(tool.isAncestorOf(QApplication::focusWidget()));
        EXPECT_TRUE(WaitFor([&] { return IsManagedAsActive(tool); })); // no hand is quicker
        Type({"F6"});
        EXPECT_TRUE(WaitFor([&] { return window.isActiveWindow(); }));
        ExpectKeysInThePage();
    }

    TfrmNotebook window;
};

TEST_F(TScreenTest, TheFirstTickLeavesAWindowThatFitsTheScreen) {
    const QRect screen = window.screen()->availableGeometry();
    if (window.screen()->size().height() > usualSize.height()) {
        EXPECT_EQ(window.size(), usualSize);
    }
    EXPECT_TRUE(WaitFor([&] { return screen.contains(window.frameGeometry()); }))
        << window.frameGeometry().width() << " x " << window.frameGeometry().height();
    const QWidget &bottom = *window.StatusBar1;
    EXPECT_TRUE(window.rect().contains(bottom.geometry()));
    for (int tab = 0; tab < window.PageCount(); ++tab) {
        window.PageControl1->SelectByUser(tab);
        QTest::qWait(0);
        EXPECT_TRUE(screen.contains(window.frameGeometry())) << "tab " << tab;
    }
}

TEST_F(TScreenTest, TicksLeaveOrderSizeAndActiveWindowAlone) {
    window.resize(byHand);
    ASSERT_TRUE(WaitFor([this] { return window.size() == byHand; }));
    QWidget other;
    other.resize(300, 200);
    other.show();
    ASSERT_TRUE(WaitFor([&] { return IsUp(other); }));
    Activate(other);
    ASSERT_TRUE(WaitFor([&] { return IsTopmost(other); }));
    for (int round = 0; round < 3; ++round) {
        MaximiseAndTick();
        // The window manager publishes the order when it has done what was asked of it.
        EXPECT_TRUE(WaitFor([&] { return IsTopmost(other); })) << Stacking().toStdString();
        EXPECT_TRUE(other.isActiveWindow());
    }
}

TEST_F(TScreenTest, TheKeyWindowLeavesTheKeysToThePage) {
    TfrmFileContents &page = EnterContents();
    page.Button1Click();
    auto &key = FindControl<QWidget>(window, "frmKey");
    ASSERT_TRUE(WaitFor([&] { return IsUp(key); }));
    ExpectKeysInThePage();
    ExpectF6(key);
}

TEST_F(TScreenTest, AQuickMapLeavesTheKeysToThePage) {
    TfrmFileContents &page = EnterContents();
    page.placing.QuickMap(TMapShape::TwoD, false);
    auto &chart = FindControl<QWidget>(window, "frmQuickChart");
    ASSERT_TRUE(WaitFor([&] { return IsUp(chart); }));
    ExpectKeysInThePage();
    ExpectF6(chart);
}

TEST_F(TScreenTest, TheBulkToolShowsItsWholeWidth) {
    window.PageControl1->SelectByMouse(fuelTab);
    FindControl<QPushButton>(*window.Page(fuelTab), "btnRecalculate").click();
    auto &tool = FindControl<QWidget>(window, "frmToolWindow");
    ASSERT_TRUE(WaitFor([&] { return IsUp(tool); }));
    QTest::qWait(0);
    for (const auto *area : tool.findChildren<QScrollArea *>())
        EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0);
    EXPECT_LE(tool.frameGeometry().height(), tool.screen()->availableSize().height());
}

TEST_F(TScreenTest, AQuestionAboutEditsIsAnsweredByItsButtonsOnly) {
    int closes = 0;
    struct TCloses : QObject {
        explicit TCloses(int &seen) : count(seen) {}
        bool eventFilter(QObject *, QEvent *event) override {
            count += event->type() == QEvent::Close;
            return false;
        }
        int &count;
    } watch(closes);
    SetDialogs(nullptr); // the toolkit's
    dynamic_cast<TfrmMaps &>(*window.Page(fuelTab)).PTChanged = true;
    QTimer::singleShot(0, &window, [&] {
        QWidget *box = QApplication::activeModalWidget();
        ASSERT_TRUE(box);
        box->installEventFilter(&watch);
        EXPECT_TRUE(WaitFor([&] { return box->isActiveWindow(); }));
        Type({"alt+F4"});
        EXPECT_TRUE(WaitFor([&] { return closes == 1; }));
        EXPECT_TRUE(box->isVisible());
        window.close(); // once more
        EXPECT_TRUE(window.isVisible());
        Type({"Escape", "Return"}); // "Yes" is the box's default
    });
    EXPECT_TRUE(window.close());
    EXPECT_TRUE(Image().modified) << "answered Yes";
}
} // namespace
