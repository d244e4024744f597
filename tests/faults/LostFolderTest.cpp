// The program's current folder is deleted while it runs, or was before it started: spec files are
// listed from the folder of the loaded image, else from the user's own, and nobody is moved there.
#include "forms/QtDialogs.h"
#include "pages/ROMInfoFixture.h"
#include "spec/main.h"

#include <QFileDialog>
#include <QTimer>
#include <gmock/gmock.h>

namespace {

namespace fs = std::filesystem;

class TLostFolder : public TROMInfoTest {
protected:
    void SetUp() override {
        TROMInfoTest::SetUp();
        fs::create_directory(home);
        fs::create_directory(lost);
        qputenv("HOME", home.c_str());
    }
    void TearDown() override { qputenv("HOME", oldHome); }

    /// A file of another folder, moved into this one.
    static fs::path Move(const fs::path &file, const fs::path &into) {
        fs::rename(file, into / file.filename());
        return into / file.filename();
    }
    void EnterAndLoseIt() const {
        fs::current_path(lost);
        fs::remove_all(lost);
    }

    /// Nobody was moved into another folder.
    static bool IsNowhere() {
        std::error_code error;
        return fs::current_path(error).empty();
    }

    const fs::path home = folder / "home";
    const fs::path lost = folder / "lost";
    const QByteArray oldHome = qgetenv("HOME");
};

TEST_F(TLostFolder, AtTheStartTheUsersOwnTakesItsPlace) {
    Move(MakeSpec(), home);
    EnterAndLoseIt();
    TfrmROMInformation started(nullptr, workspace, recovery);
    EXPECT_TRUE(IsNowhere());
    EXPECT_EQ(FindControl<TRadioGroup>(started, "rdoROMtemplate").Item(0), "Direct");
    EXPECT_EQ(dialogs.messages, QStringList());
}

TEST_F(TLostFolder, TheWholeWindowComesUp) {
    EnterAndLoseIt();
    const TfrmNotebook window;
    EXPECT_EQ(window.PageCount(), 6);
    EXPECT_EQ(dialogs.messages, QStringList());
}

TEST_F(TLostFolder, AnImageCanBeLoadedAndItsFolderIsTheCurrentOne) {
    const fs::path images = folder / "images";
    fs::create_directory(images);
    const fs::path rom = Move(MakeROM("A.BIN"), images);
    Move(MakeSpec(), images);
    EnterAndLoseIt();
    Load(rom);
    EXPECT_EQ(fs::current_path(), images);
    EXPECT_EQ(Items().front(), "Direct");
    EXPECT_EQ(dialogs.messages, QStringList());
}

TEST_F(TLostFolder, ThatIsMadeAnewIsFoundThroughTheImage) {
    Load(Move(MakeROM("A.BIN"), lost));
    EnterAndLoseIt();
    fs::create_directory(lost);
    Move(MakeROM("A.BIN"), lost);
    Move(MakeSpec(), lost);
    dialogs.opens = {""}; // cancelled: the same file again
    Button("btnLoad").click();
    EXPECT_TRUE(IsNowhere());
    EXPECT_EQ(Items().front(), "Direct");
    EXPECT_EQ(dialogs.messages, QStringList());
}

TEST_F(TLostFolder, WithTheImageLeavesTheUsersOwn) {
    Load(Move(MakeROM("A.BIN"), lost));
    Move(MakeSpec(), home);
    EnterAndLoseIt();
    page->ScanSpecDirectory();
    EXPECT_TRUE(IsNowhere());
    EXPECT_EQ(Items().front(), "Direct");
    Choose("Direct");
    EXPECT_EQ(page->CurrentSpecFileName(), home / "DIRECT.SPC");
}

TEST_F(TLostFolder, TheSaveDialogOpensInTheUsersOwn) {
    EnterAndLoseIt();
    QString opened;
    QTimer::singleShot(0, qApp, [&] {
        auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        opened = dialog->directory().path();
        dialog->reject();
    });
    TSaveDialog save(page, "dlgSave");
    EXPECT_FALSE(TQtDialogs().RunSaveDialog(save));
    EXPECT_EQ(opened, Name(home));
}

TEST_F(TLostFolder, WithNoOtherTheListIsEmpty) {
    qputenv("HOME", (folder / "none").c_str());
    EnterAndLoseIt();
    page->ScanSpecDirectory();
    EXPECT_EQ(Items(), QStringList{"Use Manual Offset Method"});
    EXPECT_EQ(dialogs.messages, QStringList());
}

} // namespace
