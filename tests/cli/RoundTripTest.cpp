// Tables that are exported and imported again give the same bytes, for every map of every sample
// and for every byte, as they are and as a spreadsheet saves them.
#include "cli/CliFixture.h"

#include <array>

namespace {
constexpr std::array<const char *, 6> mapNames{"fuel-pt",   "fuel-idle",   "fuel-wot",
                                               "timing-pt", "timing-idle", "timing-wot"};

struct TSample {
    std::string image;
    std::string spec;
};
void PrintTo(const TSample &sample, std::ostream *stream) {
    *stream << sample.image << " " << sample.spec;
}

class TRoundTrip : public TCliTest, public testing::WithParamInterface<TSample> {
protected:
    TRoundTrip() {
        PutText("64K.SPC", "; 64K\n[Fuel Maps]\npt_offset=$B2C6\nidle_offset=$B406\n"
                           "wot_offset=$B43D\n[Timing Maps]\npt_offset=$C91A\nidle_offset=$C8D0\n"
                           "wot_offset=$CA04\n");
    }

    static std::vector<std::string> Words(std::vector<std::string> words, bool raw) {
        if (raw)
            words.insert(words.end(), {"--raw"});
        return words;
    }
    void ExportAll(const std::string &image, bool raw) {
        for (const char *map : mapNames)
            Done(Words({"export", image, "--spec", GetParam().spec, map, "-o", CsvOf(map)}, raw));
    }
    /// Into the image itself; nothing is said, as all is stored exactly.
    void ImportAll(const std::string &image, bool raw, const std::vector<std::string> &more = {}) {
        for (const char *map : mapNames) {
            std::vector<std::string> words = Words({"import", image, "--spec", GetParam().spec, map,
                                                    CsvOf(map), "--in-place", "--strict"},
                                                   raw);
            words.insert(words.end(), more.begin(), more.end());
            EXPECT_EQ(Done(words), "");
        }
    }
    static std::string CsvOf(const std::string &map) { return map + ".CSV"; }

