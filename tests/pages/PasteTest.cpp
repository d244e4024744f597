// "Copy Map" and "Paste Map" of the fuel and the timing page: what moves, what stays, and every
// reason not to paste.
#include "pages/MapPageFixture.h"

namespace {
struct TSlot {
    bool fuel;
    TMapKind kind;
    const char *words; ///< as the messages name the map
};

constexpr std::array commits{"btnSavePT", "btnSaveIdle", "btnSaveFT"};
constexpr std::array resets{"btnResetPT", "btnResetIdle", "btnResetFT"};

/// The second home of a map, with the same counts and other axis values, or with other counts.
constexpr int elsewhere = 0x5000;

class TPasteTest : public TPageTest, public testing::WithParamInterface<TSlot> {
protected:
    void SetUp() override {
        PlantMaps();
        PlaceMaps(workspace);
        page = MakePage(Set());
        page->ShowPage();
    }

    std::unique_ptr<TfrmMaps> MakePage(TMapSet &set) {
        if (GetParam().fuel)
            return std::make_unique<TfrmFuelMaps>(nullptr, workspace,
                                                  dynamic_cast<TFuelMapSet &>(set));
        return std::make_unique<TfrmTimingMaps>(nullptr, workspace,
                                                dynamic_cast<TTimingMapSet &>(set));
    }
    TMapSet &Set() {
        return GetParam().fuel ? static_cast<TMapSet &>(workspace.fuelMapSet)
                               : workspace.timingMapSet;
    }
    TPasteSlots &Slots() {
        return GetParam().fuel ? workspace.fuelPasteSlots : workspace.timingPasteSlots;
    }
    std::size_t Index() { return static_cast<std::size_t>(GetParam().kind); }
    TMapKind Kind() { return GetParam().kind; }
    bool TwoAxes() { return Kind() == TMapKind::PT; }
    TMap &Map() { return Set().Map(Kind()); }
    TMap &Slot() { return *Slots()[Kind()]; }
    TStringAlignGrid &Grid() { return *page->Panel(Kind()).grid; }
    void Choose(const char *item) {
        FindControl<QAction>(*page, item + QString::number(Index() + 1)).trigger();
    }
    /// Puts another map elsewhere and lets the page show it.
    void MoveTo(const TBytes &rpm, const TBytes &load, std::uint8_t firstCell = 101) {
        const std::int32_t body = PutMap(elsewhere, rpm, TwoAxes() ? load : TBytes{});
        for (std::int32_t i = 0; i < 40; ++i)
            Image().Poke(body + i, static_cast<std::uint8_t>(firstCell + i));
        Map().SetOffset(elsewhere);
        page->QueryClose();
        page->ShowPage();
        dialogs.questions.clear();
    }
    static QString Words(const char *before, const char *after) {
        return QString(before) + GetParam().words + after;
    }
    QStringList RowTexts(int row) {
        QStringList texts;
        for (int column = 0; column < Grid().ColCount(); ++column)
            texts << Grid().Cell(column, row);
        return texts;
    }

