// What the commands share that write a changed image: their arguments, and the order in which
// things are read, changed, told and written.
#pragma once

#include "cli/Images.h"
#include "cli/MapEdit.h"
#include "cli/Notes.h"
#include "cli/Output.h"
#include "system/PathText.h"

#include <functional>
#include <string>

/// An image and the spec file that places its maps.
class TMappedArguments {
public:
    /// Adds IMAGE, --spec and --raw.
    void Declare(CLI::App &app);

    std::filesystem::path Image() const { return ToPath(image_); }
    std::filesystem::path Spec() const { return ToPath(spec_); }
    /// For messages.
    const std::string &Name() const { return image_; }
    /// Throws as ReadMappedImage does.
    TMappedImage Read() const;

private:
    std::string image_;
    std::string spec_;
    bool raw_ = false;
};

class TImageChange {
public:
    /// Adds the arguments of the image and of what is written.
    void Declare(CLI::App &app);

    const TMappedArguments &Arguments() const { return arguments_; }

    /// Reads the image, runs `change` while it is in force, tells its notes and writes the image;
    /// nothing is written when anything throws.
    ///
    /// @param others  the files that the command reads besides image and spec
    void Run(TConsole &console, const std::vector<std::filesystem::path> &others,
             const std::function<void(TWorkspace &maps, TNotes &notes)> &change) const;

private:
    TMappedArguments arguments_;
    TImageOutput output_;
};

/// The map of a set, to be changed.
TMap &MapOf(TWorkspace &maps, TMapId map);
