// What a map page says of numbers that a byte will not show again: in the bottom line, by tool tip
// and to screen readers. What is stored stays as it always was.
#include "maps/MapClipboard.h"
#include "maps/RevLimiterBox.h"
#include "maps/ToolWindow.h"
#include "pages/MapCellsFixture.h"

#include <QHelpEvent>
#include <QToolTip>

namespace {
class TMapNotesTest : public TFuelCellsTest {
protected:
    ~TMapNotesTest() override { QToolTip::hideText(); }

    void Enter(int column, int row, const QString &text) {
        Grid().SetCurrent(column, row);
        Type(text);
    }
    void Interpret() {
        Find<QCheckBox>("chkInterpret").click();
        GoTo("grdPTMap");
    }
    /// The tool tip of a body cell.
    std::string Tip(int column, int row) {
        QToolTip::hideText();
        const QRect cell = Grid().visualRect(Grid().model()->index(row - 1, column - 1));
        QHelpEvent asked(QEvent::ToolTip, cell.center(),
                         Grid().viewport()->mapToGlobal(cell.center()));
        QCoreApplication::sendEvent(Grid().viewport(), &asked);
        return QToolTip::text().toStdString();
    }
    std::string Meaning(int column, int row) {
        QString meaning;
        Grid().OnCellMeaning(column, row, meaning);
        return meaning.toStdString();
    }
    int Byte(int cell) { return Image().Peek(Map().data->offset + cell); }
};

constexpr auto gridHint = "Right-click for more options";

TEST_F(TMapNotesTest, ATypedNumberThatFitsNoByteIsSaidAtOnce) {
    Interpret();
    Enter(2, 1, "5.87");
    constexpr auto note = "5.87 does not fit a byte: 1.87 will be stored";
    EXPECT_EQ(Said(), note);
    EXPECT_EQ(Tip(2, 1), note);
    EXPECT_EQ(Meaning(2, 1), std::string("edited, waiting for Commit; ") + note);
    EXPECT_EQ(Tip(3, 1), gridHint);
    EXPECT_EQ(Meaning(3, 1), "");
    EXPECT_EQ(dialogs.messages, QStringList());
}

TEST_F(TMapNotesTest, TheNextEditEndsWhatWasSaid) {
    Enter(2, 1, "256");
    EXPECT_EQ(Said(), "256 does not fit a byte: 0 will be stored");
    Enter(3, 1, "255");
    EXPECT_EQ(Said(), "");
    EXPECT_EQ(Tip(2, 1), "256 does not fit a byte: 0 will be stored") << "the cell still says it";
    EXPECT_EQ(Tip(3, 1), gridHint);
    EXPECT_EQ(Meaning(3, 1), "edited, waiting for Commit");
}

TEST_F(TMapNotesTest, OfManyTheFirstIsNamedAndTheOthersAreCounted) {
    Clipboard().setText("5\t300\n301\t-1");
    Grid().SetCurrent(2, 1);
    Press(Qt::Key_V, ctrl);
    EXPECT_EQ(Said(), "7200 RPM, 20%: 300 does not fit a byte: 44 will be stored; 2 more cells "
                      "likewise");
    Clipboard().setText("5\t6\n301\t-1");
    Press(Qt::Key_V, ctrl);
    EXPECT_EQ(Said(), "4800 RPM, 60%: 301 does not fit a byte: 45 will be stored; 1 more cell "
                      "likewise");
    Clipboard().setText("5\t6\n7\t-1");
    Press(Qt::Key_V, ctrl);
    EXPECT_EQ(Said(), "7200 RPM, 60%: -1 does not fit a byte: 255 will be stored");
    Clipboard().setText("5\t6\n7\t8");
    Press(Qt::Key_V, ctrl);
    EXPECT_EQ(Said(), "");
}

TEST_F(TMapNotesTest, CommandsOfTheSelectionSayIt) {
    Grid().SetSelection({1, 1, 2, 1});
    Press(Qt::Key_Down, ctrlShift);
    EXPECT_EQ(Said(),
              "2400 RPM, 20%: -9 does not fit a byte: 247 will be stored; 1 more cell likewise");
}

TEST_F(TMapNotesTest, TheBulkToolSaysIt) {
    page->ToolWindow->Amount = 250;
    page->ToolWindow->btnExecClick();
    EXPECT_EQ(Said(),
              "7200 RPM, 20%: 257 does not fit a byte: 1 will be stored; 6 more cells likewise");
    EXPECT_EQ(Tip(4, 3), "262 does not fit a byte: 6 will be stored");
}

TEST_F(TMapNotesTest, RoundingIsSaidBeforeAndAfterCommit) {
    Interpret();
    Enter(2, 1, "0.999");
    EXPECT_EQ(Said(), "0.999 will be stored as 1.00");
    EXPECT_EQ(Tip(2, 1), "0.999 will be stored as 1.00");
    Enter(3, 1, "0.95");
    EXPECT_EQ(Said(), "");
    Click("btnSavePT");
    EXPECT_EQ(Said(), "4800 RPM, 20%: 0.999 was stored as 1.00");
    EXPECT_EQ(Grid().Cell(2, 1), "1.00");
    EXPECT_EQ(Byte(3), 128);
    EXPECT_EQ(Tip(2, 1), gridHint);
}

TEST_F(TMapNotesTest, WhatDoesNotFitIsStoredAsEverAndSaidByCommit) {
    Enter(2, 1, "300");
    Click("btnSavePT");
    EXPECT_EQ(Said(), "300 does not fit a byte: 44 was stored");
    EXPECT_EQ(Byte(3), 44);
    EXPECT_EQ(Grid().Cell(2, 1), "300") << "until the map is read anew";
    EXPECT_EQ(Tip(2, 1), "300 does not fit a byte: 44 will be stored");
    page->LoadPTMap();
    EXPECT_EQ(Grid().Cell(2, 1), "44");
    EXPECT_EQ(Tip(2, 1), gridHint);
}

TEST_F(TMapNotesTest, ACommitWithNothingToSayEndsWhatWasSaid) {
    Enter(2, 1, "300");
    Enter(2, 1, "30");
    page->Say("something");
    Click("btnSavePT");
    EXPECT_EQ(Said(), "");
    page->Say("something");
    Click("btnSavePT"); // of a clean map
    EXPECT_EQ(Said(), "something");
}

TEST_F(TMapNotesTest, ANumberFarTooGreatIsSaidToBeLeftOut) {
    Enter(2, 1, "1e12");
    EXPECT_EQ(Said(), "1e12 cannot be stored: the old byte stays");
    Click("btnSavePT");
    EXPECT_EQ(Said(), "1e12 could not be stored: the old byte stays");
    EXPECT_EQ(Byte(3), 4);
    EXPECT_EQ(Grid().Cell(2, 1), "4");
}

TEST_F(TMapNotesTest, UndoTakesTheTipAway) {
    Enter(2, 1, "300");
    Choose("actUndo");
    EXPECT_EQ(Tip(2, 1), gridHint);
    EXPECT_EQ(Meaning(2, 1), "");
}

TEST_F(TMapNotesTest, ATextThatIsTooLongForItsCellIsStillItsTip) {
    Interpret();
    Enter(2, 1, "0.992187500000000000000000");
    EXPECT_EQ(Said(), "");
    EXPECT_EQ(Tip(2, 1), "0.992187500000000000000000");
}

TEST_F(TMapNotesTest, UnlockedHeadersSayNothing) {
    Choose("UnlockAxis1");
    Enter(2, 0, "12000");
    EXPECT_EQ(Said(), "");
    EXPECT_EQ(Meaning(2, 0), "edited, waiting for Commit");
}

TEST_F(TMapNotesTest, TheRevLimiterSaysIt) {
    auto &limiter = Find<TRevLimiterBox>("spnRevLimiter");
    limiter.setValue(10280);
    constexpr auto note = "10280 does not fit a byte: 40 will be stored";
    EXPECT_EQ(Said(), note);
    EXPECT_EQ(limiter.accessibleDescription(), QString("edited, waiting for Commit; ") + note);
    Click("btnSaverev");
    EXPECT_EQ(limiter.accessibleDescription(), note);
    limiter.setValue(6510);
    EXPECT_EQ(Said(), "6510 will be stored as 6520");
    limiter.setValue(6520);
    EXPECT_EQ(Said(), "");
    EXPECT_EQ(limiter.accessibleDescription(), "edited, waiting for Commit");
}
} // namespace
