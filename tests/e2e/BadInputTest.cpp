// Images and spec files that are empty, cut, oversized or wrong: the window stays usable, and a
// save changes nothing but what was edited.
#include "Session.h"
#include "forms/RadioGroup.h"

#include <filesystem>

namespace {
using namespace std::string_literals;

constexpr int megabyte = 0x100000;
constexpr std::array allKinds{TMapKind::PT, TMapKind::Idle, TMapKind::WOT};
constexpr std::array allTabs{"Fuel Maps",           "Timing Maps",
                             "Graphical Fuel Maps", "Graphical Timing Maps",
                             "File Contents",       "ROM Information"};

class TBadInputTest : public testing::Test {
protected:
    void ShowAllPages() {
        for (const char *tab : allTabs)
            session.SelectTab(tab);
    }
    /// Edits the first and the last body cell of every map that can be edited, and commits.
    /// `expected` gets the bytes that lie inside it.
    void EditAll(const std::vector<int> &offsets, TBytes &expected) {
        std::size_t map = 0;
        for (const auto &[tab, page] :
             {std::pair{"Fuel Maps", fuelPage}, std::pair{"Timing Maps", timingPage}}) {
            session.SelectTab(tab);
            for (const TMapKind kind : allKinds)
                EditMap(page, kind, LayoutOf(image_, offsets[map++], kind == TMapKind::PT),
                        expected);
        }
    }
    void EditMap(const QString &page, TMapKind kind, const TLayout &at, TBytes &expected) {
        TStringAlignGrid &grid = session.Grid(page, kind);
        const bool shown = at.rpmCount > 0 && at.rpmCount < 32 && at.loadCount < 21;
        EXPECT_EQ(grid.ColCount(), shown ? at.rpmCount + 1 : 1);
        EXPECT_EQ(grid.RowCount(), shown ? at.loadCount + 1 : 1);
        if (!shown || at.loadCount == 0)
            return;
        session.Type(page, kind, {1, 1}, "7");
        session.Type(page, kind, {at.rpmCount, at.loadCount}, "9");
        Put(expected, at.Cell(0, 0), 7);
        Put(expected, at.Cell(at.rpmCount - 1, at.loadCount - 1), 9);
        session.Commit(page, kind);
    }
    void Load(const TBytes &image, const std::vector<int> &offsets) {
        image_ = image;
        session.Write("bad.BIN", image);
        session.Write("bad.SPC", SpecText("bad", offsets, 0));
        session.LoadAndChoose("bad.BIN", "bad");
    }
    /// Saves when there is something to save; the file is `expected` in any case.
    void SaveAndCompare(const TBytes &expected) {
        session.SelectTab("ROM Information");
        if (session.MayClick(romPage, "btnSave"))
            session.SaveAs("saved.BIN");
        else
            std::filesystem::copy_file(session.folder / "bad.BIN", session.folder / "saved.BIN");
        EXPECT_EQ(Differences(expected, session.Read("saved.BIN")), "");
    }

