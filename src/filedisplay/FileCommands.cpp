#include "filedisplay/FileCommands.h"

#include "filedisplay/FileDisplay.h"
#include "forms/Commands.h"

#include <QCoreApplication>

namespace {
/// For the texts of this file.
struct TFileCommands {
    Q_DECLARE_TR_FUNCTIONS(TFileCommands)
};
} // namespace

void AddFileCommands(TfrmFileContents &page) {
    const auto add = [&page](const char *name, const QString &text, QKeyCombination keys,
                             const std::function<void()> &run) {
        AddCommand(page, {name, text, {keys}, run, [&page] { return !page.session.IsEmpty(); }});
    };
    add("actGoToOffset", TFileCommands::tr("Go to &Offset..."), Qt::CTRL | Qt::Key_G,
        [&page] { page.walk.GoToOffset(); });
    add("actNextMark", TFileCommands::tr("&Next Mark"), Qt::Key_F3,
        [&page] { page.walk.GoToMark(TWay::Forward); });
    add("actPreviousMark", TFileCommands::tr("&Previous Mark"), Qt::SHIFT | Qt::Key_F3,
        [&page] { page.walk.GoToMark(TWay::Backward); });
    AddCommandLine(page);
    add("actCopyCells", TFileCommands::tr("&Copy Cells"), Qt::CTRL | Qt::Key_C,
        [&page] { page.CopyCells(); });
    add("actCopyCellsWithHeaders", TFileCommands::tr("Copy Cells with &Headers"),
        Qt::CTRL | Qt::SHIFT | Qt::Key_C, [&page] { page.CopyCellsWithHeaders(); });
}
