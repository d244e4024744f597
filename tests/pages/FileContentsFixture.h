// Base of the contents view's tests: the page on images of any bytes, its menu by action names, the
// colours as the grid's model gives them to tools.
#pragma once

#include "filedisplay/FileDisplay.h"
#include "forms/baseform.h"
#include "pages/PageFixture.h"

#include <QTextDocument>

class TFakePrinting : public IPrinting {
public:
    void RunSetup() override { ++setups; }
    void Print(const QTextDocument &text, const QString &jobTitle) override {
        jobs << jobTitle + "|" + text.toPlainText();
    }
    int setups = 0;
    QStringList jobs;
};

class TFileContentsTest : public TPageTest {
protected:
    TFileContentsTest() { TfrmBaseForm::ProgRegKey = "\\Software\\Kelvane\\Ferrolyn"; }

    /// Shows an image of these bytes under a file name of its own.
    void Show(const TBytes &bytes) {
        Put(0, bytes);
        Image().size = static_cast<std::int32_t>(bytes.size());
        workspace.romFileName = "image" + std::to_string(++files_) + ".BIN";
        page->ShowPage();
    }
    void Trigger(const QString &name) { FindControl<QAction>(*page, name).trigger(); }
    TStringAlignGrid &Grid() { return FindControl<TStringAlignGrid>(*page, "grdFile"); }
    TColor ColorAt(std::size_t offset) {
        const int row = static_cast<int>(offset / 16);
        const int column = static_cast<int>(offset % 16);
        return Grid().model()->index(row, column).data(Qt::UserRole + 1).toUInt();
    }

    TWorkspace workspace;
    TFakePrinting printing;
    std::unique_ptr<TfrmFileContents> page =
        std::make_unique<TfrmFileContents>(nullptr, workspace, printing);

private:
    int files_ = 0;
};
