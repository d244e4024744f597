#include "cli/Notes.h"

#include "cli/WrongUse.h"

void TNotes::Tell(TConsole &console, bool strict) const {
    if (strict && !notes_.empty()) {
        const std::size_t more = notes_.size() - 1;
        throw EWrongUse(notes_.front() +
                        (more > 0 ? " (and " + std::to_string(more) + " more)" : "") +
                        "; nothing is written");
    }
    for (const std::string &note : notes_)
        console.err << note << '\n';
}
