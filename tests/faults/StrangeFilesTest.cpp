// What is no plain file, under the names of images and spec files: links, pipes, devices, sockets,
// folders. It is left out of the list or refused with a message, at once, and nothing is lost.
#include "pages/ROMInfoFixture.h"
#include "system/SafeFile.h"

#include <cerrno>
#include <functional>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <system_error>
#include <unistd.h>

#include <gmock/gmock.h>

namespace {

namespace fs = std::filesystem;

std::string Reason(int code) {
    return std::generic_category().message(code);
}

struct TStrange {
    const char *name;
    std::function<void(const fs::path &)> put; ///< puts it there
    std::string loadError;
    std::string saveError; ///< empty: the save works
};

const std::string irregular = "not a regular file";

void PutSocket(const fs::path &file) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string name = file.string();
    ASSERT_LT(name.size(), sizeof address.sun_path);
    name.copy(address.sun_path, name.size());
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(socket, reinterpret_cast<const sockaddr *>(&address), sizeof address), 0);
    close(socket);
}

void PutHuge(const fs::path &file) {
    PutFile(file, {';', 'x', '\n'});
    fs::resize_file(file, std::uintmax_t{64} << 30);
}

const TStrange stranges[] = {
    {"pipe", [](const fs::path &file) { ASSERT_EQ(mkfifo(file.c_str(), 0600), 0); }, irregular,
     Reason(ENXIO)},
    {"socket", PutSocket, Reason(ENXIO), Reason(ENXIO)},
    {"folder", [](const fs::path &file) { fs::create_directory(file); }, Reason(EISDIR),
     Reason(EISDIR)},
    {"endless_device", [](const fs::path &file) { fs::create_symlink("/dev/zero", file); },
     irregular, ""},
    {"full_device", [](const fs::path &file) { fs::create_symlink("/dev/full", file); }, irregular,
     Reason(ENOSPC)},
    {"endless_link", [](const fs::path &file) { fs::create_symlink(file.filename(), file); },
     Reason(ELOOP), Reason(ELOOP)},
    {"huge_file", PutHuge, "more than the limit of 1048576", ""},
};

class TStrangeFiles : public TROMInfoTest, public testing::WithParamInterface<TStrange> {
protected:
    void SetUp() override {
        TROMInfoTest::SetUp();
        rom = MakeROM("A.BIN", 7);
        original = GetFile(rom);
        LoadAndPlace(rom);
    }
    fs::path rom;
    TBytes original;
};

TEST_P(TStrangeFiles, AreNotListedAsSpecs) {
    GetParam().put(folder / "strange.spc");
    page->ScanSpecDirectory();
    EXPECT_EQ(Items(), (QStringList{"Direct", "Use Manual Offset Method"}));
    EXPECT_EQ(dialogs.messages, QStringList());
}

TEST_P(TStrangeFiles, AreRefusedWhenTheyTookASpecsPlace) {
    fs::remove(folder / "DIRECT.SPC");
    GetParam().put(folder / "DIRECT.SPC");
    Image().Poke(0x7000, 99);
    Choose("Direct");
    ASSERT_EQ(dialogs.messages.size(), 1);
    EXPECT_TRUE(dialogs.messages[0].contains(Name(folder / "DIRECT.SPC")));
    EXPECT_EQ(Image().Peek(0x7000), 7) << "the image is read again in any case";
    EXPECT_EQ(workspace.fuelMapSet.PTMap->GetLocation(), fuelPT);
}

TEST_P(TStrangeFiles, AreNotLoadedAsImages) {
    const fs::path file = folder / "STRANGE.BIN";
    GetParam().put(file);
    Image().modified = true;
    Load(file);
    ASSERT_EQ(dialogs.messages.size(), 1);
    EXPECT_THAT(dialogs.messages[0].toStdString(),
                testing::StartsWith("Cannot read '" + file.string() + "': "));
    EXPECT_THAT(dialogs.messages[0].toStdString(), testing::HasSubstr(GetParam().loadError));
    EXPECT_EQ(Get(0, Image().size), original);
    EXPECT_TRUE(Image().modified);
    EXPECT_EQ(Caption(), "Ferrolyn - " + Name(rom));
    EXPECT_EQ(Group().ItemIndex(), 0);
}

TEST_P(TStrangeFiles, AreWrittenOrRefused) {
    const fs::path file = folder / "STRANGE.BIN";
    GetParam().put(file);
    std::string error;
    try {
        ROMImage()->SaveToFile(file);
    } catch (const std::exception &failure) {
        error = failure.what();
    }
    EXPECT_EQ(error, GetParam().saveError.empty()
                         ? ""
                         : "Cannot write '" + file.string() + "': " + GetParam().saveError);
    EXPECT_TRUE(fs::is_character_file("/dev/zero"));
    EXPECT_THAT(folder.Names(),
                testing::UnorderedElementsAre("A.BIN", "DIRECT.SPC", "STRANGE.BIN"));
}

INSTANTIATE_TEST_SUITE_P(All, TStrangeFiles, testing::ValuesIn(stranges),
                         [](const auto &test) { return std::string(test.param.name); });

using TLinkedFiles = TROMInfoTest;

TEST_F(TLinkedFiles, LinksToPlainFilesAreThoseFiles) {
    MakeSpec("real.txt");
    fs::create_symlink("real.txt", folder / "link.SPC");
    const fs::path rom = MakeROM("A.BIN", 7);
    fs::create_symlink("A.BIN", folder / "LINK.BIN");
    Load(folder / "LINK.BIN");
    Choose("Direct");
    EXPECT_EQ(dialogs.messages, QStringList());
    EXPECT_EQ(Get(0, Image().size), GetFile(rom));
    EXPECT_EQ(workspace.fuelMapSet.PTMap->GetLocation(), fuelPT);
}

TEST_F(TLinkedFiles, ALinkToNothingIsNoFile) {
    fs::create_symlink("nowhere", folder / "LINK.BIN");
    fs::create_symlink("nowhere", folder / "link.spc");
    Load(folder / "LINK.BIN");
    page->ScanSpecDirectory();
    EXPECT_EQ(dialogs.messages, QStringList());
    EXPECT_EQ(Items(), QStringList{"Use Manual Offset Method"});
}

} // namespace
