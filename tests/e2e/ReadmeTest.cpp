// The worked examples of README.md are true letter by letter: they are walked as they stand, and a
// word or a figure that is not true ends the walk.
#include "ReadmeSteps.h"
#include "ReadmeWalk.h"
#include "samples/SampleImage.h"

#include <gtest/gtest.h>

namespace {
constexpr const char *firstChange = "A first change";
constexpr const char *unknownImage = "An unknown image";
constexpr const char *byColours = "The second way: by colours";

/// Walks an example in a program that was started anew.
QString Finding(const std::vector<QString> &steps, QStringList *used = nullptr) {
    TSession session;
    session.WriteSamples();
    TReadmeWalk walk(session);
    const QString finding = walk.Walk(steps);
    if (used)
        *used += walk.Used();
    return finding;
}

/// A place of the README that somebody made untrue.
struct TSlip {
    const char *name;
    const char *heading;
    const char *text; ///< stands once in the steps
    const char *untrue;
};

const TSlip slips[] = {
    {"Button", firstChange, "press \"Load ROM Image\"", "press \"Load Image\""},
    {"FirstFolder", firstChange, "`../../../samples/FERRO32K.BIN`", "`../../samples/FERRO32K.BIN`"},
    {"SpecFile", firstChange, "\"Ferrolyn sample 32K, offsets\"", "\"Ferrolyn sample, offsets\""},
    {"Tab", firstChange, "Go to \"Fuel Maps\"", "Go to \"Fuel\""},
    {"CheckBox", firstChange, "Check \"Interpret Byte Values\"", "Check \"Interpret Bytes\""},
    {"CheckBoxLeftOut", firstChange, "Check \"Interpret Byte Values\", and they", "They"},
    {"Trim", firstChange, "byte of 128", "byte of 127"},
    {"TypedValue", firstChange, "type 0.99", "type 0.98"},
    {"EngineSpeed", firstChange, "1760 rpm", "1680 rpm"},
    {"Load", firstChange, "30 % load", "31 % load"},
    {"ShownValue", firstChange, "shows 0.95", "shows 0.96"},
    {"Color", firstChange, "turns blue", "turns red"},
    {"Commit", firstChange, "Press \"Commit\"", "Press \"Apply\""},
    {"CommitLeftOut", firstChange, "Press \"Commit\" beside the map. ", ""},
    {"WindowMenu", firstChange, "choose \"Show Changes\"", "choose \"Changes\""},
    {"ChangedMap", firstChange, "\"Fuel PT\"", "\"Fuel Idle\""},
    {"ChangedCells", firstChange, "\"1 cell\"", "\"2 cells\""},
    {"OldValue", firstChange, "the 0.95 of", "the 0.96 of"},
    {"NewByte", firstChange, "127 instead", "126 instead"},
    {"OldByte", firstChange, "instead of 121", "instead of 120"},
    {"BytesChanged", firstChange, "one byte:", "two byte:"},
    {"Place", firstChange, "at $6053", "at $6054"},
    {"FindMaps", unknownImage, "choose \"Find Maps\"", "choose \"Find All Maps\""},
    {"Likely", unknownImage, "6 likely maps", "5 likely maps"},
    {"GiveSix", unknownImage, "Press \"Give All Six\"", "Press \"Give All\""},
    {"GiveSixLeftOut", unknownImage, "Press \"Give All Six\". ", ""},
    {"InTheNotebook", unknownImage, "\"In the notebook\"", "\"Notebook\""},
    {"GivenPT", unknownImage, "$B2C6 and", "$B2C7 and"},
    {"GivenIdle", unknownImage, "the idle maps", "the full throttle (WOT) maps"},
    {"SpecOfFound", unknownImage, "Press \"Save Spec\"", "Press \"Save Specs\""},
    {"LabelOfFound", unknownImage, "choose \"Found by myself\"", "choose \"Found\""},
    {"FileName", byColours, "choose `FERRO64K.BIN` in", "choose `FERRO48K.BIN` in"},
    {"RowLength", byColours, "16 bytes a row", "32 bytes a row"},
    {"Menu", byColours, "choose \"Search and Highlight Maps\", \"Fuel - Part Throttle\"",
     "choose \"Search Maps\", \"Fuel - Part Throttle\""},
    {"OneMapEach", byColours, "one map each", "two map each"},
    {"Tabs", byColours, "Four tabs", "Two tabs"},
    {"MapPage", byColours, "timing map at $C91A", "timing map at $C91B"},
    {"MapKind", byColours, "The fuel map at $B2C6", "The timing map at $B2C6"},
    {"FalsePage", byColours, "$B2E5 and", "$B2E6 and"},
    {"LastByte", byColours, "axis, a 0,", "axis, a 1,"},
    {"Row", byColours, "row B2Cx", "row B2Dx"},
    {"Column", byColours, "cell below 6", "cell below 7"},
    {"Key", byColours, "Press \"Key\"", "Press \"Legend\""},
    {"KeyHides", byColours, "\"Ok\" hides it", "\"OK\" hides it"},
    {"QuickMap", byColours, "\"Selected Cell is 2D Map Offset\"", "\"Selected Cell is Map\""},
    {"ByChance", byColours, "147 places", "146 places"},
    {"True", byColours, "and 4 of them", "and 3 of them"},
    {"FirstByte", byColours, "$B2C6 is 74", "$B2C6 is 75"},
    {"Parameter", byColours, "\"RPM RAM Location\"", "\"% Load RAM Location\""},
    {"TypedParameter", byColours, "type 74", "type 75"},
    {"ParameterLeftOut", byColours,
     "Right-click and choose \"Set Search Parameters\", \"RPM RAM Location\", type 74 and press "
     "Enter. ",
     ""},
    {"Finds", byColours, "Now 4 maps", "Now 5 maps"},
    {"EachFinds", byColours, "2 by each", "3 by each"},
    {"Found", byColours, "$B406, $B43D", "$B406, $B43E"},
    {"Clearing", byColours, "\"Clear All Markers\"", "\"Clear Markers\""},
    {"IdleRow", byColours, "resembles the first row", "resembles the last row"},
    {"IdleAndWOT", byColours, "at $CA04 with \"Timing Maps - WOT\"",
     "at $CA04 with \"Timing Maps - Idle\""},
    {"SpecButton", byColours, "press \"Save Spec\"", "press \"Save Specs\""},
    {"Label", byColours, "choose \"Found by myself\"", "choose \"Found\""},
};

class ReadmeSlip : public testing::TestWithParam<TSlip> {};
} // namespace

