// The bulk adjust window of one map page: adds a number to, or subtracts it from, many cells of one
// of the page's grids at once, as if the user had typed the new values. The arithmetic is
// BulkAdjust.h's.
#pragma once

#include "forms/RadioGroup.h"
#include "maps/BulkAdjust.h"
#include "maps/ExitEdit.h"

#include <QDockWidget>
#include <QLabel>

class TfrmMaps;
class QPushButton;

/// Floats on top and can be docked into the notebook. Made when its page is shown and destroyed
/// when it is hidden, so that its settings start from their defaults each time.
class TfrmToolWindow : public QDockWidget {
    Q_OBJECT
public:
    /// `page` outlives the window.
    explicit TfrmToolWindow(TfrmMaps &page);

    int Sign = 1;            ///< +1 "Add", -1 "Subtract"
    int Scale = 0;           ///< 0 "Units", 1 "Percent"
    int Range = 0;           ///< 0 "All", 1 "Row", 2 "Column"
    int DataSet = 0;         ///< 0 part throttle, 1 idle, 2 full throttle
    std::int32_t Amount = 0; ///< of `edtVal` as it was last left

    void rdoOperationClick();
    void rdoScaleClick();
    void rdoRangeClick();
    void rdoDatasetClick();
    /// @throws EConvertError for a text that is no integer; the amount stays
    void edtValExit();
    void btnExecClick();

    /// Brings the state in step with the controls; runs when the window is shown.
    void FormShow();

protected:
    void showEvent(QShowEvent *event) override;
    bool event(QEvent *event) override;

private:
    TRadioGroup *MakeGroup(const char *name, const QString &title, const QStringList &items);
    QWidget *MakeContents();
    void FitTo(const QWidget &contents);
    /// To the right of `window`, as far as the screen has room there.
    void ConnectControls();
    void MakeReachable();
    /// Above all other windows, or not, while it floats.
    void StayOnTop(bool stay);
    /// Makes `requested` the range, or what counts in its place, and shows it.
    void ApplyRange(TAdjustRange requested);

    TfrmMaps &page_;
    // Made, and visited by Tab, from top to bottom.
    TRadioGroup *rdoOperation_;
    TExitEdit *edtVal_;
    TRadioGroup *rdoScale_;
    QLabel *lblfromto_;
    TRadioGroup *rdoRange_;
    TRadioGroup *rdoDataset_;
    QPushButton *btnExec_;
};
