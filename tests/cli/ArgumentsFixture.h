// Tests of arguments that are wrong.
#pragma once

#include "cli/CliFixture.h"

class TCliArgumentsTest : public TCliTest {
protected:
    void ExpectWrong(const std::vector<std::string> &arguments, const std::string &line) {
        const TCliResult result = Run(arguments);
        EXPECT_EQ(result.exit, 2);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err, line + "\n");
    }
};
