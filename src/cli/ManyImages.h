// What the commands share that look at many images: their arguments, and one answer for each image,
// in the order of the images, whatever is wrong with one of them.
#pragma once

#include "cli/Jobs.h"
#include "cli/Json.h"

#include <CLI/CLI.hpp>
#include <functional>
#include <string>
#include <vector>

/// How images are answered.
enum class TForm {
    Text, ///< for people
    Json, ///< of one image, on many lines
    Lines ///< JSON, a line for each image
};

/// Images, by their names or by folders, how many are looked at side by side, and the form of the
/// answers.
class TManyImages {
public:
    /// Adds IMAGE, --jobs and --format.
    ///
    /// @param usual  of many images; of one it is text
    void Declare(CLI::App &app, TForm usual);

    /// Their names: those that are named, and of each folder its image files, sorted by name; what
    /// is in folders below is left alone. An image file of a folder is a regular file of 1 MiB at
    /// most whose name ends with .bin in any letter case. Throws EWrongUse for a folder without
    /// one.
    std::vector<std::string> Files() const;
    /// False for one file that is named by itself.
    bool Many() const;
    /// The form that is asked for; JSON of many images is lines.
    TForm Form() const;
    /// An answer in JSON.
    std::string Text(const TJson &json) const;

    /// Writes the answer to each of the files and gives the worst exit. One of many, and of one
    /// that is answered in a line, that `answer` throws for has `broken`, of the error's text, as
    /// its answer, and TExit::Wrong. Tells the progress on a terminal, where the answers do not.
    TExit Run(TConsole &console, const std::vector<std::string> &files,
              const std::function<TAnswer(const std::string &file)> &answer,
              const std::function<std::string(const std::string &file, const std::string &error)>
                  &broken) const;

private:
    std::vector<std::string> names_;
    std::string format_;
    TForm usual_ = TForm::Text;
    int jobs_ = 1;
};
