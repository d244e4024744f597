#include "cli/CliFixture.h"

#include <utility>

namespace {
using TByteAt = std::pair<std::size_t, std::uint8_t>;

class TCliSetTest : public TCliTest {
protected:
    /// The outcome of setting these places in the sample.
    TCliResult Set(const std::vector<std::string> &assignments,
                   const std::string &spec = "32K.SPC") {
        std::vector<std::string> arguments{"set", "32K.BIN", "--spec", spec, "-o", "NEW.BIN"};
        arguments.insert(arguments.end(), assignments.begin(), assignments.end());
        return Run(arguments);
    }

    /// Expects the new file to be the sample with these bytes.
    void ExpectBytes(const std::vector<TByteAt> &changes) {
        std::vector<std::uint8_t> expected = Bytes("32K.BIN");
        for (const auto &[offset, byte] : changes)
            expected[offset] = byte;
        EXPECT_TRUE(Bytes("NEW.BIN") == expected);
    }

    /// Expects that, and nothing said.
    void ExpectSet(const std::vector<std::string> &assignments,
                   const std::vector<TByteAt> &changes) {
        const TCliResult result = Set(assignments);
        EXPECT_EQ(result.exit, 0);
        EXPECT_EQ(result.out + result.err, "");
        ExpectBytes(changes);
    }
};

// The body of the part throttle fuel map begins at $6020: 12 bytes for each engine speed.

TEST_F(TCliSetTest, SetsACellByItsNumbersOrByItsAxisValues) {
    ExpectSet({"fuel-pt[#2,#3]=1"}, {{0x602E, 128}});
    ExpectSet({"fuel-pt[840,21]=1"}, {{0x602E, 128}});
    ExpectSet({"fuel-pt[840,20.8%]=1"}, {{0x602E, 128}});
    ExpectSet({"fuel-pt[840,#3]=1"}, {{0x602E, 128}});
}
} // namespace
