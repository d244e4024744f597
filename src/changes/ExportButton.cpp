#include "changes/ExportButton.h"

#include "changes/ChangesReport.h"
#include "changes/ChangesTable.h"
#include "forms/Dialogs.h"
#include "forms/Guard.h"
#include "forms/Hint.h"
#include "forms/Paths.h"
#include "system/SafeFile.h"

#include <tuple>

#include <QMenu>

namespace {
namespace fs = std::filesystem;

void WriteText(const fs::path &target, const std::string &text) {
    WriteFileSafely(target, {reinterpret_cast<const std::uint8_t *>(text.data()), text.size()});
}

void WritePatch(const fs::path &target, const TExported &exported) {
    WriteText(target, PatchText(ExportedPatch(exported)));
}

void WriteTable(const fs::path &target, const TExported &exported) {
    const auto &[before, after] = std::tie(exported.before, exported.after);
    WriteText(target, ChangesTable(ImageChanges(before, after), before, after));
}
} // namespace

TExportButton::TExportButton(QWidget *page)
    : QPushButton(tr("&Export"), page), dlgExport_(new TSaveDialog(page, "dlgExport")) {
    setObjectName("btnExport");
    SetHint(this, tr("Write the differences into a file: patch, table or printed pages"));
    auto *formats = new QMenu(this);
    formats->setObjectName("mnuExport");
    setMenu(formats);
    AddFormat("actPatch", tr("&Patch..."), ".patch", tr("Patches (*.patch)|*.patch"), WritePatch);
    AddFormat("actTable", tr("&Table..."), ".csv", tr("Tables (*.csv)|*.csv"), WriteTable);
    AddFormat("actPages", tr("Pr&inted Pages..."), ".pdf", tr("Printed pages (*.pdf)|*.pdf"),
              WriteReport);
}

void TExportButton::AddFormat(const char *name, const QString &text, const QString &extension,
                              const QString &filter, TWriter write) {
    QAction *action = menu()->addAction(text);
    action->setObjectName(name);
    ConnectGuarded(action, &QAction::triggered, this, [this, extension, filter, write] {
        if (const std::optional<fs::path> target = AskForTarget(extension, filter))
            write(*target, OnExport());
    });
}

std::optional<fs::path> TExportButton::AskForTarget(const QString &extension,
                                                    const QString &filter) {
    dlgExport_->defaultExt = extension;
    dlgExport_->title = tr("Export Differences");
    dlgExport_->filter = filter;
    if (!dlgExport_->Execute())
        return std::nullopt;
    const fs::path target = ToPath(dlgExport_->fileName);
    const bool write =
        !MayExist(target) || Dialogs().AskYesNo(tr("Overwrite existing file?")) == TAnswer::Yes;
    return write ? std::optional(target) : std::nullopt;
}
