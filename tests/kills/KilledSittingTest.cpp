// A sitting at the real window is killed at random moments: the image on the disk is wholly the old
// or the new one, and loading it offers exactly the bytes that were committed and never saved.
//   FERROLYN_KILLS=1000 build/dev/tests/kills/test_kills --gtest_filter='TKilledSitting.*'
#include "SavingProgram.h"
#include "changes/ByteRuns.h"
#include "changes/Recovery.h"
#include "pages/WindowFixture.h"

#include <chrono>
#include <random>
#include <sstream>

#include <QLabel>
#include <gmock/gmock.h>

namespace {
class TKilledSitting : public TWindowTest {
protected:
    using TImages = std::vector<TBytes>;

    void SetUp() override {
        MakeSpec("A.SPC");
        file = MakeImage("A.BIN");
        disk = GetFile(folder / "A.BIN");
        memory = disk;
    }
    /// Follows what the sitting told, up to the step in which it was killed.
    void Follow(const std::string &line) {
        if (line != "done") {
            step = line;
            hasCopies = hasCopies || step == "back";
            return;
        }
        steps += 1;
        if (step == "save")
            disk = memory;
        else if (step == "read")
            Drop();
        else if (step.starts_with("commit"))
            memory = Committed();
        else
            TakeOffer();
        step.clear();
    }
    /// The image in memory is that of the file again, and the bytes before may be brought back.
    void Drop() {
        if (memory != disk)
            lost = memory;
        memory = disk;
    }
    void TakeOffer() {
        if (step == "back")
            memory = *lost;
        lost.reset();
        hasCopies = false;
    }
    /// What the commit in `step` makes of the memory.
    TBytes Committed() const {
        std::istringstream words(step);
        std::string word;
        std::size_t offset = 0;
        int byte = 0;
        words >> word >> offset >> byte;
        TBytes bytes = memory;
        bytes.at(offset) = static_cast<std::uint8_t>(byte);
        return bytes;
    }

    /// What the images on the disk may be, and with each what may be offered.
    struct TState {
        TBytes disk;
        std::optional<TBytes> lost;
    };
    std::vector<TState> Allowed() const {
        const auto state = [](const TBytes &onDisk, const TBytes &inMemory) {
            return TState{onDisk, inMemory == onDisk ? std::nullopt : std::optional(inMemory)};
        };
        const TState before = lost ? TState{disk, lost} : state(disk, memory);
        if (step == "save")
            return {before, state(memory, memory)};
        if (step == "forget")
            return {before, state(disk, disk)};
        if (step.starts_with("commit"))
            return {before, state(disk, Committed())};
        return {before}; // reading anew and bringing back lose nothing
    }

    /// Loads the image at this test's own window; the images of its file as the offers make them.
    TImages Offered() {
        Load(file);
        window.Recovery().Finish();
        window.StateChanged();
        TImages images;
        for (const TKeptPatch &offer : window.Recovery().Offers()) {
            const auto bytes = Image().FileBytes();
            images.emplace_back(bytes.begin(), bytes.end());
            ApplyPatch(offer.patch, images.back());
        }
        return images;
    }
    void ExpectTheBarToSay(const std::optional<TBytes> &offered) {
        auto &bar = On<QWidget>(romTab, "barRecovery");
        ASSERT_EQ(bar.isVisible(), offered.has_value());
        if (!offered)
            return;
        const std::size_t bytes = BytesOf(DifferingRuns(disk, *offered));
        const QString end = bytes == 1 ? ": 1 byte" : ": " + QString::number(bytes) + " bytes";
        EXPECT_TRUE(On<QLabel>(romTab, "lblRecovery").text().endsWith(end));
    }
    /// Compares the disk with what is allowed, and goes on with what is there.
    void Judge() {
        const TBytes found = GetFile(folder / "A.BIN");
        const TImages offered = Offered();
        EXPECT_EQ(dialogs.messages, QStringList());
        EXPECT_EQ(window.Recovery().TakeProblem(), "");
        const std::vector<TState> allowed = Allowed();
        for (const TState &state : allowed) {
            if (found != state.disk || !IsExactly(offered, state.lost))
                continue;
            stepsTaken += allowed.size() > 1 && &state == &allowed.back();
            disk = state.disk;
            memory = disk;
            lost = state.lost;
            ExpectTheBarToSay(lost);
            return;
        }
        FAIL() << "in step '" << step << "': image is "
               << (found == disk     ? "old"
                   : found == memory ? "new"
                                     : "another")
               << ", " << offered.size() << " offers, "
               << BytesOf(DifferingRuns(disk, lost.value_or(memory))) << " bytes not saved";
    }
    /// Once, or more often after kills between keeping what was brought back and removing the old.
    bool IsExactly(const TImages &offered, const std::optional<TBytes> &expected) const {
        if (!expected)
            return offered.empty();
        return !offered.empty() && (offered.size() == 1 || hasCopies) &&
               std::all_of(offered.begin(), offered.end(),
                           [&](const TBytes &image) { return image == expected; });
    }
    /// Spins for a random part of about a step.
    void LetItRun() {
        std::uniform_int_distribution<int> microseconds(0, 30000);
        const auto end =
            std::chrono::steady_clock::now() + std::chrono::microseconds(microseconds(random));
        while (std::chrono::steady_clock::now() < end) {
        }
    }
    void SitAndKill() {
        TStartedProgram sitting(
            {FERROLYN_SITTER, folder.Path().string(), std::to_string(random() % 1000000)});
        std::string line;
        for (unsigned lines = random() % 16; lines > 0; --lines) {
            ASSERT_TRUE(sitting.ReadLine(line)) << "it ended by itself";
            Follow(line);
        }
        LetItRun();
        ASSERT_TRUE(sitting.Kill());
        while (sitting.ReadLine(line))
            Follow(line);
    }

    QString file;
    TBytes disk;                ///< what the file holds
    TBytes memory;              ///< what the sitting holds
    std::optional<TBytes> lost; ///< what is on offer there
    std::string step;           ///< that was begun and not done
    bool hasCopies = false;     ///< of what is on offer, perhaps
    int steps = 0;              ///< done
    int stepsTaken = 0;         ///< not done, and their end was found
    std::mt19937 random{std::random_device()()};
};

TEST_F(TKilledSitting, LosesNothingThatWasCommittedAndOffersNothingElse) {
    std::map<std::string, int> killedIn;
    const int kills = KillsWanted(30);
    for (int i = 0; i < kills && !HasFailure(); ++i) {
        SCOPED_TRACE("kill " + std::to_string(i));
        SitAndKill();
        if (HasFatalFailure())
            return;
        Judge();
        if ((i + 1) % 100 == 0)
            std::cout << i + 1 << " kills" << std::endl;
        ++killedIn[step.substr(0, step.find(' '))];
        step.clear();
    }
    EXPECT_GT(steps, kills) << "hardly any step was done";
    std::string hits;
    for (const auto &[name, count] : killedIn)
        hits += (name.empty() ? "between steps" : name) + " " + std::to_string(count) + "; ";
    std::cout << "killed in: " << hits << steps << " steps done, " << stepsTaken
              << " not done and found as if they were" << std::endl;
    std::size_t remains = 0;
    for (const auto &entry : std::filesystem::directory_iterator(ownState.Folder()))
        remains += entry.path().extension() == ".tmp";
    EXPECT_LE(remains, 1U);
}
} // namespace
