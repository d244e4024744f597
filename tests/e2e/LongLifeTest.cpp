// A long sitting: the same round of work over and over, with the toolkit's own dialogs. What the
// program holds must not grow with the rounds: memory in use, open files and threads stay where
// they were after the first rounds.
//   FERROLYN_ROUNDS=2000 build/dev/tests/e2e/test_e2e --gtest_filter='LongLife.*'    the long run
// Memory is told by the system's allocator, of which the address sanitizer's build knows nothing;
// there the leak check at the end stands for it.
#include "DialogScript.h"
#include "ProcessUse.h"
#include "Session.h"
#include "filedisplay/FileDisplay.h"
#include "filedisplay/filedisplaykey.h"
#include "forms/Help.h"
#include "forms/PageControl.h"
#include "forms/ProgramFile.h"
#include "maps/Maps.h"
#include "maps/ToolWindow.h"
#include "spec/offsetentry.h"

#include <cstdlib>
#include <iostream>
#include <string>

#include <QCheckBox>
#include <QPixmapCache>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace {
constexpr int warmUpRounds = 10; // caches of the toolkit fill
constexpr int quickRounds = 24;
constexpr int reports = 8;
// KiB over all rounds, however many: caches fill late.
constexpr std::size_t heapMayGrow = 128;
constexpr std::size_t residentMayGrow = 2048;
#if defined(__SANITIZE_ADDRESS__)
constexpr bool sanitized = true;
#elif defined(__has_feature)
constexpr bool sanitized = __has_feature(address_sanitizer);
#else
constexpr bool sanitized = false;
#endif

int Rounds() {
    const char *wanted = std::getenv("FERROLYN_ROUNDS");
    return wanted ? std::stoi(wanted) : quickRounds;
}

TUse Report(int round) {
    const TUse use = Use();
    std::cout << "round " << round << ": " << use.heap << " KiB of heap, " << use.resident
              << " KiB resident, " << use.files << " files, " << use.threads << " threads"
              << std::endl;
    return use;
}

class TLongLife {
public:
    TLongLife() {
        session_.WriteSamples();
        // The icons of each file dialog would fill the toolkit's 10 MiB anew.
        QPixmapCache::setCacheLimit(0);
    }
    TLongLife(const TLongLife &) = delete;
    TLongLife &operator=(const TLongLife &) = delete;
    ~TLongLife() { QPixmapCache::setCacheLimit(pixmapCache_); }

    /// Load, offsets by hand, a spec file, offers of lost changes, help, edits, tool window,
    /// contents view, found maps and their pages, saves.
    void Round(int number) {
        const bool even = number % 2 == 0;
        Load();
        PlaceByHand();
        session_.Choose(even ? byOffsets : byPointers);
        TakeOffers(even);
        ReadHelp();
        WorkOn(fuelPage, "Fuel Maps", number);
        LeaveTo("Timing Maps", even);
        WorkOn(timingPage, "Timing Maps", number);
        LeaveTo("Graphical Fuel Maps", !even);
        LookAtContents();
        Save(number > 0);
        QTest::qWait(0); // what was closed goes now
    }

private:
    QString File(const char *name) const {
        return QString::fromStdString((session_.folder / name).string());
    }
    void Load() {
        session_.SelectTab("ROM Information");
        script_.ThenFile(File("FERRO32K.BIN"));
        session_.Click(romPage, "btnLoad");
    }

    /// Once confirmed, once cancelled with something typed.
    void PlaceByHand() {
        script_.Then<TfrmOffsetEntry>([](TfrmOffsetEntry &dialog) {
            FindControl<QLineEdit>(dialog, "edtFuelPTMapOffset").setText("$6000");
            dialog.btnOK->click();
        });
        session_.Choose("Use Manual Offset Method");
        script_.Then<TfrmOffsetEntry>([](TfrmOffsetEntry &dialog) {
            FindControl<QLineEdit>(dialog, "edtFuelPTMapOffset").setText("$7000");
            dialog.btnCancel->click();
        });
        script_.ThenBox("Save Changes?", "No");
        session_.Click(romPage, "btnOffsetEntry");
    }

    /// What the round before committed and did not save: one is brought back or forgotten, the
    /// others are left until newer ones replace them.
    void TakeOffers(bool bringBack) {
        session_.window->Recovery().Finish();
        session_.window->StateChanged();
        if (session_.MayClick(romPage, "btnForget"))
            session_.Click(romPage, bringBack ? "btnBringBack" : "btnForget");
    }

