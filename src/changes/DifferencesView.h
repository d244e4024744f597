// The differences of two images: a list of what differs, and beside it the map that is chosen
// there, its changed cells coloured by direction with the other value beneath, and a chart of the
// differences. It only looks; what the buttons around it do is the pages'.
#pragma once

#include "changes/MapChanges.h"
#include "changes/TextGrid.h"
#include "maps/MapChart.h"

#include <functional>

#include <QWidget>

class QLabel;
class QTreeWidget;
class TStringAlignGrid;

/// What differs between an image ("here") and another ("there"); see ImageChanges, for which "here"
/// is the one after.
struct TComparison {
    TMappedImage here;
    TMappedImage there;
    TImageChanges changes;

    TComparison(TMappedImage hereImage, TMappedImage thereImage)
        : here(std::move(hereImage)),
          there(std::move(thereImage)),
          changes(ImageChanges(there, here)) {}
};

class TDifferencesView : public QWidget {
    Q_OBJECT
public:
    explicit TDifferencesView(QWidget *parent);

    /// Something was chosen in the list, or cells in the grid.
    std::function<void()> OnChoose;

    /// Shows `comparison`, which lives until the next call; none empties the view. What was chosen
    /// in the list stays chosen where it still differs, else the first one is.
    void Show(const TComparison *comparison);

    /// Tab goes from this control into the view.
    void TabFrom(QWidget *control);

    enum class TKind { None, Map, RevLimiter, Elsewhere };
    /// What is chosen in the list.
    TKind Chosen() const;
    /// The chosen map; only with TKind::Map.
    const TMapChanges &ChosenMap() const;
    /// Those of the chosen map that are selected in the grid and differ.
    std::vector<TCellChange> SelectedCells() const;

private:
    void MakeList();
    void MakeTable();
    QWidget *MakeLegend();
    void LayOut();
    void FillList();
    void AddItem(int item, const QString &name, const QString &text);
    int ChosenItem() const;
    void ShowChosen();
    void ShowMap(const TMapChanges &map);
    void MarkCells(const TMapChanges &map);
    void MarkAxes();
    void MarkCell(int column, int row, bool higher);
    void FillChart(const TMapChanges &map);
    void ShowRuns(const std::vector<TByteRun> &runs);
    void ShowRevLimiter(const TByteDifference &limiter);
    void ShapeTable(const QStringList &headers, int rows);
    void FitColumns();
    void TellCell();

    const TComparison *comparison_ = nullptr;
    TTextGrid hereTexts_;
    TTextGrid thereTexts_;
    QTreeWidget *lstChanges_;
    TStringAlignGrid *grdChanges_;
    QLabel *lblCell_;
    TAreaChart *chtChanges_;
    TMapChart chartView_;
};
