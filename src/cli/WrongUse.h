// The error of the command line: what is wrong with what was given to it, and where.
#pragma once

#include <stdexcept>

/// what() is one line that names file, place and reason as far as there are such, UTF-8.
class EWrongUse : public std::runtime_error {
    using std::runtime_error::runtime_error;
};
