#include "system/Arguments.h"

std::vector<std::string> Arguments(int argc, char **argv) {
    return {argv + (argc > 0 ? 1 : 0), argv + argc};
}
