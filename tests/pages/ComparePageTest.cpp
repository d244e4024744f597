// The page "Compare": the image in memory against another file.
#include "changes/Patch.h"
#include "pages/DifferencesFixture.h"

#include <QComboBox>
#include <QSpinBox>

namespace {
class TComparePageTest : public TDifferencesTest {
protected:
    /// Writes the image, changed by `change`, to OTHER.BIN and takes the changes back.
    void WriteOther(const std::function<void()> &change) {
        const TBytes mine = Bytes();
        change();
        const TBytes other = Bytes();
        std::ofstream("OTHER.BIN", std::ios::binary)
            .write(reinterpret_cast<const char *>(other.data()), std::ssize(other));
        Put(0, mine);
    }
    void Compare() { window.ShowCompare(TOtherImage("OTHER.BIN")); }
    QString CellText(const QString &grid, int column, int row) {
        return Find<TStringAlignGrid>(grid).Cell(column, row);
    }
    TColor CellFont(const QString &grid, int column, int row) {
        return Find<TStringAlignGrid>(grid).FontColor(column, row);
    }
};

TEST_F(TComparePageTest, AsksForTheOtherImageWhenItComes) {
    WriteOther([] {});
    dialogs.opens = {"OTHER.BIN", ""};
    window.ShowCompare({});
    EXPECT_EQ(Caption(), "Compare");
    EXPECT_EQ(dialogs.openDialogs.size(), 1);
    EXPECT_EQ(Total(), "No byte differs from OTHER.BIN");
    window.ShowCompare({});
    EXPECT_EQ(dialogs.openDialogs.size(), 1) << "it has one";
    Click("btnOther");
    EXPECT_EQ(Total(), "No byte differs from OTHER.BIN") << "cancelled";
}

TEST_F(TComparePageTest, WithoutAnotherImageSaysSo) {
    dialogs.opens.push_back("");
    window.ShowCompare({});
    EXPECT_EQ(Total(), "No other image is chosen");
    EXPECT_FALSE(Enabled("btnExport"));
    EXPECT_FALSE(Enabled("btnTakeCells"));
    EXPECT_FALSE(Enabled("btnTakeAll"));
}

TEST_F(TComparePageTest, ShowsTheValuesThereBeneath) {
    WriteOther([&] { Change(fuelBody, 128); });
    Compare();
    EXPECT_EQ(Listed(), QStringList("Fuel PT: 1 cell"));
    EXPECT_EQ(Grid().Cell(1, 1), "0.01\n1.00");
}

TEST_F(TComparePageTest, TakesSelectedCellsOverAsEdits) {
    WriteOther([&] {
        Change(fuelBody, 66); // 0.515625: shown as 0.52, which would be stored as 67
        Change(fuelBody + 1, 128);
    });
    Compare();
    Grid().SetCurrent(1, 1);
    Click("btnTakeCells");
    EXPECT_EQ(Caption(), "Fuel Maps");
    EXPECT_EQ(CellText("grdPTMap", 1, 1), "0.516");
    EXPECT_EQ(CellFont("grdPTMap", 1, 1), clBlue);
    EXPECT_EQ(CellFont("grdPTMap", 1, 2), clWindowText);
    EXPECT_EQ(Image().Peek(fuelBody), 1) << "not committed";
    Click("btnSavePT");
    EXPECT_EQ(Image().Peek(fuelBody), 66);
    EXPECT_EQ(Image().Peek(fuelBody + 1), 2);
}

TEST_F(TComparePageTest, TakesAWholeMapOverAsOneStep) {
    TBytes other;
    WriteOther([&] {
        for (int cell = 0; cell < 12; ++cell)
            Change(timingBody + cell, static_cast<std::uint8_t>(60 + cell));
        other = Bytes();
    });
    TimingConstants() = {0.65, 12.7};
    window.workspace.timingMapSet.SetShowConverted(true);
    const TBytes mine = Bytes();
    Compare();
    Click("btnTakeAll");
    EXPECT_EQ(Caption(), "Timing Maps");
    EXPECT_EQ(Bytes(), mine) << "not committed";
    EXPECT_EQ(CellFont("grdPTMap", 4, 3), clBlue);
    Trigger("actUndo");
    EXPECT_EQ(CellFont("grdPTMap", 4, 3), clWindowText);
    Trigger("actRedo");
    Click("btnSavePT");
    EXPECT_EQ(Bytes(), other);
}

TEST_F(TComparePageTest, SaysThatDegreesNeedADivider) {
    WriteOther([&] { Change(timingBody, 60); });
    window.workspace.timingMapSet.SetShowConverted(true);
    Compare();
    Click("btnTakeCells");
    EXPECT_EQ(dialogs.messages,
              QStringList("Degrees cannot be entered while the timing divider is 0"));
    EXPECT_EQ(CellFont("grdPTMap", 1, 1), clWindowText);
}

TEST_F(TComparePageTest, TakesAxesOverWithTheMap) {
    TBytes other;
    WriteOther([&] {
        Change(fuelPT + 3, 50);
        Change(fuelPT + 5, 26);
        Change(fuelBody + 3, 90);
        other = Bytes();
    });
    Compare();
    EXPECT_EQ(Listed(), QStringList("Fuel PT: 1 cell, other axes"));
    Click("btnTakeAll");
    Click("btnSavePT");
    EXPECT_EQ(Bytes(), other);
}

TEST_F(TComparePageTest, TakesNothingOverFromAnotherShape) {
    WriteOther([&] { Change(fuelIdle + 1, 3); });
    Compare();
    ASSERT_EQ(Listed().constFirst(), "Fuel Idle: other shape: 4 x 1 here, 3 x 1 there");
    Click("btnTakeAll");
    EXPECT_EQ(dialogs.messages,
              QStringList("Fuel Idle Map in paste buffer has different RPM axis count"));
    EXPECT_EQ(CellFont("grdIdMap", 1, 1), clWindowText);
}

TEST_F(TComparePageTest, TakesTheRevLimiterOver) {
    WriteOther([&] { Change(revLimiter, 150); });
    Compare();
    Click("btnTakeAll");
    EXPECT_EQ(Caption(), "Fuel Maps");
    EXPECT_EQ(Find<QSpinBox>("spnRevLimiter").value(), 6000);
    EXPECT_EQ(window.workspace.fuelMapSet.revLimiter.raw, 170) << "not committed";
}

TEST_F(TComparePageTest, LeavesPasteSlotsAlone) {
    WriteOther([&] { Change(fuelBody, 9); });
    Compare();
    Click("btnTakeAll");
    EXPECT_EQ(window.workspace.fuelPasteSlots[TMapKind::PT], nullptr);
}

TEST_F(TComparePageTest, FindsMovedMapsByASpecFileBesideTheOtherImage) {
    std::filesystem::create_directory("other");
    WriteOther([&] {
        PutMap(0x3000, {60, 60, 60, 16}, {100, 100, 0});
        Change(0x3000 + 11 + 4, 200);
    });
    std::filesystem::rename("OTHER.BIN", "other/OTHER.BIN");
    std::ofstream("other/MOVED.SPC") << "; Moved\n[Main]\ntiming_divider=0.7\n"
                                        "[Fuel Maps]\npt_offset=$3000\n";
    TimingConstants() = {0.65, 12.7};
    window.ShowCompare(TOtherImage("other/OTHER.BIN"));
    EXPECT_EQ(Listed(), QStringList("Elsewhere: 22 bytes in 2 places"));
    auto &spec = Find<QComboBox>("cboSpec");
    EXPECT_EQ(spec.count(), 2);
    EXPECT_EQ(spec.itemText(1), "Moved (MOVED.SPC)");
    spec.setCurrentIndex(1);
    EXPECT_EQ(Listed().constFirst(), "Fuel PT: 1 cell");
    EXPECT_EQ(Grid().Cell(2, 2), "0.04\n1.56");
    EXPECT_EQ(TimingConstants().divider, 0.65);
    Click("btnTakeAll");
    Click("btnSavePT");
    EXPECT_EQ(Image().Peek(fuelBody + 4), 200);
}

TEST_F(TComparePageTest, OfABadSpecFileSaysWhy) {
    std::ofstream("BAD.SPC") << "; Bad\n[Main]\ntiming_divider=x\n";
    WriteOther([&] { Change(fuelBody, 9); });
    Compare();
    Find<QComboBox>("cboSpec").setCurrentIndex(1);
    EXPECT_EQ(dialogs.messages, QStringList("'x' is not a valid floating point value"));
    EXPECT_TRUE(Listed().isEmpty());
    EXPECT_EQ(Total(), "");
}

TEST_F(TComparePageTest, TellsOfDifferentLengths) {
    std::ofstream("OTHER.BIN", std::ios::binary) << std::string(16, '\0');
    Compare();
    EXPECT_EQ(Total(), "No byte differs from OTHER.BIN; 32768 bytes are here and 16 bytes there: "
                       "the longer end is left out");
    dialogs.saves.push_back("x.patch");
    Trigger("actPatch");
    EXPECT_EQ(dialogs.messages, QStringList("A patch needs two images of the same length"));
    EXPECT_FALSE(std::filesystem::exists("x.patch"));
}

TEST_F(TComparePageTest, ExportsThePatchThatMakesTheOtherImage) {
    TBytes other;
    WriteOther([&] {
        Change(fuelBody, 9);
        other = Bytes();
    });
    Compare();
    dialogs.saves.push_back("x.patch");
    Trigger("actPatch");
    TBytes image = Bytes();
    ApplyPatch(ParsePatch(ReadText("x.patch")), image);
    EXPECT_EQ(image, other);
}

TEST_F(TComparePageTest, DoesNotComeForAFileThatCannotBeRead) {
    EXPECT_THROW(window.ShowCompare(TOtherImage("NONE.BIN")), std::runtime_error);
    EXPECT_EQ(window.PageCount(), 6);
}

TEST_F(TComparePageTest, TakesNothingOverWhenThePageIsNotLeft) {
    WriteOther([&] { Change(fuelBody, 9); });
    Compare();
    window.PageControl1->OnChanging = [] { return false; };
    Click("btnTakeCells");
    EXPECT_EQ(Caption(), "Compare");
    EXPECT_EQ(window.workspace.fuelMapSet.PTMap->data->values->GetItem(0, 0)->raw, 1);
}
} // namespace
