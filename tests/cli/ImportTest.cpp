// "import": a map from comma-separated values, as "export" and spreadsheets write them.
#include "cli/CliFixture.h"

namespace {
using TWords = std::vector<std::string>;

/// The idle fuel map of the sample, whose body begins at $6112, with 1.00 in its first cell.
class TCliImportTest : public TCliTest {
protected:
    static constexpr std::size_t firstCell = 0x6112;

    TCliImportTest() {
        const std::string table = Done({"export", "32K.BIN", "--spec", "32K.SPC", "fuel-idle"});
        const std::size_t row = table.find("\r\n0%,");
        heads_ = table.substr(0, row);
        rest_ = table.substr(table.find(',', row + 5));
        rest_.resize(rest_.size() - 2);
        table_ = heads_ + "\r\n0%,1.00" + rest_ + "\r\n";
    }

    static TWords ImportWords(const TWords &more = {}, const std::string &map = "fuel-idle") {
        TWords words{"import", "32K.BIN", "--spec", "32K.SPC", map, "T.CSV", "-o", "NEW.BIN"};
        words.insert(words.end(), more.begin(), more.end());
        return words;
    }

    /// Expects the sample with these bytes.
    void ExpectBytes(const std::vector<std::pair<std::size_t, std::uint8_t>> &changes) {
        std::vector<std::uint8_t> expected = Bytes("32K.BIN");
        for (const auto &[offset, byte] : changes)
            expected[offset] = byte;
        EXPECT_TRUE(Bytes("NEW.BIN") == expected);
    }
    /// Expects that the table is taken, and nothing said.
    void ExpectTaken(const std::string &table) {
        SCOPED_TRACE(table);
        PutText("T.CSV", table);
        EXPECT_EQ(Done(ImportWords({"--strict"})), "");
        ExpectBytes({{firstCell, 128}});
    }
    void ExpectRefusedTable(const std::string &table, const std::string &line) {
        PutText("T.CSV", table);
        ExpectRefused(ImportWords(), line);
    }

    static std::string Replaced(std::string text, const std::string &old, const std::string &by) {
        EXPECT_NE(text.find(old), std::string::npos) << old;
        for (std::size_t at = text.find(old); at != std::string::npos;
             at = text.find(old, at + by.size()))
            text.replace(at, old.size(), by);
        return text;
    }

    std::string heads_; ///< the first line
    std::string rest_;  ///< of the second one behind its first two fields
    std::string table_;
};

TEST_F(TCliImportTest, TakesWhatExportWrites) {
    ExpectTaken(table_);
}

TEST_F(TCliImportTest, TakesTablesAsSpreadsheetsWriteThem) {
    ExpectTaken(Replaced(table_, "\r\n", "\n"));
    ExpectTaken(Replaced(table_, "\r\n", "\r"));
    ExpectTaken("\xEF\xBB\xBF" + table_);
    ExpectTaken(table_ + "\r\n\r\n" + std::string(16, ',') + "\r\n");
    ExpectTaken(table_.substr(0, table_.size() - 2)); // no end of the last line
    ExpectTaken(Replaced(table_, ",", ";"));
    ExpectTaken(Replaced(table_, ",", "\t"));
    ExpectTaken("\"" + Replaced(Replaced(table_, "\r\n", "\"\r\n\""), ",", "\",\"") + "\"");
    ExpectTaken("\"rpm, \"\"idle\"\"\"" + table_); // the corner is anybody's
    ExpectTaken(heads_ + "\n0,1" + rest_);
    ExpectTaken(heads_ + "\n 0.00 % , 1.0 " + rest_);
    ExpectTaken(heads_ + ",,\n0%,1e0" + rest_ + ",,,");
    ExpectTaken(Replaced(table_, ",600,800,", ",600.0,800.4,")); // 20.01 counts of 40 rpm
}

TEST_F(TCliImportTest, TakesNumbersWithACommaThatAreExportedSo) {
    for (const char *map : {"fuel-pt", "timing-pt"}) {
        const std::string table =
            Done({"export", "32K.BIN", "--spec", "32K.SPC", map, "--decimal-comma", "-o", "T.CSV"});
        EXPECT_EQ(Done(ImportWords({"--decimal-comma", "--strict"}, map)), "");
        ExpectBytes({});
    }
    PutText("T.CSV", Replaced(Text("T.CSV"), ",", "."));
    ExpectRefused(ImportWords({"--decimal-comma"}, "timing-pt"),
                  "T.CSV: row 3, column 1: '14.8%' is no number; numbers have a point, as 0.98, or "
                  "with --decimal-comma a comma");
}

TEST_F(TCliImportTest, TakesLoadsByTheirCounts) {
    const std::string table = Done({"export", "32K.BIN", "--spec", "32K.SPC", "fuel-pt"});
    for (const char *load : {"12.4%", "12.40%", "12.4", "12.5%", "12%"}) {
        SCOPED_TRACE(load);
        const bool same = load != std::string("12%"); // that is 30 counts, 12.4 % is 31
        PutText("T.CSV", Replaced(table, "\n12.4%", std::string("\n") + load));
        EXPECT_EQ(Run(ImportWords({}, "fuel-pt")).exit, same ? 0 : 2);
    }
}

TEST_F(TCliImportTest, TakesCountsWithRaw) {
    const std::string table =
        Done({"export", "32K.BIN", "--spec", "32K.SPC", "timing-wot", "--raw"});
    PutText("T.CSV", Replaced(table, "100%,27,", "100%,255,"));
    EXPECT_EQ(Done(ImportWords({"--raw", "--strict"}, "timing-wot")), "");
    ExpectBytes({{0x6352, 255}});
}

TEST_F(TCliImportTest, TellsWhatIsNotStoredAsItStandsThere) {
    PutText("T.CSV", heads_ + "\n0%,0.999" + rest_);
    const TCliResult result = Run(ImportWords());
    EXPECT_EQ(result.exit, 0);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "fuel-idle[600]: 0.999 was stored as 1.00\n");
    ExpectBytes({{firstCell, 128}});
    std::filesystem::remove(folder / "NEW.BIN");
    ExpectRefused(ImportWords({"--strict"}),
                  "fuel-idle[600]: 0.999 was stored as 1.00; nothing is written");
}

