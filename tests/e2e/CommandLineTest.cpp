// The window and ferrolyn-cli do the same to an image: random edits, each done in both, leave the
// same bytes.
#include "Session.h"
#include "cli/CliFixture.h"
#include "maps/Maps.h"
#include "maps/ToolWindow.h"

#include <random>

#include <QRadioButton>
#include <QTest>

namespace {
using TWords = std::vector<std::string>;

constexpr int editsPerSitting = 25;

/// A map of the samples: how window and command line call it, and its shape.
struct TSampleMap {
    QString page;
    TMapKind kind;
    const char *name;
    int rpmPoints;
    int loadPoints;
};
const std::array<TSampleMap, 6> sampleMaps{{{fuelPage, TMapKind::PT, "fuel-pt", 16, 12},
                                            {fuelPage, TMapKind::Idle, "fuel-idle", 16, 1},
                                            {fuelPage, TMapKind::WOT, "fuel-wot", 16, 1},
                                            {timingPage, TMapKind::PT, "timing-pt", 16, 10},
                                            {timingPage, TMapKind::Idle, "timing-idle", 16, 1},
                                            {timingPage, TMapKind::WOT, "timing-wot", 16, 1}}};

std::string Number(int number) {
    return "#" + std::to_string(number);
}

class TBothHands {
public:
    explicit TBothHands(unsigned seed) : random_(seed) {
        PutFile(session_.folder / "CLI.BIN", session_.WriteSamples());
        session_.LoadAndChoose("FERRO32K.BIN", byOffsets);
        // The rev limiter alone does not enable "Save ROM".
        session_.SelectTab("Fuel Maps");
        session_.Type(fuelPage, TMapKind::PT, {1, 1}, "1");
        session_.Commit(fuelPage, TMapKind::PT);
        Cli("set", {"fuel-pt[#1,#1]=1", "--raw"});
    }

    void Run() {
        for (int edit = 0; edit < editsPerSitting && !testing::Test::HasFailure(); ++edit) {
            Edit();
            Save();
            Compare();
        }
    }
    /// Edits that changed the image.
    int Changes() const { return changes_; }

private:
    int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
    int Between(int first, int last) { return first + Below(last - first + 1); }
    bool Chance(int of) { return Below(of) == 0; }

    void Edit() {
        map_ = sampleMaps[static_cast<std::size_t>(Below(6))];
        session_.SelectTab(map_.page == fuelPage ? "Fuel Maps" : "Timing Maps");
        const bool units = Chance(2);
        if (units)
            session_.Interpret(map_.page);
        words_ = units ? TWords() : TWords{"--raw"};
        EditMap(units);
        if (units)
            session_.Interpret(map_.page); // back to counts, for the next edit
    }

    void EditMap(bool units) {
        switch (Below(12)) {
        case 0:
            return SetHeader();
        case 1:
            return SetRevLimiter();
        case 2:
        case 3:
            return UseTool(units);
        case 4:
        case 5:
        case 6:
            return ChangeSelection(units);
        default:
            return SetCell(units);
        }
    }

    /// A number that fits a byte mostly, not always.
    std::string SomeValue(bool units) {
        if (!units)
            return std::to_string(Between(-20, 300));
        const bool fuel = map_.page == fuelPage;
        return QString::number(fuel ? Between(0, 220) / 100.0 : Between(-100, 1500) / 10.0, 'f',
                               fuel ? 2 : 1)
            .toStdString();
    }

    void SetCell(bool units) {
        const int column = Between(1, map_.rpmPoints);
        const int row = Between(1, map_.loadPoints);
        const std::string value = SomeValue(units);
        session_.Type(map_.page, map_.kind, {column, row}, QString::fromStdString(value));
        session_.Commit(map_.page, map_.kind);
        Cli("set", {map_.name + Cell(column, row) + "=" + value});
    }

    void SetHeader() {
        session_.Trigger(map_.page,
                         "UnlockAxis" + QString::number(static_cast<int>(map_.kind) + 1));
        const bool load = map_.kind == TMapKind::PT && Chance(2);
        const int point = Between(1, load ? map_.loadPoints : map_.rpmPoints);
        const std::string value = std::to_string(load ? Between(0, 100) : Between(0, 10200));
        const QString text = QString::fromStdString(value) + (load ? "%" : "");
        session_.Type(map_.page, map_.kind, load ? TGridCell{0, point} : TGridCell{point, 0}, text);
        session_.Commit(map_.page, map_.kind);
        Cli("set", {std::string(map_.name) + (load ? ".load[" : ".rpm[") + std::to_string(point) +
                    "]=" + value});
    }

    void SetRevLimiter() {
        if (map_.page != fuelPage)
            return SetHeader();
        const int rpm = Between(1, 12000);
        session_.TypeRevLimiter(rpm);
        session_.Click(fuelPage, "btnSaverev");
        Cli("set", {"rev-limiter=" + std::to_string(rpm)});
    }

    std::string Cell(int column, int row) const {
        if (map_.loadPoints == 1)
            return "[" + Number(column) + "]";
        return "[" + Number(column) + "," + Number(row) + "]";
    }
    std::string Range(const TGridRect &range) const {
        const std::string rpm = Number(range.left) + ":" + Number(range.right);
        if (map_.loadPoints == 1)
            return map_.name + ("[" + rpm + "]");
        return map_.name + ("[" + rpm + "," + Number(range.top) + ":" + Number(range.bottom) + "]");
    }

