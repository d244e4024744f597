// The table of differences for other programs, line by line.
#include "changes/ChangesTable.h"

#include "changes/RandomPairs.h"
#include "support/ModelFixture.h"
#include "system/Texts.h"

#include <sstream>

#include <gmock/gmock.h>

namespace {
using testing::ElementsAre;

const std::string head =
    "map,what,RPM,load,old offset,new offset,old count,new count,old value,new value";

class TChangesTableTest : public TModelTest {
protected:
    static constexpr std::size_t size = 0x4000;

    void SetUp() override {
        Image().size = size;
        TimingConstants() = {0.5, 10};
        PutMap(0x1000, {60, 60, 60, 16}, {100, 100, 0}); // from 2400 to 9600 rpm, 20 to 100 %
        PutMap(0x1200, {60, 60, 60, 16}, {});
        PutMap(0x2000, {60, 60, 60, 16}, {100, 100, 0});
        workspace.fuelMapSet.SetOffsets(0x1000, 0, 0x1200);
        workspace.timingMapSet.SetOffsets(0x2000, 0, 0);
        workspace.fuelMapSet.revLimiter.SetOffset(0x40);
        before.assign(Image().data.begin(), Image().data.begin() + size);
        after = before;
    }
    std::string Text() {
        TMappedImage one(before);
        TMappedImage other(after);
        one.PlaceAs(workspace);
        other.PlaceAs(workspace);
        return ChangesTable(ImageChanges(one, other), one, other);
    }
    std::vector<std::string> Lines() {
        std::vector<std::string> lines;
        std::istringstream text(Text());
        for (std::string line; std::getline(text, line);) {
            EXPECT_TRUE(line.ends_with('\r')) << line;
            lines.push_back(line.substr(0, line.size() - 1));
        }
        return lines;
    }

    TWorkspace workspace;
    TBytes before;
    TBytes after;
};

TEST_F(TChangesTableTest, OfEqualImagesHasTheHeadersAlone) {
    EXPECT_EQ(Text(), head + "\r\n");
}

TEST_F(TChangesTableTest, HasALineForEachByte) {
    after[0x40] = 163;
    after[0x1002] = 59;
    after[0x1000 + 11 + 4] = 160; // second RPM point, second load point
    after[0x1200 + 6 + 3] = 128;
    after[0x2000 + 11] = 30;
    after[0x3000] = 1;
    after[0x3001] = 255;
    EXPECT_THAT(Lines(),
                ElementsAre(head, "Fuel PT,axis,,,$1002,$1002,60,59,,",
                            "Fuel PT,cell,4800,60,$100F,$100F,5,160,0.04,1.25",
                            "Fuel WOT,cell,9600,100,$1209,$1209,4,128,0.03,1.00",
                            "Timing PT,cell,2400,20,$200B,$200B,1,30,-4.5,10.0",
                            ",rev limiter,,,$0040,$0040,0,163,0,6520",
                            ",elsewhere,,,$3000,$3000,0,1,,", ",elsewhere,,,$3001,$3001,0,255,,"));
}

TEST_F(TChangesTableTest, HasPointsInEveryLanguage) {
    after[0x1000 + 11] = 160;
    SetDecimalSeparator(",");
    const auto translator = SetTextTranslator(
        [](const char *, const char *english) { return std::string("x") + english; });
    EXPECT_EQ(Lines().back(), "Fuel PT,cell,2400,20,$100B,$100B,1,160,0.01,1.25");
    EXPECT_EQ(SetDecimalSeparator("."), ",") << "put back";
    SetTextTranslator(translator);
}

TEST_F(TChangesTableTest, HasNoAnglesWithoutADivider) {
    TimingConstants() = {};
    after[0x2000 + 11] = 30;
    EXPECT_EQ(Lines().back(), "Timing PT,cell,2400,20,$200B,$200B,1,30,,");
}

TEST_F(TChangesTableTest, HasAnglesByTheConstantsOfEitherImage) {
    after[0x2000 + 11] = 30;
    TMappedImage one(before);
    TMappedImage other(after);
    one.PlaceAs(workspace);
    TimingConstants() = {1, 10};
    other.PlaceAs(workspace);
    EXPECT_EQ(ChangesTable(ImageChanges(one, other), one, other),
              head + "\r\nTiming PT,cell,2400,20,$200B,$200B,1,30,-4.5,20.0\r\n");
}

TEST_F(TChangesTableTest, OfMapsElsewhereHasBothOffsets) {
    TWorkspace moved;
    Image().data.fill(0);
    PutMap(0x3000, {60, 60, 59, 16}, {100, 100, 0});
    moved.fuelMapSet.SetOffsets(0x3000, 0, 0);
    TMappedImage other({Image().data.begin(), size});
    other.PlaceAs(moved);
    Put(0, before);
    Put(0x1000 + 11, {7});
    TMappedImage one({Image().data.begin(), size});
    one.PlaceAs(workspace);
    std::istringstream text(ChangesTable(ImageChanges(one, other), one, other));
    std::string line;
    std::getline(text, line);
    std::getline(text, line);
    EXPECT_EQ(line, "Fuel PT,axis,,,$1004,$3004,60,59,,\r");
    std::getline(text, line);
    EXPECT_EQ(line, "Fuel PT,cell,2440,20,$100B,$300B,7,1,0.05,0.01\r") << "points of the new axes";
}

TEST_F(TChangesTableTest, TellsEnoughToMakeTheOneImageOfTheOther) {
    const TBytes original = before;
    TRandomPairs pairs;
    for (int pair = 0; pair < 100; ++pair) {
        after = original;
        for (std::size_t change = pairs.Below(60); change > 0; --change)
            if (const std::size_t place = pairs.Below(size);
                place != 0x1001 && place != 0x1007 && place != 0x1201 && place != 0x2001 &&
                place != 0x2007) // another shape is not compared
                after[place] = static_cast<std::uint8_t>(pairs.Below(256));
        TBytes made = original;
        std::vector<std::string> lines = Lines();
        for (std::size_t i = 1; i < lines.size(); ++i) {
            std::vector<std::string> fields;
            std::istringstream line(lines[i] + ",");
            for (std::string field; std::getline(line, field, ',');)
                fields.push_back(field);
            ASSERT_EQ(fields.size(), 10U) << lines[i];
            const std::size_t offset = std::stoul(fields[5].substr(1), nullptr, 16);
            ASSERT_EQ(std::stoi(fields[6]), original[offset]);
            made[offset] = static_cast<std::uint8_t>(std::stoi(fields[7]));
        }
        ASSERT_EQ(made, after) << pair;
    }
}
} // namespace
