// What "Moved Maps" says of its proposals.
#include "discovery/MovedTexts.h"

#include <set>

#include <gmock/gmock.h>

namespace {
TEST(MovedTexts, NameTheSureness) {
    EXPECT_EQ(SurenessText(TSureness::Sure), "sure");
    EXPECT_EQ(SurenessText(TSureness::Unsure), "unsure");
    EXPECT_EQ(SurenessText(TSureness::NotFound), "not found");
}

TEST(MovedTexts, AreSentencesWithTheNumbers) {
    const std::vector<std::pair<TMovedReason, std::string>> cases{
        {{TMovedFact::NoneOfForm, 16, 12}, "No place here has its form: 16 x 12 points."},
        {{TMovedFact::GivenAway, 0xB2C6}, "The place most like it is another map's: $B2C6."},
        {{TMovedFact::Steps, 27, 28}, "Axis steps that are equal: 27 of 28."},
        {{TMovedFact::Together, 5, 0x120}, "Other maps that moved by its distance (+$0120): 5."},
        {{TMovedFact::Alone, -16}, "No other map moved by its distance (-$0010)."},
        {{TMovedFact::Rival, 0x12345}, "Another place resembles it too: $12345."},
        {{TMovedFact::ByteAround, 14, 16}, "Bytes around it that are equal: 14 of 16."},
    };
    for (const auto &[reason, text] : cases)
        EXPECT_EQ(ReasonText(reason), text);
}

TEST(MovedTexts, HaveOneSentenceForEachFact) {
    std::set<std::string> texts;
    const int facts = static_cast<int>(TMovedFact::ByteNotFound) + 1;
    for (int fact = 0; fact < facts; ++fact)
        texts.insert(ReasonText({static_cast<TMovedFact>(fact), 1, 2}));
    EXPECT_EQ(texts.size(), static_cast<std::size_t>(facts));
}

TEST(MovedTexts, StandALineEach) {
    EXPECT_EQ(ReasonsText({}), "");
    EXPECT_EQ(ReasonsText({{TMovedFact::OtherAxes}, {TMovedFact::Pointers}}),
              "The axes differ much.\nPointers lead to it as in the known image.");
}
} // namespace
