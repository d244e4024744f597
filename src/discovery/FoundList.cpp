#include "discovery/FoundList.h"

#include "discovery/FindTexts.h"
#include "discovery/FoundPicture.h"
#include "discovery/FoundRanges.h"
#include "discovery/NotebookMaps.h"
#include "forms/Commands.h"
#include "forms/Hint.h"
#include "model/Numbers.h"

#include <algorithm>

#include <QHeaderView>
#include <QIcon>
#include <QMenu>
#include <QPainter>

namespace {
constexpr int sortRole = Qt::UserRole;      ///< the number by which a cell is sorted
constexpr int indexRole = Qt::UserRole + 1; ///< of a line's first cell: which found map it shows
constexpr int reasonsInLine = 2;

/// A line of the list; what has no number is sorted by its text.
class TFoundLine : public QTreeWidgetItem {
public:
    using QTreeWidgetItem::QTreeWidgetItem;
    bool operator<(const QTreeWidgetItem &other) const override {
        const int column = treeWidget()->sortColumn();
        const QVariant number = data(column, sortRole);
        return number.isValid() ? number.toDouble() < other.data(column, sortRole).toDouble()
                                : QTreeWidgetItem::operator<(other);
    }
};

constexpr QSize mostOfPicture(64, 32);
constexpr int barHeight = 12; ///< of the picture of a linear map
constexpr int gap = 2;        ///< above a picture and below it

/// Each byte a small square, of a linear map a bar.
QSize EnlargedSize(QSize picture) {
    const int fits = std::min(mostOfPicture.width() / picture.width(),
                              mostOfPicture.height() / picture.height());
    const int square = std::clamp(fits, 1, 4);
    return {picture.width() * square,
            picture.height() == 1 ? barHeight : picture.height() * square};
}

QIcon Enlarged(const QImage &picture, qreal ratio) {
    const QSize size = EnlargedSize(picture.size());
    // As wide as the list has them, or finely scaled screens would draw it larger.
    QPixmap pixmap((QSizeF(mostOfPicture.width(), size.height() + 2 * gap) * ratio).toSize());
    pixmap.fill(Qt::transparent);
    pixmap.setDevicePixelRatio(ratio);
    QPainter(&pixmap).drawImage(QRect(QPoint(0, gap), size), picture);
    QIcon icon(pixmap);
    icon.addPixmap(pixmap, QIcon::Selected); // the colours are data
    return icon;
}

std::size_t IndexOf(const QTreeWidgetItem &line) {
    return line.data(TFoundList::Rank, indexRole).value<std::size_t>();
}

QFont Bold(QFont font) {
    font.setBold(true);
    return font;
}

QString FirstReasons(const TFoundMap &map) {
    QStringList reasons;
    for (const TReason &reason : Reasons(map))
        if (reasons.size() < reasonsInLine)
            reasons << QString::fromStdString(reason.text);
    return reasons.join("; ");
}
} // namespace

TFoundList::TFoundList(QWidget *parent) : QTreeWidget(parent) {
    setObjectName("lstFound");
    setHeaderLabels({tr("Rank"), tr("Seems to be"), tr("Offset"), tr("Shape"), tr("RPM"),
                     tr("Load"), tr("Chance"), tr("Picture"), tr("In the notebook"),
                     tr("Reasons")});
    header()->setStretchLastSection(false);
    setRootIsDecorated(false);
    setIconSize(mostOfPicture + QSize(0, 2 * gap));
    setAllColumnsShowFocus(true);
    setSortingEnabled(true);
    setAccessibleName(tr("Found maps"));
    SetHint(this, tr("Enter or a double-click draws the map; 1 to 6 give it to the notebook; a "
                     "click on a header sorts"));
}

void TFoundList::Show(const TFoundMaps &found, TRomBytes image) {
    setSortingEnabled(false); // or each new line would be sorted by itself
    clear();
    for (std::size_t i = 0; i < found.maps.size(); ++i)
        AddLine(found.maps[i], i, i < found.likely, image);
    setSortingEnabled(true);
    sortByColumn(Rank, Qt::AscendingOrder);
    setCurrentItem(topLevelItem(0));
}