    TStringAlignGrid &Grid() { return session_.Grid(map_.page, map_.kind); }

    void UseTool(bool units) {
        enum { All, Row, Column };
        const int range = map_.kind == TMapKind::PT ? Below(3) : static_cast<int>(Row);
        const int column = Between(1, map_.rpmPoints);
        const int row = Between(1, map_.loadPoints);
        const bool percent = !units || Chance(2);
        const bool subtract = Chance(2);
        // No percent rewrites each cell as it is shown, in both; no units are a change in the tool
        // alone.
        const int amount = percent ? Between(0, 30) : Between(1, 3);
        Grid().SetCurrent(column, row);
        session_.Click(map_.page, "btnRecalculate");
        TfrmToolWindow &tool = *FindControl<TfrmMaps>(*session_.window, map_.page).ToolWindow;
        const auto pick = [&](const char *group, int item) {
            FindControl<QRadioButton>(tool, group + QString::number(item)).click();
        };
        pick("rdoDataset", static_cast<int>(map_.kind));
        pick("rdoOperation", subtract);
        pick("rdoScale", percent);
        pick("rdoRange", range);
        auto &box = FindControl<QLineEdit>(tool, "edtVal");
        box.setText(QString::number(amount));
        QTest::keyClick(&box, Qt::Key_Enter);
        FindControl<QPushButton>(tool, "btnExec").click();
        session_.Commit(map_.page, map_.kind);
        TGridRect cells{1, 1, map_.rpmPoints, map_.loadPoints};
        if (range == Row && map_.kind == TMapKind::PT)
            cells.top = cells.bottom = row;
        if (range == Column)
            cells.left = cells.right = column;
        Cli("adjust", {Range(cells), (subtract ? "--add=-" : "--add=") + std::to_string(amount) +
                                         (percent ? "%" : "")});
    }

    struct TCommandPair {
        const char *action;
        std::string answer; ///< to its question; empty for none
        std::string option;
    };
    TCommandPair SomeCommand(bool units) {
        const std::string value = SomeValue(units);
        const std::string percent = std::to_string(Between(50, 150));
        const std::array<TCommandPair, 7> commands{
            {{"actInterpolateRows", "", "--interpolate=rpm"},
             {"actInterpolateColumns", "", "--interpolate=load"},
             {"actInterpolateBoth", "", "--interpolate=both"},
             {"actSmooth", "", "--smooth"},
             {"actSetTo", value, "--set=" + value},
             {"actAdd", value, "--add=" + value},
             {"actMultiply", percent, "--multiply=" + percent}}};
        return commands[static_cast<std::size_t>(Below(7))];
    }

    void ChangeSelection(bool units) {
        const int left = Between(1, map_.rpmPoints);
        const int top = Between(1, map_.loadPoints);
        const TGridRect cells{left, top, Between(left, map_.rpmPoints),
                              Between(top, map_.loadPoints)};
        const TCommandPair command = SomeCommand(units);
        if (!command.answer.empty())
            session_.dialogs.inputs.push_back(QString::fromStdString(command.answer));
        session_.window->activateWindow(); // the commands of a page follow the keyboard
        EXPECT_TRUE(QTest::qWaitForWindowActive(session_.window.get()));
        Grid().setFocus();
        Grid().SetSelection(cells);
        session_.Trigger(map_.page, command.action);
        session_.Commit(map_.page, map_.kind);
        Cli("adjust", {Range(cells), command.option}, true);
    }

    /// @param mayRefuse  whether it can be no edit: a block that is too small to be smoothed
    void Cli(const std::string &command, const TWords &words, bool mayRefuse = false) {
        TWords all{command, "CLI.BIN", "--spec", "FERRO32K.SPC", "--in-place"};
        all.insert(all.end(), words_.begin(), words_.end());
        all.insert(all.end(), words.begin(), words.end());
        told_.clear();
        for (const std::string &word : all)
            told_ += word + " ";
        const TCliResult result = RunProgram(all, session_.folder.Path());
        const bool refused = mayRefuse && result.exit == 2;
        EXPECT_TRUE(result.exit == 0 || refused) << told_ << result.err;
    }

    /// What the window has in memory becomes a file.
    void Save() {
        session_.SelectTab("ROM Information");
        if (!session_.MayClick(romPage, "btnSave"))
            return; // nothing has been changed yet
        saved_ = "saved" + std::to_string(saves_++) + ".BIN";
        session_.SaveAs(saved_);
    }

    void Compare() {
        const TBytes cli = session_.Read("CLI.BIN");
        EXPECT_EQ(Differences(session_.Read(saved_), cli), "") << told_;
        changes_ += cli != last_ && !last_.empty();
        last_ = cli;
    }

    std::mt19937 random_;
    TSession session_;
    TSampleMap map_;
    TWords words_;     ///< of every command of this edit
    std::string told_; ///< the last command
    std::string saved_ = "FERRO32K.BIN";
    int saves_ = 0;
    TBytes last_;
    int changes_ = 0;
};

class TCommandLineTest : public testing::TestWithParam<unsigned> {};

TEST_P(TCommandLineTest, AndTheWindowWriteTheSameBytes) {
    TBothHands hands(GetParam());
    hands.Run();
    EXPECT_GT(hands.Changes(), editsPerSitting / 2);
}
INSTANTIATE_TEST_SUITE_P(Sittings, TCommandLineTest, testing::Range(1U, 21U));
} // namespace
