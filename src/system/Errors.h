// The exceptions that operations throw to the nearest event handler, where they are shown once.
// Model operations that only warn use Messages.h instead.
#pragma once

#include <stdexcept>

/// A text that does not convert to a number; what() names the text.
class EConvertError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// A value outside the range of a stored 32-bit integer.
class ERangeError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// A file that could not be read or written; what() names the file and the system's reason.
class EFileError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};
