// The road through an image that nobody has mapped: search it, open what was found, change a cell,
// save; then keep what was found as a spec file and load that.
#include "Session.h"
#include "filedisplay/FileDisplay.h"
#include "forms/PageControl.h"
#include "maps/Maps.h"

#include <gtest/gtest.h>

namespace {
/// The offsets that the tabs of the added pages name, in their order.
std::vector<int> FoundOffsets(const TfrmNotebook &window) {
    std::vector<int> offsets;
    for (int tab = 6; tab < window.PageCount(); ++tab)
        offsets.push_back(window.PageControl1->tabText(tab).section('$', 1).toInt(nullptr, 16));
    return offsets;
}

TEST(TDiscoveryTest, FromTheUnmappedSampleToASavedImageAndASpecFile) {
    TSession session;
    session.WriteSamples();
    const TBytes loaded = session.Read("FERRO64K.BIN");
    session.Load("FERRO64K.BIN");
    session.SelectTab("File Contents");
    session.Trigger(contentsPage, "Fuel5");
    session.Trigger(contentsPage, "AllHighlighted1");
    const std::vector<int> found = FoundOffsets(*session.window);
    ASSERT_FALSE(found.empty());

    // The found map opens, is edited, and only the edited byte differs in the saved image.
    const int map = found.front();
    session.SelectTab(session.window->PageControl1->tabText(6));
    const QString page = session.window->Page(6)->objectName();
    const TGridCell cell{2, 1};
    session.Type(page, TMapKind::PT, cell, "77");
    session.Commit(page, TMapKind::PT);
    session.SaveAs("EDITED.BIN");
    TBytes expected = loaded;
    const auto start = static_cast<std::size_t>(map);
    const std::size_t rpmCount = loaded[start + 1];
    const std::size_t loadCount = loaded[start + 2 + rpmCount + 1];
    const std::size_t secondPoint = start + 4 + rpmCount + loadCount + loadCount;
    ASSERT_NE(loaded[secondPoint], 77);
    expected[secondPoint] = 77;
    EXPECT_EQ(session.Read("EDITED.BIN"), expected);

    // Loaded again, "Save Spec" is there; the fuel page takes the map over from the contents view,
    // and a spec file keeps its place.
    session.Load("EDITED.BIN");
    session.SelectTab("File Contents");
    session.On<TStringAlignGrid>(contentsPage, "grdFile").SetCurrent(map % 16 + 1, map / 16 + 1);
    session.Trigger(contentsPage, "Fuel1");
    session.SelectTab("ROM Information");
    session.dialogs.inputs = {"found"};
    session.dialogs.saves = {QString::fromStdString((session.folder / "FOUND.SPC").string())};
    session.Click(romPage, "btnSaveSpec");
    session.LoadAndChoose("EDITED.BIN", "found");
    session.SelectTab("Fuel Maps");
    EXPECT_EQ(session.window->workspace.fuelMapSet.PTMap->GetLocation(), map);
    EXPECT_EQ(session.Grid(fuelPage, TMapKind::PT).Cell(cell.column, cell.row), "77");
}
} // namespace
