// The worked examples of README.md, done in the real window.
#pragma once

#include "Driver.h"
#include "Pictures.h"
#include "spec/main.h"

#include <QDir>

struct TRoad {
    TfrmNotebook &window;
    TDriver &driver;
    TPictures &pictures;
    QDir roms; ///< holds the samples; the roads write here

    /// The name of a file there, as the system writes names.
    QString File(const QString &name) const {
        return QDir::toNativeSeparators(roms.absoluteFilePath(name));
    }
    void Picture(const QString &name) const { pictures.Take(window, name); }
};

/// Loads the mapped sample, raises a fuel cell, commits, saves as EDITED.BIN and compares the
/// files: exactly the byte of the cell differs.
void FirstChange(const TRoad &road);

/// Has the maps of the sample that has no spec file found, gives them to the notebook, saves that
/// as FOUND.SPC, with at most eight clicks up to there, and loads the image again with it.
void UnknownImage(const TRoad &road);

/// The same by hand: searches for maps, looks at one, gives them to their pages.
void ByColours(const TRoad &road);
