#include "cli/Commands.h"

#include <array>

std::span<const TCommand> Commands() {
    static constexpr std::array<TCommand, 4> commands{{
        {"info", "Tell size, digest and fitting spec files of images",
         "ferrolyn-cli info ECU.BIN OTHER.BIN", DeclareInfo},
        {"show", "Show maps as tables",
         "ferrolyn-cli show ECU.BIN --spec ECU.SPC fuel-pt timing-pt", DeclareShow},
        {"set", "Change cells, points of axes or the rev limiter",
         "ferrolyn-cli set FERRO32K.BIN --spec FERRO32K.SPC 'fuel-pt[3120,56]=0.98' "
         "rev-limiter=6800 -o "
         "NEW.BIN",
         DeclareSet},
        {"draw", "Draw the chart of a map",
         "ferrolyn-cli draw ECU.BIN --spec ECU.SPC fuel-pt -o fuel-pt.svg", DeclareDraw},
    }};
    return commands;
}
