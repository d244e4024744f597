// Random sittings from fixed seeds: edits, commits, resets, interpretation, copies, pastes, the rev
// limiter, tab changes and saves in any order, against a plain model of what each leaves behind.
#include "PlainModel.h"
#include "Session.h"
#include "system/Sha256.h"

#include <cmath>
#include <map>
#include <random>

namespace {
constexpr std::array pages{"frmFuelMaps", "frmTimingMaps"};
constexpr std::array pageTabs{"Fuel Maps", "Timing Maps"};
constexpr std::array mapNames{"PT", "Idle", "WOT"};
constexpr int revPlace = 0x1F0;
constexpr int stepsPerSession = 20;

class TRandomSession {
public:
    explicit TRandomSession(unsigned seed) : random_(seed), image_(session_.WriteSamples()) {
        session_.LoadAndChoose("FERRO32K.BIN", Chance(2) ? byOffsets : byPointers);
        rev_ = image_[revPlace];
        for (TPlainPage &page : plain_)
            page.Show(image_);
        Enter(0);
    }

    void Run() {
        for (int step = 0; step < stepsPerSession && !testing::Test::HasFailure(); ++step) {
            Step();
            CompareImages();
        }
        Save();
    }
    /// Of all that was saved, in order.
    const std::string &Digests() const { return digests_; }

private:
    int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
    bool Chance(int of) { return Below(of) == 0; }
    TPlainPage &Page() { return plain_[page_]; }
    QString PageName() { return pages[page_]; }
    bool IsFuel() const { return page_ == 0; }

    void Step() {
        const auto map = static_cast<std::size_t>(Below(3));
        switch (Below(14)) {
        case 0:
            return EditAxis(map);
        case 1:
            return Reset(map);
        case 2:
            return Interpret();
        case 3:
            return Copy(map);
        case 4:
            return Paste(map);
        case 5:
            return EditRevLimiter();
        case 6:
            Leave("ROM Information");
            return Enter(Below(2));
        case 7:
            return Save();
        case 8:
        case 9:
        case 10:
            return Commit(map);
        default:
            return EditCell(map);
        }
    }

    void EditCell(std::size_t index) {
        TPlainMap &map = Page().maps[index];
        const int column = 1 + Below(map.at.rpmCount);
        const int row = 1 + Below(map.at.loadCount);
        double raw = Below(320) - 20;
        QString text = QString::number(raw);
        if (map.values.converted && IsFuel()) {
            const double factor = Below(220) / 100.0;
            raw = std::nearbyint(factor * 128.0);
            text = QString::number(factor, 'f', 2);
        } else if (map.values.converted) {
            const double degrees = (Below(1400) - 100) / 10.0;
            raw = std::nearbyint(degrees / 0.65 + 12.7);
            text = QString::number(degrees, 'f', 1);
        }
        session_.Type(PageName(), TMapKind(index), {column, row}, text);
        map.Edit(column, row, static_cast<int>(raw));
    }

    void EditAxis(std::size_t index) {
        TPlainMap &map = Page().maps[index];
        session_.Trigger(PageName(), QString("UnlockAxis%1").arg(index + 1));
        if (index == 0 && Chance(2)) {
            const int row = 1 + Below(map.at.loadCount);
            const int percent = Below(101);
            session_.Type(PageName(), TMapKind::PT, {0, row}, QString("%1%").arg(percent));
            map.Edit(0, row, static_cast<int>(std::nearbyint(percent / 0.4)));
        } else {
            const int column = 1 + Below(map.at.rpmCount);
            const int rpm = Below(11000);
            session_.Type(PageName(), TMapKind(index), {column, 0}, QString::number(rpm));
            map.Edit(column, 0, static_cast<int>(std::nearbyint(rpm / 40.0)));
        }
    }

    void Commit(std::size_t index) {
        session_.Commit(PageName(), TMapKind(index));
        Page().Commit(index, image_);
        if (IsFuel() && index == 0)
            TakeRevLimiter();
    }

    void Reset(std::size_t index) {
        session_.Reset(PageName(), TMapKind(index));
        Page().maps[index].DropEdits();
        Page().maps[index].changed = false;
        if (IsFuel() && index == 0)
            ShowRevLimiter();
    }

    void Interpret() {
        session_.Interpret(PageName());
        Page().converted = !Page().converted;
        for (TPlainMap &map : Page().maps) {
            map.DropEdits();
            map.values.converted = Page().converted;
        }
    }

    void Copy(std::size_t index) {
        session_.Trigger(PageName(), QString("Copy%1").arg(index + 1));
        Page().pasteSlots[index] = Page().maps[index].values;
    }

