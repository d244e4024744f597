// Printing of text: the set-up dialog and the print itself, behind one interface like the dialogs
// (Dialogs.h), so that tests need no printer.
#pragma once

#include <memory>

#include <QCoreApplication>
#include <QString>

class QPrinter;
class QTextDocument;

class IPrinting {
public:
    virtual ~IPrinting() = default;
    /// Lets the user choose the printer that Print uses from then on.
    virtual void RunSetup() = 0;
    /// Prints `text` in landscape under the title of a print job, without a question.
    /// @throws EFileError when there is no printer or it does not take the job
    virtual void Print(const QTextDocument &text, const QString &jobTitle) = 0;
};

/// The toolkit's printing. The printer is made at the first use, because looking for printers takes
/// time.
class TPrinting : public IPrinting {
    Q_DECLARE_TR_FUNCTIONS(TPrinting)
public:
    TPrinting();
    ~TPrinting() override;
    void RunSetup() override;
    void Print(const QTextDocument &text, const QString &jobTitle) override;

    /// The printer in force.
    QPrinter &Printer();

private:
    std::unique_ptr<QPrinter> printer_;
};
