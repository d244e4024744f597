// What the guide says of how the program behaves, where nothing else tries it: each test has the
// sentence of the guide that it tries, and fails when either is changed.
#include "filedisplay/FileDisplay.h"
#include "forms/Aligrid.h"
#include "forms/PageControl.h"
#include "forms/TEmbedFm.h"
#include "forms/baseform.h"
#include "guide/Guide.h"
#include "maps/Maps.h"
#include "pages/PageFixture.h"
#include "spec/ProgramState.h"
#include "spec/ROMInfo.h"
#include "spec/main.h"

#include <tuple>

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QStatusBar>
#include <QTimer>
#include <gmock/gmock.h>

namespace {
constexpr int fuelTab = 1;
constexpr int contentsTab = 5;

class GuideClaims : public TPageTest {
protected:
    GuideClaims() {
        TfrmBaseForm::ProgRegKey = "key";
        PlantMaps();
        PlaceMaps(window.workspace);
        window.workspace.romFileName = "image.BIN";
        window.show();
        window.setWindowState(Qt::WindowNoState); // it comes up minimised
    }
    ~GuideClaims() override { TfrmBaseForm::ProgRegKey.clear(); }

    /// The guide has the sentence, wherever its lines break.
    static void ExpectSaid(const QString &sentence) {
        EXPECT_TRUE(OnOneLine(GuideText()).contains(sentence)) << sentence.toStdString();
    }
    template <class Control>
    Control &On(int tab, const QString &name) {
        return FindControl<Control>(*window.GetPage(tab), name);
    }
    void Trigger(const QString &name) { On<QAction>(contentsTab, name).trigger(); }
    /// Goes to another page and back.
    void Reenter(int tab) {
        window.PageControl1->SelectByUser(contentsTab);
        window.PageControl1->SelectByUser(tab);
    }
    /// The captions of the pages that "All Highlighted" adds after nothing but that search.
    QStringList CaptionsAfter(const QString &search) {
        window.PageControl1->SelectByUser(contentsTab);
        Trigger("ClearAllMarkers1");
        Trigger(search);
        Trigger("AllHighlighted1");
        QStringList captions;
        while (window.PageCount() > contentsTab + 1) {
            captions << window.PageControl1->tabText(contentsTab + 1);
            window.RemovePage(contentsTab + 1);
        }
        return captions;
    }

    TfrmNotebook window;
};
} // namespace

TEST_F(GuideClaims, TheFirstPageTellsOfF1) {
    ExpectSaid("\"ROM Information\" says so in the line that changes every three seconds.");
    auto &page = dynamic_cast<TfrmROMInformation &>(*window.GetPage(0));
    EXPECT_EQ(FindControl<QTimer>(page, "tmrThanks").interval(), 3000);
    page.tmrThanksTimer();
    EXPECT_TRUE(FindControl<QLabel>(page, "Label4").text().startsWith("F1 opens the guide"));
}

TEST_F(GuideClaims, WrappedNumbersShowWhenThePageIsEnteredAgain) {
    ExpectSaid("300 becomes 44, -1 becomes 255");
    ExpectSaid("the grid shows the stored numbers when the page is entered again");
    window.PageControl1->SelectByUser(fuelTab);
    auto &grid = On<TStringAlignGrid>(fuelTab, "grdPTMap");
    for (const auto &[column, typed, stored] :
         {std::tuple{1, "300", "44"}, {2, "-1", "255"}, {3, "320", "64"}}) {
        grid.SetCurrent(column, 1);
        QApplication::setActiveWindow(&window);
        grid.QAbstractItemView::edit(grid.currentIndex());
        qobject_cast<QLineEdit *>(QApplication::focusWidget())->setText(typed);
        grid.CloseEditor();
        On<QPushButton>(fuelTab, "btnSavePT").click();
        EXPECT_EQ(grid.Cell(column, 1), typed);
        Reenter(fuelTab);
        EXPECT_EQ(grid.Cell(column, 1), stored);
    }
}

TEST_F(GuideClaims, WrappedRevLimiterShowsInTheSavedImageOnly) {
    ExpectSaid("A rev limiter of 10,280 becomes 40, which shows only after \"Save ROM\"");
    window.PageControl1->SelectByUser(fuelTab);
    auto &box = On<QSpinBox>(fuelTab, "spnRevLimiter");
    box.setValue(10280);
    On<QPushButton>(fuelTab, "btnSaverev").click();
    Reenter(fuelTab);
    EXPECT_EQ(box.value(), 10280);
    window.workspace.fuelMapSet.SaveAll();
    EXPECT_EQ(Image().Peek(revLimiter), 1) << "40 rpm";
}