    void Paste(std::size_t index) {
        session_.dialogs.messages.clear();
        session_.Trigger(PageName(), QString("Paste%1").arg(index + 1));
        if (const auto &slot = Page().pasteSlots[index])
            Page().maps[index].Paste(*slot);
        else
            EXPECT_EQ(session_.dialogs.messages,
                      QStringList{QString("No %1 %2 Map currently in "
                                          "paste buffer")
                                      .arg(IsFuel() ? "Fuel" : "Timing", mapNames[index])});
    }

    void EditRevLimiter() {
        if (!IsFuel())
            return;
        revShown_ = 1 + Below(12000);
        revChanged_ = true;
        session_.TypeRevLimiter(revShown_);
        if (Chance(2)) {
            session_.Click(PageName(), "btnSaverev");
            Page().Commit(0, image_);
            TakeRevLimiter();
        }
    }
    void TakeRevLimiter() {
        rev_ = static_cast<int>(std::nearbyint(revShown_ / 40.0));
        revChanged_ = false;
    }
    void ShowRevLimiter() {
        revShown_ = rev_ * 40;
        revChanged_ = false;
    }

    void Leave(const QString &tab) {
        const bool asks = Page().AnyChanged() || (IsFuel() && revChanged_);
        const bool yes = Chance(2);
        session_.dialogs.questions.clear();
        if (asks)
            session_.dialogs.answers = {yes ? TAnswer::Yes : TAnswer::No};
        session_.SelectTab(tab);
        EXPECT_EQ(session_.dialogs.questions,
                  asks ? QStringList{"Commit Changes?"} : QStringList());
        if (!asks || !yes)
            return;
        for (std::size_t map = 0; map < 3; ++map)
            Page().Commit(map, image_);
        if (IsFuel() && revChanged_) {
            TakeRevLimiter();
            Page().dataChanged = true;
        }
    }

    void Enter(int page) {
        page_ = static_cast<std::size_t>(page);
        session_.SelectTab(pageTabs[page_]);
        Page().Show(image_);
        if (IsFuel())
            ShowRevLimiter();
    }

    /// All maps go into the image as they stand, also what was pasted and not committed.
    void Save() {
        Leave("ROM Information");
        const bool maySave = plain_[0].dataChanged || plain_[1].dataChanged;
        EXPECT_EQ(session_.MayClick(romPage, "btnSave"), maySave);
        if (maySave) {
            const std::string name = "saved" + std::to_string(saves_++) + ".BIN";
            session_.SaveAs(name);
            plain_[0].Write(image_);
            Put(image_, revPlace, rev_);
            plain_[1].Write(image_);
            const TBytes saved = session_.Read(name);
            EXPECT_EQ(Differences(image_, saved), "");
            digests_ += Sha256(saved);
        }
        Enter(Below(2));
    }

    void CompareImages() {
        const auto &data = ROMImage()->data;
        const TBytes inMemory(data.begin(), data.begin() + ROMImage()->size);
        EXPECT_EQ(Differences(image_, inMemory), "");
    }

    std::mt19937 random_;
    TSession session_;
    TBytes image_;
    std::array<TPlainPage, 2> plain_{
        TPlainPage{{{0x6000, true}, {0x6100, false}, {0x6140, false}}, {}},
        TPlainPage{{{0x6200, true}, {0x6300, false}, {0x6340, false}}, {}}};
    std::size_t page_ = 0;
    int rev_ = 0;
    int revShown_ = 0;
    bool revChanged_ = false;
    int saves_ = 0;
    std::string digests_;
};

/// What every system saves in all sittings: the digest of their digests.
constexpr const char *savedEverywhere =
    "28cd84098604f7154edd55002e9a30437ddccb5427d7ec79dd442e8111f75c68";

constexpr std::size_t sittings = 200;

/// Ten seeds each, so that one case stays short.
class TRandomSessionTest : public testing::TestWithParam<unsigned> {
protected:
    static void TearDownTestSuite() {
        if (digests.size() < sittings)
            return; // only some of the cases were asked for
        TBytes all;
        for (const auto &[seed, some] : digests)
            all.insert(all.end(), some.begin(), some.end());
        EXPECT_EQ(Sha256(all), savedEverywhere);
    }
    inline static std::map<unsigned, std::string> digests; ///< by seed
};

TEST_P(TRandomSessionTest, LeavesTheExpectedBytes) {
    for (unsigned seed = GetParam(); seed < GetParam() + 10 && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        TRandomSession session(seed);
        session.Run();
        digests[seed] = session.Digests();
    }
}
INSTANTIATE_TEST_SUITE_P(Seeds, TRandomSessionTest, testing::Range(1000U, 1200U, 10U));
} // namespace
