#include "forms/QtDialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>

namespace {
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
QMessageBox::StandardButton RunBox(QMessageBox::Icon icon, const QString &text,
                                   QMessageBox::StandardButtons buttons,
                                   QMessageBox::StandardButton escape) {
    QMessageBox box(icon, QGuiApplication::applicationDisplayName(), text, buttons, WindowBelow());
    box.setTextFormat(Qt::PlainText);
    const TArrowCursor arrow;
    box.setEscapeButton(escape);
    return QMessageBox::StandardButton(box.exec());
}

TAnswer AnswerOf(QMessageBox::StandardButton button) {
    if (button == QMessageBox::Yes)
        return TAnswer::Yes;
    return button == QMessageBox::No ? TAnswer::No : TAnswer::Cancel;
}

/// "Description (*.EXT)|*.EXT" in the toolkit's notation, which carries the patterns in the
/// brackets alone.
QString ToolkitFilter(const QString &filter) {
    return filter.section('|', 0, 0);
}

/// The toolkit's own dialog on every desktop, so that the filter ignores letter case everywhere.
void Prepare(QFileDialog &dialog, const QString &filter) {
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setNameFilter(ToolkitFilter(filter));
}

QString Chosen(QFileDialog &dialog) {
    const TArrowCursor arrow;
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
    RunBox(QMessageBox::NoIcon, text, QMessageBox::Ok, QMessageBox::Ok);
}

TAnswer TQtDialogs::AskYesNo(const QString &text) {
    return AnswerOf(
        RunBox(QMessageBox::Question, text, QMessageBox::Yes | QMessageBox::No, QMessageBox::No));
}

TAnswer TQtDialogs::AskYesNoCancel(const QString &text) {
    return AnswerOf(RunBox(QMessageBox::Question, text,
                           QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel,
                           QMessageBox::Cancel));
}

QString TQtDialogs::InputBox(const QString &caption, const QString &prompt, const QString &text) {
    QInputDialog dialog(WindowBelow());
    dialog.setWindowTitle(caption);
    // The prompt labels the edit, where a single ampersand would mark a shortcut letter.
    dialog.setLabelText(QString(prompt).replace('&', "&&"));
    dialog.findChild<QLabel *>()->setTextFormat(Qt::PlainText);
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
    dialog.setDirectory(QDir::currentPath());
    if (const QString offered = save.OfferedName(); !offered.isEmpty())
        dialog.selectFile(offered);
    const QString name = Chosen(dialog);
    if (name.isEmpty())
        return false;
    save.fileName = name;
    return true;
}
