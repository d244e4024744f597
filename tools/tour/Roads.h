// The two worked examples of README.md, done in the real window.
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

    void Picture(const QString &name) const { pictures.Take(window, name); }
};

/// Loads the mapped sample, raises a fuel cell, commits, saves as EDITED.BIN and compares the
/// files: exactly the byte of the cell differs.
void FirstChange(const TRoad &road);

/// Finds maps in the sample that has no spec file, looks at one, gives a fuel and a timing map to
/// their pages, saves that as FOUND.SPC, and loads the image again with it.
void UnknownImage(const TRoad &road);
