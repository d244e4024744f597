#include "ReadmeSteps.h"

#include <QFile>
#include <QRegularExpression>
#include <QStringList>
#include <gtest/gtest.h>

namespace {
/// What stands between the heading, of the second or the third rank, and the next one.
QString Section(const QString &heading, const QString &readme) {
    const QString head = "# " + heading + '\n';
    const qsizetype start = readme.indexOf(head);
    if (start < 0)
        return {};
    const qsizetype from = start + head.size();
    return readme.mid(from, readme.indexOf("\n##", from) - from);
}
} // namespace

QString ReadmeText() {
    QFile file(QString(FERROLYN_SOURCE_DIR) + "/README.md");
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return QString::fromUtf8(file.readAll());
}

std::vector<QString> StepsBelow(const QString &heading, const QString &readme) {
    static const QRegularExpression number("^[0-9]+\\. ");
    std::vector<QString> steps;
    for (const QString &line : Section(heading, readme).split('\n')) {
        if (line.contains(number))
            steps.push_back(QString(line).remove(number));
        else if (line.startsWith("   ") && !line.trimmed().startsWith("![") && !steps.empty())
            steps.back() += ' ' + line.trimmed();
    }
    for (QString &step : steps)
        step = step.remove("**").simplified();
    return steps;
}
