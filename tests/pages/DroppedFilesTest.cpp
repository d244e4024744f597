// Files by other ways than the buttons of "ROM Information": dropped on the window, and by Ctrl+O
// and Ctrl+S from any page. Each asks what the buttons ask, in the same order.
#include "forms/Commands.h"
#include "forms/Places.h"
#include "forms/Settings.h"
#include "pages/WindowFixture.h"

#include <QDragEnterEvent>
#include <QMimeData>

namespace {
class TDroppedFilesTest : public TWindowTest {
protected:
    ~TDroppedFilesTest() override { KeepSetting("recentFolders", {}); }

    /// Drags files over a widget and drops them where they are taken; whether they were.
    bool Drop(QWidget &target, const QStringList &names, Qt::KeyboardModifiers keys = {}) {
        QMimeData files;
        QList<QUrl> urls;
        for (const QString &name : names)
            urls << QUrl::fromLocalFile(name);
        files.setUrls(urls);
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &files, Qt::LeftButton, keys);
        enter.ignore();
        QApplication::sendEvent(&target, &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent drop({5, 5}, Qt::CopyAction, &files, Qt::LeftButton, keys);
        QApplication::sendEvent(&window, &drop);
        EXPECT_TRUE(drop.isAccepted());
        EXPECT_EQ(dialogs.questions, QStringList()) << "whoever dropped it does not wait for us";
        QTest::qWait(0);
        return true;
    }
    /// An uncommitted and a committed edit, so that both questions come.
    void EditFuel() {
        Enter(fuelTab);
        On<QAction>(fuelTab, "Copy2").trigger();
        On<QAction>(fuelTab, "Paste2").trigger();
    }
    void EditCells() {
        Enter(fuelTab);
        Type(fuelTab, "grdPTMap", 1, 1, "77");
    }
};

TEST_F(TDroppedFilesTest, AnImageIsLoadedAsByTheButton) {
    MakeSpec("deeper/THERE.SPC");
    const QString file = MakeImage("deeper/A.bin", 7);
    EXPECT_TRUE(Drop(window, {file}));
    EXPECT_EQ(Image().Peek(0x7000), 7);
    EXPECT_EQ(window.windowTitle(), "Ferrolyn - " + file);
    EXPECT_EQ(window.workspace.romFileName, (folder / "deeper" / "A.bin"));
    EXPECT_TRUE(std::filesystem::equivalent(std::filesystem::current_path(), folder / "deeper"));
    EXPECT_EQ(On<QRadioButton>(romTab, "rdoROMtemplate0").text(), "Direct");
    EXPECT_TRUE(On<QPushButton>(romTab, "btnSaveSpec").isEnabled());
    EXPECT_EQ(dialogs.openDialogs, QStringList()) << "the file is chosen";
    EXPECT_EQ(FindControl<QPushButton>(window, "btnState").text(), "no mapping");
}

TEST_F(TDroppedFilesTest, WithShiftAnImageIsComparedWith) {
    const QString other = MakeImage("B.BIN", 9);
    LoadAndPlace();
    const QString title = window.windowTitle();
    EXPECT_TRUE(Drop(window, {other}, Qt::ShiftModifier));
    EXPECT_EQ(window.windowTitle(), title) << "nothing is loaded";
    EXPECT_EQ(window.PageControl1->tabText(Current()), "Compare");
    EXPECT_THAT(FindControl<QLabel>(*window.CurrentPage(), "lblTotal").text().toStdString(),
                testing::HasSubstr(other.toStdString()));
}

TEST_F(TDroppedFilesTest, ThePageIsLeftFirstAndThenTheChangesAreAskedFor) {
    LoadAndPlace();
    EditFuel();
    const QString other = MakeImage("B.BIN", 9);
    dialogs.answers = {TAnswer::No, TAnswer::No};
    EXPECT_TRUE(Drop(On<TStringAlignGrid>(fuelTab, "grdPTMap"), {other}));
    EXPECT_EQ(dialogs.questions, (QStringList{"Commit Changes?", "Save Changes?"}));
    EXPECT_EQ(Current(), romTab);
    EXPECT_EQ(Image().Peek(0x7000), 9);
}

TEST_F(TDroppedFilesTest, ASaveThatDoesNotHappenLoadsNothing) {
    LoadAndPlace();
    EditFuel();
    const QString other = MakeImage("B.BIN", 9);
    Image().size = 0x8000;
    dialogs.answers = {TAnswer::No, TAnswer::Yes};
    dialogs.saves = {""};
    EXPECT_TRUE(Drop(window, {other}));
    EXPECT_EQ(dialogs.messages, QStringList("Save unsuccessful"));
    EXPECT_NE(Image().Peek(0x7000), 9);
}

TEST_F(TDroppedFilesTest, OtherThingsAreNotTaken) {
    const QString image = MakeImage("A.BIN");
    MakeSpec("A.SPC");
    for (const QStringList &files :
         {QStringList(), QStringList(QString::fromStdString((folder / "A.SPC").string())),
          QStringList{image, image}})
        EXPECT_FALSE(Drop(window, files)) << files.size();
    QMimeData remote;
    remote.setUrls({QUrl("https://example.invalid/A.BIN")});
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &remote, Qt::LeftButton, {});
    enter.ignore();
    QApplication::sendEvent(&window, &enter);
    EXPECT_FALSE(enter.isAccepted());
}