    TWorkspace workspace;
    std::unique_ptr<TfrmMaps> page;
};

INSTANTIATE_TEST_SUITE_P(Slots, TPasteTest,
                         testing::Values(TSlot{true, TMapKind::PT, "Fuel PT Map"},
                                         TSlot{true, TMapKind::Idle, "Fuel Idle Map"},
                                         TSlot{true, TMapKind::WOT, "Fuel WOT Map"},
                                         TSlot{false, TMapKind::PT, "Timing PT Map"},
                                         TSlot{false, TMapKind::Idle, "Timing Idle Map"},
                                         TSlot{false, TMapKind::WOT, "Timing WOT Map"}));

TEST_P(TPasteTest, AnEmptySlotIsSaid) {
    Choose("Paste");
    EXPECT_EQ(dialogs.messages, QStringList{Words("No ", " currently in paste buffer")});
    EXPECT_FALSE(page->Changed(Kind()));
}

TEST_P(TPasteTest, OnlyTheMatchingSlotIsFilledAndRead) {
    Choose("Copy");
    for (const bool fuel : {true, false})
        for (const TMapKind kind : {TMapKind::PT, TMapKind::Idle, TMapKind::WOT}) {
            TPasteSlots &slots_ = fuel ? workspace.fuelPasteSlots : workspace.timingPasteSlots;
            const bool own = fuel == GetParam().fuel && kind == Kind();
            EXPECT_EQ(slots_[kind] != nullptr, own);
        }
    EXPECT_TRUE(Slot().isCopy);
    EXPECT_NE(&Slot(), &Map());
    EXPECT_EQ(dynamic_cast<TFuelMap *>(&Slot()) != nullptr, GetParam().fuel);
}

TEST_P(TPasteTest, AnotherRPMCountIsSaidBeforeTheLoadCount) {
    Choose("Copy");
    MoveTo({60, 60, 60, 10, 6}, {100, 100, 10, 0});
    const QStringList before = RowTexts(1);
    Choose("Paste");
    EXPECT_EQ(dialogs.messages,
              QStringList{Words("", " in paste buffer has different RPM axis count")});
    EXPECT_EQ(RowTexts(1), before);
    EXPECT_FALSE(page->Changed(Kind()));
    EXPECT_FALSE(Map().IsModified());
}

TEST_P(TPasteTest, AnotherLoadCountIsSaid) {
    Choose("Copy");
    if (TwoAxes())
        MoveTo({60, 60, 60, 16}, {100, 0});
    else // a one-axis map always has one point, so the buffered one is given two
        Slot().axes->throttleAxis->size = 2;
    Choose("Paste");
    EXPECT_EQ(dialogs.messages,
              QStringList{Words("", " in paste buffer has different Load axis count")});
    EXPECT_FALSE(page->Changed(Kind()));
}

TEST_P(TPasteTest, TheStoredCountBytesAreCompared) {
    Choose("Copy");
    Slot().axes->rpmAxis->size = 4 + 32; // the same number of points when walked
    Choose("Paste");
    EXPECT_EQ(dialogs.messages,
              QStringList{Words("", " in paste buffer has different RPM axis count")});
}

TEST_P(TPasteTest, AMapOf33PointsIsNotPastedIntoOneOf1) {
    MoveTo(TBytes(33, 5), {100, 100, 0});
    Choose("Copy");
    ASSERT_EQ(Slot().RPMCount(), 33);
    ASSERT_EQ(Slot().axes->rpmAxis->values->Rows(), 1);
    MoveTo({50}, {100, 100, 0});
    ASSERT_EQ(Map().axes->rpmAxis->values->Rows(), 1);
    Choose("Paste");
    EXPECT_EQ(dialogs.messages,
              QStringList{Words("", " in paste buffer has different RPM axis count")});
}

TEST_P(TPasteTest, ValuesAndAxesAreReplacedAndThePlaceStays) {
    Choose("Copy");
    const QStringList header = RowTexts(0);
    const QStringList cells = RowTexts(1);
    MoveTo({40, 40, 40, 40}, {50, 50, 50});
    ASSERT_NE(RowTexts(0), header);
    ASSERT_NE(RowTexts(1), cells);
    const std::int32_t body = Map().data->offset;
    const TBytes before = Get(0, Image().size);
    Choose("Paste");
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_EQ(RowTexts(0), header);
    EXPECT_EQ(RowTexts(1), cells);
    EXPECT_EQ(Map().GetLocation(), elsewhere);
    EXPECT_EQ(Map().data->offset, body);
    EXPECT_EQ(Map().axes->rpmAxis->offset, elsewhere);
    EXPECT_EQ(page->Panel(Kind()).offset->text(), "$5000");
    EXPECT_EQ(Get(0, Image().size), before) << "nothing is written before the commit";
}

TEST_P(TPasteTest, PasteFlagsThisMapAloneAndPaintsNothingBlue) {
    Choose("Copy");
    MoveTo({40, 40, 40, 40}, {50, 50, 50});
    Choose("Paste");
    for (const TMapKind kind : {TMapKind::PT, TMapKind::Idle, TMapKind::WOT})
        EXPECT_EQ(page->Changed(kind), kind == Kind());
    EXPECT_TRUE(Map().IsModified());
    EXPECT_FALSE(page->DataChanged);
    for (int row = 0; row < Grid().RowCount(); ++row)
        for (int column = 0; column < Grid().ColCount(); ++column)
            EXPECT_EQ(Grid().FontColor(column, row), clWindowText) << column << "," << row;
}

TEST_P(TPasteTest, TheChartIsDrawnFromThePastedGrid) {
    Choose("Copy");
    MoveTo({40, 40, 40, 40}, {50, 50, 50});
    Choose("Paste");
    const auto &series = page->Panel(Kind()).chart->Series();
    ASSERT_EQ(series.size(), TwoAxes() ? 3U : 1U);
    EXPECT_EQ(series.back().points[1].value, TwoAxes() ? 4.0 : 2.0);
    EXPECT_EQ(series.back().points[1].label, "4800");
}

TEST_P(TPasteTest, PasteRestoresTheFixedCellsOfAnUnlockedGrid) {
    Choose("Copy");
    Choose("UnlockAxis");
    ASSERT_EQ(Grid().FixedRows(), 0);
    Choose("Paste");
    EXPECT_EQ(Grid().FixedRows(), 1);
    EXPECT_EQ(Grid().FixedCols(), 1);
}

TEST_P(TPasteTest, PasteDoesNotReadTheImage) {
    Choose("Copy");
    Put(Map().axes->offset, TBytes(0x40, 0x77));
    Choose("Paste");
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_EQ(RowTexts(0), (QStringList{"", "2400", "4800", "7200", "9600"}));
    EXPECT_EQ(Grid().Cell(1, 1), "1");
}

TEST_P(TPasteTest, CommitWritesAxesAndValuesAtTheTargetsPlace) {
    Choose("Copy");
    const std::int32_t length = Map().data->offset + Map().data->length - Map().axes->offset;
    const TBytes source = Get(Map().axes->offset, length);
    MoveTo({40, 40, 40, 40}, {50, 50, 50});
    TBytes expected = Get(0, Image().size);
    std::copy(source.begin(), source.end(), expected.begin() + elsewhere);
    Choose("Paste");
    FindControl<QPushButton>(*page, commits[Index()]).click();
    EXPECT_EQ(Get(0, Image().size), expected);
    EXPECT_FALSE(page->Changed(Kind()));
    EXPECT_TRUE(page->DataChanged);
}

TEST_P(TPasteTest, ResetAfterAPasteShowsThePastedValues) {
    Choose("Copy");
    const QStringList header = RowTexts(0);
    const QStringList cells = RowTexts(1);
    MoveTo({40, 40, 40, 40}, {50, 50, 50});
    Choose("Paste");
    Grid().SetCell(1, 1, "55");
    FindControl<QPushButton>(*page, resets[Index()]).click();
    EXPECT_EQ(RowTexts(0), header);
    EXPECT_EQ(RowTexts(1), cells);
    EXPECT_FALSE(page->Changed(Kind()));
}

TEST_P(TPasteTest, LoadingTheMapAgainBringsTheImagesValuesBack) {
    Choose("Copy");
    MoveTo({40, 40, 40, 40}, {50, 50, 50});
    const QStringList header = RowTexts(0);
    const QStringList cells = RowTexts(1);
    Choose("Paste");
    FindControl<QPushButton>(*page, resets[Index()]).click();
    ASSERT_NE(RowTexts(1), cells);
    page->ShowPage();
    EXPECT_EQ(RowTexts(0), header);
    EXPECT_EQ(RowTexts(1), cells);
}

TEST_P(TPasteTest, TheCopyIsTakenFromTheMapNotFromTheGrid) {
    Grid().SetCell(1, 1, "99");
    Grid().SetFontColor(1, 1, clBlue);
    page->Changed(Kind()) = true;
    Choose("Copy");
    EXPECT_EQ(Slot().data->values->GetItem(0, 0)->raw, 1);
    EXPECT_TRUE(page->Changed(Kind()));
    EXPECT_EQ(Grid().Cell(1, 1), "99");
}

TEST_P(TPasteTest, TheNextCopyReplacesTheLast) {
    Choose("Copy");
    Image().Poke(Map().data->offset, 200);
    page->ShowPage();
    Choose("Copy");
    EXPECT_EQ(Slot().data->values->GetItem(0, 0)->raw, 200);
}

TEST_P(TPasteTest, TheCopySurvivesThePage) {
    Choose("Copy");
    page.reset();
    page = MakePage(Set());
    page->ShowPage();
    MoveTo({40, 40, 40, 40}, {50, 50, 50});
    Choose("Paste");
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_EQ(Grid().Cell(1, 1), "1");
}

TEST_P(TPasteTest, TheLoadPointOfAOneAxisMapIsItsOwn) {
    if (!TwoAxes()) // as after a plain re-read of the map
        Map().axes->throttleAxis->SetSinglePoint(7);
    Choose("Copy");
    const QString expected = TwoAxes() ? "20%" : Kind() == TMapKind::Idle ? "0%" : "100%";
    Choose("Paste");
    EXPECT_EQ(Grid().Cell(0, 1), expected);
    page->ShowPage();
    EXPECT_EQ(Grid().Cell(0, 1), expected);
}

TEST_P(TPasteTest, TheInterpretationIsPastedWithTheValues) {
    TimingConstants() = {0.5, 0.0};
    FindControl<QCheckBox>(*page, "chkInterpret").click();
    Choose("Copy");
    const QString shown = Grid().Cell(4, 1);
    FindControl<QCheckBox>(*page, "chkInterpret").click();
    ASSERT_NE(Grid().Cell(4, 1), shown);
    Choose("Paste");
    EXPECT_EQ(Grid().Cell(4, 1), shown);
    EXPECT_FALSE(Set().showConverted);
}

TEST_P(TPasteTest, AnAddedPageCopiesTheWorkspacesMapAndPastesIntoItsOwn) {
    TFuelMapSet fuel;
    TTimingMapSet timing;
    TMapSet &found = GetParam().fuel ? static_cast<TMapSet &>(fuel) : timing;
    PutMap(elsewhere, {40, 40, 40, 40}, TwoAxes() ? TBytes{50, 50, 50} : TBytes{});
    found.SetOffsets(elsewhere, elsewhere, elsewhere);
    page = MakePage(found);
    page->ShowPage();
    Image().Poke(Map().data->offset, 150);
    Map().SetOffset(Map().GetLocation());
    Choose("Copy");
    EXPECT_EQ(Slot().data->values->GetItem(0, 0)->raw, 150);
    EXPECT_NE(Slot().GetLocation(), elsewhere);
    Choose("Paste");
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_EQ(found.Map(Kind()).data->values->GetItem(0, 0)->raw, 150);
    EXPECT_EQ(found.Map(Kind()).GetLocation(), elsewhere);
    EXPECT_EQ(Grid().Cell(1, 1), "150");
    EXPECT_EQ(Map().data->values->GetItem(0, 0)->modified, false);
}

TEST_P(TPasteTest, AnOpenEditIsLeftBeforeThePaste) {
    Choose("Copy");
    Grid().SetCurrent(1, 1);
    QTest::keyClick(Grid().viewport(), Qt::Key_8);
    ASSERT_TRUE(Grid().IsEditing());
    Choose("Paste");
    EXPECT_FALSE(Grid().IsEditing());
    EXPECT_EQ(Grid().Cell(1, 1), "1");
    EXPECT_EQ(Grid().FontColor(1, 1), clWindowText);
}
} // namespace
