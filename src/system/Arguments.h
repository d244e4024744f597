// The words of the command line.
#pragma once

#include <string>
#include <vector>

/// Without the program's name; UTF-8 where the system says what they are, else its bytes.
std::vector<std::string> Arguments(int argc, char **argv);
