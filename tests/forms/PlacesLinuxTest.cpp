// For Linux alone: elsewhere nobody can remove the current folder of a program.
#include "forms/PlacesFixture.h"

TEST_F(TPlacesTest, DoWithoutACurrentFolder) {
    RememberFolder(Folder("a"));
    QDir(QDir::currentPath()).removeRecursively();
    EXPECT_EQ(Places(), QStringList(Folder("a")));
}
