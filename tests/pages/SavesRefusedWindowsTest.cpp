// For Windows alone: files that are protected, and files that another program has open and shares
// with nobody.
#include "pages/ROMInfoSaveFixture.h"
#include "pages/SaveSpecFixture.h"

#include <windows.h>

namespace {
namespace fs = std::filesystem;

QString WordsOf(int code) {
    return QString::fromStdString(std::system_category().message(code));
}
const QString mayNot = WordsOf(ERROR_ACCESS_DENIED);
const QString heldByAnother = WordsOf(ERROR_SHARING_VIOLATION);

/// Holds a file against all others while it lives.
class THeldFile {
public:
    explicit THeldFile(const fs::path &file)
        : handle_(CreateFileW(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr)) {
        EXPECT_NE(handle_, INVALID_HANDLE_VALUE);
    }
    THeldFile(const THeldFile &) = delete;
    THeldFile &operator=(const THeldFile &) = delete;
    ~THeldFile() { CloseHandle(handle_); }

private:
    HANDLE handle_;
};

TEST_F(TROMInfoSaveTest, AProtectedFileIsNotWritten) {
    const fs::path target = folder / "B.BIN";
    PutFile(target, TBytes(10, 9));
    SetFileAttributesW(target.c_str(), FILE_ATTRIBUTE_READONLY);
    dialogs.answers = {TAnswer::Yes};
    ExpectFailure(target, mayNot);
    EXPECT_EQ(GetFile(target), TBytes(10, 9));
    SetFileAttributesW(target.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(TROMInfoSaveTest, AFileThatAnotherProgramHoldsIsNotWritten) {
    const fs::path target = folder / "B.BIN";
    PutFile(target, TBytes(10, 9));
    dialogs.answers = {TAnswer::Yes};
    {
        const THeldFile held(target);
        ExpectFailure(target, heldByAnother);
    }
    EXPECT_EQ(GetFile(target), TBytes(10, 9));
}

TEST_F(TROMInfoSaveTest, AFileThatAnotherProgramHoldsIsNotRead) {
    const THeldFile held(rom);
    Load(rom);
    EXPECT_EQ(dialogs.messages, QStringList{"Cannot read '" + Name(rom) + "': " + heldByAnother});
    EXPECT_EQ(Image().Peek(0x7000), 7);
    EXPECT_EQ(Caption(), "Ferrolyn - " + Name(rom));
}

TEST_F(TSaveSpecTest, AProtectedFileIsNotWritten) {
    const fs::path target = MakeText("OLD.SPC", "; Old\n");
    SetFileAttributesW(target.c_str(), FILE_ATTRIBUTE_READONLY);
    dialogs.answers = {TAnswer::Yes};
    dialogs.inputs = {QString()};
    SaveSpec(target);
    EXPECT_EQ(dialogs.messages, QStringList{"Cannot write '" + Name(target) + "': " + mayNot});
    EXPECT_EQ(Text(target), "; Old\n");
    SetFileAttributesW(target.c_str(), FILE_ATTRIBUTE_NORMAL);
}
} // namespace
