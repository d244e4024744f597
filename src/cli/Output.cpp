#include "cli/Output.h"

#include "cli/WrongUse.h"
#include "system/Files.h"
#include "system/SafeFile.h"

#include <algorithm>

namespace fs = std::filesystem;

void NeedOtherFile(const fs::path &output, const std::vector<fs::path> &inputs) {
    for (const fs::path &input : inputs)
        if (IsSame(output, input))
            throw EWrongUse(PathText(output) + ": the output is an input, and would replace it");
}

std::span<const std::uint8_t> BytesOfText(std::string_view text) {
    return {reinterpret_cast<const std::uint8_t *>(text.data()), text.size()};
}

void TImageOutput::Declare(CLI::App &app) {
    app.add_option("-o,--output", file_, "Write the new image to this file")->type_name("FILE");
    app.add_flag("--in-place", inPlace_, "Write the new image over the old one");
}

void TImageOutput::DeclareStrict(CLI::App &app, const char *text) {
    app.add_flag("--strict", strict_, text);
}

fs::path TImageOutput::File(const fs::path &image, const std::vector<fs::path> &others) const {
    if (file_.empty() && !inPlace_)
        throw EWrongUse(PathText(image) + ": no file to write: -o FILE, or --in-place");
    fs::path file = file_.empty() ? image : ToPath(file_);
    if (IsSame(file, image) && !inPlace_)
        throw EWrongUse(PathText(file) + ": the output is the image itself; --in-place allows it");
    NeedOtherFile(file, others);
    CheckCanWrite(file);
    return file;
}

void TTextOutput::Declare(CLI::App &app) {
    app.add_option("-o,--output", file_, "Write to this file")->type_name("FILE");
}

void TTextOutput::Check(const std::vector<fs::path> &inputs) const {
    if (file_.empty())
        return;
    NeedOtherFile(File(), inputs);
    CheckCanWrite(File());
}

void TTextOutput::Write(TConsole &console, std::string_view text) const {
    if (file_.empty())
        console.out << text;
    else
        WriteFileSafely(File(), BytesOfText(text));
}
