// The fuel page's rev limiter: what shows it, what marks it, and who commits and resets it.
#include "pages/MapPageFixture.h"

#include <limits>

#include <QSpinBox>
#include <QWheelEvent>

namespace {
class TFuelMapsTest : public TFuelPageTest {
protected:
    QSpinBox &Spin() { return Find<QSpinBox>("spnRevLimiter"); }
    QColor SpinColor() { return Spin().palette().color(QPalette::Text); }
    QColor PlainColor() { return QPalette().color(QPalette::Text); }
    TRPMVal &RevLimiter() { return workspace.fuelMapSet.revLimiter; }
    void Place(std::int32_t offset) {
        RevLimiter().SetOffset(offset);
        page->ShowPage();
    }
};

TEST_F(TFuelMapsTest, ShowsTheValueInPlainText) {
    EXPECT_EQ(Spin().value(), 6800);
    EXPECT_EQ(SpinColor(), PlainColor());
    EXPECT_NE(PlainColor(), QColor(Qt::blue));
    EXPECT_FALSE(page->RevChanged);
    EXPECT_EQ(Find<QLabel>("Label1").text(), "Max RPM");
    EXPECT_EQ(Find<QPushButton>("btnSaverev").text(), "Commit");
    EXPECT_EQ(Find<QPushButton>("btnResetRev").text(), "Reset");
}

TEST_F(TFuelMapsTest, StepsBy40AndHasNoBounds) {
    EXPECT_EQ(Spin().singleStep(), 40);
    EXPECT_EQ(Spin().minimum(), std::numeric_limits<int>::min());
    EXPECT_EQ(Spin().maximum(), std::numeric_limits<int>::max());
    QTest::keyClick(&Spin(), Qt::Key_Up);
    EXPECT_EQ(Spin().value(), 6840);
    QTest::keyClick(&Spin(), Qt::Key_Down);
    QTest::keyClick(&Spin(), Qt::Key_Down);
    EXPECT_EQ(Spin().value(), 6760);
}

struct TPlace {
    int offset;
    bool present;
};
class TRevPlaceTest : public TFuelMapsTest, public testing::WithParamInterface<TPlace> {};

TEST_P(TRevPlaceTest, SpinEditAndLabelAreShownOnlyWhenItIsPlacedAbove0) {
    Place(GetParam().offset);
    EXPECT_EQ(Spin().isVisible(), GetParam().present);
    EXPECT_EQ(Find<QLabel>("Label1").isVisible(), GetParam().present);
    for (const char *button : {"btnSaverev", "btnResetRev"})
        EXPECT_TRUE(Find<QPushButton>(button).isVisible()) << button;
}
INSTANTIATE_TEST_SUITE_P(Offsets, TRevPlaceTest,
                         testing::Values(TPlace{-1, false}, TPlace{0, false}, TPlace{1, true},
                                         TPlace{0xFFFFF, true}, TPlace{-2, false}));

TEST_F(TFuelMapsTest, ShowingAgainTakesTheValueOfTheNewPlaceAsClean) {
    Spin().setValue(5000);
    Image().Poke(0x50, 100);
    Place(0x50);
    EXPECT_EQ(Spin().value(), 4000);
    EXPECT_EQ(SpinColor(), PlainColor());
    EXPECT_FALSE(page->RevChanged);
}

TEST_F(TFuelMapsTest, ShowingTakesTheWorkspacesSet) {
    TFuelMapSet other;
    page->FuelMapSet = &other;
    page->ShowPage();
    EXPECT_EQ(page->FuelMapSet, &workspace.fuelMapSet);
}

TEST_F(TFuelMapsTest, AnAddedPageShowsTheWorkspacesRevLimiterBesideItsOwnMaps) {
    TFuelMapSet found;
    found.SetOffsets(timingPT, timingIdle, timingWOT);
    TfrmFuelMaps added(nullptr, workspace, found);
    added.ShowPage();
    EXPECT_EQ(FindControl<QSpinBox>(added, "spnRevLimiter").value(), 6800);
    EXPECT_TRUE(FindControl<QSpinBox>(added, "spnRevLimiter").isVisible());
    EXPECT_EQ(FindControl<QLineEdit>(added, "edtPTOffset").text(), "$2000");
}

TEST_F(TFuelMapsTest, AnyChangeTurnsBlueAndFlags) {
    QTest::keyClick(&Spin(), Qt::Key_Up);
    EXPECT_EQ(SpinColor(), QColor(Qt::blue));
    EXPECT_TRUE(page->RevChanged);
    EXPECT_FALSE(page->PTChanged);
    EXPECT_FALSE(page->DataChanged);
    EXPECT_EQ(RevLimiter().GetValue(), 6800.0);
}

TEST_F(TFuelMapsTest, TypingTheOldNumberAgainIsAChange) {
    Spin().selectAll();
    QTest::keyClicks(&Spin(), "6800");
    EXPECT_EQ(Spin().value(), 6800);
    EXPECT_EQ(SpinColor(), QColor(Qt::blue));
    EXPECT_TRUE(page->RevChanged);
}

class TRevButtonsTest : public TFuelMapsTest,
                        public testing::WithParamInterface<std::pair<const char *, const char *>> {
protected:
    const char *Commit() { return GetParam().first; }
    const char *Reset() { return GetParam().second; }
};

TEST_P(TRevButtonsTest, CommitTakesTheRevLimiterAloneWithoutDataChanged) {
    Spin().setValue(6500);
    Click(Commit());
    EXPECT_EQ(RevLimiter().raw, 162); // 162.5: ties to even
    EXPECT_TRUE(RevLimiter().modified);
    EXPECT_FALSE(page->RevChanged);
    EXPECT_FALSE(page->DataChanged);
    EXPECT_EQ(SpinColor(), QColor(Qt::blue));
    EXPECT_EQ(Spin().value(), 6500);
    EXPECT_EQ(Image().Peek(revLimiter), 170) << "only a save writes it";
    EXPECT_FALSE(Image().modified);
}

TEST_P(TRevButtonsTest, CommitTakesThePartThrottleMapToo) {
    Type("grdPTMap", 1, 1, "50");
    Type("grdIdMap", 1, 1, "51");
    Spin().setValue(4000);
    Click(Commit());
    EXPECT_EQ(BodyByte(TMapKind::PT, 0), 50);
    EXPECT_FALSE(page->PTChanged);
    EXPECT_TRUE(page->DataChanged);
    EXPECT_EQ(RevLimiter().raw, 100);
    EXPECT_EQ(BodyByte(TMapKind::Idle, 0), 1);
    EXPECT_TRUE(page->IdleChanged);
}

TEST_P(TRevButtonsTest, ACommitWithoutRevLimiterTouchesOnlyTheMap) {
    Place(-1);
    const std::int32_t raw = RevLimiter().raw;
    Spin().setValue(4000);
    Type("grdPTMap", 1, 1, "50");
    Click(Commit());
    EXPECT_EQ(BodyByte(TMapKind::PT, 0), 50);
    EXPECT_EQ(RevLimiter().raw, raw);
    EXPECT_FALSE(RevLimiter().modified);
    EXPECT_FALSE(page->RevChanged);
}

TEST_P(TRevButtonsTest, AFailedMapCommitStillTakesTheRevLimiter) {
    Choose("UnlockAxis1");
    Grid("grdPTMap").SetCell(1, 0, "fast");
    Grid("grdPTMap").SetFontColor(1, 0, clBlue);
    page->PTChanged = true;
    Spin().setValue(4000);
    Click(Commit());
    EXPECT_EQ(dialogs.messages, QStringList{"Error saving new data"});
    EXPECT_TRUE(page->PTChanged);
    EXPECT_EQ(RevLimiter().raw, 100);
    EXPECT_FALSE(page->RevChanged);
}

TEST_P(TRevButtonsTest, ResetShowsBothAgain) {
    Type("grdPTMap", 1, 1, "50");
    Spin().setValue(4000);
    Click(Reset());
    EXPECT_EQ(Grid("grdPTMap").Cell(1, 1), "1");
    EXPECT_FALSE(page->PTChanged);
    EXPECT_EQ(Spin().value(), 6800);
    EXPECT_EQ(SpinColor(), PlainColor());
    EXPECT_FALSE(page->RevChanged);
}

TEST_P(TRevButtonsTest, ResetWithoutRevLimiterOnlyClearsTheFlag) {
    Place(-1);
    Spin().setValue(4000);
    Click(Reset());
    EXPECT_EQ(Spin().value(), 4000);
    EXPECT_EQ(SpinColor(), QColor(Qt::blue));
    EXPECT_FALSE(page->RevChanged);
}
INSTANTIATE_TEST_SUITE_P(Buttons, TRevButtonsTest,
                         testing::Values(std::pair{"btnSavePT", "btnResetPT"},
                                         std::pair{"btnSaverev", "btnResetRev"}));

TEST_F(TFuelMapsTest, TheOtherMapsButtonsLeaveTheRevLimiter) {
    Spin().setValue(4000);
    for (const char *button : {"btnSaveIdle", "btnSaveFT", "btnResetIdle", "btnResetFT"})
        Click(button);
    EXPECT_TRUE(page->RevChanged);
    EXPECT_EQ(Spin().value(), 4000);
    EXPECT_EQ(RevLimiter().raw, 170);
}

struct TWrap {
    int rpm;
    int raw;
    int stored;
};
class TRevWrapTest : public TFuelMapsTest, public testing::WithParamInterface<TWrap> {};

TEST_P(TRevWrapTest, AnEntryBeyondAByteWrapsOnlyWhenItIsSaved) {
    const auto [rpm, raw, stored] = GetParam();
    Spin().setValue(rpm);
    Click("btnSaverev");
    EXPECT_EQ(RevLimiter().raw, raw);
    EXPECT_EQ(RevLimiter().GetValue(), raw * 40.0);
    Click("btnResetRev");
    EXPECT_EQ(Spin().value(), raw * 40);
    workspace.fuelMapSet.SaveAll();
    EXPECT_EQ(Image().Peek(revLimiter), stored);
    EXPECT_TRUE(dialogs.messages.empty());
}
INSTANTIATE_TEST_SUITE_P(Entries, TRevWrapTest,
                         testing::Values(TWrap{300 * 40, 300, 44}, TWrap{10200, 255, 255},
                                         TWrap{10240, 256, 0}, TWrap{-40, -1, 255}, TWrap{0, 0, 0},
                                         TWrap{6510, 163, 163}));

TEST_F(TFuelMapsTest, ClosingAsksForTheRevLimiterAloneAndYesTakesIt) {
    Spin().setValue(4000);
    dialogs.answers = {TAnswer::Yes};
    EXPECT_TRUE(page->QueryClose());
    EXPECT_EQ(dialogs.questions, QStringList{"Commit Changes?"});
    EXPECT_EQ(RevLimiter().raw, 100);
    EXPECT_TRUE(page->DataChanged);
    EXPECT_FALSE(page->PageVisible());
    EXPECT_FALSE(Image().modified) << "no map was written";
}

TEST_F(TFuelMapsTest, ClosingWithNoLeavesTheRevLimiter) {
    Spin().setValue(4000);
    dialogs.answers = {TAnswer::No};
    EXPECT_TRUE(page->QueryClose());
    EXPECT_EQ(RevLimiter().raw, 170);
    EXPECT_FALSE(RevLimiter().modified);
    EXPECT_FALSE(page->DataChanged);
    EXPECT_FALSE(page->PageVisible());
    page->ShowPage();
    EXPECT_EQ(Spin().value(), 6800);
    EXPECT_FALSE(page->RevChanged);
}

TEST_F(TFuelMapsTest, ClosingWithMapEditsAloneLeavesTheRevLimiterUnmodified) {
    Type("grdFTMap", 1, 1, "9");
    dialogs.answers = {TAnswer::Yes};
    EXPECT_TRUE(page->QueryClose());
    EXPECT_EQ(BodyByte(TMapKind::WOT, 0), 9);
    EXPECT_FALSE(RevLimiter().modified);
}

TEST_F(TFuelMapsTest, ClosingAfterTheRevCommitAsksNothing) {
    Spin().setValue(4000);
    Click("btnSaverev");
    EXPECT_TRUE(page->QueryClose());
    EXPECT_TRUE(dialogs.questions.empty());
}

TEST_F(TFuelMapsTest, TheRevLimiterCountsAsAModificationOfTheSet) {
    EXPECT_FALSE(workspace.fuelMapSet.IsModified());
    Spin().setValue(4000);
    EXPECT_FALSE(workspace.fuelMapSet.IsModified());
    Click("btnSaverev");
    EXPECT_TRUE(workspace.fuelMapSet.IsModified());
}

using TTimingMapsTest = TTimingPageTest;

TEST_F(TTimingMapsTest, TitlesCarryItsCaptionAndThereIsNoRevLimiter) {
    EXPECT_EQ(page->windowTitle(), "Ign Timing");
    EXPECT_EQ(Find<QLabel>("lblPTGrid").text(), "Partial Throttle Ign Timing Map");
    EXPECT_EQ(Find<QLabel>("lblIdGrid").text(), "Idle Ign Timing Map");
    EXPECT_EQ(Find<QLabel>("lblFTGrid").text(), "Full Throttle Ign Timing Map");
    EXPECT_EQ(Find<TAreaChart>("chtFTMap").LeftAxisTitle(), "Ign Timing");
    EXPECT_EQ(page->template findChild<QSpinBox *>(), nullptr);
    page->TimingMapSet = nullptr;
    page->ShowPage();
    EXPECT_EQ(page->TimingMapSet, &workspace.timingMapSet);
}
TEST_P(TRevButtonsTest, ABareCommitSetsTheRevLimiter) {
    ASSERT_FALSE(page->RevChanged);
    Click(Commit());
    EXPECT_EQ(RevLimiter().GetValue(), 6800.0);
    EXPECT_TRUE(RevLimiter().modified) << "set to what it was, which counts";
    EXPECT_TRUE(workspace.fuelMapSet.IsModified());
    EXPECT_FALSE(page->RevChanged);
    EXPECT_FALSE(page->DataChanged);
}

class TWheelTest : public TFuelMapsTest {
protected:
    void Turn() {
        const QPointF at = Spin().rect().center();
        QWheelEvent wheel(at, Spin().mapToGlobal(at), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&Spin(), &wheel);
        EXPECT_EQ(wheel.isAccepted(), Spin().hasFocus()) << "otherwise the page gets it";
    }
};

TEST_F(TWheelTest, TurnsTheRevLimiterOnlyWhileItHasTheFocus) {
    page->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(page.get()));
    Find<QPushButton>("btnClose").setFocus();
    Turn();
    EXPECT_EQ(Spin().value(), 6800);
    EXPECT_FALSE(page->RevChanged);
    EXPECT_FALSE(Spin().hasFocus());
    EXPECT_FALSE(Spin().focusPolicy() & ~Qt::StrongFocus) << "no focus by the wheel";
    Spin().setFocus();
    Turn();
    EXPECT_EQ(Spin().value(), 6840);
    EXPECT_TRUE(page->RevChanged);
}

TEST_F(TFuelMapsTest, PublicCallsNeedNoPreparation) {
    TfrmFuelMaps unseen(nullptr, workspace, workspace.fuelMapSet);
    unseen.spnRevLimiterChange(); // makes the controls
    EXPECT_TRUE(unseen.RevChanged);
    TfrmFuelMaps other(nullptr, workspace, workspace.fuelMapSet);
    other.CommitIdle();
    other.UnlockAxis1Click();
    other.btnResetPTClick();
    EXPECT_EQ(FindControl<QSpinBox>(other, "spnRevLimiter").value(), 6800);
    TfrmFuelMaps left(nullptr, workspace, workspace.fuelMapSet);
    EXPECT_TRUE(left.QueryClose()) << "nothing was made, nothing is asked";
}
} // namespace
