#include "forms/QtDialogs.h"

#include "forms/FrameRoom.h"
#include "forms/Places.h"

#include <algorithm>

#include <QApplication>
#include <QFileDialog>
#include <QHeaderView>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QListView>
#include <QMessageBox>
#include <QProgressBar>
#include <QProgressDialog>
#include <QScreen>
#include <QSplitter>
#include <QTreeView>
#include <QUrl>

namespace {
constexpr auto yesNo = QMessageBox::Yes | QMessageBox::No;
constexpr int titleButtonsRoom = 140; // pixels
constexpr int fileDialogColumns = 140;
constexpr int fileDialogLines = 30;
constexpr int typeColumn = 2; // of the toolkit's name, size, type, date

/// An open hourglass gives way to the arrow while the user has a box to answer.
class TArrowCursor {
public:
    TArrowCursor() : set_(QGuiApplication::overrideCursor() != nullptr) {
        if (set_)
            QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    }
    ~TArrowCursor() {
        if (set_)
            QGuiApplication::restoreOverrideCursor();
    }
    TArrowCursor(const TArrowCursor &) = delete;
    TArrowCursor &operator=(const TArrowCursor &) = delete;

private:
    const bool set_;
};

/// A box over the active window, titled like the application, whose text is never taken for markup.
class TBox : public QMessageBox {
public:
    TBox(Icon icon, const QString &text, StandardButtons buttons)
        : QMessageBox(icon, QGuiApplication::applicationDisplayName(), text, buttons,
                      WindowBelow()) {
        setTextFormat(Qt::PlainText);
    }

    StandardButton Run() {
        const TArrowCursor arrow;
        return StandardButton(exec());
    }
};

/// Only a button ends it, neither Escape nor the window's own ways to be closed.
class TInsistingBox : public TBox {
public:
    using TBox::TBox;

protected:
    void closeEvent(QCloseEvent *event) override { event->ignore(); }
    void keyPressEvent(QKeyEvent *event) override {
        if (!event->matches(QKeySequence::Cancel))
            TBox::keyPressEvent(event);
    }
};

TAnswer AnswerOf(QMessageBox::StandardButton button) {
    if (button == QMessageBox::Yes)
        return TAnswer::Yes;
    return button == QMessageBox::No ? TAnswer::No : TAnswer::Cancel;
}

/// So many pixels make a title readable under a window manager, which adds an icon and buttons.
int TitleWidth(const QString &title, QFont font) {
    font.setBold(true);
    return QFontMetrics(font).horizontalAdvance(title) + titleButtonsRoom;
}

/// The other columns are as wide as what is in them; the names get the rest of a wide dialog, and
/// the room of the type, which is the same for all that the filter lets through.
void MakeRoomForNames(QFileDialog &dialog) {
    auto *header = dialog.findChild<QTreeView *>("treeView")->header();
    header->setStretchLastSection(false);
    header->setSectionResizeMode(QHeaderView::ResizeToContents);
    header->setSectionResizeMode(0, QHeaderView::Stretch);
    header->hideSection(typeColumn);
    const QFontMetrics font = dialog.fontMetrics();
    const QSize wanted(fileDialogColumns * font.averageCharWidth(),
                       fileDialogLines * font.height());
    dialog.resize(wanted.boundedTo(dialog.screen()->availableSize() - frameRoom));
}

/// The toolkit's own dialog on every desktop, so that the filter ignores letter case everywhere.
void Prepare(QFileDialog &dialog, const QString &filter) {
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setNameFilter(filter.section('|', 0, 0)); // the toolkit reads the patterns in brackets
    MakeRoomForNames(dialog);
}

/// The dialog's side list with the program's own places for as long as this lives: what stands
/// there when the dialog goes, the toolkit keeps for all programs.
class TOwnPlaces {
public:
    explicit TOwnPlaces(QFileDialog &dialog) : dialog_(dialog), before_(dialog.sidebarUrls()) {
        QList<QUrl> all = before_;
        for (const QString &place : Places())
            if (const QUrl url = QUrl::fromLocalFile(place); !all.contains(url))
                all << url;
        dialog_.setSidebarUrls(all);
        MakeRoom();
    }
    ~TOwnPlaces() { dialog_.setSidebarUrls(before_); }
    TOwnPlaces(const TOwnPlaces &) = delete;
    TOwnPlaces &operator=(const TOwnPlaces &) = delete;

private:
    /// The names of the places are seen whole, unless they would take too much from the files.
    void MakeRoom() {
        const auto *list = dialog_.findChild<QListView *>("sidebar");
        const int wanted = list->sizeHintForColumn(0) + 2 * list->frameWidth();
        const int width = std::min(wanted, dialog_.width() / mostSideShare);
        dialog_.findChild<QSplitter *>("splitter")->setSizes({width, dialog_.width() - width});
    }

