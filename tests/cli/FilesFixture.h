// Tests of files that are none, or that are not written.
#pragma once

#include "cli/CliFixture.h"

class TCliFilesTest : public TCliTest {
protected:
    void ExpectRefusedFiles(const std::string &image, const std::string &spec,
                            const std::string &line) {
        ExpectRefused({"set", image, "--spec", spec, "fuel-pt[#1,#1]=1", "-o", "NEW.BIN"}, line);
    }
    void ExpectRefusedOutput(const std::vector<std::string> &output, const std::string &line) {
        std::vector<std::string> words{"set", "32K.BIN", "--spec", "32K.SPC", "fuel-pt[#1,#1]=1"};
        words.insert(words.end(), output.begin(), output.end());
        ExpectRefused(words, line);
    }
};
