// The strip beside the grid of the contents view: what it shows, and how mouse and keys move the
// grid with it.
#include "forms/AligridColors.h"
#include "pages/FileWalkFixture.h"
#include "support/Wheel.h"

#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>

namespace {
constexpr QColor lime(0, 0xFF, 0);
constexpr QColor olive(0x80, 0x80, 0);
constexpr int mebibyte = 0x100000;

class TOverviewTest : public TFileWalkTest {
protected:
    QScrollBar &Bar() { return *Grid().verticalScrollBar(); }
    QColor Window() { return Overview().palette().color(QPalette::Base); }
    /// The place in the strip of an offset.
    int HeightOf(int offset) {
        const QRect inside = Overview().Inside();
        return inside.top() + offset / 16 * inside.height() / (Grid().RowCount() - 1);
    }
    QColor ShownAt(int offset) {
        const QImage image = Overview().grab().toImage();
        return image.pixelColor(image.width() / 2, HeightOf(offset));
    }
    /// The rows of pixels that show another colour than the window's, without the frame of what is
    /// seen.
    std::vector<int> MarkedLines() {
        const QImage image = Overview().grab().toImage();
        const QRect inside = Overview().Inside();
        std::vector<int> lines;
        for (int y = inside.top(); y <= inside.bottom(); ++y)
            if (!Overview().VisiblePart().contains(inside.left(), y) &&
                image.pixelColor(inside.center().x(), y) != Window())
                lines.push_back(y);
        return lines;
    }
    void Mark(const char *value) {
        dialogs.inputs = {value};
        Trigger("HighlightAValue1");
        QApplication::processEvents();
    }
    void ClickAt(int y, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(&Overview(), button, {}, {Overview().width() / 2, y});
    }
    /// Of the grid.
    int MiddleRow() { return Bar().value() + Grid().VisibleRowCount() / 2; }
};

// ---- what it shows -----------------------------------------------------------------------------

TEST_F(TOverviewTest, ShowsMarksInTheirPlaceAndColour) {
    Enter(0x10000, {{0x4000, {100, 100}}, {0x8000, {7}}});
    EXPECT_EQ(MarkedLines(), std::vector<int>());
    Trigger("FindConsecutivePossFuelVals");
    Mark("7");
    EXPECT_EQ(MarkedLines(), (std::vector{HeightOf(0x4000), HeightOf(0x8000)}));
    EXPECT_EQ(ShownAt(0x4000), lime);
    EXPECT_EQ(ShownAt(0x8000), olive);
    Trigger("ClearAllMarkers1");
    QApplication::processEvents();
    EXPECT_EQ(MarkedLines(), std::vector<int>());
}

TEST_F(TOverviewTest, ForgetsMarksWithTheGrid) {
    Enter(0x10000, {{0x8000, {7}}});
    Mark("7");
    EXPECT_EQ(ShownAt(0x8000), olive);
    ShowHexadecimal();
    EXPECT_EQ(MarkedLines(), std::vector<int>());
    Mark("7");
    EXPECT_EQ(ShownAt(0x8000), olive);
    window.workspace.romFileName = "other.BIN";
    page->ShowPage();
    EXPECT_EQ(MarkedLines(), std::vector<int>());
}

TEST_F(TOverviewTest, LosesNoCellOfTheLargestImage) {
    for (const int offset : {0x40000, 0x7FFFF, 0xABCDE, mebibyte - 1}) {
        Enter(mebibyte, {{offset, {7}}});
        ShowHexadecimal();
        Mark("7");
        EXPECT_EQ(MarkedLines(), std::vector{HeightOf(offset)}) << offset;
    }
}

TEST_F(TOverviewTest, ShowsTheLastCellOfARowThatIsCut) {
    Enter(0x8001, {{0x8000, {7}}});
    Mark("7");
    const QRect inside = Overview().Inside();
    EXPECT_EQ(MarkedLines(), std::vector{inside.bottom()});
}

TEST_F(TOverviewTest, SpreadsAFewRowsOverItsHeight) {
    Enter(0x21, {{0x1F, {7}}});
    Mark("7");
    EXPECT_EQ(Overview().VisiblePart(), Overview().Inside()) << "all of it is seen";
    EXPECT_EQ(ShownAt(0x10), olive);
    const QRect inside = Overview().Inside();
    const QImage image = Overview().grab().toImage();
    EXPECT_EQ(image.pixelColor(inside.center().x(), inside.top() + inside.height() / 6), Window());
    EXPECT_EQ(image.pixelColor(inside.center().x(), inside.bottom() - inside.height() / 6),
              Window());
}

TEST_F(TOverviewTest, FollowsTheTheme) {
    Enter(0x10000, {{0x8000, {7}}});
    Mark("7");
    QPalette dark = Overview().palette();
    dark.setColor(QPalette::Base, Qt::black);
    Overview().setPalette(dark);
    EXPECT_EQ(ShownAt(0x4000), QColor(Qt::black));
    EXPECT_EQ(ShownAt(0x8000), olive);
}

TEST_F(TOverviewTest, IsPlainWithoutAnImage) {
    Enter(0);
    EXPECT_TRUE(Overview().VisiblePart().isEmpty());
    const QImage image = Overview().grab().toImage();
    EXPECT_EQ(image.pixelColor(image.rect().center()), Window());
    Overview().setFocus();
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_PageDown, Qt::Key_End, Qt::Key_Up})
        Press(key);
    ClickAt(100);
    EXPECT_EQ(Overview().value(), 0);
}

