// Tests of the maps of the sample as tables.
#pragma once

#include "cli/CliFixture.h"

class TCliShowTest : public TCliTest {
protected:
    /// Standard output for the sample.
    std::string Show(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"show", "32K.BIN", "--spec", "32K.SPC"});
        return Done(arguments);
    }
    void ExpectShowRefused(std::vector<std::string> arguments, const std::string &line) {
        arguments.insert(arguments.begin(), {"show", "32K.BIN", "--spec", "32K.SPC"});
        ExpectRefused(arguments, line);
    }

    /// Sets the count of engine speeds of the idle fuel map.
    void SetIdleCount(std::uint8_t count) {
        std::vector<std::uint8_t> bytes = Bytes("32K.BIN");
        bytes[0x6101] = count;
        PutFile(folder / "32K.BIN", bytes);
    }
};

inline const std::string idleTable =
    "fuel-idle: Fuel Idle at $6100, 16 x 1, lambda\n"
    "     600   800  1040  1320  1720  2160  2640  3040  3600  4080  4640  5120  5640  6240  6920"
    "  7600\n"
    "0%  0.87  0.88  0.88  0.89  0.91  0.91  0.91  0.93  0.93  0.94  0.92  0.93  0.92  0.91  0.88"
    "  0.87\n";
