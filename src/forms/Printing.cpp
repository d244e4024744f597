#include "forms/Printing.h"

#include "forms/QtDialogs.h"
#include "system/Errors.h"

#include <QPrintDialog>
#include <QPrinter>
#include <QTextDocument>

TPrinting::TPrinting() = default;
TPrinting::~TPrinting() = default;

QPrinter &TPrinting::Printer() {
    if (!printer_)
        printer_ = std::make_unique<QPrinter>();
    return *printer_;
}

void TPrinting::RunSetup() {
    QPrintDialog dialog(&Printer(), WindowBelow());
    dialog.setObjectName("PrintDialog1");
    dialog.exec();
}

void TPrinting::Print(const QTextDocument &text, const QString &jobTitle) {
    QPrinter &printer = Printer();
    if (!printer.isValid())
        throw EFileError(tr("There is no printer").toStdString());
    printer.setPageOrientation(QPageLayout::Landscape);
    printer.setDocName(jobTitle);
    text.print(&printer);
    if (printer.printerState() == QPrinter::Error) {
        const QString file = printer.outputFileName();
        const QString target = file.isEmpty() ? printer.printerName() : file;
        throw EFileError(tr("The printer does not take the job: %1").arg(target).toStdString());
    }
}
