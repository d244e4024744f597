// The offset boxes: how they become writable, which ways of leaving them count, and what leaving
// does to the map.
#include "forms/Guard.h"
#include "pages/MapPageFixture.h"

#include <QMainWindow>

namespace {
constexpr std::array boxes{"edtPTOffset", "edtIdOffset", "edtFTOffset"};

class TOffsetEditTest : public TFuelPageTest, public testing::WithParamInterface<TMapKind> {
protected:
    void SetUp() override {
        TFuelPageTest::SetUp();
        page->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(page.get()));
    }
    TMapKind Kind() { return GetParam(); }
    TOffsetEdit &Box() { return *page->Panel(Kind()).offset; }
    TMap &Map() { return workspace.fuelMapSet.Map(Kind()); }
    /// The timing map of the same shape, where the box is sent to.
    int Target() { return std::array{timingPT, timingIdle, timingWOT}[std::size_t(Kind())]; }
    QString TargetText() { return QString("$%1").arg(Target(), 4, 16).toUpper(); }
    QString OwnText() {
        return std::array{"$1000", "$1200", "$1300"}[static_cast<std::size_t>(Kind())];
    }
    /// Double-clicks the box and types.
    void Enter(const QString &text) {
        QTest::mouseDClick(&Box(), Qt::LeftButton);
        Box().setFocus();
        Box().selectAll();
        QTest::keyClicks(&Box(), text);
    }
    bool Moved() { return Map().GetLocation() == Target(); }
    QColor Ground() { return Box().palette().color(QPalette::Base); }
};

INSTANTIATE_TEST_SUITE_P(Maps, TOffsetEditTest,
                         testing::Values(TMapKind::PT, TMapKind::Idle, TMapKind::WOT));

TEST_P(TOffsetEditTest, IsReadOnlyUntilItIsDoubleClicked) {
    EXPECT_EQ(Box().objectName(), boxes[static_cast<std::size_t>(Kind())]);
    EXPECT_EQ(Box().toolTip(), "Double-click to enter new offset to map");
    EXPECT_EQ(Box().text(), OwnText());
    EXPECT_TRUE(Box().isReadOnly());
    EXPECT_EQ(Ground(), QPalette().color(QPalette::Button));
    QTest::mouseClick(&Box(), Qt::LeftButton);
    EXPECT_TRUE(Box().isReadOnly());
    QTest::keyClicks(&Box(), "9");
    EXPECT_EQ(Box().text(), OwnText());
    QTest::mouseDClick(&Box(), Qt::LeftButton);
    EXPECT_FALSE(Box().isReadOnly());
    EXPECT_EQ(Ground(), QPalette().color(QPalette::Base));
}

TEST_P(TOffsetEditTest, DoubleClickOpensThisBoxAlone) {
    QTest::mouseDClick(&Box(), Qt::LeftButton);
    for (const TMapKind kind : {TMapKind::PT, TMapKind::Idle, TMapKind::WOT})
        EXPECT_EQ(page->Panel(kind).offset->isReadOnly(), kind != Kind());
}

TEST_P(TOffsetEditTest, TabMovesTheMap) {
    Enter(TargetText());
    EXPECT_FALSE(Moved()) << "not while typing";
    QTest::keyClick(&Box(), Qt::Key_Tab);
    EXPECT_TRUE(Moved());
    EXPECT_EQ(Box().text(), TargetText());
    EXPECT_TRUE(Box().isReadOnly());
    EXPECT_EQ(Ground(), QPalette().color(QPalette::Button));
}

TEST_P(TOffsetEditTest, BacktabMovesTheMap) {
    Enter(TargetText());
    QTest::keyClick(&Box(), Qt::Key_Backtab);
    EXPECT_TRUE(Moved());
}

TEST_P(TOffsetEditTest, EnterMovesTheMap) {
    Enter(TargetText());
    QTest::keyClick(&Box(), Qt::Key_Return);
    EXPECT_TRUE(Moved());
    EXPECT_TRUE(Box().isReadOnly());
}