    void ReadHelp() {
        script_.Then<TfrmHelp>([](TfrmHelp &help) { help.reject(); });
        session_.On<QPushButton>(romPage, "btnHelp").click();
    }

    /// Ends with an edit that is not committed.
    void WorkOn(const QString &page, const QString &tab, int number) {
        session_.SelectTab(tab);
        session_.Type(page, TMapKind::PT, {1 + number % 8, 1 + number % 5},
                      QString::number(number % 200));
        session_.Commit(page, TMapKind::PT);
        script_.ThenBox("'abc' is not a valid floating point value", "OK");
        session_.Type(page, TMapKind::WOT, {1 + number % 8, 1}, "abc");
        session_.Reset(page, TMapKind::WOT);
        Adjust(page);
        session_.Reset(page, TMapKind::PT);
        session_.Type(page, TMapKind::Idle, {1, 1}, QString::number(number % 100));
    }

    void Adjust(const QString &page) {
        session_.Click(page, "btnRecalculate");
        auto &tool = FindControl<TfrmToolWindow>(*session_.window, "frmToolWindow");
        ASSERT_TRUE(tool.isVisible());
        FindControl<QLineEdit>(tool, "edtVal").setText("1");
        FindControl<QPushButton>(tool, "btnExec").click();
        session_.Click(page, "btnRecalculate");
    }

    void LeaveTo(const QString &tab, bool commit) {
        script_.ThenBox("Commit Changes?", commit ? "Yes" : "No");
        session_.SelectTab(tab);
    }

    void LookAtContents() {
        session_.SelectTab("File Contents");
        session_.On<QCheckBox>(contentsPage, "chkDisplayHex").click();
        session_.Click(contentsPage, "Button1");
        auto &key = FindControl<TfrmKey>(*session_.window, "frmKey");
        ASSERT_TRUE(key.isVisible());
        key.btnOK->click();
        ASSERT_FALSE(key.isVisible());
        script_.ThenInput("7");
        session_.Trigger(contentsPage, "HighlightAValue1");
        session_.Trigger(contentsPage, "ClearAllMarkers1");
        session_.Trigger(contentsPage, "Fuel6");
        session_.Trigger(contentsPage, "AllHighlighted1");
        TfrmNotebook &window = *session_.window;
        auto &contents = dynamic_cast<TfrmFileContents &>(*window.CurrentPage());
        EXPECT_FALSE(contents.placing.AddedPages().empty());
        while (!contents.placing.AddedPages().empty())
            window.CloseTab(window.PageIndex(contents.placing.AddedPages().back()));
        EXPECT_EQ(window.PageCount(), window.PageIndex(&contents) + 1);
    }

    /// From the second round on over what the round before has saved.
    void Save(bool again) {
        session_.SelectTab("ROM Information");
        for (const auto &[button, name] :
             {std::pair{"btnSave", "SAVED.BIN"}, std::pair{"btnSaveSpec", "SAVED.SPC"}}) {
            script_.ThenFile(File(name));
            if (again)
                script_.ThenBox("Overwrite existing file?", "Yes");
            if (button == QString("btnSaveSpec"))
                script_.ThenInput("Saved");
            session_.Click(romPage, button);
        }
    }

    const int pixmapCache_ = QPixmapCache::cacheLimit();
    TSession session_;
    TDialogScript script_;
    const TProgramFile help_{FindControl<TEmbeddedForm>(*session_.window, romPage).HelpFileName(),
                             "Help\n"};
};

TEST(LongLife, NothingGrowsWithTheRounds) {
    TLongLife life;
    int number = 0;
    while (number < warmUpRounds)
        life.Round(number++);
    const TUse before = Report(number);
    TUse after = before;
    const int rounds = Rounds();
    for (int report = 1; report <= reports && !testing::Test::HasFailure(); ++report) {
        while (number < warmUpRounds + rounds * report / reports)
            life.Round(number++);
        after = Report(number);
    }
    EXPECT_EQ(number, warmUpRounds + rounds);
    EXPECT_EQ(after.files, before.files);
    EXPECT_EQ(after.threads, before.threads);
    // The address sanitizer keeps what is freed, and looks for leaks itself.
    if (!sanitized) {
        EXPECT_LE(after.heap, before.heap + heapMayGrow);
        EXPECT_LE(after.resident, before.resident + residentMayGrow);
    }
}
} // namespace
