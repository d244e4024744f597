#include "cli/Commands.h"

#include <array>

std::span<const TCommand> Commands() {
    static constexpr auto commands = std::to_array<TCommand>({
        {"info", "Tell size, digest and fitting spec files of images",
         "ferrolyn-cli info FERRO32K.BIN FERRO64K.BIN", DeclareInfo},
        {"show", "Show maps as tables",
         "ferrolyn-cli show FERRO32K.BIN --spec FERRO32K.SPC fuel-pt timing-pt", DeclareShow},
        {"set", "Change cells, points of axes or the rev limiter",
         "ferrolyn-cli set FERRO32K.BIN --spec FERRO32K.SPC 'fuel-pt[3120,56]=0.98' "
         "rev-limiter=6800 -o "
         "NEW.BIN",
         DeclareSet},
        {"adjust", "Add, set, multiply, interpolate or smooth ranges of cells",
         "ferrolyn-cli adjust FERRO32K.BIN --spec FERRO32K.SPC 'timing-pt[1040:3120,47:]' --add=-2 "
         "-o NEW.BIN",
         DeclareAdjust},
        {"export", "Write a map as a table for spreadsheets",
         "ferrolyn-cli export FERRO32K.BIN --spec FERRO32K.SPC fuel-pt -o FUEL.CSV", DeclareExport},
        {"import", "Fill a map from a table that export or a spreadsheet wrote",
         "ferrolyn-cli import FERRO32K.BIN --spec FERRO32K.SPC fuel-pt FUEL.CSV -o NEW.BIN",
         DeclareImport},
        {"copy", "Copy whole maps from one image into another",
         "ferrolyn-cli copy NEW.BIN --spec FERRO32K.SPC FERRO32K.BIN --spec FERRO32P.SPC fuel-pt "
         "-o BOTH.BIN",
         DeclareCopy},
        {"diff", "Tell where two images differ, by map and cell",
         "ferrolyn-cli diff FERRO32K.BIN NEW.BIN --spec FERRO32K.SPC", DeclareDiff},
        {"patch", "Apply a patch file to an image, or take it back",
         "ferrolyn-cli patch FERRO32K.BIN CHANGES.PATCH -o NEW.BIN", DeclarePatch},
        {"find", "Find the maps of unknown images",
         "ferrolyn-cli find FERRO64K.BIN --reasons --spec-out FERRO64K.SPC", DeclareFind},
        {"move", "Find the maps of a known image in another one of its family",
         "ferrolyn-cli move --from FERRO32K.BIN --spec FERRO32K.SPC --to FERRO64K.BIN -o "
         "FERRO64K.SPC",
         DeclareMove},
        {"check", "Say what is wrong or odd about images and their maps",
         "ferrolyn-cli check FERRO32K.BIN --spec FERRO32K.SPC", DeclareCheck},
        {"draw", "Draw the chart of a map",
         "ferrolyn-cli draw FERRO32K.BIN --spec FERRO32K.SPC fuel-pt -o fuel-pt.svg", DeclareDraw},
    });
    return commands;
}
