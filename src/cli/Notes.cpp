#include "cli/Notes.h"

#include "cli/WrongUse.h"

namespace {
constexpr std::size_t toldRoundings = 10;
}

void TNotes::Tell(TConsole &console, bool strict) const {
    if (strict && !notes_.empty()) {
        const std::size_t more = notes_.size() - 1;
        throw EWrongUse(notes_.front().text +
                        (more > 0 ? " (and " + std::to_string(more) + " more)" : "") +
                        "; nothing is written");
    }
    std::size_t roundings = 0;
    for (const TNote &note : notes_)
        if (!note.rounding || ++roundings <= toldRoundings)
            console.err << note.text << '\n';
    if (roundings > toldRoundings)
        console.err << "and " << roundings - toldRoundings << " more were rounded\n";
}