TEST_F(TCliImportTest, NamesFieldsThatAreNoNumbers) {
    const std::string as = " is no number; numbers have a point, as 0.98, or with "
                           "--decimal-comma a comma";
    ExpectRefusedTable(heads_ + "\n0%,rich" + rest_, "T.CSV: row 2, column 2: 'rich'" + as);
    ExpectRefusedTable(Replaced(Replaced(heads_ + "\n0%,#" + rest_, ",", ";"), "#", "0,98"),
                       "T.CSV: row 2, column 2: '0,98'" + as);
    ExpectRefusedTable(heads_ + "\n0%,\"0,98\"" + rest_, "T.CSV: row 2, column 2: '0,98'" + as);
    ExpectRefusedTable(heads_ + "\n0%,98%" + rest_, "T.CSV: row 2, column 2: '98%'" + as);
    ExpectRefusedTable(heads_ + "\n0%,\"a\"\"b,c\"" + rest_,
                       "T.CSV: row 2, column 2: 'a\"b,c'" + as);
    ExpectRefusedTable(heads_ + "\nidle,1" + rest_, "T.CSV: row 2, column 1: 'idle'" + as);
    ExpectRefusedTable(Replaced(table_, ",600,", ",slow,"), "T.CSV: row 1, column 2: 'slow'" + as);
    ExpectRefusedTable(heads_ + "\n0%," + std::string(50, 'x') + rest_,
                       "T.CSV: row 2, column 2: '" + std::string(40, 'x') + "'" + as);
    ExpectRefusedTable(heads_ + "\n0%,\x1B[31mx" + rest_, "T.CSV: row 2, column 2: ' [31mx'" + as);
    ExpectRefusedTable(heads_ + "\n0%,1e300" + rest_,
                       "T.CSV: row 2, column 2: 1e300 cannot be stored");
}

TEST_F(TCliImportTest, NamesFieldsBesideTheMap) {
    const std::string shape = "; a table of this map has 2 rows and 17 columns";
    ExpectRefusedTable("", "T.CSV: row 1, column 2: there is no number" + shape);
    ExpectRefusedTable(heads_, "T.CSV: row 2, column 1: there is no number" + shape);
    ExpectRefusedTable(heads_ + "\n0%," + rest_,
                       "T.CSV: row 2, column 2: there is no number" + shape);
    ExpectRefusedTable(table_.substr(0, table_.rfind(',')),
                       "T.CSV: row 2, column 17: there is no number" + shape);
    ExpectRefusedTable(heads_ + ",8000\n", "T.CSV: row 1, column 18: '8000' lies outside" + shape);
    ExpectRefusedTable(table_ + ",,x", "T.CSV: row 3, column 3: 'x' lies outside" + shape);
    ExpectRefusedTable(heads_ + "\n\n0%,1" + rest_,
                       "T.CSV: row 2, column 1: there is no number" + shape);
}