    TSession session;

private:
    TBytes image_;
};

class TImageSizeTest : public TBadInputTest, public testing::WithParamInterface<int> {};

TEST_P(TImageSizeTest, ShowsAndSavesWhatThereIs) {
    TBytes image(static_cast<std::size_t>(GetParam()),
                 3); // three points wherever a map is looked for
    const std::vector<int> offsets{0x1000, 0x1100, 0x1200, 0x1300, 0x1400, 0x1500};
    Load(image, offsets);
    EXPECT_EQ(ROMImage()->size, GetParam());
    ShowAllPages();
    EditAll(offsets, image);
    SaveAndCompare(image);
    EXPECT_TRUE(session.dialogs.messages.empty());
}
INSTANTIATE_TEST_SUITE_P(Bytes, TImageSizeTest,
                         testing::Values(0, 1, 15, 0x1000, 0x1002, 0x1008, 0x100C, 0x1507,
                                         megabyte - 1, megabyte));

TEST_F(TBadInputTest, AnImageOfMoreThanOneMegabyteIsRefusedAndTheOldOneStays) {
    const TBytes sample = session.WriteSamples();
    session.LoadAndChoose("FERRO32K.BIN", byOffsets);
    session.Write("large.BIN", TBytes(megabyte + 1, 3));
    session.Load("large.BIN");
    ASSERT_EQ(session.dialogs.messages.size(), 1);
    EXPECT_TRUE(session.dialogs.messages[0].contains("large.BIN"));
    EXPECT_TRUE(session.dialogs.messages[0].contains("1048577"));
    EXPECT_TRUE(session.dialogs.messages[0].contains("1048576"));
    EXPECT_EQ(ROMImage()->size, 0x8000);
    EXPECT_EQ(session.window->windowTitle().toStdString(),
              "Ferrolyn - " + (session.folder / "FERRO32K.BIN").string());
    ShowAllPages();
}

TEST_F(TBadInputTest, AShortImageAfterALongOneIsSavedShort) {
    session.WriteSamples();
    session.LoadAndChoose("FERRO32K.BIN", byOffsets);
    TBytes image(15, 0xAB);
    session.Write("short.BIN", image);
    session.LoadAndChoose("short.BIN", byOffsets);
    // The remains of the long image are still shown, and editing them reaches no file.
    session.SelectTab("Fuel Maps");
    ASSERT_EQ(session.Grid(fuelPage, TMapKind::PT).ColCount(), 17);
    session.Type(fuelPage, TMapKind::PT, {3, 3}, "1");
    session.Commit(fuelPage, TMapKind::PT);
    session.SaveAs("saved.BIN");
    EXPECT_EQ(Differences(image, session.Read("saved.BIN")), "");
}

/// A map of three by three points is 19 bytes long; `GetParam()` is where it begins, counted from
/// the end of the buffer.
class TBufferEndTest : public TBadInputTest, public testing::WithParamInterface<int> {};

TEST_P(TBufferEndTest, AMapAtTheEndOfTheBufferTouchesOnlyItsOwnBytes) {
    TBytes image(megabyte, 3);
    const int start = megabyte - GetParam();
    const std::vector<int> offsets{start, 0x1100, start, 0x1300, start, 0x1500};
    Load(image, offsets);
    ShowAllPages();
    // One map at a time: maps that share bytes would write over each other.
    session.SelectTab("Fuel Maps");
    EditMap(fuelPage, TMapKind::PT, LayoutOf(image, start, true), image);
    SaveAndCompare(image);
}
INSTANTIATE_TEST_SUITE_P(BeforeTheEnd, TBufferEndTest,
                         testing::Values(20, 19, 18, 12, 11, 10, 9, 7, 6, 5, 4, 3, 2, 1, 0, -1,
                                         -1000));

TEST_F(TBadInputTest, OffsetsFarOutsideShowEmptyMaps) {
    const TBytes image(64, 3);
    for (const int offset : {-1, -2, -1000, 0x7FFFFFFF, -0x7FFFFFFF - 1, 0x7FFFFFF0}) {
        session.Write("bad.BIN", image);
        session.Write("bad.SPC", SpecText("bad", std::vector<int>(6, offset), offset));
        session.LoadAndChoose("bad.BIN", "bad");
        ShowAllPages();
        EXPECT_FALSE(session.MayClick(romPage, "btnSave")) << offset;
        EXPECT_EQ(Differences(image, session.Read("bad.BIN")), "") << offset;
    }
}

struct TCounts {
    int rpm;
    int load;
};
class TCountTest : public TBadInputTest, public testing::WithParamInterface<TCounts> {};

TEST_P(TCountTest, ShowsEditsAndSaves) {
    const auto [rpm, load] = GetParam();
    TBytes image(0x40000, 1);
    std::vector<int> offsets{0x1000, 0x14000, 0x15000, 0x16000, 0x2A000, 0x2B000};
    for (const int at : offsets)
        Put(image, at + 1, rpm);
    for (const int at : {offsets[0], offsets[3]})
        Put(image, at + rpm + 3, load);
    Load(image, offsets);
    ShowAllPages();
    EditAll(offsets, image);
    SaveAndCompare(image);
    EXPECT_TRUE(session.dialogs.messages.empty());
}

std::vector<TCounts> AllCounts() {
    std::vector<TCounts> all;
    for (const int rpm : {0, 1, 31, 32, 33, 255})
        for (const int load : {0, 1, 20, 21, 31, 32, 255})
            all.push_back({rpm, load});
    return all;
}
INSTANTIATE_TEST_SUITE_P(Counts, TCountTest, testing::ValuesIn(AllCounts()), [](const auto &test) {
    return "Rpm" + std::to_string(test.param.rpm) + "Load" + std::to_string(test.param.load);
});

/// Texts of spec files that are wrong in some way.
std::vector<std::pair<std::string, std::string>> BadSpecs() {
    std::string keys = "; ten thousand keys\n[Fuel Maps]\n";
    for (int i = 0; i < 10000; ++i)
        keys += "key" + std::to_string(i) + "=$6000\n";
    return {
        {"a.spc", "; no newline"},
        {"b.spc", "; NUL\0bytes\n[Main]\nprimary_offset=\0\0$0200\n\0"s},
        {"c.spc", "; " + std::string(megabyte, 'x')},
        {"d.spc", "; long value\n[Fuel Maps]\npt_offset=" + std::string(megabyte / 2, '9') + "\n"},
        {"e.spc", keys + "pt_offset=$6000\n"},
        {"f.spc", "; twice\n[Fuel Maps]\npt_offset=$6000\npt_offset=$6100\n[Fuel Maps]\n"
                  "pt_offset=$6200\n[fuel maps]\nPT_OFFSET=$6300\n"},
        {"g.spc", "[Main]\nprimary_offset=zzz\nbitmask=\n"},
        {"h.spc", "; no numbers\n[Main]\ntiming_divider=abc\ntiming_subtractor=nan\n"},
        {"i.spc", "; rev\n[Other Maps]\nrevlimit_offset=here\n"},
        {"j.spc", "; \xFF\xFE\x80 Latin-1 \xE4\n[[[\n]=\n=\n==\n[Main\n"},
        {"k.spc", "; far pointers\n[Main]\nprimary_offset=$7FFFFFFF\n"
                  "fuelmap_pt_pointer_offset=$7FFFFFFF\nbitmask=$FFFFFFFF\n"},
        {"l.spc", "\n; empty first line: not listed\n"},
        {"m.spc", ""},
    };
}

TEST_F(TBadInputTest, EverySpecFileOfTheListCanBeChosen) {
    const TBytes sample = session.WriteSamples();
    for (const auto &[name, text] : BadSpecs())
        session.Write(name, text);
    std::filesystem::create_directory(session.folder / "x.spc");
    session.Load("FERRO32K.BIN");
    auto &group = session.On<TRadioGroup>(romPage, "rdoROMtemplate");
    QStringList labels;
    for (int i = 0; i + 1 < group.ItemCount(); ++i)
        labels << group.Item(i);
    EXPECT_EQ(labels.size(), 13) << labels.join(", ").toStdString(); // 11 of these, 2 samples
    EXPECT_FALSE(labels.contains("x.spc"));
    for (const QString &label : labels) {
        session.Choose(label);
        EXPECT_EQ(ROMImage()->size, 0x8000) << label.toStdString();
        ShowAllPages();
    }
    EXPECT_EQ(Differences(sample, session.Read("FERRO32K.BIN")), "");
}

struct TSpecError {
    const char *label;
    const char *message;
};
class TSpecErrorTest : public TBadInputTest, public testing::WithParamInterface<TSpecError> {};

TEST_P(TSpecErrorTest, SaysWhatIsNoNumberAndLoadsTheImageAllTheSame) {
    session.WriteSamples();
    for (const auto &[name, text] : BadSpecs())
        session.Write(name, text);
    session.LoadAndChoose("FERRO32K.BIN", GetParam().label);
    EXPECT_EQ(session.dialogs.messages, QStringList{GetParam().message});
    EXPECT_EQ(session.window->windowTitle().toStdString(),
              "Ferrolyn - " + (session.folder / "FERRO32K.BIN").string());
}
INSTANTIATE_TEST_SUITE_P(
    Specs, TSpecErrorTest,
    testing::Values(TSpecError{"no numbers", "'abc' is not a valid floating point value"},
                    TSpecError{"rev", "'here' is not a valid integer value"}),
    [](const auto &test) { return test.index == 0 ? "TimingDivider" : "RevLimiter"; });

TEST_F(TBadInputTest, TheFirstOfSeveralEqualKeysCounts) {
    session.WriteSamples();
    for (const auto &[name, text] : BadSpecs())
        session.Write(name, text);
    for (const char *label : {"twice", "ten thousand keys"}) {
        session.LoadAndChoose("FERRO32K.BIN", label);
        EXPECT_EQ(session.window->workspace.fuelMapSet.PTMap->GetLocation(), 0x6000) << label;
    }
}
} // namespace