// ---- what is seen ------------------------------------------------------------------------------

TEST_F(TOverviewTest, FramesWhatTheGridShows) {
    Enter(0x1000);
    const QRect inside = Overview().Inside();
    EXPECT_EQ(Overview().VisiblePart().top(), inside.top());
    const double rowHeight = inside.height() / 256.0;
    EXPECT_NEAR(Overview().VisiblePart().height(), Grid().VisibleRowCount() * rowHeight, 1);
    Bar().setValue(100);
    EXPECT_NEAR(Overview().VisiblePart().top(), inside.top() + 100 * rowHeight, 1);
    Bar().setValue(Bar().maximum());
    EXPECT_EQ(Overview().VisiblePart().bottom(), inside.bottom());
    const QImage image = Overview().grab().toImage();
    const QColor frame = image.pixelColor(Overview().VisiblePart().topLeft());
    EXPECT_GE(Contrast(frame, Window()), leastLineContrast);
    EXPECT_EQ(image.pixelColor(Overview().VisiblePart().bottomRight()), frame);
}

TEST_F(TOverviewTest, TheFrameCanBeSeenInTheLargestImage) {
    Enter(mebibyte);
    EXPECT_GE(Overview().VisiblePart().height(), 7);
    for (const int row : {0, 1, 30000, Bar().maximum() - 1, Bar().maximum()}) {
        Bar().setValue(row);
        EXPECT_TRUE(Overview().Inside().contains(Overview().VisiblePart())) << row;
    }
}

TEST_F(TOverviewTest, GrowsWithTheWindow) {
    Enter(0x1000);
    const int before = Overview().VisiblePart().height();
    window.resize(800, 900);
    QApplication::processEvents();
    EXPECT_GT(Overview().VisiblePart().height(), before);
    EXPECT_EQ(Overview().maximum(), Bar().maximum());
    EXPECT_EQ(Overview().pageStep(), Grid().VisibleRowCount());
}

// ---- mouse and keys ----------------------------------------------------------------------------

TEST_F(TOverviewTest, AClickGoesThereAndLeavesTheCellAndTheGridTheKeyboard) {
    Enter(0x10000);
    Select(3, 2);
    for (const int offset : {0x8000, 0x2000, 0xC000}) {
        ClickAt(HeightOf(offset));
        EXPECT_NEAR(MiddleRow(), offset / 16, 8) << "a line is some rows";
    }
    ClickAt(0);
    EXPECT_EQ(Bar().value(), 0);
    ClickAt(Overview().height() - 1);
    EXPECT_EQ(Bar().value(), Bar().maximum());
    EXPECT_EQ(Offset(), 0x12);
    EXPECT_TRUE(Grid().hasFocus());
    Overview().setFocus();
    ClickAt(100);
    EXPECT_TRUE(Grid().hasFocus()) << "as after a click on its scroll bar";
}

TEST_F(TOverviewTest, LeavesTheBottomLineToWhatASearchHasFound) {
    Enter(0x10000, {{0x8000, {7}}});
    Mark("7");
    const std::string found = Said();
    ASSERT_TRUE(found.starts_with("1 cell, at $8000"));
    QTest::mouseMove(&Overview(), {5, HeightOf(0x8000)});
    QApplication::processEvents();
    EXPECT_EQ(Said(), found);
    QTest::mouseMove(Grid().viewport(), {50, 50});
    QApplication::processEvents();
    EXPECT_EQ(Said(), found);
}

