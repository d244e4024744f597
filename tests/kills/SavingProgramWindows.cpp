#include "SavingProgram.h"

#include <stdexcept>
#include <windows.h>

namespace {
/// What a killed program ends with; none of them does by itself.
constexpr DWORD killed = 0xDEAD;

HANDLE AsHandle(std::intptr_t number) {
    return reinterpret_cast<HANDLE>(number);
}

/// One text for the program and its arguments.
std::wstring CommandLine(const std::vector<std::string> &command) {
    std::wstring line;
    for (const std::string &word : command)
        line += L'"' + std::filesystem::path(word).wstring() + L"\" ";
    return line;
}

/// Starts the program with `output` for what it writes; its process.
HANDLE Start(const std::vector<std::string> &command, HANDLE output) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
    startup.hStdOutput = output;
    startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION started{};
    std::wstring line = CommandLine(command);
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                        &started))
        throw std::runtime_error("cannot start " + command.front());
    CloseHandle(started.hThread);
    return started.hProcess;
}
} // namespace

TStartedProgram::TStartedProgram(std::vector<std::string> command) {
    HANDLE readEnd = nullptr;
    HANDLE writeEnd = nullptr;
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    if (!CreatePipe(&readEnd, &writeEnd, &inherited, 0))
        throw std::runtime_error("no pipe");
    // A program that holds the other end itself never notices that nobody reads.
    SetHandleInformation(readEnd, HANDLE_FLAG_INHERIT, 0);
    try {
        process_ = reinterpret_cast<std::intptr_t>(Start(command, writeEnd));
    } catch (...) {
        CloseHandle(readEnd);
        CloseHandle(writeEnd);
        throw;
    }
    CloseHandle(writeEnd);
    output_ = reinterpret_cast<std::intptr_t>(readEnd);
}

TStartedProgram::~TStartedProgram() {
    Kill();
    CloseHandle(AsHandle(output_));
}

bool TStartedProgram::Read(char &character) {
    DWORD count = 0;
    do
        if (!ReadFile(AsHandle(output_), &character, 1, &count, nullptr) || count == 0)
            return false;
    while (character == '\r'); // which text has before each end of a line here
    return true;
}

bool TStartedProgram::Kill() {
    if (process_ == none)
        return false;
    TerminateProcess(AsHandle(process_), killed);
    return WaitForEnd() == -1;
}

int TStartedProgram::WaitForEnd() {
    DWORD code = 0;
    WaitForSingleObject(AsHandle(process_), INFINITE);
    GetExitCodeProcess(AsHandle(process_), &code);
    CloseHandle(AsHandle(process_));
    process_ = none;
    return code == killed ? -1 : static_cast<int>(code);
}
