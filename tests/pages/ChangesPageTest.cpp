// The page "Changes": the image in memory against its file.
#include "changes/Patch.h"
#include "maps/AreaChart.h"
#include "pages/DifferencesFixture.h"
#include "spec/StateButton.h"

#include <QMenu>

namespace {
class TChangesPageTest : public TDifferencesTest {};

TEST_F(TChangesPageTest, SaysThatNothingDiffers) {
    window.ShowChanges();
    EXPECT_EQ(Caption(), "Changes");
    EXPECT_EQ(Total(), "No byte differs from MINE.BIN");
    EXPECT_TRUE(Listed().isEmpty());
    EXPECT_FALSE(Enabled("btnPutBack"));
    EXPECT_FALSE(Enabled("btnPutBackCells"));
}

TEST_F(TChangesPageTest, ListsWhatDiffersByMap) {
    Change(fuelBody, 200);
    Change(fuelBody + 1, 100);
    Change(timingPT + 2, 61);
    Change(revLimiter, 150);
    Change(5, 1);
    ReadMapsAnew(window.workspace);
    window.ShowChanges();
    EXPECT_EQ(Total(), "5 bytes differ from MINE.BIN");
    EXPECT_EQ(Listed(),
              QStringList({"Fuel PT: 2 cells", "Timing PT: other axes",
                           "Max RPM: 6000 here, 6800 there", "Elsewhere: 1 byte in 1 place"}));
}

TEST_F(TChangesPageTest, ShowsChangedCellsOverTheirOldValues) {
    Change(fuelBody, 128);
    Change(fuelBody + 4, 0);
    window.ShowChanges();
    EXPECT_EQ(Grid().Cell(1, 0), "2400");
    EXPECT_EQ(Grid().Cell(0, 1), "20%");
    EXPECT_EQ(Grid().Cell(1, 1), "1.00\n0.01");
    EXPECT_EQ(Grid().Cell(2, 2), "0.00\n0.04");
    EXPECT_EQ(Grid().Cell(2, 1), "0.03");
    EXPECT_NE(Grid().CellColor(1, 1), Grid().CellColor(2, 2)) << "higher and lower";
    EXPECT_EQ(Grid().CellColor(2, 1), clWindow);
    EXPECT_FALSE(Grid().Editable);
    Grid().SetCurrent(1, 1);
    EXPECT_EQ(Find<QLabel>("lblCell").text(),
              "2400 RPM, 20%: 1.00 (128) here, 0.01 (1) there: +0.99");
}

TEST_F(TChangesPageTest, DrawsTheDifferences) {
    Change(fuelBody, 129);
    window.ShowChanges();
    const auto &series = Find<TAreaChart>("chtChanges").Series();
    ASSERT_EQ(series.size(), 3U);
    EXPECT_EQ(series[2].points[0].value, 1.0) << "the first load point is nearest";
    EXPECT_EQ(series[2].points[1].value, 0.0);
}

TEST_F(TChangesPageTest, ShowsOldPointsOfChangedAxes) {
    Change(fuelPT + 5, 26); // the last step: all points ten counts lower
    window.ShowChanges();
    EXPECT_EQ(Grid().Cell(1, 0), "2000\n2400");
    EXPECT_EQ(Grid().Cell(0, 1), "20%");
}

TEST_F(TChangesPageTest, PutsBackSelectedCellsAsOneStep) {
    Change(fuelBody, 200);
    Change(fuelBody + 1, 201);
    const TBytes changed = Bytes();
    window.ShowChanges();
    Grid().SetSelection({1, 1, 4, 1}); // the first load point
    Click("btnPutBackCells");
    EXPECT_EQ(Image().Peek(fuelBody), 1);
    EXPECT_EQ(Image().Peek(fuelBody + 1), 201);
    EXPECT_EQ(Listed(), QStringList("Fuel PT: 1 cell"));
    EXPECT_TRUE(Page().DataChanged);
    EXPECT_EQ(window.workspace.fuelMapSet.PTMap->data->values->GetItem(0, 0)->raw, 1)
        << "the map is read anew";
    Trigger("actUndo");
    EXPECT_EQ(Bytes(), changed);
    EXPECT_EQ(Listed(), QStringList("Fuel PT: 2 cells"));
    Trigger("actRedo");
    EXPECT_EQ(Image().Peek(fuelBody), 1);
}

TEST_F(TChangesPageTest, PutsBackWhatIsChosenInTheList) {
    const TBytes file = Bytes();
    Change(fuelBody, 200);
    Change(fuelPT + 3, 55);
    Change(fuelIdle + 1, 9); // another shape
    Change(revLimiter, 150);
    Change(0x5000, 1);
    Change(0x5001, 2);
    ReadMapsAnew(window.workspace);
    window.ShowChanges();
    ASSERT_EQ(List().topLevelItemCount(), 4);
    for (int left = 4; left > 0; --left) {
        EXPECT_EQ(List().topLevelItemCount(), left);
        Choose(0);
        Click("btnPutBack");
    }
    EXPECT_EQ(Bytes(), file);
    EXPECT_FALSE(Enabled("btnPutBack"));
    EXPECT_EQ(Image().BytesNotInFile(), 0U);
}

TEST_F(TChangesPageTest, KeepsACommittedRevLimiterThatIsNotInTheImageYet) {
    window.workspace.fuelMapSet.revLimiter.SetValue(6000);
    Change(fuelBody, 200);
    window.ShowChanges();
    EXPECT_EQ(Listed(), QStringList({"Fuel PT: 1 cell", "Max RPM: 6000 here, 6800 there"}));
    Choose(0);
    Click("btnPutBack");
    EXPECT_EQ(Listed(), QStringList("Max RPM: 6000 here, 6800 there"));
    EXPECT_EQ(window.workspace.fuelMapSet.revLimiter.raw, 150);
    Click("btnPutBack");
    EXPECT_TRUE(Listed().isEmpty());
    EXPECT_EQ(window.workspace.fuelMapSet.revLimiter.raw, 170);
    Trigger("actUndo");
    EXPECT_EQ(window.workspace.fuelMapSet.revLimiter.raw, 150);
}

TEST_F(TChangesPageTest, ForgetsItsStepsWhenItIsLeft) {
    Change(fuelBody, 200);
    window.ShowChanges();
    Click("btnPutBack");
    window.PageControl1->SelectByUser(0);
    window.ShowChanges();
    Change(fuelBody, 77);
    Trigger("actUndo");
    EXPECT_EQ(Image().Peek(fuelBody), 77);
}

TEST_F(TChangesPageTest, IsOneAndComesFromTheStateInTheBottomLine) {
    Change(fuelBody, 200);
    window.StateChanged();
    auto &state = FindControl<TStateButton>(window, "btnState");
    const auto notSaved = [&] {
        for (QAction *item : state.list->actions())
            if (item->text().contains("not in the file"))
                return item;
        throw std::runtime_error("nothing about bytes that are not saved");
    };
    notSaved()->trigger();
    EXPECT_EQ(Caption(), "Changes");
    const int pages = window.PageCount();
    window.PageControl1->SelectByUser(0);
    notSaved()->trigger();
    EXPECT_EQ(Caption(), "Changes");
    EXPECT_EQ(window.PageCount(), pages);
}

TEST_F(TChangesPageTest, IsClosedByClosePageAndComesAnew) {
    const int pages = window.PageCount();
    window.ShowChanges();
    Click("btnClose");
    EXPECT_EQ(window.PageCount(), pages);
    window.ShowChanges();
    EXPECT_EQ(Caption(), "Changes");
}

TEST_F(TChangesPageTest, WithoutAnImageSaysSo) {
    Image().size = 0;
    window.ShowChanges();
    EXPECT_EQ(Total(), "No ROM image is loaded");
    EXPECT_FALSE(Enabled("btnExport"));
}

TEST_F(TChangesPageTest, ListsManyPlacesElsewhereUpToAThousand) {
    for (int place = 0; place < 1100; ++place)
        Change(0x4000 + 2 * place, 255);
    window.ShowChanges();
    EXPECT_EQ(Listed(), QStringList("Elsewhere: 1100 bytes in 1100 places"));
    EXPECT_EQ(Grid().RowCount(), 1 + 1000 + 1);
    EXPECT_EQ(Grid().Cell(0, 1), "$4000");
    EXPECT_EQ(Grid().Cell(2, 1), "FF");
    EXPECT_EQ(Grid().Cell(3, 1), "00");
    EXPECT_EQ(Grid().Cell(0, 1001), "100 more");
}

TEST_F(TChangesPageTest, ExportsThePatchFromTheFileToWhatIsInMemory) {
    const TBytes file = Bytes();
    Change(fuelBody, 200);
    window.ShowChanges();
    dialogs.saves.push_back("changes.patch");
    Trigger("actPatch");
    EXPECT_EQ(dialogs.saveDialogs,
              QStringList("Export Differences|Patches (*.patch)|*.patch|.patch|"));
    TBytes image = file;
    const TPatch patch = ParsePatch(ReadText("changes.patch"));
    EXPECT_EQ(patch.name, "MINE.BIN");
    ApplyPatch(patch, image);
    EXPECT_EQ(image, Bytes());
}

TEST_F(TChangesPageTest, ExportsATableAndPages) {
    Change(fuelBody, 200);
    window.ShowChanges();
    dialogs.saves = {"changes.csv", "changes.pdf"};
    Trigger("actTable");
    EXPECT_THAT(ReadText("changes.csv"), testing::HasSubstr("1,200"));
    Trigger("actPages");
    EXPECT_THAT(ReadText("changes.pdf"), testing::StartsWith("%PDF"));
    EXPECT_TRUE(dialogs.messages.isEmpty());
}

TEST_F(TChangesPageTest, SaysWhyAnExportFails) {
    Change(fuelBody, 200);
    window.ShowChanges();
    dialogs.saves = {"none/x.patch", "none/x.csv", "none/x.pdf"};
    for (const char *action : {"actPatch", "actTable", "actPages"})
        Trigger(action);
    ASSERT_EQ(dialogs.messages.size(), 3);
    for (const QString &message : dialogs.messages)
        EXPECT_THAT(message.toStdString(), testing::StartsWith("Cannot write 'none/x."));
}

TEST_F(TChangesPageTest, AsksBeforeItWritesOverAnExport) {
    std::ofstream("changes.patch") << "mine";
    window.ShowChanges();
    dialogs.saves = {"changes.patch", ""};
    dialogs.answers.push_back(TAnswer::No);
    Trigger("actPatch");
    EXPECT_EQ(ReadText("changes.patch"), "mine");
    Trigger("actPatch"); // cancelled
    EXPECT_EQ(dialogs.questions, QStringList("Overwrite existing file?"));
}
} // namespace