TEST_F(TOverviewTest, OnlyTheLeftButtonGoesThere) {
    Enter(0x10000);
    ClickAt(HeightOf(0x8000), Qt::RightButton);
    EXPECT_EQ(Bar().value(), 0);
    QTest::mouseMove(&Overview(), {5, HeightOf(0x8000)});
    EXPECT_EQ(Bar().value(), 0);
}

TEST_F(TOverviewTest, DraggingScrollsAndStopsAtTheEnds) {
    Enter(0x10000);
    const int x = Overview().width() / 2;
    const auto drag = [&](int y) {
        QMouseEvent move(QEvent::MouseMove, QPointF(x, y), Overview().mapToGlobal(QPointF(x, y)),
                         Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(&Overview(), &move);
    };
    QTest::mousePress(&Overview(), Qt::LeftButton, {}, {x, HeightOf(0x1000)});
    drag(HeightOf(0x9000));
    EXPECT_NEAR(MiddleRow(), 0x900, 8);
    drag(HeightOf(0x5000));
    EXPECT_NEAR(MiddleRow(), 0x500, 8);
    drag(-1000);
    EXPECT_EQ(Bar().value(), 0);
    drag(5000);
    EXPECT_EQ(Bar().value(), Bar().maximum());
    QTest::mouseRelease(&Overview(), Qt::LeftButton, {}, {x, HeightOf(0x5000)});
    drag(HeightOf(0x1000));
    EXPECT_EQ(Bar().value(), Bar().maximum()) << "let go";
}

TEST_F(TOverviewTest, KeysAndWheelScrollAsAScrollBarDoes) {
    Enter(0x10000);
    Overview().setFocus();
    const int shown = Grid().VisibleRowCount();
    const auto rowAfter = [&](Qt::Key key) {
        Press(key);
        return Bar().value();
    };
    EXPECT_EQ(rowAfter(Qt::Key_Down), 1);
    EXPECT_EQ(rowAfter(Qt::Key_PageDown), 1 + shown);
    EXPECT_EQ(rowAfter(Qt::Key_Up), shown);
    EXPECT_EQ(rowAfter(Qt::Key_PageUp), 0);
    EXPECT_EQ(rowAfter(Qt::Key_Up), 0);
    EXPECT_EQ(rowAfter(Qt::Key_End), Bar().maximum());
    EXPECT_EQ(rowAfter(Qt::Key_Home), 0);
    EXPECT_TRUE(WheelOver(Overview(), -120));
    EXPECT_EQ(Bar().value(), QApplication::wheelScrollLines());
    EXPECT_TRUE(WheelOver(Overview(), 120));
    EXPECT_EQ(Bar().value(), 0);
    EXPECT_EQ(Offset(), 0);
    EXPECT_TRUE(Overview().hasFocus());
}

TEST_F(TOverviewTest, ComesBehindThePagesOtherControls) {
    Enter(0x10000);
    QStringList stops;
    for (int stop = 0; stop < 4; ++stop) {
        stops << QApplication::focusWidget()->objectName();
        Press(Qt::Key_Tab);
    }
    EXPECT_EQ(stops, (QStringList{"grdFile", "chkDisplayHex", "Button1", "ovwFile"}));
}

// ---- the page around it ------------------------------------------------------------------------

TEST_F(TOverviewTest, LeavesTheRestOfThePageItsSize) {
    Enter(0x10000);
    EXPECT_EQ(Grid().width(), 17 * (38 + Grid().GridLineWidth()) + 4 + 24);
    auto &key = FindControl<QPushButton>(*page, "Button1");
    auto &hex = FindControl<QCheckBox>(*page, "chkDisplayHex");
    EXPECT_EQ(key.size(), key.sizeHint());
    EXPECT_EQ(hex.size(), hex.sizeHint());
    const QList<QWidget *> all{&Grid(), &hex, &key, &Overview()};
    for (const QWidget *control : all) {
        EXPECT_TRUE(page->rect().contains(control->geometry()))
            << control->objectName().toStdString();
        for (const QWidget *other : all)
            EXPECT_TRUE(control == other || !control->geometry().intersects(other->geometry()));
    }
    for (const auto *area : window.findChildren<QScrollArea *>())
        if (area->isAncestorOf(page)) {
            EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0);
            EXPECT_EQ(area->verticalScrollBar()->maximum(), 0);
        }
    EXPECT_EQ(Overview().x(), Grid().geometry().right() + 1 + page->layout()->spacing());
}
} // namespace
