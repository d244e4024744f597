#include "guide/Guide.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QStringDecoder>
#include <gtest/gtest.h>

namespace {
const QString docs = QString(FERROLYN_SOURCE_DIR) + "/docs/";
const QString messagesChapter = "MESSAGES AND QUESTIONS\n";
const QString headingIndent = "  ";
const QString explanationIndent = "      ";

/// Where the chapter of messages begins; the end of a text that has none.
qsizetype MessagesStart(const QString &text) {
    const qsizetype start = text.indexOf(messagesChapter);
    return start < 0 ? text.size() : start + messagesChapter.size();
}

/// The text between the first and the last quote.
QString Unquoted(const QString &heading) {
    const qsizetype first = heading.indexOf('"') + 1;
    return heading.mid(first, heading.lastIndexOf('"') - first);
}
} // namespace

QStringList HelpFiles() {
    QStringList files{docs + "readme.txt"};
    const QDir folder(docs + "help");
    for (const QString &name : folder.entryList({"*"}, QDir::Files, QDir::Name))
        files << folder.filePath(name);
    return files;
}

QString TextOfFile(const QString &fileName) {
    QFile file(fileName);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << fileName.toStdString();
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = utf8(file.readAll());
    EXPECT_FALSE(utf8.hasError()) << fileName.toStdString();
    return text;
}

QString GuideText() {
    return TextOfFile(HelpFiles().constFirst());
}

QString OnOneLine(const QString &text) {
    return text.simplified();
}

QSet<QString> QuotedTexts(const QString &text) {
    const QStringList pieces = text.left(MessagesStart(text)).split('"');
    EXPECT_EQ(pieces.size() % 2, 1) << "a quote is not closed";
    QSet<QString> quoted;
    for (qsizetype i = 1; i < pieces.size(); i += 2)
        quoted << OnOneLine(pieces[i]);
    return quoted;
}

std::vector<TGuideEntry> MessageEntries(const QString &guide) {
    std::vector<TGuideEntry> entries;
    bool inHeadings = false;
    for (const QString &line : guide.mid(MessagesStart(guide)).split('\n')) {
        if (line.startsWith(explanationIndent)) {
            inHeadings = false;
            if (!entries.empty())
                entries.back().explanation += line.trimmed() + ' ';
        } else if (line.startsWith(headingIndent + '"')) {
            if (!inHeadings)
                entries.emplace_back();
            inHeadings = true;
            entries.back().headings << line.trimmed();
        } else if (inHeadings && line.startsWith(headingIndent)) {
            entries.back().headings.back() += ' ' + line.trimmed();
        }
    }
    for (TGuideEntry &entry : entries)
        for (QString &heading : entry.headings)
            heading = Unquoted(heading);
    return entries;
}

QString Plain(QString text) {
    text.replace("&&", "\1").remove('&').replace('\1', '&');
    static const QRegularExpression address("\\$[0-9A-F]*$");
    return OnOneLine(text.remove(address));
}