TEST(Readme, ExamplesAreDoneAsTheyAreTold) {
    QStringList used;
    for (const char *heading : {firstChange, unknownImage, byColours}) {
        const std::vector<QString> steps = StepsBelow(heading, ReadmeText());
        EXPECT_GE(steps.size(), 6U) << heading;
        EXPECT_EQ(Finding(steps, &used).toStdString(), "");
    }
    for (const QString &pattern : TReadmeWalk::Patterns())
        EXPECT_TRUE(used.contains(pattern)) << "not in the README: " << pattern.toStdString();
}

TEST(Readme, LeadsToTheMapsOfTheSampleByEitherWay) {
    for (const char *heading : {unknownImage, byColours}) {
        TSession session;
        session.WriteSamples();
        ASSERT_EQ(TReadmeWalk(session).Walk(StepsBelow(heading, ReadmeText())).toStdString(), "");
        const TWorkspace &workspace = session.window->workspace;
        std::vector<std::uint32_t> places;
        for (const TMapSet *set :
             std::initializer_list<const TMapSet *>{&workspace.fuelMapSet, &workspace.timingMapSet})
            for (const TMap *map : {&*set->PTMap, &*set->IdleMap, &*set->WOTMap})
                places.push_back(std::uint32_t(map->GetLocation()));
        const auto &maps = Sample64K().maps;
        EXPECT_EQ(places, std::vector<std::uint32_t>(maps.begin(), maps.end())) << heading;
    }
}

TEST_P(ReadmeSlip, IsNoticed) {
    const TSlip &slip = GetParam();
    std::vector<QString> steps = StepsBelow(slip.heading, ReadmeText());
    qsizetype places = 0;
    for (QString &step : steps) {
        places += step.count(slip.text);
        step.replace(slip.text, slip.untrue);
    }
    EXPECT_EQ(places, 1);
    EXPECT_NE(Finding(steps), "");
}

INSTANTIATE_TEST_SUITE_P(Each, ReadmeSlip, testing::ValuesIn(slips),
                         [](const auto &test) { return std::string(test.param.name); });
