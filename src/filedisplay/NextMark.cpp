#include "filedisplay/NextMark.h"

namespace {
/// Whether a run of `kind`, or of any kind where that is empty, begins at a cell.
bool Begins(const TSeenColors &colors, std::size_t offset, std::string_view kind) {
    const TColor color = colors[offset];
    if (color == unmarkedColor || (offset > 0 && colors[offset - 1] == color))
        return false;
    const std::string_view own = MarkKind(color);
    return !own.empty() && (kind.empty() || own == kind) &&
           (offset == 0 || MarkKind(colors[offset - 1]) != own);
}
} // namespace

std::optional<TMarkPlace> NextMark(const TSeenColors &colors, std::size_t from, TWay way) {
    const std::size_t size = colors.size();
    if (from >= size)
        return std::nullopt;
    const std::string_view kind = MarkKind(colors[from]);
    for (std::size_t step = 1; step <= size; ++step) {
        const bool forward = way == TWay::Forward;
        const std::size_t offset = (forward ? from + step : from + size - step) % size;
        if (Begins(colors, offset, kind))
            return TMarkPlace{offset, forward ? offset <= from : offset >= from};
    }
    return std::nullopt;
}
