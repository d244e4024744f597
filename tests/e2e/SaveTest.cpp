// From the loaded image to the saved file, byte by byte: edits on all maps, axes and the rev
// limiter through the window's own controls.
#include "Session.h"
#include "forms/RadioGroup.h"
#include "samples/SampleFiles.h"

#include <QDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

namespace {
constexpr std::array allKinds{TMapKind::PT, TMapKind::Idle, TMapKind::WOT};

/// Layouts of the 32 KiB sample's maps on one page.
struct TPageLayouts {
    TPageLayouts(const TBytes &image, TSampleMap first)
        : pt(LayoutOf(image, Place(first), true)),
          idle(LayoutOf(image, Place(first + 1), false)),
          wot(LayoutOf(image, Place(first + 2), false)) {}

    TLayout pt;
    TLayout idle;
    TLayout wot;

private:
    static int Place(int map) {
        return static_cast<int>(Sample32K().maps[static_cast<std::size_t>(map)]);
    }
};

class TSaveTest : public testing::Test {
protected:
    TSession session;
    TBytes expected = session.WriteSamples();

    /// Moves an RPM point up by one count and a load point up by two; both lie inside their axes.
    void EditAxes(const QString &page, const TLayout &map) {
        session.Trigger(page, "UnlockAxis1");
        const int rpm = PointsOf(expected, map.rpmAxis, 256)[4];
        const int load = PointsOf(expected, map.loadAxis, 250)[3];
        session.Type(page, TMapKind::PT, {5, 0}, QString::number((rpm + 1) * 40));
        session.Type(page, TMapKind::PT, {0, 4}, QString::number((load + 2) * 0.4, 'f', 1) + "%");
        MovePoint(expected, map.rpmAxis, 4, 1);
        MovePoint(expected, map.loadAxis, 3, 2);
    }

