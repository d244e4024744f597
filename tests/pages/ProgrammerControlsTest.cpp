// The controls for an EPROM programmer: kept as the page's state and list, hidden for good.
#include "spec/ProgrammerControls.h"

#include "model/ROMTypes.h"
#include "pages/ROMInfoFixture.h"

#include <QAbstractItemView>
#include <QCompleter>

namespace {
const QStringList deviceTexts{
    "               Eprom's",
    "2716   (+5 Only)   (25V)        2K X 8",
    "27C16              (12.5V)      2K X 8",
    "",
    "2732               (25V)        4K X 8",
    "2732A              (21V)        4K X 8",
    "27C32              (12.5V)      4K X 8",
    "",
    "2764               (21V)        8K X 8",
    "2764A              (12.5V)      8K X 8",
    "27C64              (12.5V)      8K X 8",
    "",
    "27128              (21V)       16K X 8",
    "27128A             (12.5V)     16K X 8",
    "27C128             (12.5V)     16K X 8",
    "",
    "27256              (12.5V)     32K X 8",
    "27C256             (12.5V)     32K X 8",
    "",
    "27512              (12.5V)     64K X 8",
    "27C512             (12.5V)     64K X 8",
    "",
    "AT29C256  Atmel    (5V)        32K X 8",
};

class TProgrammerControlsTest : public TROMInfoTest {
protected:
    TProgrammerControls &Controls() {
        auto *controls = page->findChild<TProgrammerControls *>();
        if (!controls)
            throw std::runtime_error("no programmer controls");
        return *controls;
    }
    QComboBox &Devices() { return Find<QComboBox>("cmbDevice"); }
    QCheckBox &Use() { return Find<QCheckBox>("chkUsePP2"); }
    QList<QWidget *> Driven() { return {&Button("btnRead"), &Button("btnWrite"), &Devices()}; }
};

TEST_F(TProgrammerControlsTest, TheListHoldsItsTwentyThreeTexts) {
    ASSERT_EQ(deviceTexts.size(), 23);
    QStringList texts;
    for (int i = 0; i < Devices().count(); ++i)
        texts << Devices().itemText(i);
    EXPECT_EQ(texts, deviceTexts);
    EXPECT_EQ(Devices().currentText(), "Select EPROM type");
    EXPECT_EQ(Devices().currentIndex(), -1);
}

TEST_F(TProgrammerControlsTest, TypingCompletesToADevice) {
    ASSERT_TRUE(Devices().completer());
    Devices().completer()->setCompletionPrefix("27C25");
    EXPECT_EQ(Devices().completer()->currentCompletion(), deviceTexts[17]);
}

TEST_F(TProgrammerControlsTest, NothingMakesThemVisible) {
    const auto hidden = [&] {
        for (QWidget *control : Driven() + QList<QWidget *>{&Use()})
            EXPECT_TRUE(control->isHidden()) << control->objectName().toStdString();
    };
    hidden();
    host.show();
    hidden();
    LoadAndPlace(MakeROM("A.BIN"));
    Use().click();
    page->QueryClose();
    page->ShowPage();
    hidden();
}

TEST_F(TProgrammerControlsTest, TheButtonsAreNotInTheTabOrder) {
    for (const char *name : {"btnRead", "btnWrite"})
        EXPECT_FALSE(Button(name).focusPolicy() & Qt::TabFocus) << name;
}

TEST_F(TProgrammerControlsTest, TheCheckBoxEnablesTheOthers) {
    EXPECT_FALSE(Controls().UseProgrammer());
    for (const bool wanted : {true, false, true}) {
        Use().click();
        EXPECT_EQ(Use().isChecked(), wanted);
        EXPECT_EQ(Controls().UseProgrammer(), wanted);
        for (const QWidget *control : Driven())
            EXPECT_EQ(control->isEnabled(), wanted) << control->objectName().toStdString();
    }
}

TEST_F(TProgrammerControlsTest, DevicesAndButtonsChangeNothing) {
    const auto rom = MakeROM("A.BIN");
    LoadAndPlace(rom);
    Use().click();
    for (int i = 0; i < Devices().count(); ++i) {
        Devices().setCurrentIndex(i);
        Button("btnRead").click();
        Button("btnWrite").click();
    }
    EXPECT_EQ(Image().size, 0x8000);
    EXPECT_EQ(Get(0, Image().size), GetFile(rom));
    EXPECT_FALSE(Image().modified);
    EXPECT_FALSE(page->DataChanged);
    EXPECT_EQ(EnabledButtons(), "lc");
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_EQ(Devices().currentText(), deviceTexts[22]);
}
} // namespace