    static constexpr int mostSideShare = 5; // of the dialog's width
    QFileDialog &dialog_;
    const QList<QUrl> before_;
};

QString Chosen(QFileDialog &dialog) {
    const TArrowCursor arrow;
    const TOwnPlaces places(dialog);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    return QDir::toNativeSeparators(dialog.selectedFiles().constFirst());
}
} // namespace

QWidget *WindowBelow() {
    QWidget *window = QApplication::activeWindow();
    return window && window->windowType() == Qt::SplashScreen ? nullptr : window;
}

void TQtDialogs::ShowMessage(const QString &text) {
    TBox(QMessageBox::NoIcon, text, QMessageBox::Ok).Run();
}

TAnswer TQtDialogs::AskYesNo(const QString &text) {
    return AnswerOf(TBox(QMessageBox::Question, text, yesNo).Run()); // the toolkit's Escape is No
}

TAnswer TQtDialogs::AskAboutEdits(const QString &text) {
    return AnswerOf(TInsistingBox(QMessageBox::Question, text, yesNo).Run());
}

TAnswer TQtDialogs::AskYesNoCancel(const QString &text) {
    return AnswerOf(TBox(QMessageBox::Question, text, yesNo | QMessageBox::Cancel).Run());
}

QString TQtDialogs::InputBox(const QString &caption, const QString &prompt, const QString &text) {
    QInputDialog dialog(WindowBelow());
    dialog.setWindowTitle(caption);
    // The prompt labels the edit, where a single ampersand would mark a shortcut letter.
    dialog.setLabelText(QString(prompt).replace('&', "&&"));
    auto *label = dialog.findChild<QLabel *>();
    label->setTextFormat(Qt::PlainText);
    // The dialog has no least width of its own.
    label->setMinimumWidth(std::max(TitleWidth(caption, dialog.font()), label->sizeHint().width()));
    dialog.setTextValue(text);
    const TArrowCursor arrow;
    return dialog.exec() == QDialog::Accepted ? dialog.textValue() : text;
}

QString TQtDialogs::OpenFile(const QString &filter, const QString &initialDir) {
    QFileDialog dialog(WindowBelow());
    Prepare(dialog, filter);
    dialog.setDirectory(initialDir);
    return Chosen(dialog);
}

bool TQtDialogs::RunSaveDialog(TSaveDialog &save) {
    QFileDialog dialog(WindowBelow(), save.title);
    Prepare(dialog, save.filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(save.defaultExt);
    const QString current = QDir::currentPath(); // empty when that folder has been deleted
    dialog.setDirectory(current.isEmpty() ? QDir::homePath() : current);
    if (const QString offered = save.OfferedName(); !offered.isEmpty())
        dialog.selectFile(offered);
    const QString name = Chosen(dialog);
    if (name.isEmpty())
        return false;
    save.fileName = name;
    return true;
}

void TQtDialogs::TakeSteps(const QString &text, int count, const std::function<void()> &take) {
    QProgressDialog dialog(WindowBelow());
    dialog.setObjectName("dlgProgress");
    dialog.setWindowModality(Qt::ApplicationModal);
    dialog.setLabelText(text);
    dialog.findChild<QProgressBar *>()->setAccessibleName(text);
    dialog.setMinimumDuration(0);
    dialog.setRange(0, count);
    for (int taken = 0; taken < count && !dialog.wasCanceled(); dialog.setValue(++taken))
        take();
}
