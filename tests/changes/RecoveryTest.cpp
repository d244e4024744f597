// What was committed and never saved, kept in a folder and offered again.
#include "changes/RecoveryFixture.h"

#include <random>

#include <gmock/gmock.h>

namespace {
namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

TEST_F(TRecoveryTest, MakesNothingWhileThereIsNothingToKeep) {
    TProgram program(state);
    program.Look();
    program.Load(image);
    program.Save(image);
    program.Save(folder / "B.BIN");
    EXPECT_FALSE(fs::exists(state));
    EXPECT_EQ(program.recovery.TakeProblem(), "");
}

TEST_F(TRecoveryTest, KeepsWhatIsCommittedForTheNextStart) {
    TProgram program(state);
    program.Load(image);
    program.Commit(0x10, 6);
    EXPECT_THAT(OfferedNext(), ElementsAre(With(0x10, 6)));
}

TEST_F(TRecoveryTest, KeepsOnePatchOfAllThatIsCommitted) {
    {
        TProgram program(state);
        program.Load(image);
        program.Commit(0x10, 6);
        program.Commit(0x20, 7);
        EXPECT_THAT(Kept(), SizeIs(1));
    }
    EXPECT_THAT(OfferedNext(), ElementsAre(With(With(0x10, 6), 0x20, 7)));
}

TEST_F(TRecoveryTest, DoesNotOfferItsOwn) {
    TProgram program(state);
    ROMImage()->LoadFromFile(image);
    program.recovery.ImageRead();
    program.Commit(0x10, 6); // before anybody has looked for offers
    EXPECT_THAT(Kept(), SizeIs(1));
    EXPECT_THAT(program.recovery.Offers(), IsEmpty());
}

TEST_F(TRecoveryTest, DropsWhatIsPutBack) {
    TProgram program(state);
    program.Load(image);
    program.Commit(0x10, 6);
    program.Commit(0x10, 5);
    EXPECT_THAT(Kept(), IsEmpty());
    program.Commit(0x11, 6);
    EXPECT_THAT(Kept(), SizeIs(1));
}

TEST_F(TRecoveryTest, DropsWhatIsSaved) {
    TProgram program(state);
    program.Load(image);
    program.Commit(0x10, 6);
    program.Save(folder / "B.BIN");
    EXPECT_THAT(Kept(), IsEmpty());
    program.Commit(0x10, 5); // no longer what the file has
    EXPECT_THAT(Kept(), SizeIs(1));
    TProgram next(state);
    next.Load(image);
    EXPECT_THAT(next.Offered(), IsEmpty()) << "of another file";
    next.Load(folder / "B.BIN");
    EXPECT_THAT(next.Offered(), ElementsAre(original));
}

TEST_F(TRecoveryTest, OffersWhatReadingAnewHasDropped) {
    TProgram program(state);
    program.Load(image);
    program.Commit(0x10, 6);
    program.Load(image);
    EXPECT_EQ(Now(), original);
    EXPECT_THAT(program.Offered(), ElementsAre(With(0x10, 6)));
    program.Commit(0x20, 7);
    EXPECT_THAT(Kept(), SizeIs(2));
    program.Load(image);
    EXPECT_THAT(program.Offered(), testing::UnorderedElementsAre(With(0x20, 7), With(0x10, 6)));
}

TEST_F(TRecoveryTest, OffersTheNewestFirstAndTheNextWhenItIsForgotten) {
    for (const std::uint8_t byte : {std::uint8_t{6}, std::uint8_t{7}, std::uint8_t{8}}) {
        for (const fs::path &file : Kept())
            fs::last_write_time(file, fs::last_write_time(file) - std::chrono::hours(1));
        TProgram program(state);
        program.Load(image);
        program.Commit(0x10, byte);
    }
    TProgram program(state);
    program.Load(image);
    ASSERT_THAT(program.Offered(), ElementsAre(With(0x10, 8), With(0x10, 7), With(0x10, 6)));
    program.recovery.Forget();
    program.Look();
    EXPECT_THAT(program.Offered(), ElementsAre(With(0x10, 7), With(0x10, 6)));
    EXPECT_THAT(Kept(), SizeIs(2));
}

TEST_F(TRecoveryTest, OffersNothingForAnotherImage) {
    {
        TProgram program(state);
        program.Load(image);
        program.Commit(0x10, 6);
    }
    TProgram program(state);
    for (const TBytes &other : {With(0x800, 1), TBytes(0x1001, 5), TBytes(0x100, 5), TBytes()}) {
        PutFile(folder / "B.BIN", other);
        program.Load(folder / "B.BIN");
        EXPECT_THAT(program.Offered(), IsEmpty());
    }
    program.Load(image);
    EXPECT_THAT(program.Offered(), SizeIs(1));
    EXPECT_EQ(program.recovery.TakeProblem(), "") << "patches of other images are no problem";
}

TEST_F(TRecoveryTest, BringsBackEveryByteAndReadsTheMapsAnew) {
    original = TBytes(0x1000, 0);
    PutMap(0x100, {1, 2, 3}, {4, 5});
    std::copy_n(Image().data.begin(), 0x1000, original.begin());
    PutFile(image, original);
    {
        TProgram program(state);
        program.Load(image);
        program.Commit(0x10A, 77);
        program.Commit(0xFFF, 1);
    }
    TProgram program(state);
    program.Load(image);
    program.workspace.fuelMapSet.SetOffsets(0x100, 0, 0);
    program.Commit(0x20, 9); // something else meanwhile
    program.BringBack();
    const TBytes expected = With(With(With(0x10A, 77), 0xFFF, 1), 0x20, 9);
    EXPECT_EQ(Now(), expected);
    EXPECT_TRUE(Image().modified);
    EXPECT_EQ(RawOf(*program.workspace.fuelMapSet.PTMap->data).at(1), 77);
    EXPECT_FALSE(program.workspace.fuelMapSet.IsModified());
    EXPECT_THAT(program.recovery.Offers(), IsEmpty());
    EXPECT_THAT(Kept(), SizeIs(1)) << "what was brought back is in the program's own";
    EXPECT_THAT(OfferedNext(), ElementsAre(expected));
}

TEST_F(TRecoveryTest, ChangesNothingWhenAnOfferDoesNotFitWhatIsInMemory) {
    {
        TProgram program(state);
        program.Load(image);
        program.Commit(0x10, 6);
        program.Commit(0x20, 7);
    }
    TProgram program(state);
    program.Load(image);
    program.Commit(0x20, 9);
    EXPECT_THROW(program.BringBack(), EPatchError);
    EXPECT_EQ(Now(), With(0x20, 9));
    EXPECT_THAT(program.recovery.Offers(), SizeIs(1));
    EXPECT_THAT(Kept(), SizeIs(2));
}

TEST_F(TRecoveryTest, TakesCopiesOfAnOfferForOne) {
    {
        TProgram program(state);
        program.Load(image);
        program.Commit(0x10, 6);
    }
    const fs::path kept = Kept().front();
    const fs::path copy = state / "unsaved-0123456789abcdef.patch";
    fs::copy(kept, copy);
    {
        TProgram program(state);
        program.Load(image);
        program.recovery.Forget();
        program.Look();
        EXPECT_THAT(Kept(), IsEmpty());
        program.Commit(0x10, 6);
    }
    fs::copy(Kept().front(), copy);
    TProgram program(state);
    program.Load(image);
    program.BringBack();
    EXPECT_THAT(Kept(), SizeIs(1));
}

TEST_F(TRecoveryTest, KeepsARevLimiterThatWasTaken) {
    {
        TProgram program(state);
        program.Load(image);
        program.workspace.fuelMapSet.revLimiter.SetOffset(0x40);
        program.workspace.fuelMapSet.revLimiter.SetValue(6000);
        program.Look();
        EXPECT_EQ(Now(), original) << "a commit does not write it";
    }
    TProgram program(state);
    program.Load(image);
    ASSERT_THAT(program.Offered(), ElementsAre(With(0x40, 150)));
    program.workspace.fuelMapSet.revLimiter.SetOffset(0x40);
    program.BringBack();
    EXPECT_EQ(Now(), With(0x40, 150));
    EXPECT_EQ(program.workspace.fuelMapSet.revLimiter.raw, 150);
}

TEST_F(TRecoveryTest, DoesNotLoseATakenRevLimiterWhenItBringsBack) {
    {
        TProgram program(state);
        program.Load(image);
        program.Commit(0x10, 6);
    }
    TProgram program(state);
    program.Load(image);
    TRPMVal &limiter = program.workspace.fuelMapSet.revLimiter;
    limiter.SetOffset(0x40);
    limiter.SetValue(6000);
    program.BringBack();
    EXPECT_EQ(limiter.raw, 150);
    EXPECT_EQ(Now(), With(With(0x10, 6), 0x40, 150));
}

TEST_F(TRecoveryTest, KeepsNoRevLimiterThatNobodyHasTakenForThisImage) {
    PutFile(folder / "B.BIN", TBytes(0x1000, 8));
    TProgram program(state);
    program.Load(folder / "B.BIN");
    program.workspace.fuelMapSet.revLimiter.SetOffset(0x40);
    program.Load(image);
    EXPECT_FALSE(fs::exists(state));
    program.Load(folder / "B.BIN");
    program.workspace.fuelMapSet.revLimiter.SetValue(6000);
    program.Look();
    EXPECT_THAT(Kept(), SizeIs(1));
    program.Load(image);
    EXPECT_THAT(Kept(), SizeIs(1)) << "it was taken for the other image";
}

TEST_F(TRecoveryTest, KeepsTheNewestTwenty) {
    for (int i = 0; i < 25; ++i) {
        TProgram program(state);
        program.Load(image);
        program.Commit(i, 9);
    }
    EXPECT_THAT(Kept(), SizeIs(20));
    EXPECT_THAT(OfferedNext(), SizeIs(20));
}

TEST_F(TRecoveryTest, OfTwoProgramsKeepsBoth) {
    TProgram one(state);
    one.Load(image);
    one.Commit(0x10, 6);
    const TFreshModel ofTheOther;
    TProgram other(state);
    other.Load(image);
    EXPECT_THAT(other.Offered(), ElementsAre(With(0x10, 6)));
    other.Commit(0x20, 7);
    EXPECT_THAT(OfferedNext(), testing::UnorderedElementsAre(With(0x10, 6), With(0x20, 7)));
    other.Save(image);
    EXPECT_THAT(Kept(), SizeIs(2)) << "the first one's, and what was replaced";
    EXPECT_THAT(OfferedNext(), IsEmpty()) << "another file now";
}

TEST_F(TRecoveryTest, LosesNothingInARandomSitting) {
    std::mt19937 random{20261122};
    const auto upTo = [&](int most) { return std::uniform_int_distribution(0, most)(random); };
    TBytes file = original;
    std::optional<TBytes> dropped; // the newest
    auto program = std::make_unique<TProgram>(state);
    program->Load(image);
    for (int step = 0; step < 200; ++step) {
        SCOPED_TRACE(step);
        const TBytes before = Now();
        const int action = upTo(9);
        if (action < 6) {
            program->Commit(upTo(0x0FFF), static_cast<std::uint8_t>(upTo(255)));
            continue;
        }
        if (action == 6) {
            program->Save(image);
            file = before;
            dropped.reset();
            EXPECT_EQ(GetFile(image), file);
            continue;
        }
        if (action == 7)
            program = std::make_unique<TProgram>(state); // as after a crash
        for (const fs::path &kept : Kept())
            fs::last_write_time(kept, fs::last_write_time(kept) - std::chrono::hours(1));
        program->Load(image);
        if (before != file)
            dropped = before;
        ASSERT_EQ(program->recovery.Offers().empty(), !dropped);
        if (!dropped)
            continue;
        if (before != file) {
            ASSERT_EQ(program->Offered().front(), before);
        }
        if (action == 9) {
            while (!program->recovery.Offers().empty())
                program->recovery.Forget();
            dropped.reset();
        } else if (upTo(1) == 0) {
            program->BringBack();
            ASSERT_EQ(Now(), *dropped);
            while (!program->recovery.Offers().empty())
                program->recovery.Forget();
            dropped.reset();
        }
    }
}
} // namespace
