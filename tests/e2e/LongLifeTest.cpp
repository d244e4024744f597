// A long sitting: the same round of work over and over. What the program holds must not grow with
// the rounds: memory in use and open files stay where they were after the first rounds.
//   FERROLYN_ROUNDS=2000 build/dev/tests/e2e/test_e2e --gtest_filter='LongLife.*'    the long run
// Memory is told by the system's allocator, of which the address sanitizer's build knows nothing;
// there the leak check at the end stands for it.
#include "Session.h"
#include "filedisplay/FileDisplay.h"
#include "forms/PageControl.h"
#include "maps/Maps.h"

#include <cstdlib>
#include <malloc.h>
#include <string>

#include <QCheckBox>
#include <QTest>
#include <gtest/gtest.h>

namespace {
constexpr int warmUpRounds = 10; // caches of the toolkit fill
constexpr int quickRounds = 40;
constexpr std::size_t mayGrow = 512; // KiB over all rounds, however many: caches fill late

int Rounds() {
    const char *wanted = std::getenv("FERROLYN_ROUNDS");
    return wanted ? std::stoi(wanted) : quickRounds;
}

std::size_t HeapKiB() {
    return mallinfo2().uordblks / 1024;
}

int OpenFiles() {
    int count = 0;
    for ([[maybe_unused]] const auto &entry : std::filesystem::directory_iterator("/proc/self/fd"))
        ++count;
    return count;
}

/// Load, choose, edit, commit, reset, bulk tool, contents view, found maps and their pages, save.
void Round(TSession &session, int number) {
    session.SelectTab("ROM Information");
    session.LoadAndChoose("FERRO32K.BIN", number % 2 == 0 ? byOffsets : byPointers);
    for (const QString &page : {fuelPage, timingPage}) {
        session.SelectTab(page == fuelPage ? "Fuel Maps" : "Timing Maps");
        session.Type(page, TMapKind::PT, {1 + number % 8, 1 + number % 5},
                     QString::number(number % 200));
        session.Commit(page, TMapKind::PT);
        session.Type(page, TMapKind::WOT, {1 + number % 8, 1}, QString::number(number % 100));
        session.Reset(page, TMapKind::WOT);
        session.Click(page, "btnRecalculate");
    }
    session.SelectTab("Graphical Fuel Maps");
    session.SelectTab("File Contents");
    session.On<QCheckBox>("frmFileContents", "chkDisplayHex").click();
    session.Click("frmFileContents", "Button1");
    session.Trigger("frmFileContents", "Fuel5");
    session.Trigger("frmFileContents", "AllHighlighted1");
    while (!session.window->AddedPages().empty())
        session.window->CloseTab(session.window->PageIndex(session.window->AddedPages().back()));
    if (number > 0)
        session.dialogs.answers.push_back(TAnswer::Yes); // over the one of the round before
    session.SaveAs("SAVED.BIN");
    QTest::qWait(0); // what was closed goes now
    // The script's own records would grow.
    for (QStringList *record : {&session.dialogs.messages, &session.dialogs.questions,
                                &session.dialogs.openDialogs, &session.dialogs.saveDialogs})
        record->clear();
}

TEST(LongLife, NothingGrowsWithTheRounds) {
    TSession session;
    session.WriteSamples();
    int number = 0;
    while (number < warmUpRounds)
        Round(session, number++);
    const std::size_t heap = HeapKiB();
    const int files = OpenFiles();
    for (const int last = number + Rounds(); number < last;)
        Round(session, number++);
    EXPECT_EQ(OpenFiles(), files);
    EXPECT_LE(HeapKiB(), heap + mayGrow);
    RecordProperty("heapBefore", std::to_string(heap));
    RecordProperty("heapAfter", std::to_string(HeapKiB()));
}
} // namespace
