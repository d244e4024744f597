// What a choice in "Set Mapping Type" does on the page: to the maps, the image, the buttons and the
// recorded index, with an error at each step. The rules for the maps alone are tested with
// MappingChoice.h.
#include "pages/OffsetDialog.h"
#include "pages/ROMInfoFixture.h"

namespace {
namespace fs = std::filesystem;

class TROMInfoChoiceTest : public TROMInfoTest {
protected:
    void SetUp() override {
        TfrmBaseForm::ProgRegKey = "\\Software\\Kelvane\\Ferrolyn";
        TROMInfoTest::SetUp();
    }
    void TearDown() override { TfrmBaseForm::ProgRegKey.clear(); }

    /// Loads an image with two spec files beside it, "Direct" and "Next", and places its maps by
    /// hand, so that "Manual Offsets" is enabled. The constants are 1.5 and 2.5 then, and the image
    /// in memory has a byte that its file has not.
    void Begin(const std::string &next = "") {
        MakeText("NEXT.SPC", "; Next\n" + next);
        rom = MakeROM("A.BIN", 7);
        LoadAndPlace(rom);
        Manual([](TfrmOffsetEntry &dialog) {
            int offset = fuelPT;
            for (const char *field : {"edtFuelPTMapOffset", "edtTimingPTMapOffset"}) {
                TInOffsetDialog::Type(dialog, field, QString::number(offset));
                offset = timingPT;
            }
            TInOffsetDialog::OK(dialog);
        });
        ASSERT_EQ(EnabledButtons(), "lcm");
        PlaceMaps(workspace);
        TimingConstants() = {1.5, 2.5};
        Image().Poke(0x7000, 99);
    }
    void Manual(const std::function<void(TfrmOffsetEntry &)> &act) {
        const TInOffsetDialog dialog(act);
        Choose(manual);
    }
    void ManualOffsets() {
        const TInOffsetDialog dialog(TInOffsetDialog::OK);
        Button("btnOffsetEntry").click();
    }
    void Save(const fs::path &target) {
        dialogs.saves.push_back(Name(target));
        other->DataChanged = true;
        page->ShowPage();
        Button("btnSave").click();
    }
    /// The list's text for an index, "none" for -1.
    QString TextOf(int index) { return index < 0 ? "none" : Group().Item(index); }
    bool ReadAgain() { return Image().Peek(0x7000) == 7; }

