// "export": a map as comma-separated values that give the same bytes again.
#include "cli/CliFixture.h"

namespace {
using testing::StartsWith;

class TCliExportTest : public TCliTest {
protected:
    std::string Export(const std::string &map, const std::string &spec = "32K.SPC") {
        return Done({"export", "32K.BIN", "--spec", spec, map});
    }
    void ExpectRefusedExport(const std::vector<std::string> &words, const std::string &line) {
        std::vector<std::string> all{"export", "32K.BIN", "--spec", "32K.SPC"};
        all.insert(all.end(), words.begin(), words.end());
        ExpectRefused(all, line);
    }
};

TEST_F(TCliExportTest, WritesAMapWithTwoAxes) {
    const std::string table = Export("fuel-pt");
    EXPECT_THAT(table, StartsWith(",600,840,1000,1320,1760,2160,2560,3120,3600,4040,4640,5120,5720,"
                                  "6200,6880,7600\r\n"
                                  "4%,0.87,0.875,0.875,0.89,0.91,0.91,0.92,0.93,0.93,0.93,0.93,"
                                  "0.92,0.914,0.91,0.88,0.875\r\n"
                                  "12.4%,0.88,0.89,"));
    EXPECT_THAT(table, testing::EndsWith("\r\n100%,1.05,1.05,1.05,1.055,1.07,1.086,1.09,1.09,1.10,"
                                         "1.10,1.09,1.09,1.086,1.08,1.055,1.05\r\n"));
    EXPECT_EQ(std::count(table.begin(), table.end(), '\n'), 13);
    EXPECT_EQ(Export("fuel-pt", "32P.SPC"), table);
}

TEST_F(TCliExportTest, WritesAMapWithOneAxis) {
    EXPECT_EQ(Export("timing-wot"),
              ",600,840,1040,1280,1760,2080,2560,3040,3520,4120,4600,5080,5720,6240,6840,7600\r\n"
              "100%,9.3,9.3,10.6,11.2,11.9,13.8,14.5,16.4,18.4,20.3,21.0,22.3,24.2,26.2,28.1,31.4"
              "\r\n");
    EXPECT_THAT(Export("fuel-idle"), testing::HasSubstr("\r\n0%,"));
}

TEST_F(TCliExportTest, WritesNumbersWithACommaForSpreadsheetsThatHaveThat) {
    EXPECT_EQ(Done({"export", "32K.BIN", "--spec", "32K.SPC", "--decimal-comma", "timing-wot"}),
              ";600;840;1040;1280;1760;2080;2560;3040;3520;4120;4600;5080;5720;6240;6840;7600\r\n"
              "100%;9,3;9,3;10,6;11,2;11,9;13,8;14,5;16,4;18,4;20,3;21,0;22,3;24,2;26,2;28,1;31,4"
              "\r\n");
}

TEST_F(TCliExportTest, WritesCountsWithRaw) {
    const std::string table =
        Done({"export", "32K.BIN", "--spec", "32K.SPC", "--raw", "timing-wot"});
    EXPECT_THAT(table, StartsWith(",600,840,"));
    EXPECT_THAT(table, testing::HasSubstr("\r\n100%,27,27,29,30,31,34,35,38,41,44,45,47,50,53,56,"
                                          "61\r\n"));
}

TEST_F(TCliExportTest, WritesTheSameIntoAFile) {
    EXPECT_EQ(Done({"export", "32K.BIN", "--spec", "32K.SPC", "fuel-wot", "-o", "F.CSV"}), "");
    EXPECT_EQ(Text("F.CSV"), Export("fuel-wot"));
}

TEST_F(TCliExportTest, NamesWhatItCannotExport) {
    ExpectRefusedExport({}, "MAP is required");
    ExpectRefusedExport({"fuel"}, "'fuel' is no map; maps are fuel-pt fuel-idle fuel-wot timing-pt "
                                  "timing-idle timing-wot");
    PutText("NO.SPC", "; x\n[Fuel Maps]\npt_offset=$6000\n");
    ExpectRefused({"export", "32K.BIN", "--spec", "NO.SPC", "fuel-idle"},
                  "32K.BIN: fuel-idle: Not placed: neither a spec file nor an offset says where "
                  "this map is");
}

TEST_F(TCliExportTest, RefusesDegreesThatWouldNotGiveTheBytesAgain) {
    PutText("ZERO.SPC", "; x\n[Main]\ntiming_divider=0\n[Timing Maps]\npt_offset=$6200\n");
    ExpectRefused({"export", "32K.BIN", "--spec", "ZERO.SPC", "timing-pt"},
                  "timing-pt[600,4]: no number stands for its byte; --raw writes the byte");
    EXPECT_THAT(Done({"export", "32K.BIN", "--spec", "ZERO.SPC", "timing-pt", "--raw"}),
                testing::HasSubstr("\r\n4%,39,38,"));
}

TEST_F(TCliExportTest, NeverWritesOverAnInput) {
    for (const char *name : {"32K.BIN", "32K.SPC"})
        ExpectRefusedExport({"fuel-pt", "-o", name},
                            std::string(name) + ": the output is an input, and would replace it");
    ExpectRefusedExport({"fuel-pt", "-o", "NO/F.CSV"}, NoFolderFor("NO/F.CSV"));
}
} // namespace
