// The real program, run as a person runs it: arguments in, bytes, texts and exit code out.
#pragma once

#include "support/Environment.h"
#include "support/TemporaryFolder.h"

#include <filesystem>
#include <string>
#include <vector>

#include <QProcess>
#include <gmock/gmock.h>

struct TCliResult {
    int exit = -1; ///< -1 when the program did not end by itself
    std::string out;
    std::string err;
};

/// Runs the program in `folder`; its standard input is empty.
inline TCliResult RunProgram(const std::vector<std::string> &arguments,
                             const std::filesystem::path &folder) {
    QStringList words;
    for (const std::string &argument : arguments)
        words << QString::fromStdString(argument);
    QProcess process;
    process.setWorkingDirectory(QString::fromStdString(folder.string()));
    process.start(FERROLYN_CLI, words, QIODevice::ReadOnly);
    process.waitForFinished(-1);
    EXPECT_EQ(process.error(), QProcess::UnknownError) << process.errorString().toStdString();
    TCliResult result;
    if (process.exitStatus() == QProcess::NormalExit)
        result.exit = process.exitCode();
    result.out = process.readAllStandardOutput().toStdString();
    result.err = process.readAllStandardError().toStdString();
    return result;
}

/// What the program says of an input that is not there.
inline std::string NotThere(const std::string &name) {
    return "Cannot read '" + name + "': " + Words(TReason::NoFile);
}
/// What the program says of an output whose folder is not there.
inline std::string NoFolderFor(const std::string &name) {
    return "Cannot write '" + name + "': " + Words(TReason::NoFolder);
}

/// A folder with the samples under short names: 32K.BIN with 32K.SPC (offsets) and 32P.SPC
/// (pointers), 64K.BIN, which no spec file is for.
class TCliTest : public ::testing::Test {
protected:
    TCliTest() {
        const std::filesystem::path samples =
            std::filesystem::path(FERROLYN_SOURCE_DIR) / "samples";
        for (const char *name : {"32K.BIN", "32K.SPC", "32P.SPC", "64K.BIN"})
            std::filesystem::copy_file(samples / (std::string("FERRO") + name), folder / name);
    }

    TCliResult Run(const std::vector<std::string> &arguments) {
        return RunProgram(arguments, folder.Path());
    }

    /// Expects an end by wrong use or bad input with this line on standard error, after the name of
    /// program and command, and no file that was not there before.
    void ExpectRefused(const std::vector<std::string> &arguments, const std::string &line) {
        const std::size_t files = folder.Names().size();
        const TCliResult result = Run(arguments);
        EXPECT_EQ(result.exit, 2);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err, "ferrolyn-cli " + arguments.front() + ": " + line + "\n");
        EXPECT_EQ(folder.Names().size(), files);
    }

    /// Expects success and nothing on standard error; gives standard output.
    std::string Done(const std::vector<std::string> &arguments) {
        const TCliResult result = Run(arguments);
        EXPECT_EQ(result.exit, 0) << result.err;
        EXPECT_EQ(result.err, "");
        return result.out;
    }

    std::vector<std::uint8_t> Bytes(const std::string &name) { return GetFile(folder / name); }
    std::string Text(const std::string &name) {
        const std::vector<std::uint8_t> bytes = Bytes(name);
        return {bytes.begin(), bytes.end()};
    }
    void PutText(const std::string &name, const std::string &text) {
        PutFile(folder / name, {text.begin(), text.end()});
    }

    TTemporaryFolder folder;
};
