#include "guide/ProgramTexts.h"

#include "guide/Guide.h"

#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <gtest/gtest.h>

namespace {
const QString sources = FERROLYN_SOURCE_DIR "/src";

/// As CONTRIBUTING.md has it.
void Collect(const QString &folder, const QString &catalogue) {
    QProcess tool;
    tool.setProcessChannelMode(QProcess::MergedChannels);
    tool.start(FERROLYN_LUPDATE,
               {"-silent", "-tr-function-alias", "translate+=Translated,translate+=Translatable",
                "-locations", "none", folder, "-ts", catalogue});
    EXPECT_TRUE(tool.waitForFinished());
    EXPECT_EQ(QString(tool.readAll()), "");
    EXPECT_EQ(tool.exitCode(), 0);
}
} // namespace

std::vector<TProgramText> ProgramTexts(const QString &folder) {
    const QTemporaryDir temporary;
    const QString catalogue = temporary.filePath("texts.ts");
    Collect(folder.isEmpty() ? sources : folder, catalogue);
    QFile file(catalogue);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    std::vector<TProgramText> texts;
    QString context;
    for (QXmlStreamReader xml(&file); !xml.atEnd(); xml.readNext())
        if (xml.isStartElement() && xml.name() == QLatin1String("name"))
            context = xml.readElementText();
        else if (xml.isStartElement() && xml.name() == QLatin1String("source"))
            texts.push_back({context, xml.readElementText()});
    return texts;
}

QStringList Fragments(const QString &text) {
    static const QRegularExpression gap("%L?[0-9]|\n");
    static const QRegularExpression letter("[A-Za-z]");
    QStringList fragments;
    for (const QString &piece : text.section('|', 0, 0).split(gap))
        if (piece.contains(letter))
            fragments << piece.trimmed();
    return fragments;
}

QStringList FoundIn(const QStringList &files, const QString &pattern) {
    const QRegularExpression wanted(pattern, QRegularExpression::MultilineOption);
    QStringList captures;
    for (QDirIterator found(sources, files, QDir::Files, QDirIterator::Subdirectories);
         found.hasNext();) {
        const QString file = found.next();
        if (file.contains("/src/cli/"))
            continue;
        const QString text = TextOfFile(file);
        for (auto match = wanted.globalMatch(text); match.hasNext();)
            captures << match.next().captured(1);
    }
    return captures;
}
