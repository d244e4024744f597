// The entry of the program for scripts.

#include "cli/RunCli.h"
#include "system/Arguments.h"
#include "system/Terminal.h"

#include <iostream>

int main(int argc, char **argv) {
    std::ios::sync_with_stdio(false);
    WriteBytes();
    TConsole console{std::cout, std::cerr, IsTerminal(TStream::Output), IsTerminal(TStream::Error)};
    return static_cast<int>(RunCli(Arguments(argc, argv), console));
}