TEST_P(TOffsetEditTest, AClickElsewhereMovesTheMap) {
    Enter(TargetText());
    QTest::mouseClick(Grid("grdIdMap").viewport(), Qt::LeftButton);
    EXPECT_TRUE(Moved());
}

class TOtherReasonTest : public TFuelPageTest,
                         public testing::WithParamInterface<Qt::FocusReason> {};

TEST_P(TOtherReasonTest, MessagesMenusAndOtherWindowsAreNoLeaving) {
    TOffsetEdit &box = *page->Panel(TMapKind::PT).offset;
    QTest::mouseDClick(&box, Qt::LeftButton);
    box.setText("abc");
    QFocusEvent out(QEvent::FocusOut, GetParam());
    QCoreApplication::sendEvent(&box, &out);
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_FALSE(box.isReadOnly());
    QFocusEvent tab(QEvent::FocusOut, Qt::ShortcutFocusReason);
    QCoreApplication::sendEvent(&box, &tab);
    EXPECT_EQ(dialogs.messages, QStringList{"'abc' is not a valid integer value"});
}
INSTANTIATE_TEST_SUITE_P(Reasons, TOtherReasonTest,
                         testing::Values(Qt::ActiveWindowFocusReason, Qt::PopupFocusReason,
                                         Qt::MenuBarFocusReason, Qt::OtherFocusReason));

TEST_P(TOffsetEditTest, DecimalIsReadToo) {
    Enter(QString::number(Target()));
    QTest::keyClick(&Box(), Qt::Key_Tab);
    EXPECT_TRUE(Moved());
    EXPECT_EQ(Box().text(), TargetText());
}

TEST_P(TOffsetEditTest, AnUnchangedNumberLeavesTheBoxWritable) {
    Enter(QString::number(Map().GetLocation()));
    QTest::keyClick(&Box(), Qt::Key_Tab);
    EXPECT_FALSE(Box().isReadOnly());
    EXPECT_EQ(Ground(), QPalette().color(QPalette::Base));
    EXPECT_EQ(Box().text(), QString::number(Map().GetLocation())) << "shown as it was typed";
}

TEST_P(TOffsetEditTest, UncommittedEditsHoldTheMap) {
    page->Changed(Kind()) = true;
    Enter(TargetText());
    QTest::keyClick(&Box(), Qt::Key_Tab);
    EXPECT_EQ(dialogs.messages, QStringList{"You have uncommitted changes, save first"});
    EXPECT_FALSE(Moved());
    EXPECT_EQ(Box().text(), OwnText());
    EXPECT_TRUE(Box().isReadOnly());
    EXPECT_TRUE(page->Changed(Kind()));
}

TEST_P(TOffsetEditTest, UncommittedEditsOfAnUnchangedNumberAreNotAsked) {
    page->Changed(Kind()) = true;
    Enter(OwnText());
    QTest::keyClick(&Box(), Qt::Key_Tab);
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_FALSE(Box().isReadOnly());
}

TEST_P(TOffsetEditTest, EditsOfTheOtherMapsDoNotHoldThisOne) {
    for (const TMapKind kind : {TMapKind::PT, TMapKind::Idle, TMapKind::WOT})
        page->Changed(kind) = kind != Kind();
    Enter(TargetText());
    QTest::keyClick(&Box(), Qt::Key_Tab);
    EXPECT_TRUE(Moved());
    for (const TMapKind kind : {TMapKind::PT, TMapKind::Idle, TMapKind::WOT})
        EXPECT_EQ(page->Changed(kind), kind != Kind());
}

TEST_P(TOffsetEditTest, NoIntegerIsSaidOnceAndTheBoxStaysWritable) {
    for (const char *text : {"12x", "$", "0x1000", "1.5", "$123456789"}) {
        dialogs.messages.clear();
        Enter(text);
        QTest::keyClick(&Box(), Qt::Key_Tab);
        EXPECT_EQ(dialogs.messages,
                  QStringList{QString("'%1' is not a valid integer value").arg(text)});
        EXPECT_FALSE(Box().isReadOnly());
        EXPECT_EQ(Box().text(), text);
    }
    EXPECT_FALSE(Moved());
}