TEST_F(GuideClaims, CtrlCCopiesWhatTheGridOrTheBoxHasSelected) {
    ExpectSaid("Ctrl+C copies: of a grid the selected cells, of a box the selected text");
    QApplication::setActiveWindow(&window);
    QClipboard &clipboard = *QApplication::clipboard();
    for (const auto &[tab, name, copied] :
         {std::tuple{fuelTab, "grdPTMap", "1\t4\n2\tthe current one"},
          {contentsTab, "grdFile", "17\t0\n0\tthe current one\n"}}) {
        window.PageControl1->SelectByUser(tab);
        auto &grid = On<TStringAlignGrid>(tab, name);
        Image().Poke(0, 17);
        grid.SetSelection({1, 1, 2, 2});
        grid.SetCell(2, 2, "the current one");
        clipboard.clear();
        grid.setFocus();
        QTest::keyClick(&grid, Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(clipboard.text(), copied) << name;
    }
    auto &box = On<QLineEdit>(fuelTab, "edtPTOffset");
    box.selectAll();
    QTest::keyClick(&box, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard.text(), box.text());
}

TEST_F(GuideClaims, AnAxisByteOfZeroBringsAPageOfAFuelMapWhateverFoundIt) {
    ExpectSaid("An axis byte of 0 counts as the start of a fuel map, whatever search found its "
               "map.");
    // A timing map whose engine speeds end at 10,240 rpm, as 2-D and as linear map.
    const TBytes rpm{20, 20, 0};
    PutMap(0x4000, rpm, {100, 100, 100});
    PutMap(0x5000, rpm, {});
    for (const int body : {0x400A, 0x5005})
        for (int i = 0; i < 9; ++i)
            Image().Poke(body + i, 40);
    for (const auto &[search, captions] :
         {std::pair{"Timing5", QStringList{"2-D Timing Map at $4000", "2-D Fuel Map at $4004"}},
          {"Timing6", QStringList{"1-D Fuel Map at $5004"}},
          {"Any1", QStringList{"2-D Fuel Map at $4004"}},
          {"Any2", QStringList{"1-D Fuel Map at $5004"}}})
        EXPECT_THAT(CaptionsAfter(search), testing::IsSupersetOf(captions)) << search;
}

TEST_F(GuideClaims, NothingElseBringsPagesOfMapsOfAnyValuesAndOfLinearMaps) {
    ExpectSaid("Maps found by \"All 2D Maps (any values)\" and \"All Linear Maps (any values)\" "
               "bring only such pages.");
    ExpectSaid("\"1-D Timing Map at $\" never comes.");
    const TBytes rpm{20, 20, 20};
    PutMap(0x4000, rpm, {100, 100, 100});
    PutMap(0x5000, rpm, {});
    for (const char *search : {"Fuel6", "Timing6", "Any1", "Any2"})
        for (const QString &caption : CaptionsAfter(search)) {
            EXPECT_FALSE(caption.startsWith("1-D Timing")) << search;
            const int place = caption.section('$', 1).toInt(nullptr, 16);
            EXPECT_EQ(Image().Peek(place), 0) << search << " " << caption.toStdString();
        }
}

namespace {
/// Whether the user works with what is in it rather than with itself.
bool IsAround(const QWidget &control) {
    return qobject_cast<const TEmbeddedForm *>(&control) || control.inherits("QTabWidget") ||
           control.inherits("QTableCornerButton");
}

/// A part of a control, a radio button of a group say, shows the hint of the whole.
const QWidget &WithHint(const QWidget &control) {
    const QWidget *hinted = &control;
    while (hinted->statusTip().isEmpty() && hinted->parentWidget() &&
           !IsAround(*hinted->parentWidget()))
        hinted = hinted->parentWidget();
    return *hinted;
}
} // namespace

TEST_F(GuideClaims, EveryControlHasAHint) {
    ExpectSaid("The line at the bottom explains the control under the mouse.");
    int controls = 0;
    for (int tab = 0; tab <= contentsTab; ++tab) {
        window.PageControl1->SelectByUser(tab);
        QApplication::processEvents();
        for (const QWidget *control : window.findChildren<QWidget *>()) {
            const bool takesKeys = control->focusPolicy() & Qt::TabFocus;
            if (!control->isVisible() || IsAround(*control) ||
                !(takesKeys || qobject_cast<const QAbstractButton *>(control)))
                continue;
            ++controls;
            const QWidget &hinted = WithHint(*control);
            EXPECT_NE(hinted.statusTip(), "") << tab << " " << control->objectName().toStdString();
            EXPECT_NE(hinted.toolTip(), "") << tab << " " << control->objectName().toStdString();
        }
    }
    EXPECT_GT(controls, 50);
}

TEST_F(GuideClaims, AtRestTheLineSaysF1) {
    ExpectSaid("At rest it reads \"F1: guide\".");
    QStringList texts;
    for (const QLabel *label : window.StatusBar1->findChildren<QLabel *>())
        texts << label->text();
    EXPECT_EQ(texts, QStringList("F1: guide"));
}

TEST_F(GuideClaims, TheStateIsAsInItsExample) {
    ExpectSaid("such as: Fuel PT edited, 3 bytes not saved, spec FERRO32K.SPC");
    TProgramState state;
    state.loaded = true;
    state.edited = {{"Fuel PT", fuelTab}};
    state.unsavedBytes = 3;
    state.mapping = TMappingType::Spec;
    state.spec = "FERRO32K.SPC";
    EXPECT_EQ(StateLine(StateTexts(state)),
              "Fuel PT edited · 3 bytes not saved · spec FERRO32K.SPC");
}

TEST_F(GuideClaims, KeysGoToTheEndsOfFileContents) {
    ExpectSaid("Ctrl+Home and Ctrl+End go to the first and the last byte, Home and End to the ends "
               "of a row, Page Up and Page Down by what is seen.");
    window.PageControl1->SelectByUser(contentsTab);
    auto &grid = On<TStringAlignGrid>(contentsTab, "grdFile");
    grid.SetCurrent(5, 5);
    const auto press = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&grid, key, modifiers);
        return std::pair(grid.Col(), grid.Row());
    };
    const int last = grid.RowCount() - 1;
    EXPECT_EQ(press(Qt::Key_End), std::pair(16, 5));
    EXPECT_EQ(press(Qt::Key_Home), std::pair(1, 5));
    EXPECT_EQ(press(Qt::Key_End, Qt::ControlModifier), std::pair(16, last));
    EXPECT_EQ(press(Qt::Key_Home, Qt::ControlModifier), std::pair(1, 1));
    EXPECT_EQ(press(Qt::Key_PageDown), std::pair(1, 1 + grid.VisibleRowCount()));
    EXPECT_EQ(press(Qt::Key_PageUp), std::pair(1, 1));
}

