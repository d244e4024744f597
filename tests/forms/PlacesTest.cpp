// The folders that file dialogs offer at their side.
#include "forms/PlacesFixture.h"

TEST_F(TPlacesTest, BeginWithTheCurrentFolder) {
    EXPECT_EQ(Places(), QStringList(Folder("current")));
}

TEST_F(TPlacesTest, GoOnWithTheFoldersOfLateTheLatestFirst) {
    for (const char *name : {"a", "b", "c", "a"})
        RememberFolder(Folder(name));
    EXPECT_EQ(Places(), QStringList({Folder("current"), Folder("a"), Folder("c"), Folder("b")}));
}

TEST_F(TPlacesTest, AreKeptInTheSettings) {
    RememberFolder(Folder("a"));
    EXPECT_EQ(Setting("recentFolders", {}).toStringList(), QStringList(Folder("a")));
}

TEST_F(TPlacesTest, AreSoManyThatTheListStaysShort) {
    for (int i = 0; i < 10; ++i)
        RememberFolder(Folder(QString::number(i)));
    EXPECT_EQ(Places(), QStringList({Folder("current"), Folder("9"), Folder("8"), Folder("7"),
                                     Folder("6"), Folder("5"), Folder("4")}));
}

TEST_F(TPlacesTest, LeaveOutWhatHasGoneAndWhatIsThereAlready) {
    RememberFolder(Folder("a"));
    RememberFolder(Folder("gone"));
    RememberFolder(Folder("current"));
    QDir(Folder("gone")).removeRecursively();
    RememberFolder("");
    EXPECT_EQ(Places(), QStringList({Folder("current"), Folder("a")}));
}
