// A file in the program's directory for the length of a test.
#pragma once

#include "forms/Help.h"

#include <QFile>
#include <gtest/gtest.h>

class TProgramFile {
public:
    TProgramFile(const QString &name, const QByteArray &bytes) : file_(ProgramDirectory() + name) {
        EXPECT_TRUE(file_.open(QIODevice::WriteOnly)) << file_.fileName().toStdString();
        file_.write(bytes);
        file_.close();
    }
    ~TProgramFile() { file_.remove(); }
    TProgramFile(const TProgramFile &) = delete;
    TProgramFile &operator=(const TProgramFile &) = delete;

private:
    QFile file_;
};
