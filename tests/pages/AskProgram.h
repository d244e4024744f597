// What another program says of a file, such as the readers of printed pages.
#pragma once

#include <QProcess>
#include <QStringList>
#include <gtest/gtest.h>

inline QString AskProgram(const QString &program, const QStringList &arguments) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished()) << program.toStdString();
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return QString::fromUtf8(process.readAllStandardOutput());
}