    fs::path rom;
};

enum class TImage { There, TooLarge, Gone };
enum class TDialogEnd { None, OK, NoInteger, Cancel };

struct TChoice {
    const char *name;
    const char *item; ///< "none" for the choice of nothing
    const char *spec; ///< the lines of the spec file "Next"
    TImage image;     ///< what has become of the image's file
    TDialogEnd dialog;
    // What stands afterwards:
    int fuelPlace;
    bool zeroed;
    double divider;
    bool readAgain;
    const char *buttons;
    const char *selected;
    const char *recorded;
    const char *message; ///< its beginning; empty for none
};
class TChoiceTest : public TROMInfoChoiceTest, public testing::WithParamInterface<TChoice> {
protected:
    void Run() {
        const TChoice &choice = GetParam();
        if (choice.item == std::string("none")) {
            Group().SetItemIndex(-1);
            page->rdoROMtemplateClick();
        } else if (choice.dialog == TDialogEnd::None) {
            Choose(choice.item);
        } else {
            Manual([&](TfrmOffsetEntry &dialog) { End(dialog); });
        }
    }

private:
    static void End(TfrmOffsetEntry &dialog) {
        if (GetParam().dialog == TDialogEnd::Cancel)
            return TInOffsetDialog::Cancel(dialog);
        TInOffsetDialog::Type(dialog, "edtFuelPTMapOffset", "$2000");
        if (GetParam().dialog == TDialogEnd::NoInteger)
            TInOffsetDialog::Type(dialog, "edtTimingFTMapOffset", "x");
        TInOffsetDialog::OK(dialog);
    }
};

TEST_P(TChoiceTest, DoesItsStepsUpToTheError) {
    const TChoice &choice = GetParam();
    Begin(choice.spec);
    if (choice.image == TImage::Gone)
        fs::remove(rom);
    else if (choice.image == TImage::TooLarge)
        fs::resize_file(rom, TROMImage::capacity + 1);
    Run();
    EXPECT_EQ(workspace.fuelMapSet.PTMap->axes->rpmAxis->offset, choice.fuelPlace);
    EXPECT_EQ(AllZero(), choice.zeroed);
    EXPECT_EQ(TimingConstants().divider, choice.divider);
    EXPECT_EQ(ReadAgain(), choice.readAgain);
    EXPECT_EQ(EnabledButtons(), choice.buttons);
    EXPECT_EQ(TextOf(Group().ItemIndex()), choice.selected);
    EXPECT_EQ(TextOf(page->TemplateIndex()), choice.recorded);
    EXPECT_EQ(dialogs.messages.size(), *choice.message ? 1 : 0);
    EXPECT_EQ(dialogs.messages.join("").left(int(qstrlen(choice.message))).toStdString(),
              choice.message);
    EXPECT_EQ(Caption(),
              choice.image == TImage::Gone ? QString("Ferrolyn") : "Ferrolyn - " + Name(rom));
}

constexpr const char *whole = "[Fuel Maps]\npt_offset=$2000\n[Main]\ntiming_divider=0.5\n";

// "Manual Offsets" (m) keeps its state where an error or Cancel ends the choice; "Save Spec" (c) is
// off where the image could not be read again.
INSTANTIATE_TEST_SUITE_P(
    Table, TChoiceTest,
    testing::Values(TChoice{"None", "none", "", TImage::There, TDialogEnd::None, 0x1000, true, 1.5,
                            false, "lc", "none", "none", ""},
                    TChoice{"Spec", "Next", whole, TImage::There, TDialogEnd::None, 0x2000, false,
                            0.5, true, "lc", "Next", "Next", ""},
                    TChoice{"BadMap", "Next",
                            "[Fuel Maps]\npt_offset=x\n[Main]\ntiming_divider=0.5\n", TImage::There,
                            TDialogEnd::None, 0x1000, false, 0.5, true, "lc", "Next", "Next", ""},
                    TChoice{"BadRevLimiter", "Next",
                            "[Fuel Maps]\npt_offset=$2000\n[Other Maps]\n"
                            "revlimit_offset=x\n[Main]\ntiming_divider=0.5\n",
                            TImage::There, TDialogEnd::None, 0x1000, false, 1.5, true, "lcm",
                            "Next", "Next", "'x' is not a valid integer"},
                    TChoice{"BadDivider", "Next",
                            "[Fuel Maps]\npt_offset=$2000\n[Main]\ntiming_divider=x\n",
                            TImage::There, TDialogEnd::None, 0x2000, false, 1.5, true, "lcm",
                            "Next", "Next", "'x' is not a valid floating"},
                    TChoice{"ImageTooLarge", "Next", whole, TImage::TooLarge, TDialogEnd::None,
                            0x2000, false, 0.5, false, "lm", "Next", "Next", "Cannot read"},
                    TChoice{"ImageGone", "Next", whole, TImage::Gone, TDialogEnd::None, 0x2000,
                            false, 0.5, false, "l", "Next", "Next", ""},
                    TChoice{"ByHand", manual, "", TImage::There, TDialogEnd::OK, 0x2000, false, 1.5,
                            false, "lcm", manual, manual, ""},
                    TChoice{"ByHandNoInteger", manual, "", TImage::There, TDialogEnd::NoInteger,
                            0x1000, false, 1.5, false, "lcm", manual, manual,
                            "'x' is not a valid integer"},
                    TChoice{"ByHandCancel", manual, "", TImage::There, TDialogEnd::Cancel, 0x1000,
                            false, 1.5, false, "lcm", "none", manual, ""}),
    [](const auto &choice) { return std::string(choice.param.name); });

TEST_F(TROMInfoChoiceTest, ASpecsErrorLeavesManualOffsetsDisabledToo) {
    MakeText("NEXT.SPC", "; Next\n[Main]\ntiming_divider=x\n");
    LoadAndPlace(MakeROM("A.BIN"));
    Choose("Next");
    EXPECT_EQ(EnabledButtons(), "lc");
}

TEST_F(TROMInfoChoiceTest, AfterCancelManualOffsetsStillReadsTheImageAgain) {
    Begin();
    Manual(TInOffsetDialog::Cancel);
    ManualOffsets();
    EXPECT_TRUE(ReadAgain());
    EXPECT_EQ(Caption(), "Ferrolyn - " + Name(rom));
    EXPECT_EQ(EnabledButtons(), "lcm");
}

TEST_F(TROMInfoChoiceTest, AfterCancelASaveKeepsCaptionAndSaveSpec) {
    Begin();
    Manual(TInOffsetDialog::Cancel);
    Save(folder / "B.BIN");
    EXPECT_EQ(Caption(), "Ferrolyn - " + Name(folder / "B.BIN"));
    EXPECT_EQ(EnabledButtons(), "lcm");
    EXPECT_EQ(Image().Peek(0x7000), 99) << "saved, and read again";
}

TEST_F(TROMInfoChoiceTest, CancelAfterASpecKeepsTheImageInForceToo) {
    MakeSpec();
    rom = MakeROM("A.BIN", 7);
    LoadAndPlace(rom);
    Manual(TInOffsetDialog::Cancel);
    Image().Poke(0x7000, 99);
    page->ApplyROM();
    EXPECT_TRUE(ReadAgain());
    EXPECT_EQ(Caption(), "Ferrolyn - " + Name(rom));
    EXPECT_EQ(EnabledButtons(), "lc");
}

TEST_F(TROMInfoChoiceTest, AScanForgetsTheRecordedIndex) {
    Begin();
    page->ScanSpecDirectory();
    EXPECT_EQ(page->TemplateIndex(), -1);
    page->ApplyROM();
    EXPECT_FALSE(ReadAgain());
    EXPECT_EQ(Caption(), "Ferrolyn");
    EXPECT_EQ(EnabledButtons(), "lm");
}

TEST_F(TROMInfoChoiceTest, ALoadAfterCancelForgetsTheRecordedIndex) {
    Begin();
    Manual(TInOffsetDialog::Cancel);
    Load(rom);
    EXPECT_EQ(page->TemplateIndex(), -1);
    page->ApplyROM();
    EXPECT_EQ(Caption(), "Ferrolyn");
}

TEST_F(TROMInfoChoiceTest, ByHandRevLimiterAndTimingConstantsStay) {
    Begin();
    workspace.fuelMapSet.revLimiter.SetValue(6000);
    Manual(TInOffsetDialog::OK);
    EXPECT_EQ(workspace.fuelMapSet.revLimiter.offset, revLimiter);
    EXPECT_EQ(workspace.fuelMapSet.revLimiter.GetValue(), 6000);
    EXPECT_TRUE(workspace.fuelMapSet.revLimiter.modified);
    EXPECT_EQ(TimingConstants().divider, 1.5);
    EXPECT_EQ(TimingConstants().subtractor, 2.5);
}

TEST_F(TROMInfoChoiceTest, ALoadZeroesTheMapsWhereTheyAre) {
    Begin();
    Load(rom);
    EXPECT_TRUE(AllZero());
    EXPECT_EQ(workspace.fuelMapSet.PTMap->GetLocation(), fuelPT);
    EXPECT_EQ(workspace.fuelMapSet.WOTMap->GetLocation(), fuelWOT);
    EXPECT_EQ(workspace.timingMapSet.IdleMap->GetLocation(), timingIdle);
    EXPECT_EQ(workspace.fuelMapSet.PTMap->axes->rpmAxis->values->GetItem(0, 0)->GetValue(), 2400);
    EXPECT_EQ(workspace.fuelMapSet.WOTMap->axes->throttleAxis->values->GetItem(0, 0)->GetValue(),
              100);
    EXPECT_EQ(workspace.fuelMapSet.revLimiter.offset, revLimiter);
    EXPECT_EQ(TimingConstants().divider, 1.5);
}

TEST_F(TROMInfoChoiceTest, NeitherALoadNorAChoiceClearsDataChanged) {
    Begin();
    other->DataChanged = true;
    Load(rom);
    EXPECT_TRUE(other->DataChanged);
    Choose("Direct");
    EXPECT_TRUE(other->DataChanged);
    Manual(TInOffsetDialog::OK);
    EXPECT_TRUE(other->DataChanged);
    page->ShowPage();
    EXPECT_TRUE(Button("btnSave").isEnabled()) << "though nothing is left to save";
}
} // namespace
