// From mark to mark among the cells of the contents view. What is a mark is Marks.h's.
#pragma once

#include "filedisplay/Marks.h"

#include <optional>

struct TMarkPlace {
    std::size_t offset;
    bool wentRound; ///< past the end of the image, or past its beginning
};

enum class TWay { Forward, Backward };

/// The next cell from `from`, an offset in the image, at which a run of one kind of mark begins: of
/// the kind of the cell `from`, of any kind where that is unmarked. Behind the last cell comes the
/// first one, `from` itself comes last. Nothing when there is none. A kind is what MarkName tells.
std::optional<TMarkPlace> NextMark(const TSeenColors &colors, std::size_t from, TWay way);
