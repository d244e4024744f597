#include "cli/Commands.h"

#include <array>

std::span<const TCommand> Commands() {
    static constexpr std::array<TCommand, 4> commands{{
        {"info", "Tell size, digest and fitting spec files of images",
         "ferrolyn-cli info FERRO32K.BIN FERRO64K.BIN", DeclareInfo},
        {"show", "Show maps as tables",
         "ferrolyn-cli show FERRO32K.BIN --spec FERRO32K.SPC fuel-pt timing-pt", DeclareShow},
        {"set", "Change cells, points of axes or the rev limiter",
         "ferrolyn-cli set FERRO32K.BIN --spec FERRO32K.SPC 'fuel-pt[3120,56]=0.98' "
         "rev-limiter=6800 -o "
         "NEW.BIN",
         DeclareSet},
        {"draw", "Draw the chart of a map",
         "ferrolyn-cli draw FERRO32K.BIN --spec FERRO32K.SPC fuel-pt -o fuel-pt.svg", DeclareDraw},
    }};
    return commands;
}