    /// The sample with the same byte in all cells of its maps.
    void PutOther(const std::string &name) {
        std::vector<std::string> words{"adjust", GetParam().image, "--spec", GetParam().spec,
                                       "--raw",  "--set=7",        "-o",     name};
        words.insert(words.end(), mapNames.begin(), mapNames.end());
        Done(words);
    }
};

TEST_P(TRoundTrip, IntoTheSameImageChangesNothing) {
    for (const bool raw : {false, true}) {
        const auto old = Bytes(GetParam().image);
        ExportAll(GetParam().image, raw);
        ImportAll(GetParam().image, raw);
        ImportAll(GetParam().image, raw, {"--axes"});
        EXPECT_TRUE(Bytes(GetParam().image) == old);
    }
}

TEST_P(TRoundTrip, IntoAnImageWithOtherCellsGivesTheFirstOne) {
    for (const bool raw : {false, true}) {
        PutOther("OTHER.BIN");
        ASSERT_FALSE(Bytes("OTHER.BIN") == Bytes(GetParam().image));
        ExportAll(GetParam().image, raw);
        ImportAll("OTHER.BIN", raw);
        EXPECT_TRUE(Bytes("OTHER.BIN") == Bytes(GetParam().image));
    }
}

INSTANTIATE_TEST_SUITE_P(Samples, TRoundTrip,
                         testing::Values(TSample{"32K.BIN", "32K.SPC"},
                                         TSample{"32K.BIN", "32P.SPC"},
                                         TSample{"64K.BIN", "64K.SPC"}));

/// The 32K sample, in whose part throttle maps all 256 bytes stand.
class TAllBytesTest : public TCliTest {
protected:
    /// Puts 160 bytes from `first` on into the body at `offset`.
    static void PutBytes(std::vector<std::uint8_t> &image, std::size_t offset, int first) {
        for (std::size_t i = 0; i < 160; ++i)
            image[offset + i] = static_cast<std::uint8_t>(first + static_cast<int>(i));
    }
    /// From ALL.BIN into the sample.
    void Move(const std::string &map) {
        Done({"export", "ALL.BIN", "--spec", "32K.SPC", map, "-o", "T.CSV"});
        Done({"import", "32K.BIN", "--spec", "32K.SPC", map, "T.CSV", "--in-place", "--strict"});
    }
};

TEST_F(TAllBytesTest, StayThemselvesInUnits) {
    for (const int first : {0, 96}) {
        std::vector<std::uint8_t> all = Bytes("32K.BIN");
        PutBytes(all, 0x6020, first);
        PutBytes(all, 0x621E, first);
        PutFile(folder / "ALL.BIN", all);
        Move("fuel-pt");
        Move("timing-pt");
        EXPECT_TRUE(Bytes("32K.BIN") == all);
    }
}

/// What LibreOffice Calc 7.4 made of two tables: `tools/spreadsheet-test.sh` asks it again.
class TSavedTableTest : public TCliTest {
protected:
    void ExpectSame(const std::string &map, const std::string &table) {
        PutText("T.CSV", table);
        Done({"adjust", "32K.BIN", "--spec", "32K.SPC", map, "--raw", "--set=7", "-o", "NEW.BIN"});
        Done({"import", "NEW.BIN", "--spec", "32K.SPC", map, "T.CSV", "--in-place", "--strict"});
        EXPECT_TRUE(Bytes("NEW.BIN") == Bytes("32K.BIN"));
    }
};

TEST_F(TSavedTableTest, GivesTheSameBytes) {
    ExpectSame(
        "fuel-pt",
        ",600,840,1000,1320,1760,2160,2560,3120,3600,4040,4640,5120,5720,6200,6880,7600\n"
        "4%,0.87,0.875,0.875,0.89,0.91,0.91,0.92,0.93,0.93,0.93,0.93,0.92,0.914,0.91,0.88,0.875\n"
        "12.4%,0.88,0.89,0.89,0.91,0.914,0.92,0.94,0.94,0.945,0.94,0.94,0.94,0.94,0.92,0.91,0.88\n"
        "20.8%,0.9,0.914,0.914,0.914,0.93,0.94,0.95,0.95,0.96,0.96,0.95,0.95,0.945,0.945,0.92,0."
        "91\n"
        "30%,0.92,0.93,0.92,0.93,0.945,0.95,0.96,0.97,0.98,0.97,0.98,0.98,0.96,0.95,0.93,0.914\n"
        "39.2%,0.93,0.94,0.94,0.945,0.97,0.98,0.98,0.99,0.984,0.984,0.984,0.99,0.98,0.98,0.95,0."
        "93\n"
        "48%,0.945,0.96,0.96,0.97,0.984,0.984,1,1,1,1.01,1,1,0.99,0.99,0.96,0.95\n"
        "56%,0.97,0.98,0.98,0.984,1,1.01,1.01,1.02,1.016,1.016,1.02,1.016,1.01,1,0.98,0.97\n"
        "64.8%,0.98,0.99,0.99,0.99,1.016,1.016,1.02,1.03,1.04,1.04,1.04,1.03,1.03,1.02,0.99,0.98\n"
        "73.6%,0.99,1.01,1.01,1.01,1.03,1.04,1.05,1.05,1.05,1.05,1.05,1.05,1.04,1.04,1.016,1\n"
        "82.4%,1.016,1.016,1.02,1.03,1.04,1.055,1.06,1.07,1.06,1.07,1.06,1.06,1.06,1.05,1.02,1."
        "016\n"
        "90.8%,1.016,1.03,1.03,1.04,1.05,1.06,1.06,1.07,1.07,1.07,1.07,1.08,1.06,1.06,1.03,1.016\n"
        "100%,1.05,1.05,1.05,1.055,1.07,1.086,1.09,1.09,1.1,1.1,1.09,1.09,1.086,1.08,1.055,1.05\n");
    ExpectSame(
        "timing-wot",
        ",600,840,1040,1280,1760,2080,2560,3040,3520,4120,4600,5080,5720,6240,6840,7600\n"
        "100%,9.3,9.3,10.6,11.2,11.9,13.8,14.5,16.4,18.4,20.3,21,22.3,24.2,26.2,28.1,31.4\n");
}
} // namespace