    /// Raw and converted edits on one page; `converted` is a text and the byte that it stands for.
    void EditPage(const QString &page, const TPageLayouts &at, const QString &converted, int byte) {
        session.Type(page, TMapKind::PT, {3, 4}, "140");
        session.Type(page, TMapKind::Idle, {6, 1}, "300");
        session.Type(page, TMapKind::WOT, {1, 1}, "1");
        Put(expected, at.pt.Cell(2, 3), 140);
        Put(expected, at.idle.Cell(5, 0), 300);
        Put(expected, at.wot.Cell(0, 0), 1);
        EditAxes(page, at.pt);
        for (const TMapKind kind : allKinds)
            session.Commit(page, kind);

        session.Interpret(page);
        session.Type(page, TMapKind::PT, {16, 10}, converted);
        session.Type(page, TMapKind::Idle, {16, 1}, converted);
        session.Type(page, TMapKind::WOT, {16, 1}, converted);
        for (const int place : {at.pt.Cell(15, 9), at.idle.Cell(15, 0), at.wot.Cell(15, 0)})
            Put(expected, place, byte);
        for (const TMapKind kind : allKinds)
            session.Commit(page, kind);
    }
};

class TSpecFormTest : public TSaveTest, public testing::WithParamInterface<const char *> {};

TEST_P(TSpecFormTest, EditsOnAllMapsChangeExactlyTheirBytes) {
    const TBytes original = expected;
    session.LoadAndChoose("FERRO32K.BIN", GetParam());
    session.SelectTab("Fuel Maps");
    EditPage(fuelPage, TPageLayouts(original, smFuelPT), "1.25", 160);
    session.TypeRevLimiter(7000);
    session.Click(fuelPage, "btnSaverev");
    Put(expected, static_cast<int>(Sample32K().revLimiter), 175);
    session.SelectTab("Timing Maps");
    // 20 degrees / 0.65 + 12.7 is 43.47 counts.
    EditPage(timingPage, TPageLayouts(original, smTimingPT), "20", 43);
    session.SaveAs("edited.BIN");

    EXPECT_EQ(Differences(expected, session.Read("edited.BIN")), "");
    EXPECT_EQ(Differences(original, session.Read("FERRO32K.BIN")), "");
    EXPECT_EQ(session.window->windowTitle().toStdString(),
              "Ferrolyn - " + (session.folder / "edited.BIN").string());
    EXPECT_FALSE(session.MayClick(romPage, "btnSave"));
    EXPECT_TRUE(session.dialogs.messages.empty());
    EXPECT_TRUE(session.dialogs.questions.empty());
}
INSTANTIATE_TEST_SUITE_P(SpecForms, TSpecFormTest, testing::Values(byOffsets, byPointers),
                         [](const auto &test) { return test.index == 0 ? "Offsets" : "Pointers"; });

TEST_F(TSaveTest, TheSavedFileShowsTheSameMapsWhenLoadedAgain) {
    session.LoadAndChoose("FERRO32K.BIN", byPointers);
    session.SelectTab("Fuel Maps");
    session.Type(fuelPage, TMapKind::PT, {2, 2}, "77");
    session.Commit(fuelPage, TMapKind::PT);
    session.SaveAs("edited.BIN");
    session.LoadAndChoose("edited.BIN", byOffsets);
    session.SelectTab("Fuel Maps");
    EXPECT_EQ(session.Grid(fuelPage, TMapKind::PT).Cell(2, 2), "77");
    EXPECT_EQ(session.Grid(fuelPage, TMapKind::PT).Cell(1, 2),
              QString::number(
                  expected[static_cast<std::size_t>(LayoutOf(expected, 0x6000, true).Cell(0, 1))]));
}

TEST_P(TSpecFormTest, AnUntouchedImageIsSavedByteForByte) {
    session.LoadAndChoose("FERRO32K.BIN", GetParam());
    for (const char *tab : {"Fuel Maps", "Timing Maps", "File Contents", "Fuel Maps"})
        session.SelectTab(tab);
    EXPECT_FALSE(session.MayClick(romPage, "btnSave"));
    // An equal text counts as an edit, so that there is something to save.
    session.Type(fuelPage, TMapKind::Idle, {1, 1},
                 session.Grid(fuelPage, TMapKind::Idle).Cell(1, 1));
    session.Commit(fuelPage, TMapKind::Idle);
    session.SaveAs("same.BIN");
    EXPECT_EQ(Differences(expected, session.Read("same.BIN")), "");
}

TEST_F(TSaveTest, UncommittedAndResetEditsAreNotSaved) {
    session.LoadAndChoose("FERRO32K.BIN", byOffsets);
    session.SelectTab("Fuel Maps");
    session.Type(fuelPage, TMapKind::Idle, {3, 1}, "9");
    session.Commit(fuelPage, TMapKind::Idle);
    Put(expected, LayoutOf(expected, 0x6100, false).Cell(2, 0), 9);
    session.Type(fuelPage, TMapKind::PT, {1, 1}, "50");
    session.Reset(fuelPage, TMapKind::PT);
    session.Type(fuelPage, TMapKind::WOT, {1, 1}, "51");
    session.dialogs.answers = {TAnswer::No};
    session.SaveAs("edited.BIN");
    EXPECT_EQ(session.dialogs.questions, QStringList{"Commit Changes?"});
    EXPECT_EQ(Differences(expected, session.Read("edited.BIN")), "");
}

TEST_F(TSaveTest, OverwritingTheLoadedFileAsksAndReplacesIt) {
    session.LoadAndChoose("FERRO32K.BIN", byOffsets);
    session.SelectTab("Timing Maps");
    session.Type(timingPage, TMapKind::WOT, {2, 1}, "33");
    session.Commit(timingPage, TMapKind::WOT);
    Put(expected, LayoutOf(expected, 0x6340, false).Cell(1, 0), 33);
    session.dialogs.answers = {TAnswer::Yes};
    session.SaveAs("FERRO32K.BIN");
    EXPECT_EQ(session.dialogs.questions, QStringList{"Overwrite existing file?"});
    EXPECT_EQ(Differences(expected, session.Read("FERRO32K.BIN")), "");
}

TEST_F(TSaveTest, ATypedOffsetMovesTheMapAndAPasteOverwritesWhatLiesThere) {
    // A second part throttle map at $6400, of the same shape, with all steps and cells 5.
    const TLayout source = LayoutOf(expected, 0x6000, true);
    const TLayout target{0x6400, 16, 0x6400 + 18, 12, 0x6400 + 18 + 14};
    for (int place = target.rpmAxis; place < target.Cell(16, 0); ++place)
        Put(expected, place, 5);
    Put(expected, target.rpmAxis + 1, 16);
    Put(expected, target.loadAxis + 1, 12);
    session.Write("two.BIN", expected);

    session.LoadAndChoose("two.BIN", byOffsets);
    session.SelectTab("Fuel Maps");
    session.Trigger(fuelPage, "Copy1");
    session.TypeOffset(fuelPage, TMapKind::PT, "$6400");
    EXPECT_EQ(session.Grid(fuelPage, TMapKind::PT).Cell(1, 1), "5");
    session.Trigger(fuelPage, "Paste1");
    session.Trigger(fuelPage, "UnlockAxis1");
    session.Type(fuelPage, TMapKind::PT, {1, 12}, "200");
    session.Commit(fuelPage, TMapKind::PT);
    session.SaveAs("pasted.BIN");

    const auto copy = [&](int from, int to, int count) {
        for (int i = 0; i < count; ++i)
            Put(expected, to + i, expected[static_cast<std::size_t>(from + i)]);
    };
    copy(source.rpmAxis + 2, target.rpmAxis + 2, 16); // RAM location and count stay
    copy(source.loadAxis + 2, target.loadAxis + 2, 12);
    copy(source.body, target.body, 16 * 12);
    Put(expected, target.Cell(0, 11), 200);
    EXPECT_EQ(Differences(expected, session.Read("pasted.BIN")), "");
    EXPECT_TRUE(session.dialogs.messages.empty());
}

/// Fills the dialog "Offset Entry" and confirms it, as soon as it is open.
void AnswerOffsetEntry(const std::array<const char *, 6> &texts) {
    QTimer::singleShot(0, qApp, [texts] {
        constexpr std::array names{"edtFuelPTMapOffset",   "edtFuelIdMapOffset",
                                   "edtFuelFTMapOffset",   "edtTimingPTMapOffset",
                                   "edtTimingIdMapOffset", "edtTimingFTMapOffset"};
        QWidget *dialog = QApplication::activeModalWidget();
        ASSERT_TRUE(dialog);
        for (std::size_t i = 0; i < names.size(); ++i)
            FindControl<QLineEdit>(*dialog, names[i]).setText(texts[i]);
        QTest::mouseClick(&FindControl<QAbstractButton>(*dialog, "btnOK"), Qt::LeftButton);
    });
}

TEST_F(TSaveTest, OffsetsTypedIntoTheDialogPlaceTheMaps) {
    session.Load("FERRO32K.BIN");
    AnswerOffsetEntry({"$6000", "24832", "$6140", "$6200", "$6300", "$6340"});
    session.Choose("Use Manual Offset Method");
    session.SelectTab("Fuel Maps");
    session.Type(fuelPage, TMapKind::PT, {4, 5}, "88");
    session.Type(fuelPage, TMapKind::Idle, {4, 1}, "89");
    session.Commit(fuelPage, TMapKind::PT);
    session.Commit(fuelPage, TMapKind::Idle);
    Put(expected, LayoutOf(expected, 0x6000, true).Cell(3, 4), 88);
    Put(expected, LayoutOf(expected, 0x6100, false).Cell(3, 0), 89);
    session.SaveAs("manual.BIN");
    EXPECT_EQ(Differences(expected, session.Read("manual.BIN")), "");
    // The rev limiter has no place then; each save says so.
    EXPECT_EQ(session.dialogs.messages, QStringList{"Error saving rev limiter data"});
}

TEST_F(TSaveTest, ASavedSpecLeadsToTheSamePlaces) {
    session.LoadAndChoose("FERRO32K.BIN", byPointers);
    session.dialogs.saves = {QString::fromStdString((session.folder / "own.SPC").string())};
    session.dialogs.inputs = {"Own places"};
    session.Click(romPage, "btnSaveSpec");
    const TBytes written = session.Read("own.SPC");
    EXPECT_EQ(std::string(written.begin(), written.end()),
              SpecText("Own places", {0x6000, 0x6100, 0x6140, 0x6200, 0x6300, 0x6340}, 0x1F0));

    session.LoadAndChoose("FERRO64K.BIN", byOffsets); // elsewhere in between
    session.LoadAndChoose("FERRO32K.BIN", "Own places");
    session.SelectTab("Fuel Maps");
    session.Type(fuelPage, TMapKind::WOT, {16, 1}, "7");
    session.Commit(fuelPage, TMapKind::WOT);
    session.TypeRevLimiter(4000);
    session.Click(fuelPage, "btnSaverev");
    Put(expected, LayoutOf(expected, 0x6140, false).Cell(15, 0), 7);
    Put(expected, 0x1F0, 100);
    session.SaveAs("again.BIN");
    EXPECT_EQ(Differences(expected, session.Read("again.BIN")), "");
}
} // namespace
