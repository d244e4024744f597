// Every file call of everything that is read goes wrong in turn, in every way: what was read before
// stays, what is read is read whole, the error names file and reason, and the next attempt works.
#include "FaultCases.h"
#include "forms/Help.h"
#include "forms/ProgramFile.h"
#include "model/ROMImage.h"
#include "spec/IniFile.h"
#include "spec/SpecFile.h"
#include "support/TemporaryFolder.h"
#include "system/Errors.h"

#include <algorithm>
#include <memory>

#include <QPlainTextEdit>
#include <gmock/gmock.h>

namespace {

namespace fs = std::filesystem;
using testing::AnyOf;
using testing::HasSubstr;

/// Base of the sweeps: one fault case, and the text of the error that a step ends in.
class TReadFaults : public testing::TestWithParam<TFaultCase> {
protected:
    const TTemporaryFolder folder;

    /// Sweeps over `step`, which reads below `where` once and throws EFileError; `check(error)`
    /// looks at what it left, and runs behind a step without faults, with an empty error, too.
    template <class TStep, class TCheck>
    TSweep SweepOver(const fs::path &where, TStep step, TCheck check) {
        const auto attempt = [&](const std::vector<TFault> &faults) {
            const TFaultInjection injection(where, faults);
            std::string error;
            try {
                step();
            } catch (const EFileError &failure) {
                error = failure.what();
            }
            const bool counts = !faults.empty();
            return std::pair{
                error, counts ? TOutcome{injection.Hits(), injection.HitCalls(), !error.empty()}
                              : TOutcome{}};
        };
        return Sweep(GetParam().fault, [&](const TFault &due) {
            const auto [error, outcome] = attempt({due});
            check(error);
            const auto [next, none] = attempt({});
            EXPECT_EQ(next, "") << "the next attempt";
            check(next);
            return outcome;
        });
    }
    void ExpectNamed(const std::string &error, const fs::path &file) const {
        EXPECT_THAT(error, HasSubstr(file.string()));
        EXPECT_THAT(error, AnyOf(HasSubstr(ReasonOf(GetParam().fault.code)),
                                 HasSubstr("its length changed while it was read")));
    }
    /// That all of these kinds of calls were hit when the fault is for them, and failed when they
    /// must.
    void ExpectHit(const TSweep &sweep, TCalls calls, TCalls failing) const {
        const TFault &fault = GetParam().fault;
        const TCalls expected = calls & fault.calls;
        EXPECT_EQ(sweep.calls.Text(), expected.Text());
        if (GetParam().harmless) {
            EXPECT_EQ(sweep.failing.Text(), "");
        } else if (fault.effect == TEffect::Fails && !fault.lasting) {
            EXPECT_EQ(sweep.failing.Text(), (failing & fault.calls).Text());
        }
    }
};

std::string Name(const testing::TestParamInfo<TFaultCase> &test) {
    return test.param.name;
}

using TImageFaults = TReadFaults;

TEST_P(TImageFaults, LeaveTheOldImageOrTheNewOne) {
    constexpr int length = 0x3000;
    const fs::path file = folder / "A.BIN";
    PutFile(file, std::vector<std::uint8_t>(length, 2));
    const auto image = std::make_unique<TROMImage>();
    const auto reset = [&] {
        std::fill_n(image->data.begin(), length, std::uint8_t{1});
        image->size = 7;
        image->modified = true;
    };
    const auto isAll = [&](std::uint8_t value) {
        return std::all_of(image->data.begin(), image->data.begin() + length,
                           [value](std::uint8_t byte) { return byte == value; });
    };
    reset();
    const TSweep sweep = SweepOver(
        folder.Path(), [&] { image->LoadFromFile(file); },
        [&](const std::string &error) {
            EXPECT_TRUE(isAll(error.empty() ? 2 : 1));
            EXPECT_EQ(image->size, error.empty() ? length : 7);
            EXPECT_EQ(image->modified, !error.empty());
            if (!error.empty())
                ExpectNamed(error, file);
            reset();
        });
    using enum TCall;
    ExpectHit(sweep, {Open, Status, Read, Close}, {Open, Status, Read});
}
INSTANTIATE_TEST_SUITE_P(All, TImageFaults, testing::ValuesIn(FaultCases()), Name);

using TSpecFaults = TReadFaults;

TEST_P(TSpecFaults, ReadTheWholeFileOrNone) {
    const fs::path file = folder / "A.SPC";
    std::string text = "; Label\n[Main]\n";
    for (int i = 0; i < 200; ++i)
        text += "key" + std::to_string(i) + "=value\n";
    PutFile(file, {text.begin(), text.end()});
    const auto valuesOf = [](const TIniFile &ini) {
        std::string values;
        for (int i = 0; i < 200; ++i)
            values += ini.ReadString("Main", "key" + std::to_string(i), "missing");
        return values;
    };
    const std::string whole = valuesOf(TIniFile(text));
    std::string read;
    const TSweep sweep = SweepOver(
        folder.Path(), [&] { read = valuesOf(TIniFile::Load(file)); },
        [&](const std::string &error) {
            EXPECT_EQ(read, error.empty() ? whole : "");
            if (!error.empty())
                ExpectNamed(error, file);
            read.clear();
        });
    using enum TCall;
    ExpectHit(sweep, {Open, Status, Read, Close}, {Open, Status, Read});
}
INSTANTIATE_TEST_SUITE_P(All, TSpecFaults, testing::ValuesIn(FaultCases()), Name);

using TScanFaults = TReadFaults;

TEST_P(TScanFaults, ListWholeLabelsOrNoneAndSayNothing) {
    for (const std::string name : {"a", "b", "c"}) {
        const std::string text = "; Label of " + name + "\n[Main]\n";
        PutFile(folder / (name + ".spc"), {text.begin(), text.end()});
    }
    TSpecScan scan;
    const TSweep sweep = SweepOver(
        folder.Path(), [&] { scan = ScanSpecFiles(folder.Path()); },
        [&](const std::string &error) {
            EXPECT_EQ(error, "");
            EXPECT_LE(scan.entries.size(), 3U);
            EXPECT_FALSE(scan.moreRemain);
            for (const TSpecEntry &entry : scan.entries)
                EXPECT_EQ(entry.label, "Label of " + entry.path.stem().string());
            scan = {};
        });
    EXPECT_EQ(ScanSpecFiles(folder.Path()).entries.size(), 3U);
    using enum TCall;
    ExpectHit(sweep, {Open, Status, Read, Close, List}, {});
}
INSTANTIATE_TEST_SUITE_P(All, TScanFaults, testing::ValuesIn(FaultCases()), Name);

TEST(TScannedFile, IsNotReadBehindItsFirstLine) {
    const TTemporaryFolder folder;
    const fs::path file = folder / "a.spc";
    std::string text = "; Label\n";
    text.resize(1 << 20, 'x');
    PutFile(file, {text.begin(), text.end()});
    TFault fault{TEffect::ComesLate, 0, {TCall::Read}};
    fault.meanwhile = [&] { fs::resize_file(file, 4096); }; // fewer would be missed
    const TFaultInjection injection(folder.Path(), {fault});
    ASSERT_EQ(ScanSpecFiles(folder.Path()).entries.size(), 1U);
    EXPECT_EQ(ScanSpecFiles(folder.Path()).entries[0].label, "Label");
    EXPECT_EQ(injection.Hits(), 1);
}

using THelpFaults = TReadFaults;

TEST_P(THelpFaults, ShowTheWholeTextOrNone) {
    const QString name = "fault-test.txt";
    const QString text = QString("A line of help.\n").repeated(3000) + "end";
    const TProgramFile programFile(name, text.toUtf8());
    const fs::path file = (ProgramDirectory() + name).toStdString();
    QString shown;
    const TSweep sweep = SweepOver(
        file, [&] { shown = TfrmHelp(name).Memo1->toPlainText(); },
        [&](const std::string &error) {
            EXPECT_TRUE(shown == (error.empty() ? text : QString()));
            if (!error.empty())
                ExpectNamed(error, file);
            shown.clear();
        });
    using enum TCall;
    ExpectHit(sweep, {Open, Status, Read, Close}, {Open, Status, Read});
}
INSTANTIATE_TEST_SUITE_P(All, THelpFaults, testing::ValuesIn(FaultCases()), Name);

} // namespace
