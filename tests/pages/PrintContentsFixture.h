// Base of the tests of the contents view on paper: a print into a PDF file.
#pragma once

#include "filedisplay/FileDisplay.h"
#include "forms/baseform.h"
#include "pages/PageFixture.h"

#include <QPrinter>

class TPrintContentsTest : public TPageTest {
protected:
    TPrintContentsTest() {
        TfrmBaseForm::ProgRegKey = "\\Software\\Kelvane\\Ferrolyn";
        printing.Printer().setOutputFormat(QPrinter::PdfFormat);
        printing.Printer().setOutputFileName(Pdf());
    }
    QString Pdf() { return QString::fromStdString((folder.Path() / "print.pdf").string()); }

    void Print(const TBytes &bytes) {
        Put(0, bytes);
        Image().size = static_cast<std::int32_t>(bytes.size());
        workspace.romFileName = "image.BIN";
        page.ShowPage();
        FindControl<QAction>(page, "Print1").trigger();
    }
    TWorkspace workspace;
    TPrinting printing;
    TfrmFileContents page{nullptr, workspace, printing};
};