TEST_F(GuideClaims, RowAndColumnOfAnAddress) {
    ExpectSaid("$1A5C is in row 1A5x, column C.");
    ExpectSaid("in an image of 64 KiB $8000 is in the middle.");
    Image().size = 0x10000;
    window.PageControl1->SelectByUser(contentsTab);
    auto &grid = On<TStringAlignGrid>(contentsTab, "grdFile");
    EXPECT_EQ(grid.Cell(0, 0x1A5C / 16 + 1), "1A5x");
    EXPECT_EQ(grid.Cell(0x1A5C % 16 + 1, 0), "C");
    EXPECT_EQ(2 * (0x8000 / 16), grid.RowCount() - 1);
}

TEST_F(GuideClaims, TheUsualMaskFindsAddressesBelow1000Only) {
    ExpectSaid("The mask is 15 at first, which finds addresses below $1000 only, and is kept; 255 "
               "finds every address as it is.");
    Image().size = 0x8000;
    Put(0x6000, {0xB2, 0xC6});
    Put(0x6010, {0xB1, 0x23});
    window.PageControl1->SelectByUser(contentsTab);
    auto &grid = On<TStringAlignGrid>(contentsTab, "grdFile");
    const auto marked = [&](const char *address, const char *mask, int offset) {
        Trigger("ClearAllMarkers1");
        dialogs.inputs = {address, mask};
        Trigger("FindMapPointers1");
        return grid.CellColor(1, offset / 16 + 1) != clWindow;
    };
    EXPECT_FALSE(marked("$B2C6", "15", 0x6000));
    EXPECT_TRUE(marked("$123", "15", 0x6010));
    EXPECT_TRUE(marked("$B2C6", "255", 0x6000));
    EXPECT_EQ(dialogs.inputBoxes.at(1), "Indirect Ref Lookup|Mask Bits|15");
}
