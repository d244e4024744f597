// Patch files: their text, what is refused, and applying them.
#include "changes/Patch.h"

#include "changes/RandomPairs.h"

#include <gmock/gmock.h>

namespace {
using TBytes = std::vector<std::uint8_t>;

const std::string digest(64, 'a');

const std::string sample = "Ferrolyn patch 1\n"
                           "name A.BIN\n"
                           "size 8\n"
                           "sha256 " +
                           digest +
                           "\n"
                           "$0001 02 03 -> ff 00\n"
                           "$0007 08 -> 09\n"
                           "end 2\n";

std::string ErrorOf(const std::string &text) {
    try {
        ParsePatch(text);
    } catch (const EPatchError &error) {
        return error.what();
    }
    return "no error";
}

/// The sample with one text in it replaced.
std::string With(const std::string &what, const std::string &by) {
    std::string text = sample;
    text.replace(text.find(what), what.size(), by);
    return text;
}

TEST(Patch, IsWrittenLineByLine) {
    EXPECT_EQ(PatchText(MakePatch("A.BIN", digest, TBytes{1, 2, 3, 4, 5, 6, 7, 8},
                                  TBytes{1, 255, 0, 4, 5, 6, 7, 9})),
              sample);
}

TEST(Patch, OfALongRunHasSixteenBytesInALine) {
    const TPatch patch = MakePatch("A", digest, TBytes(40, 0), TBytes(40, 1));
    ASSERT_EQ(patch.runs.size(), 1U);
    const std::string text = PatchText(patch);
    EXPECT_NE(text.find("\n$0020 00 00 00 00 00 00 00 00 -> 01"), std::string::npos);
    EXPECT_TRUE(text.ends_with("\nend 3\n"));
    EXPECT_EQ(ParsePatch(text), patch);
}

TEST(Patch, OfNothingHasNoLines) {
    const TPatch patch = MakePatch("A", digest, TBytes(40), TBytes(40));
    EXPECT_TRUE(PatchText(patch).ends_with("\nend 0\n"));
    EXPECT_EQ(ParsePatch(PatchText(patch)), patch);
}

TEST(Patch, MayHaveOtherLineEnds) {
    std::string text;
    for (const char c : sample)
        text += c == '\n' ? "\r\n" : std::string(1, c);
    EXPECT_EQ(ParsePatch(text), ParsePatch(sample));
}

TEST(Patch, KeepsANameInOneLine) {
    const TPatch patch = MakePatch("A\nB\t\xC3\xA4", digest, {}, {});
    EXPECT_EQ(ParsePatch(PatchText(patch)).name, "A B \xC3\xA4");
}

struct TRefused {
    std::string text;
    std::string error;
};

class PatchErrors : public testing::TestWithParam<TRefused> {};

TEST_P(PatchErrors, NameTheLine) {
    EXPECT_EQ(ErrorOf(GetParam().text), GetParam().error);
}

INSTANTIATE_TEST_SUITE_P(
    Refused, PatchErrors,
    testing::Values(
        TRefused{"", "Line 1 of the patch: the patch ends here, before its last line"},
        TRefused{With("patch 1", "patch 2"), "Line 1 of the patch: 'Ferrolyn patch 1' is expected"},
        TRefused{With("name ", "Name "), "Line 2 of the patch: 'name ' is expected"},
        TRefused{With("A.BIN", "A\tBIN"), "Line 2 of the patch: the name has a control character"},
        TRefused{With("size 8", "size 8x"), "Line 3 of the patch: '8x' is no number"},
        TRefused{With("size 8", "size -8"), "Line 3 of the patch: '-8' is no number"},
        TRefused{With("size 8", "size 4294967296"),
                 "Line 3 of the patch: '4294967296' is no number"},
        TRefused{With("size 8", "size "), "Line 3 of the patch: '' is no number"},
        TRefused{With("aaaa", "aaa"), "Line 4 of the patch: 64 digits from 0 to f are expected"},
        TRefused{With("aaaa", "aaaA"), "Line 4 of the patch: 64 digits from 0 to f are expected"},
        TRefused{With("$0001", "0001"),
                 "Line 5 of the patch: '$1A2B 01 -> 02' or 'end' is expected"},
        TRefused{With(" -> ff 00", ""),
                 "Line 5 of the patch: '$1A2B 01 -> 02' or 'end' is expected"},
        TRefused{With("02 03", "02  03"),
                 "Line 5 of the patch: bytes are two digits each, one blank between"},
        TRefused{With("02 03", "02 03 "),
                 "Line 5 of the patch: bytes are two digits each, one blank between"},
        TRefused{With("ff 00", "ff 0"),
                 "Line 5 of the patch: bytes are two digits each, one blank between"},
        TRefused{With("ff 00", "ff 0g"), "Line 5 of the patch: '0g' is no number"},
        TRefused{With("ff 00", "ff"),
                 "Line 5 of the patch: as many bytes are expected behind the arrow"},
        TRefused{With("$0007", "$0008"),
                 "Line 6 of the patch: the bytes lie behind the image's end, or not behind those "
                 "of the line before"},
        TRefused{With("$0007", "$0002"),
                 "Line 6 of the patch: the bytes lie behind the image's end, or not behind those "
                 "of the line before"},
        TRefused{With("end 2", "end 3"),
                 "Line 7 of the patch: lines are missing in front of the end"},
        TRefused{With("end 2\n", ""),
                 "Line 7 of the patch: the patch ends here, before its last line"},
        TRefused{sample + "x", "Line 8 of the patch: nothing may stand behind the end"}));

TEST(Patch, IsRefusedWhenItEndsAtAnyByte) {
    for (std::size_t length = 0; length < sample.size(); ++length)
        EXPECT_NE(ErrorOf(sample.substr(0, length)), "no error") << length;
}

TEST(ApplyPatch, ChangesItsBytesAndIsTakenBackByItsReverse) {
    TBytes image{1, 2, 3, 4, 5, 6, 7, 8};
    const TPatch patch = ParsePatch(sample);
    ApplyPatch(patch, image);
    EXPECT_EQ(image, (TBytes{1, 255, 0, 4, 5, 6, 7, 9}));
    ApplyPatch(Reversed(patch), image);
    EXPECT_EQ(image, (TBytes{1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST(ApplyPatch, NamesTheFirstByteThatIsAnotherAndChangesNothing) {
    TBytes image{1, 2, 3, 4, 5, 6, 7, 77};
    const TBytes before = image;
    try {
        ApplyPatch(ParsePatch(sample), image);
        FAIL() << "no error";
    } catch (const EPatchError &error) {
        EXPECT_STREQ(error.what(), "At $0007 the image has 77 where the patch expects 8");
    }
    EXPECT_EQ(image, before);
}

TEST(ApplyPatch, RefusesAnotherSize) {
    TBytes image(9);
    try {
        ApplyPatch(ParsePatch(sample), image);
        FAIL() << "no error";
    } catch (const EPatchError &error) {
        EXPECT_STREQ(error.what(), "The patch is for an image of 8 bytes; this one has 9");
    }
}

TEST(Patch, OfRandomPairsGivesOneFromTheOther) {
    TRandomPairs pairs;
    for (int pair = 0; pair < TRandomPairs::count; ++pair) {
        const auto [before, after] = pairs.Next();
        const TPatch patch = ParsePatch(PatchText(MakePatch("A", digest, before, after)));
        ASSERT_EQ(patch, MakePatch("A", digest, before, after)) << pair;
        TBytes image = before;
        ApplyPatch(patch, image);
        ASSERT_EQ(image, after) << pair;
        ApplyPatch(Reversed(patch), image);
        ASSERT_EQ(image, before) << pair;
    }
}

TEST(Patch, OfRandomPairsIsRefusedByAnImageWithAnotherByte) {
    TRandomPairs pairs;
    for (int pair = 0; pair < TRandomPairs::count; ++pair) {
        const auto [before, after] = pairs.Next();
        const TPatch patch = MakePatch("A", digest, before, after);
        if (patch.runs.empty())
            continue;
        const TPatchRun &run = patch.runs[pairs.Below(patch.runs.size())];
        TBytes image = before;
        ++image[run.offset + pairs.Below(run.before.size())];
        const TBytes damaged = image;
        ASSERT_THROW(ApplyPatch(patch, image), EPatchError) << pair;
        ASSERT_EQ(image, damaged) << pair;
    }
}
} // namespace
