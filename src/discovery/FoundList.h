// The list of the page "Find Maps": a line for each map that was found, best first until another
// order is chosen.
#pragma once

#include "discovery/FoundMaps.h"
#include "model/Workspace.h"

#include <optional>

#include <QTreeWidget>

class TFoundList : public QTreeWidget {
    Q_OBJECT
public:
    enum TColumn { Rank, Kind, Offset, Shape, Rpm, Load, Chance, Picture, Given, Why };

    explicit TFoundList(QWidget *parent);

    /// Lists what was found in `image`, which is the one in force, and chooses the first line.
    void Show(const TFoundMaps &found, TRomBytes image);
    /// Says in each line which maps of the notebook are at its place.
    void TellGiven(const TFoundMaps &found, const TWorkspace &workspace);
    /// Adds the menu "Sort by" to the commands of `pane`.
    void AddCommandsTo(QWidget &pane);
    /// Which of the found maps the chosen line shows, if one is chosen.
    std::optional<std::size_t> Chosen() const;

private:
    void AddLine(const TFoundMap &map, std::size_t rank, bool likely, TRomBytes image);
    /// In rising order; in falling order when it is sorted so already.
    void SortBy(TColumn column);
    void TellReaders(QTreeWidgetItem &line);
    void FitColumns();
};
