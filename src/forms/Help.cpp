#include "forms/Help.h"

#include "model/Errors.h"

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

[[noreturn]] void Fail(const QFile &file) {
    const QString text = QString("Cannot open file \"%1\": %2")
                             .arg(QDir::toNativeSeparators(file.fileName()), file.errorString());
    throw EFileError(text.toStdString());
}

QByteArray ReadFile(const QString &name) {
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        Fail(file);
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        Fail(file);
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
    Memo1->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(Memo1);
    const QFontMetrics font = Memo1->fontMetrics();
    resize(font.averageCharWidth() * columns, font.lineSpacing() * rows);

    Memo1->setPlainText(Lines(Decode(ReadFile(ProgramDirectory() + fileName))));
}