TEST_F(TDroppedFilesTest, NothingIsTakenWhileADialogIsOpen) {
    const QString image = MakeImage("A.BIN");
    QDialog dialog(&window);
    dialog.setModal(true);
    dialog.show();
    EXPECT_FALSE(Drop(window, {image}));
}

TEST_F(TDroppedFilesTest, AFileThatCannotBeReadIsTold) {
    EXPECT_TRUE(Drop(window, {QString::fromStdString((folder / "GONE.BIN").string())}));
    EXPECT_EQ(dialogs.messages, QStringList()) << "a name that no file has does nothing";
    std::filesystem::create_directory(folder / "FOLDER.BIN");
    EXPECT_TRUE(Drop(window, {QString::fromStdString((folder / "FOLDER.BIN").string())}));
    ASSERT_EQ(dialogs.messages.size(), 1);
    EXPECT_TRUE(dialogs.messages[0].startsWith("Cannot read"));
}

TEST_F(TDroppedFilesTest, TheFolderOfALoadedImageIsRemembered) {
    Load(MakeImage("one/A.BIN"));
    EXPECT_TRUE(Drop(window, {MakeImage("two/B.BIN")}));
    Load(QString::fromStdString((folder / "GONE.BIN").string()));
    QStringList expected;
    for (const char *name : {"two", "one"})
        expected << QString::fromStdString((folder / name).string());
    EXPECT_EQ(Setting("recentFolders", {}).toStringList(), expected);
}

TEST_F(TDroppedFilesTest, CtrlOPressesItsButtonFromAnyPage) {
    const QString image = MakeImage("A.BIN", 7);
    dialogs.opens = {image};
    Press(Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(Image().Peek(0x7000), 7);
    MakeSpec("A.SPC");
    Load(image);
    Choose(0);
    EditCells();
    dialogs.answers = {TAnswer::Yes};
    dialogs.opens = {image};
    Press(Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(dialogs.questions, QStringList("Commit Changes?"));
    EXPECT_EQ(Current(), romTab);
    EXPECT_EQ(dialogs.openDialogs.size(), 3);
}

TEST_F(TDroppedFilesTest, CtrlSSavesFromAnyPageAndAsksAsLeavingThePageDoes) {
    LoadAndPlace();
    EditCells();
    dialogs.answers = {TAnswer::Yes};
    dialogs.saves = {QString::fromStdString((folder / "B.BIN").string())};
    Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(dialogs.questions, QStringList("Commit Changes?"));
    EXPECT_EQ(dialogs.saveDialogs.size(), 1);
    EXPECT_EQ(GetFile(folder / "B.BIN").at(0x100B), 77);
    EXPECT_EQ(Current(), romTab);
}

TEST_F(TDroppedFilesTest, CtrlSIsForChangesOnly) {
    const auto enabled = [this] {
        UpdateCommands(window);
        const bool can = FindControl<QAction>(window, "actSave").isEnabled();
        EnableCommands(window);
        return can;
    };
    EXPECT_FALSE(enabled());
    LoadAndPlace();
    Press(Qt::Key_S, Qt::ControlModifier);
    Enter(fuelTab);
    Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(Current(), fuelTab);
    EXPECT_EQ(dialogs.saveDialogs, QStringList());
    EXPECT_FALSE(enabled());
    EditCells();
    EXPECT_TRUE(enabled());
    dialogs.answers = {TAnswer::No};
    Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(Current(), romTab);
    EXPECT_EQ(dialogs.saveDialogs, QStringList()) << "No has left nothing to save";
    EXPECT_FALSE(enabled());
}

TEST_F(TDroppedFilesTest, AboutSaysWhatTheProgramIs) {
    QCoreApplication::setApplicationVersion("1.2");
    FindControl<QAction>(window, "actAbout").trigger();
    EXPECT_EQ(dialogs.messages,
              QStringList("Ferrolyn 1.2\nEditor and analyser for engine control unit ROM images\n"
                          "Licence: MIT\nCopyright 2026 the Ferrolyn authors"));
    QCoreApplication::setApplicationVersion({});
}
} // namespace