TEST_F(TCliImportTest, NamesQuotesThatAreNone) {
    ExpectRefusedTable(heads_ + "\n0%,\"1" + rest_,
                       "T.CSV: row 2, column 2: the quote is not closed");
    ExpectRefusedTable(heads_ + "\n\"0\"%,1" + rest_,
                       "T.CSV: row 2, column 1: there is text behind the closing quote");
}

TEST_F(TCliImportTest, ChecksTheAxes) {
    ExpectRefusedTable(Replaced(table_, ",800,", ",840,"),
                       "T.CSV: row 1, column 3: '840' is not the map's, 800; --axes takes it over");
    ExpectRefusedTable(heads_ + "\n4%,1" + rest_,
                       "T.CSV: row 2, column 1: '4%' is not the map's, 0%");
    PutText("T.CSV", Replaced(Done({"export", "32K.BIN", "--spec", "32K.SPC", "fuel-pt"}),
                              "\n20.8%", "\n21.2%"));
    ExpectRefused(ImportWords({}, "fuel-pt"),
                  "T.CSV: row 4, column 1: '21.2%' is not the map's, 20.8%; --axes takes it over");
}

TEST_F(TCliImportTest, TakesAxesOver) {
    const std::string table = Done({"export", "32K.BIN", "--spec", "32K.SPC", "fuel-pt"});
    PutText("T.CSV", Replaced(Replaced(table, ",840,", ",880,"), "\n100%", "\n99.60%"));
    EXPECT_EQ(Done(ImportWords({"--axes", "--strict"}, "fuel-pt")), "");
    ExpectBytes({{0x6002, 7}, {0x6003, 3}, {0x601E, 22}, {0x601F, 1}});
    // The greatest engine speed is 256 counts, which is no byte and all the same stored.
    PutText("T.CSV", Replaced(table, ",7600\r", ",10240\r"));
    EXPECT_EQ(Done(ImportWords({"--axes", "--strict"}, "fuel-pt")), "");
    ExpectBytes({{0x6010, 84}, {0x6011, 0}});
    EXPECT_THAT(Done({"export", "NEW.BIN", "--spec", "32K.SPC", "fuel-pt"}),
                testing::HasSubstr(",6880,10240\r\n"));
}

TEST_F(TCliImportTest, TellsWhatBecomesOfAxesThatFall) {
    PutText("T.CSV", Replaced(table_, ",600,800,", ",600,560,"));
    const TCliResult result = Run(ImportWords({"--axes"}));
    EXPECT_EQ(result.exit, 0);
    EXPECT_EQ(result.err, "fuel-idle.rpm[1]: 600 was stored as -9640\n");
    EXPECT_THAT(Done({"export", "NEW.BIN", "--spec", "32K.SPC", "fuel-idle"}),
                testing::StartsWith(",-9640,560,1040,"));
}

TEST_F(TCliImportTest, TheLoadOfAMapWithOneAxisIsInNoImage) {
    PutText("T.CSV", heads_ + "\n4%,1" + rest_);
    ExpectRefused(ImportWords({"--axes"}), "T.CSV: row 2, column 1: '4%' is not the map's, 0%");
}

TEST_F(TCliImportTest, RefusesFilesThatAreNoTables) {
    ExpectRefused(ImportWords(), NotThere("T.CSV"));
    PutText("T.CSV", std::string((1 << 20) + 1, 'x'));
    ExpectRefused(ImportWords(), "Cannot read 'T.CSV': it has 1048577 bytes, more than the limit "
                                 "of 1048576");
    ExpectRefused({"import", "32K.BIN", "--spec", "32K.SPC", "fuel-idle", "-o", "NEW.BIN"},
                  "TABLE is required");
    ExpectRefused({"import", "32K.BIN", "--spec", "32K.SPC", "fuel", "T.CSV", "-o", "NEW.BIN"},
                  "'fuel' is no map; maps are fuel-pt fuel-idle fuel-wot timing-pt timing-idle "
                  "timing-wot");
}

TEST_F(TCliImportTest, NeverWritesOverItsTable) {
    PutText("T.CSV", table_);
    ExpectRefused({"import", "32K.BIN", "--spec", "32K.SPC", "fuel-idle", "T.CSV", "-o", "T.CSV"},
                  "T.CSV: the output is an input, and would replace it");
}
} // namespace