TEST_P(TOffsetEditTest, TheLoadPointOfAOneAxisMapStaysAfterAMove) {
    Enter(TargetText());
    QTest::keyClick(&Box(), Qt::Key_Tab);
    const char *const expected = std::array{"20%", "0%", "100%"}[std::size_t(Kind())];
    EXPECT_EQ(page->Panel(Kind()).grid->Cell(0, 1), expected);
}

TEST_P(TOffsetEditTest, TheInterpretationStaysAfterAMove) {
    Find<QCheckBox>("chkInterpret").click();
    Enter(TargetText());
    QTest::keyClick(&Box(), Qt::Key_Tab);
    EXPECT_EQ(page->Panel(Kind()).grid->Cell(4, 1), Kind() == TMapKind::PT ? "0.08" : "0.03");
    EXPECT_EQ(Map().data->values->GetItem(0, 0)->GetValue(), 1 / 128.0);
}

TEST_P(TOffsetEditTest, AnotherShapeIsTakenOverWithItsChart) {
    PutMap(0x6000, TBytes(20, 5), Kind() == TMapKind::PT ? TBytes(16, 5) : TBytes{});
    Enter("$6000");
    QTest::keyClick(&Box(), Qt::Key_Tab);
    EXPECT_EQ(page->Panel(Kind()).grid->ColCount(), 21);
    EXPECT_EQ(page->Panel(Kind()).chart->SeriesCount(), Kind() == TMapKind::PT ? 16 : 1);
    EXPECT_EQ(page->Panel(Kind()).chart->Series()[0].points.size(), 20U);
}

