// The legend of the contents view: what its colours mean (Marks.h) and what is searched for.
#pragma once

#include "filedisplay/SearchParameters.h"
#include "forms/baseform.h"

#include <QLabel>

class QGroupBox;

class TfrmKey : public TfrmBaseForm {
    Q_OBJECT
public:
    /// `parameters` outlives the window; they are read each time it is shown.
    TfrmKey(QWidget *owner, const TSearchParameters &parameters);

    /// Moves the window so that its bottom-right corner meets that of `window`.
    void PlaceAt(const QWidget &window);

protected:
    void FormShow() override { ShowParameters(); }

private:
    void ShowParameters();
    QWidget *MakeLegend();
    QWidget *MakeGroup(const QString &title, QLabel *&first, QLabel *&second);

    const TSearchParameters &parameters_;
    QLabel *lblFuelMin_;
    QLabel *lblFuelMax_;
    QLabel *lblTimingMin_;
    QLabel *lblTimingMax_;
    QLabel *lblRPMLocation_;
    QLabel *lblLoadLocation_;
};
