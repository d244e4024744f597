// The folders that file dialogs offer at their side.
#include "forms/Places.h"

#include "forms/Settings.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {
class TPlacesTest : public testing::Test {
protected:
    TPlacesTest() {
        KeepSetting("recentFolders", {});
        QDir::setCurrent(Folder("current"));
    }
    ~TPlacesTest() override {
        QDir::setCurrent(before_);
        KeepSetting("recentFolders", {});
    }

    QString Folder(const QString &name) {
        EXPECT_TRUE(QDir(folder_.path()).mkpath(name));
        return QDir(folder_.filePath(name)).canonicalPath();
    }

private:
    const QString before_ = QDir::currentPath();
    QTemporaryDir folder_;
};
} // namespace

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

TEST_F(TPlacesTest, DoWithoutACurrentFolder) {
    RememberFolder(Folder("a"));
    QDir(QDir::currentPath()).removeRecursively();
    EXPECT_EQ(Places(), QStringList(Folder("a")));
}
