// The base of the pages that show what differs from another image: "Changes" and "Compare".
#pragma once

#include "changes/DifferencesView.h"
#include "changes/ExportButton.h"
#include "forms/TEmbedFm.h"
#include "maps/FoldingLine.h"

#include <optional>

class QPushButton;

class TfrmDifferences : public TEmbeddedForm {
    Q_OBJECT
public:
    /// Compares anew.
    void ShowPage() override;

protected:
    /// `workspace` outlives the page.
    TfrmDifferences(QWidget *parent, TWorkspace &workspace);

    /// The image in force with its maps.
    TMappedImage Here() const;
    /// The other image with its maps; only while an image is loaded.
    virtual TMappedImage There() = 0;
    /// The name of the other image's file.
    virtual std::string FileThere() const = 0;
    /// Whether the other image is the one before, of which this one was made.
    virtual bool ThereIsBefore() const = 0;
    /// Says which buttons can be used.
    virtual void UpdateButtons() = 0;

    /// Compares and shows the result. Without an image, or without another one, there is none.
    void Compare();
    virtual bool HasOther() const { return true; }
    /// What is shown, if anything is.
    const std::optional<TComparison> &Shown() const { return shown_; }
    TDifferencesView &View() { return *view_; }

    /// Adds a button to the line below, in front of "Close Page".
    QPushButton *AddButton(const char *name, const QString &text, const QString &hint,
                           const std::function<void()> &click);
    /// Adds a line of controls above all, before any button; Tab comes to `first` and `second`
    /// before the others.
    void AddOnTop(QWidget *controls, QWidget *first, QWidget *second);

    TWorkspace &workspace;

private:
    TExported Exported() const;

    TDifferencesView *view_;
    QLabel *lblTotal_;
    TFoldingLine *buttons_;
    TExportButton *btnExport_;
    QPushButton *btnClose_;
    std::optional<TComparison> shown_;
};
