// Base of the tests of the folders that file dialogs offer: folders of the test's own, one of them
// the current one, and none remembered.
#pragma once

#include "forms/Places.h"
#include "forms/Settings.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

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
