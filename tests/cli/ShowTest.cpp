#include "cli/ShowFixture.h"

#include <nlohmann/json.hpp>

namespace {
TEST_F(TCliShowTest, ShowsAMapAsItsGrid) {
    EXPECT_EQ(Show({"fuel-idle"}), idleTable);
}

TEST_F(TCliShowTest, ShowsCounts) {
    EXPECT_EQ(Show({"fuel-idle", "--raw"}),
              "fuel-idle: Fuel Idle at $6100, 16 x 1, counts\n"
              "    600  800  1040  1320  1720  2160  2640  3040  3600  4080  4640  5120  5640  6240"
              "  6920  7600\n"
              "0%  111  112   112   114   116   116   117   119   119   120   118   119   118   116"
              "   113   111\n");
}

TEST_F(TCliShowTest, ShowsTheMapsInTheOrderInWhichTheyAreNamed) {
    const std::string text = Show({"timing-wot", "fuel-idle"});
    EXPECT_EQ(text.find("timing-wot: Timing WOT at $6340, 16 x 1, degrees\n"), 0U);
    EXPECT_EQ(text.substr(text.find("\n\n") + 2), idleTable);
}

TEST_F(TCliShowTest, ShowsAllMapsAndTheRevLimiterWithoutAName) {
    const std::string text = Show({});
    for (const char *name :
         {"fuel-pt", "fuel-idle", "fuel-wot", "timing-pt", "timing-idle", "timing-wot"})
        EXPECT_NE(text.find(name + std::string(": ")), std::string::npos) << name;
    EXPECT_TRUE(text.ends_with("\n\nrev-limiter: 6800 rpm at $01F0\n")) << text;
}

TEST_F(TCliShowTest, SaysWhyAMapIsNotThere) {
    SetIdleCount(200);
    EXPECT_NE(Show({}).find("\n\nfuel-idle: 200 engine speeds: a map of 32 or more is not shown\n"),
              std::string::npos);
    ExpectShowRefused({"fuel-pt", "fuel-idle"},
                      "32K.BIN: fuel-idle: 200 engine speeds: a map of 32 or more is not shown");
}

TEST_F(TCliShowTest, SaysThatNoRevLimiterIsPlaced) {
    PutText("ONE.SPC", "; one map\n[Fuel Maps]\npt_offset=$6000\n");
    EXPECT_TRUE(
        Done({"show", "32K.BIN", "--spec", "ONE.SPC"})
            .ends_with("\nrev-limiter: Not placed: the spec file places none in the image\n"));
}

TEST_F(TCliShowTest, WritesAFile) {
    EXPECT_EQ(Show({"fuel-idle", "-o", "OUT.TXT"}), "");
    EXPECT_EQ(Text("OUT.TXT"), idleTable);
    ExpectShowRefused({"-o", "32K.BIN"}, "32K.BIN: the output is an input, and would replace it");
    ExpectShowRefused({"-o", "32K.SPC"}, "32K.SPC: the output is an input, and would replace it");
}

TEST_F(TCliShowTest, ColorsCellsByTheirValuesWhenTold) {
    const std::string text = Show({"fuel-idle", "--color", "always"});
    EXPECT_NE(text.find("0%\033[48;2;68;1;84m\033[38;2;255;255;255m  0.87\033[0m"),
              std::string::npos)
        << text;
    EXPECT_NE(text.find("\033[48;2;253;231;37m\033[38;2;0;0;0m  0.94\033[0m"), std::string::npos);
    EXPECT_EQ(Show({"fuel-idle", "--color", "never"}), idleTable);
}

TEST_F(TCliShowTest, GivesUnitsAndCountsInJson) {
    const auto json = nlohmann::json::parse(Show({"--format", "json"}));
    EXPECT_EQ(json["schema"], "ferrolyn-cli/1");
    EXPECT_EQ(json["command"], "show");
    EXPECT_EQ(json["image"], "32K.BIN");
    EXPECT_EQ(json["unusable"], nlohmann::json::array());
    EXPECT_EQ(json["rev_limiter"],
              nlohmann::json::parse(R"({"offset": 496, "rpm": 6800, "raw": 170})"));
    ASSERT_EQ(json["maps"].size(), 6U);
    const auto &map = json["maps"][0];
    EXPECT_EQ(map["name"], "fuel-pt");
    EXPECT_EQ(map["offset"], 0x6000);
    EXPECT_EQ(map["units"], "lambda");
    EXPECT_EQ(map["rpm"].size(), 16U);
    EXPECT_EQ(map["rpm"][1], 840);
    EXPECT_EQ(map["load"].size(), 12U);
    EXPECT_EQ(map["load"][2], 20.8) << "where the grid shows 21%";
    ASSERT_EQ(map["raw"].size(), 12U);
    const std::vector<std::uint8_t> bytes = Bytes("32K.BIN");
    for (std::size_t load = 0; load < 12; ++load)
        for (std::size_t rpm = 0; rpm < 16; ++rpm)
            EXPECT_EQ(map["raw"][load][rpm], bytes[0x6020 + rpm * 12 + load]);
    EXPECT_EQ(map["values"][0][0], 0.87);
    EXPECT_EQ(json["maps"][3]["units"], "degrees");
}

TEST_F(TCliShowTest, GivesCountsAloneInJson) {
    const auto json = nlohmann::json::parse(Show({"--format", "json", "--raw", "timing-pt"}));
    ASSERT_EQ(json["maps"].size(), 1U);
    EXPECT_EQ(json["maps"][0]["units"], "counts");
    EXPECT_EQ(json["maps"][0]["values"], json["maps"][0]["raw"]);
}

TEST_F(TCliShowTest, NamesUnusableMapsInJson) {
    SetIdleCount(0);
    PutText("ONE.SPC", "; one map\n[Fuel Maps]\npt_offset=$6000\nidle_offset=$6100\n");
    const auto json =
        nlohmann::json::parse(Done({"show", "32K.BIN", "--spec", "ONE.SPC", "--format", "json"}));
    EXPECT_EQ(json["maps"].size(), 1U);
    EXPECT_EQ(json["rev_limiter"], nullptr);
    EXPECT_EQ(json["unusable"].size(), 5U);
    EXPECT_EQ(json["unusable"][0], nlohmann::json::parse(R"({"name": "fuel-idle",
                  "reason": "0 engine speeds: there is no map at $6100"})"));
}

TEST_F(TCliShowTest, GivesTheTableThatExportWrites) {
    for (const char *map : {"fuel-pt", "timing-idle"}) {
        const std::string table = Show({map, "--format", "csv"});
        EXPECT_NE(table.find("%,"), std::string::npos);
        EXPECT_EQ(table, Done({"export", "32K.BIN", "--spec", "32K.SPC", map}));
    }
    EXPECT_EQ(Show({"fuel-wot", "--raw", "--format", "csv"}),
              Done({"export", "32K.BIN", "--spec", "32K.SPC", "--raw", "fuel-wot"}));
    const std::string line = "--format csv: it is the table of one map; name one";
    ExpectShowRefused({"--format", "csv"}, line);
    ExpectShowRefused({"--format", "csv", "fuel-pt", "fuel-idle"}, line);
}

TEST_F(TCliShowTest, RefusesWrongUse) {
    ExpectShowRefused({"fuel"}, "'fuel' is no map; maps are fuel-pt fuel-idle fuel-wot timing-pt "
                                "timing-idle timing-wot");
    ExpectShowRefused({"--format", "xml"}, "--format: xml not in {table,csv,json}");
    ExpectShowRefused({"--color", "red"}, "--color: red not in {auto,always,never}");
    ExpectRefused({"show", "32K.BIN"}, "--spec is required");
    ExpectRefused({"show", "32K.BIN", "--spec", "NONE.SPC"}, NotThere("NONE.SPC"));
    PutText("BAD.SPC", "; bad\n[Fuel Maps]\npt_offset=here\n");
    ExpectRefused({"show", "32K.BIN", "--spec", "BAD.SPC"},
                  "BAD.SPC: a map offset, pointer offset or mask is no integer");
    PutText("EMPTY.BIN", "");
    ExpectRefused({"show", "EMPTY.BIN", "--spec", "32K.SPC"},
                  "EMPTY.BIN: an image of 0 bytes has nothing in it");
}
} // namespace
