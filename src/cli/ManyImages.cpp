#include "cli/ManyImages.h"

#include "cli/WrongUse.h"
#include "model/ROMImage.h"
#include "system/Files.h"
#include "system/PathText.h"
#include "system/PlainText.h"

#include <algorithm>

namespace {
namespace fs = std::filesystem;

constexpr int mostJobs = 256;

bool IsImageFile(const fs::path &file) {
    std::error_code error;
    return SameName(LastPart(file.extension()), ".bin") && IsFile(file) &&
           SizeOf(file, error) <= static_cast<std::uintmax_t>(TROMImage::capacity) && !error;
}

std::vector<std::string> ImagesOf(const std::string &folder) {
    std::vector<std::string> files; // paths would take many times the memory
    std::error_code error;
    LookThrough(ToPath(folder), error, [&](const fs::path &file) {
        if (IsImageFile(file))
            files.push_back(PathText(file));
        return true;
    });
    if (error)
        throw EWrongUse(folder + ": the folder cannot be read: " + ReasonOf(error));
    if (files.empty())
        throw EWrongUse(folder + ": no image is in the folder: a file *.BIN of 1 MiB at most");
    std::sort(files.begin(), files.end());
    return files;
}

/// "123 of 2000", in one place of the terminal, gone at the end.
class TProgress {
public:
    TProgress(TConsole &console, std::size_t count)
        : console_(console),
          shown_(console.errIsTerminal && !console.outIsTerminal),
          count_(count) {}
    TProgress(const TProgress &) = delete;
    TProgress &operator=(const TProgress &) = delete;
    ~TProgress() {
        if (shown_)
            console_.err << "\r\x1b[K" << std::flush;
    }
    void Tell(std::size_t done) {
        if (shown_)
            console_.err << '\r' << done << " of " << count_ << std::flush;
    }

private:
    TConsole &console_;
    bool shown_;
    std::size_t count_;
};
} // namespace

void TManyImages::Declare(CLI::App &app, TForm usual) {
    usual_ = usual;
    app.add_option("IMAGE", names_, "ROM images, or folders with images (*.BIN)")
        ->required()
        ->type_name("");
    app.add_option("--jobs", jobs_, "Look at so many images at the same time")
        ->check(CLI::Range(1, mostJobs))
        ->type_name("N");
    app.add_option("--format", format_,
                   usual == TForm::Lines
                       ? "text, usual for one image; json; jsonl (a line for each), usual for many"
                       : "text, json, or jsonl (a line for each image, as json is of many)")
        ->check(CLI::IsMember({"text", "json", "jsonl"}))
        ->type_name("FORMAT");
}

std::vector<std::string> TManyImages::Files() const {
    std::vector<std::string> files;
    for (const std::string &name : names_)
        if (IsFolder(ToPath(name))) {
            const std::vector<std::string> images = ImagesOf(name);
            files.insert(files.end(), images.begin(), images.end());
        } else
            files.push_back(name);
    return files;
}

bool TManyImages::Many() const {
    return names_.size() > 1 || IsFolder(ToPath(names_.front()));
}

TForm TManyImages::Form() const {
    if (format_.empty())
        return Many() ? usual_ : TForm::Text;
    if (format_ == "text")
        return TForm::Text;
    return Many() || format_ == "jsonl" ? TForm::Lines : TForm::Json;
}

std::string TManyImages::Text(const TJson &json) const {
    return JsonText(json, Form() == TForm::Lines ? TJsonLayout::OneLine : TJsonLayout::Pretty);
}

TExit TManyImages::Run(
    TConsole &console, const std::vector<std::string> &files,
    const std::function<TAnswer(const std::string &)> &answer,
    const std::function<std::string(const std::string &, const std::string &)> &broken) const {
    if (!Many() && Form() != TForm::Lines) {
        const TAnswer only = answer(files.front());
        console.out << only.text;
        return only.exit;
    }
    const auto safeAnswer = [&](std::size_t i) -> TAnswer {
        try {
            return answer(files[i]);
        } catch (const std::exception &error) {
            return {broken(files[i], error.what()), TExit::Wrong};
        }
    };
    TExit worst = TExit::Done;
    TProgress progress(console, files.size());
    std::size_t done = 0;
    RunInOrder(files.size(), jobs_, safeAnswer, [&](const TAnswer &one) {
        if (!(console.out << one.text << std::flush))
            throw EWrongUse("standard output cannot be written");
        worst = std::max(worst, one.exit);
        progress.Tell(++done);
    });
    return worst;
}
