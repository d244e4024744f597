#include "forms/Help.h"

#include "forms/Beside.h"
#include "forms/Dialogs.h"
#include "forms/Guard.h"
#include "forms/Paths.h"
#include "system/PlainText.h"
#include "system/ReadFile.h"

#include <utility>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <QVBoxLayout>

namespace {
/// The lines of a text, whatever ends them, as a memo keeps them.
QString Lines(QString text) {
    text.replace("\r\n", "\n").replace('\r', '\n');
    if (text.endsWith('\n'))
        text.chop(1);
    return text;
}

QString ReadText(const std::filesystem::path &file) {
    const std::vector<std::uint8_t> bytes = ReadWholeFile(file, maxHelpFileSize);
    const std::string text = ToUtf8(std::string(bytes.begin(), bytes.end()));
    if (text.find('\0') != std::string::npos)
        throw CannotRead(file, TfrmHelp::tr("it is not a plain text").toStdString());
    const QString lines = Lines(QString::fromStdString(text));
    // The time that a line takes to be laid out grows with the square of its length.
    for (const QString &line : lines.split('\n'))
        if (line.size() > maxHelpLineLength)
            throw CannotRead(file, TfrmHelp::tr("it has a line of more than %1 characters")
                                       .arg(maxHelpLineLength)
                                       .toStdString());
    return lines;
}

/// Of the memo in which so many characters and lines are seen.
QSize SizeFor(const QPlainTextEdit &memo) {
    // A line laid out as the memo does it, which takes the font's leading into account.
    QTextLayout layout(QString(helpColumns, '0'), memo.font(), &memo);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLeadingIncluded(true);
    line.setNumColumns(helpColumns);
    layout.endLayout();
    const double margins = 2 * (memo.document()->documentMargin() + memo.frameWidth());
    const double width =
        line.naturalTextWidth() + memo.verticalScrollBar()->sizeHint().width() + margins;
    return QSizeF(width, helpRows * line.height() + margins).toSize() + QSize(1, 1);
}

/// The open help window of `window`, or a new one.
TfrmHelp &HelpBeside(QWidget &window, const QString &fileName, Qt::WindowType kind) {
    if (auto *open = window.findChild<TfrmHelp *>({}, Qt::FindDirectChildrenOnly))
        return *open;
    auto *help = new TfrmHelp(fileName, &window);
    help->setWindowFlags(kind);
    help->setAttribute(Qt::WA_DeleteOnClose);
    MoveBeside(*help, window);
    return *help;
}

void BringUp(QWidget &window) {
    window.show();
    window.raise();
    window.activateWindow();
}

class THelpKey : public QObject {
public:
    THelpKey(QWidget &window, std::function<void()> handler)
        : QObject(&window), handler_(std::move(handler)) {
        window.installEventFilter(this);
    }

    bool eventFilter(QObject *, QEvent *event) override {
        const bool override = event->type() == QEvent::ShortcutOverride;
        if (!override && event->type() != QEvent::KeyPress)
            return false;
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->key() != Qt::Key_F1 || key->modifiers() != Qt::NoModifier)
            return false;
        event->accept(); // before the shortcuts of a window behind this one
        if (!override)
            Guarded(handler_);
        return true;
    }

private:
    const std::function<void()> handler_;
};
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
    // Long lines are broken; a bar that comes and goes would only take a row away.
    Memo1->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Memo1->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(Memo1);
    resize(SizeFor(*Memo1));

    ConnectGuarded(new QShortcut(Qt::CTRL | Qt::Key_F, this), &QShortcut::activated, this,
                   [this] { FindText(); });
    ConnectGuarded(new QShortcut(Qt::Key_F3, this), &QShortcut::activated, this,
                   [this] { FindAgain(); });

    Memo1->setPlainText(ReadText(ToPath(ProgramDirectory() + fileName)));
}

void TfrmHelp::GoToChapter(int number) {
    const QRegularExpression head(QString("^%1  \\S").arg(number));
    for (QTextBlock line = Memo1->document()->begin(); line.isValid(); line = line.next())
        if (line.text().contains(head)) {
            Memo1->moveCursor(QTextCursor::End); // coming from below it ends up at the top
            Memo1->setTextCursor(QTextCursor(line));
            return;
        }
}

void TfrmHelp::FindText() {
    const QString answer = Dialogs().InputBox(tr("Find"), tr("Text to find"), "");
    if (answer.isEmpty())
        return;
    wanted_ = answer;
    FindAgain();
}

void TfrmHelp::FindAgain() {
    if (wanted_.isEmpty())
        return FindText();
    if (Memo1->find(wanted_))
        return;
    const QTextCursor before = Memo1->textCursor();
    Memo1->moveCursor(QTextCursor::Start);
    if (Memo1->find(wanted_))
        return;
    Memo1->setTextCursor(before);
    Dialogs().ShowMessage(tr("Text not found"));
}

void ShowHelpOf(QWidget &window, const QString &asked) {
    const QString shown = window.objectName() + ".txt";
    if (!QFileInfo(ProgramDirectory() + (asked.isEmpty() ? shown : asked)).isFile())
        return Dialogs().ShowMessage(
            TfrmHelp::tr("Sorry no help is yet available for this screen"));
    BringUp(HelpBeside(window, shown, Qt::Tool));
}

void ShowGuide(QWidget &window, const QString &fileName, int chapter) {
    TfrmHelp &guide = HelpBeside(window, fileName, Qt::Window);
    BringUp(guide);
    guide.GoToChapter(chapter);
}

void OnHelpKey(QWidget &window, std::function<void()> handler) {
    new THelpKey(window, std::move(handler)); // goes with the window
}