TEST_P(TOffsetEditTest, FarAndNegativeOffsetsGiveAnEmptyGrid) {
    for (const auto &[text, shown] : {std::pair{"$100000", "$100000"},
                                      {"-5", "$FFFFFFFB"},
                                      {"$7FFFFFFF", "$7FFFFFFF"},
                                      {"-2147483648", "$80000000"}}) {
        Enter(text);
        QTest::keyClick(&Box(), Qt::Key_Tab);
        EXPECT_EQ(Box().text(), shown);
        EXPECT_TRUE(Box().isReadOnly());
        EXPECT_EQ(page->Panel(Kind()).grid->ColCount(), 1);
    }
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_P(TOffsetEditTest, AnOffsetOf0KeepsTheOldMapOnShow) {
    Enter("0");
    QTest::keyClick(&Box(), Qt::Key_Tab);
    EXPECT_EQ(Map().GetLocation(), 0);
    EXPECT_EQ(page->Panel(Kind()).grid->ColCount(), 5);
    EXPECT_EQ(Box().text(), OwnText());
    EXPECT_TRUE(Box().isReadOnly());
}

TEST_P(TOffsetEditTest, APointerPlacedMapBecomesADirectOne) {
    Image().Poke(0x100, 0x31); // masked to 0x01
    Image().Poke(0x101, 0x80);
    PutMap(0x180, {60, 60}, Kind() == TMapKind::PT ? TBytes{100, 100} : TBytes{});
    Map().SetPointer(0x100, 0x0F);
    page->ShowPage();
    EXPECT_EQ(Box().text(), "$0180");
    EXPECT_EQ(Map().location->offset, -1);
    EXPECT_EQ(Map().GetLocation(), 0x180);
}

TEST_F(TFuelPageTest, LeavingTheFullThrottleBoxPreparesItsChartFirst) {
    page->Panel(TMapKind::WOT).chart->RecreateSeries(7);
    page->Panel(TMapKind::PT).chart->RecreateSeries(7);
    Find<QLineEdit>("edtFTOffset").setText("junk");
    Find<QLineEdit>("edtPTOffset").setText("junk");
    EXPECT_FALSE(Guarded([this] { page->edtFTOffsetExit(); }));
    EXPECT_FALSE(Guarded([this] { page->edtPTOffsetExit(); }));
    EXPECT_EQ(page->Panel(TMapKind::WOT).chart->SeriesCount(), 1);
    EXPECT_EQ(page->Panel(TMapKind::PT).chart->SeriesCount(), 7);
}
TEST_P(TOffsetEditTest, HidingThePageIsNoLeavingOfItsBox) {
    QMainWindow host;
    auto *tabs = new QWidget(&host);
    auto *other = new QLineEdit(tabs);
    host.setCentralWidget(tabs);
    page->setParent(tabs);
    host.resize(1200, 900);
    host.show();
    page->show();
    host.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&host));
    Enter("abc");
    ASSERT_TRUE(Box().hasFocus());
    EXPECT_TRUE(page->QueryClose());
    EXPECT_FALSE(page->isVisible());
    EXPECT_TRUE(other->hasFocus());
    EXPECT_TRUE(dialogs.messages.empty());
    page->setParent(nullptr);
}
/// The mouse as the window system reports it: a press takes the focus from the box before it
/// reaches the button, and the mouse is let go over the message.
class TPressTest : public TFuelPageTest {
protected:
    void SetUp() override {
        TFuelPageTest::SetUp();
        page->resize(900, 600);
        page->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(page.get()));
        QTest::qWait(0);
    }
    QPushButton &Commit() { return Find<QPushButton>("btnSavePT"); }
    QPoint Place() { return Commit().mapTo(page.get(), Commit().rect().center()); }
    void Press() { QTest::mousePress(page->windowHandle(), Qt::LeftButton, {}, Place()); }
    void Release() { QTest::mouseRelease(page->windowHandle(), Qt::LeftButton, {}, Place()); }
    void EnterABadOffset() {
        auto &box = Find<TOffsetEdit>("edtPTOffset");
        QTest::mouseDClick(&box, Qt::LeftButton);
        box.setFocus();
        box.setText("12x");
    }
};

TEST_F(TPressTest, AButtonPressedIntoAMessageIsNotLeftSunken) {
    EnterABadOffset();
    dialogs.duringMessage = [this] { Release(); };
    Press();
    EXPECT_EQ(dialogs.messages, QStringList{"'12x' is not a valid integer value"});
    EXPECT_FALSE(Commit().isDown());
    dialogs.duringMessage = nullptr;
    QTest::qWait(0);
    Press();
    EXPECT_TRUE(Commit().isDown()) << "only the one press is lost";
    Release();
    EXPECT_FALSE(Commit().isDown());
}

TEST_F(TPressTest, ACellsEditorLeavesNoSunkenButtonEither) {
    BeginType("grdPTMap", 1, 1, "abc");
    dialogs.duringMessage = [this] { Release(); };
    Press();
    EXPECT_EQ(dialogs.messages, QStringList{"'abc' is not a valid floating point value"});
    EXPECT_FALSE(Commit().isDown());
}

TEST_F(TPressTest, AButtonThatIsHeldThroughTheMessageStaysPressed) {
    EnterABadOffset();
    Press();
    EXPECT_EQ(dialogs.messages.size(), 1);
    EXPECT_TRUE(Commit().isDown());
    Release();
    EXPECT_FALSE(Commit().isDown());
}

TEST_F(TPressTest, LeavingWithoutAMessageCostsNoClick) {
    auto &box = Find<TOffsetEdit>("edtPTOffset");
    QTest::mouseDClick(&box, Qt::LeftButton);
    box.setFocus();
    box.setText("$2000");
    int clicks = 0;
    QObject::connect(&Commit(), &QPushButton::clicked, [&] { ++clicks; });
    Press();
    Release();
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(workspace.fuelMapSet.PTMap->GetLocation(), timingPT);
}
} // namespace