void TFoundList::AddLine(const TFoundMap &map, std::size_t rank, bool likely, TRomBytes image) {
    auto *line = new TFoundLine(this);
    const auto tell = [line](TColumn column, const QString &text, double number) {
        line->setText(column, text);
        line->setData(column, sortRole, number);
        line->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    };
    const auto text = [](const std::string &words) { return QString::fromStdString(words); };
    tell(Rank, QString::number(rank + 1), static_cast<double>(rank));
    line->setData(Rank, indexRole, QVariant::fromValue(rank));
    line->setText(Kind, text(KindText(map)));
    tell(Offset, text(FormatOffset(static_cast<std::int32_t>(map.place.offset))), map.place.offset);
    tell(Shape, text(ShapeText(map.place)), static_cast<double>(map.place.BodySize()));
    const TAxisRange rpm = RpmRange(map.place);
    tell(Rpm, text(rpm.Text()), rpm.SortKey());
    const std::optional<TAxisRange> load = LoadRange(map.place);
    tell(Load, load ? tr("%1 %").arg(text(load->Text())) : QString(), load ? load->SortKey() : -1);
    tell(Chance, (likely ? tr("%1, likely") : tr("%1, less likely")).arg(text(ChanceText(map))),
         map.score);
    line->setIcon(Picture, Enlarged(FoundPicture(image, map.place), devicePixelRatioF()));
    line->setData(Picture, sortRole, static_cast<double>(rank));
    line->setText(Why, FirstReasons(map));
    if (likely)
        for (const TColumn column : {Rank, Kind, Offset})
            line->setFont(column, Bold(font()));
    TellReaders(*line);
}

/// What stands in the line, to whoever hears its first cell alone, and what its picture shows.
void TFoundList::TellReaders(QTreeWidgetItem &line) {
    line.setData(Rank, Qt::AccessibleTextRole,
                 tr("%1: %2 at %3, %4")
                     .arg(line.text(Rank), line.text(Kind), line.text(Offset), line.text(Chance)));
    line.setData(Picture, Qt::AccessibleTextRole, tr("The map's bytes in colours"));
}

void TFoundList::TellGiven(const TFoundMaps &found, const TWorkspace &workspace) {
    setSortingEnabled(false); // or the lines would move meanwhile
    for (int i = 0; i < topLevelItemCount(); ++i) {
        QTreeWidgetItem &line = *topLevelItem(i);
        line.setText(Given,
                     QString::fromStdString(MapsAt(workspace, found.maps[IndexOf(line)].place)));
    }
    setSortingEnabled(true);
    FitColumns();
}

void TFoundList::AddCommandsTo(QWidget &pane) {
    QMenu &menu = *AddCommandMenu(pane, "mnuSort", tr("Sort &by"));
    const auto add = [&](const char *name, TColumn column, const QString &text) {
        AddCommand(menu, {.name = name,
                          .text = text,
                          .keys = {},
                          .run = [this, column] { SortBy(column); },
                          .isOn = [this, column] { return sortColumn() == column; }});
    };
    add("actSortRank", Rank, tr("&Rank"));
    add("actSortKind", Kind, tr("&Seems to be"));
    add("actSortOffset", Offset, tr("&Offset"));
    add("actSortShape", Shape, tr("S&hape"));
    add("actSortRpm", Rpm, tr("R&PM"));
    add("actSortLoad", Load, tr("&Load"));
    add("actSortChance", Chance, tr("&Chance"));
    add("actSortGiven", Given, tr("&In the notebook"));
    add("actSortReasons", Why, tr("R&easons"));
}

void TFoundList::SortBy(TColumn column) {
    const bool rising =
        sortColumn() == column && header()->sortIndicatorOrder() == Qt::AscendingOrder;
    sortByColumn(column, rising ? Qt::DescendingOrder : Qt::AscendingOrder);
}

std::optional<std::size_t> TFoundList::Chosen() const {
    const QTreeWidgetItem *line = currentItem();
    return line ? std::optional(IndexOf(*line)) : std::nullopt;
}

void TFoundList::FitColumns() {
    for (int column = 0; column < columnCount(); ++column)
        resizeColumnToContents(column);
}
