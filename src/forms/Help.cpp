#include "forms/Help.h"

#include "forms/Paths.h"
#include "model/Errors.h"

#include <filesystem>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QStringDecoder>
#include <QVBoxLayout>

namespace {
constexpr int columns = 84; // of the fixed font; the usual width of a text file and a margin
constexpr int rows = 30;

[[noreturn]] void Fail(const QFile &file, const QString &reason) {
    const QString text = QString("Cannot open file \"%1\": %2")
                             .arg(QDir::toNativeSeparators(file.fileName()), reason);
    throw EFileError(text.toStdString());
}

QByteArray ReadFile(QFile &file) {
    // Opening a pipe would wait for somebody to write into it.
    std::error_code error;
    const std::filesystem::file_status status =
        std::filesystem::status(ToPath(file.fileName()), error);
    if (exists(status) && !is_regular_file(status))
        Fail(file, "not a regular file");
    if (!file.open(QIODevice::ReadOnly))
        Fail(file, file.errorString());
    const qint64 length = file.size();
    if (length > maxHelpFileSize)
        Fail(
            file,
            QString("it has %1 bytes, more than the limit of %2").arg(length).arg(maxHelpFileSize));
    const QByteArray bytes = file.read(maxHelpFileSize + 1);
    if (file.error() != QFileDevice::NoError)
        Fail(file, file.errorString());
    if (bytes.size() != length)
        Fail(file, "its length changed while it was read");
    return bytes;
}

QString Decode(const QByteArray &bytes) {
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = utf8(bytes);
    return utf8.hasError() ? QString::fromLatin1(bytes) : text;
}

/// The lines of a text, whatever ends them, as a memo keeps them.
QString Lines(QString text) {
    text.replace("\r\n", "\n").replace('\r', '\n');
    if (text.endsWith('\n'))
        text.chop(1);
    return text;
}

bool HasLongLine(const QString &lines) {
    for (qsizetype start = 0, end = 0; end >= 0; start = end + 1) {
        end = lines.indexOf('\n', start);
        if ((end < 0 ? lines.size() : end) - start > maxHelpLineLength)
            return true;
    }
    return false;
}

QString ReadText(const QString &name) {
    QFile file(name);
    const QByteArray bytes = ReadFile(file);
    if (bytes.contains('\0'))
        Fail(file, "it is not a plain text");
    const QString lines = Lines(Decode(bytes));
    // The time that a line takes to be laid out grows with the square of its length.
    if (HasLongLine(lines))
        Fail(file, QString("it has a line of more than %1 characters").arg(maxHelpLineLength));
    return lines;
}
} // namespace

QString ProgramDirectory() {
    return QDir::toNativeSeparators(QCoreApplication::applicationDirPath() + "/");
}

TfrmHelp::TfrmHelp(const QString &fileName, QWidget *parent)
    : QDialog(parent, Qt::Tool), Memo1(new QPlainTextEdit(this)) {
    setObjectName("frmHelp");
    setWindowTitle(tr("Help"));
    Memo1->setObjectName("Memo1");
    Memo1->setReadOnly(true);
    Memo1->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    Memo1->setAccessibleName(tr("Help"));
    Memo1->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(Memo1);
    const QFontMetrics font = Memo1->fontMetrics();
    resize(font.averageCharWidth() * columns, font.lineSpacing() * rows);

    Memo1->setPlainText(ReadText(ProgramDirectory() + fileName));
}
