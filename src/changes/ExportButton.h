// The button "Export" of the pages that show differences, with its menu: as a patch, as a table, as
// printed pages.
#pragma once

#include "changes/Exported.h"

#include <functional>
#include <optional>

#include <QPushButton>

class TSaveDialog;

class TExportButton : public QPushButton {
    Q_OBJECT
public:
    explicit TExportButton(QWidget *page);

    /// Gives what is to be exported; while there is nothing, the button is disabled.
    std::function<TExported()> OnExport;

private:
    using TWriter = void (*)(const std::filesystem::path &target, const TExported &exported);
    void AddFormat(const char *name, const QString &text, const QString &extension,
                   const QString &filter, TWriter write);
    std::optional<std::filesystem::path> AskForTarget(const QString &extension,
                                                      const QString &filter);

    TSaveDialog *dlgExport_;
};
