// Where results go: files that never are an input, and standard output.
#pragma once

#include "cli/Console.h"
#include "system/PathText.h"

#include <CLI/CLI.hpp>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The arguments of a command that writes an image.
class TImageOutput {
public:
    /// Adds -o and --in-place.
    void Declare(CLI::App &app);
    /// Adds --strict, which is explained by `text`.
    void DeclareStrict(CLI::App &app, const char *text);

    /// The file to write, to be asked before any work. Throws EWrongUse without one, for one that
    /// is an input (the image needs --in-place, the others never are), and EFileError for one that
    /// cannot be written.
    ///
    /// @param others  the other files that the command reads
    std::filesystem::path File(const std::filesystem::path &image,
                               const std::vector<std::filesystem::path> &others = {}) const;
    /// Whether notes are errors.
    bool Strict() const { return strict_; }

private:
    std::string file_;
    bool inPlace_ = false;
    bool strict_ = false;
};

/// The arguments of a command whose result is a text.
class TTextOutput {
public:
    /// Adds -o.
    void Declare(CLI::App &app);

    /// Throws as TImageOutput::File does.
    void Check(const std::vector<std::filesystem::path> &inputs) const;
    /// Writes the file, or to standard output without one. Throws EFileError.
    void Write(TConsole &console, std::string_view text) const;
    bool ToConsole() const { return file_.empty(); }
    std::filesystem::path File() const { return ToPath(file_); }

private:
    std::string file_;
};

/// Throws EWrongUse when `output` is one of the inputs, whatever it is called.
void NeedOtherFile(const std::filesystem::path &output,
                   const std::vector<std::filesystem::path> &inputs);

/// The bytes of a text.
std::span<const std::uint8_t> BytesOfText(std::string_view text);
