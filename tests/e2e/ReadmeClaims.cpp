// What README.md claims, checked at the window and in the files while its steps are walked.
#include "ReadmeWalk.h"
#include "filedisplay/Marks.h"
#include "forms/PageControl.h"
#include "model/ROMTypes.h"
#include "samples/SampleImage.h"

#include <algorithm>
#include <cstdlib>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QTabBar>
#include <QTreeWidget>

namespace {
constexpr int ownTabs = 6;

int Byte(int offset) {
    return ROMImage()->Peek(offset);
}

int FromWord(const QString &word) {
    static const QStringList words{"no", "one", "two", "three", "four", "five"};
    return int(words.indexOf(word.toLower()));
}

QString Hex(int address) {
    return QString("%1").arg(address, 4, 16, QChar('0')).toUpper();
}

/// How far a map with one axis lies from a row of one with two.
int Distance(const TLayout &linear, const TLayout &twoD, int load) {
    int sum = 0;
    for (int rpm = 0; rpm < linear.rpmCount; ++rpm)
        sum += std::abs(Byte(linear.Cell(rpm, 0)) - Byte(twoD.Cell(rpm, load)));
    return sum;
}
} // namespace

void TReadmeWalk::ExpectFirstFolder() {
    const QString folder = session_.dialogs.openDialogs.constLast().section('|', -1);
    Expect(folder == QCoreApplication::applicationDirPath(), "it opens in " + folder);
}

void TReadmeWalk::ExpectFolder() {
    Expect(QDir(FERROLYN_SOURCE_DIR).exists(Part(1)), "no folder " + Part(1));
}

/// From where ./run leaves the program.
void TReadmeWalk::ExpectPath() {
    const QDir top(FERROLYN_SOURCE_DIR);
    const QString named = QDir::cleanPath(top.filePath("build/release/src/" + Part(1)));
    Expect(QFileInfo(named).isFile() && named.section('/', -1) == Named("`([A-Z0-9]+\\.BIN)`"),
           "nothing is at " + named);
}

void TReadmeWalk::ExpectLoaded() {
    const QString title = session_.window->windowTitle();
    Expect(title.startsWith("Ferrolyn - ") && title.endsWith('/' + Part(1)), "title " + title);
    Expect(ROMImage()->size == int(session_.Read(Part(1).toStdString()).size()), "not loaded");
}

void TReadmeWalk::ExpectSaved() {
    Expect(!session_.Read(Part(1).toStdString()).empty(), "nothing saved as " + Part(1));
    if (Part(1).endsWith(".BIN"))
        ExpectLoaded();
}

void TReadmeWalk::ExpectLabel() {
    const QString box = session_.dialogs.inputBoxes.constLast();
    Expect(box.startsWith("Display label|"), "no label is asked for but " + box);
}

void TReadmeWalk::ExpectByteAsTrim() {
    TFuelVal value;
    value.raw = Number(1);
    Expect(QString::number(value.GetConverted(), 'f', 2) == Part(2), "it is another trim");
}

void TReadmeWalk::ExpectColor() {
    Expect(Part(1) == "blue" && hands_.TypedColor() == clBlue, "it has another colour");
}

void TReadmeWalk::ExpectPlain() {
    Expect(hands_.TypedColor() == clWindowText, "it is not plain");
}

void TReadmeWalk::ExpectChanges() {
    const auto &list = FindControl<QTreeWidget>(*session_.window->CurrentPage(), "lstChanges");
    Expect(list.topLevelItemCount() == FromWord(Part(1)), "there are more or fewer lines");
    const QTreeWidgetItem &line = *list.topLevelItem(0);
    Expect(line.text(0) == Part(2) && line.text(1) == Part(3),
           "it says " + line.text(0) + ", " + line.text(1));
}

void TReadmeWalk::ExpectOldValue() {
    const auto &grid = FindControl<TStringAlignGrid>(*session_.window->CurrentPage(), "grdChanges");
    QStringList two;
    for (int row = 1; row < grid.RowCount(); ++row)
        for (int column = 1; column < grid.ColCount(); ++column)
            if (grid.Cell(column, row).contains('\n'))
                two << grid.Cell(column, row);
    Expect(two == QStringList(Part(1) + '\n' + Part(2)), "it shows " + two.join(", "));
}

void TReadmeWalk::ExpectLikely() {
    const QString line = FindControl<QLabel>(*session_.window->CurrentPage(), "lblFound").text();
    Expect(line.startsWith(Part(1) + " in "), "it says " + line);
    int bold = 0;
    const auto &list = FindControl<QTreeWidget>(*session_.window->CurrentPage(), "lstFound");
    while (bold < list.topLevelItemCount() && list.topLevelItem(bold)->font(0).bold())
        ++bold;
    Expect(Part(1).startsWith(QString("%1 likely").arg(bold)), QString("%1 are bold").arg(bold));
}

void TReadmeWalk::ExpectGiven() {
    const TMapKind kind = Part(1) == "idle"            ? TMapKind::Idle
                          : Part(1) == "part throttle" ? TMapKind::PT
                                                       : TMapKind::WOT;
    const TWorkspace &maps = session_.window->workspace;
    Expect(maps.fuelMapSet.Map(kind).GetLocation() == Address(2) &&
               maps.timingMapSet.Map(kind).GetLocation() == Address(3),
           "they are elsewhere");
    const auto &list = FindControl<QTreeWidget>(*session_.window->CurrentPage(), "lstFound");
    for (const int part : {2, 3})
        Expect(list.findItems('$' + Part(part), Qt::MatchExactly, 2).size() == 1,
               "not in the list: $" + Part(part));
}

void TReadmeWalk::ExpectDifference() {
    const TBytes before = session_.Read("FERRO32K.BIN");
    const TBytes after = session_.Read(Named("such as `([A-Z0-9]+\\.BIN)`").toStdString());
    Expect(before.size() == after.size(), "the lengths differ");
    int differing = 0;
    for (std::size_t i = 0; i < before.size(); ++i) {
        if (before[i] == after[i])
            continue;
        ++differing;
        Expect(int(i) == Address(4) && after[i] == Number(2) && before[i] == Number(3),
               QString("$%1 has %2 instead of %3").arg(Hex(int(i))).arg(after[i]).arg(before[i]));
    }
    Expect(differing == FromWord(Part(1)), QString("%1 bytes differ").arg(differing));
}

void TReadmeWalk::ExpectRowLength() {
    Expect(hands_.Contents().ColCount() == Number(1) + 1, "rows are of another length");
}

/// Each map with two axes has two counts.
void TReadmeWalk::ExpectOneMapEach() {
    Expect(int(Marked().size()) == 2 * 2 * FromWord(Part(1)), "another number of maps");
}

void TReadmeWalk::ExpectTabs() {
    const int tabs = session_.window->PageCount() - ownTabs;
    Expect(tabs == FromWord(Part(1)), QString("%1 tabs").arg(tabs));
}

QString TReadmeWalk::TabOf(int address) const {
    const QTabBar &tabs = *session_.window->PageControl1->tabBar();
    for (int tab = ownTabs; tab < tabs.count(); ++tab)
        if (tabs.tabText(tab).endsWith('$' + Hex(address)))
            return tabs.tabText(tab);
    return {};
}

void TReadmeWalk::ExpectPage() {
    const QString caption = TabOf(Address(2));
    Expect(caption.contains(Part(1), Qt::CaseInsensitive), "its page is " + caption);
}

void TReadmeWalk::ExpectFalsePages() {
    memory_.falsePages = {Address(1), Address(2)};
    for (const int address : memory_.falsePages) {
        Expect(!TabOf(address).isEmpty(), "no page of " + Hex(address));
        Expect(Byte(address) == Number(3), "another byte at " + Hex(address));
    }
}

void TReadmeWalk::ExpectFirstBytes() {
    Expect(Byte(Address(1)) == Number(2) && Byte(Address(3)) == Number(2), "other bytes");
}

std::set<int> TReadmeWalk::Marked() {
    const TStringAlignGrid &grid = hands_.Contents();
    std::set<int> places;
    for (int row = 1; row < grid.RowCount(); ++row)
        for (int column = 1; column < grid.ColCount(); ++column)
            if (grid.CellColor(column, row) == axisCountColor)
                places.insert((row - 1) * 16 + column - 2);
    return places;
}

std::set<int> TReadmeWalk::NewlyMarked() {
    std::set<int> places = Marked();
    for (const int place : memory_.marked)
        places.erase(place);
    return places;
}

/// Tries it, and puts the marks back as they were.
void TReadmeWalk::ExpectChanceFinds() {
    memory_.marked = Marked();
    hands_.ChooseInMenu("Search and Highlight Maps", "Fuel - WOT/Idle");
    hands_.ChooseInMenu("Search and Highlight Maps", "Timing - WOT/Idle");
    const std::set<int> found = NewlyMarked();
    const int byChance = int(found.size());
    const auto &maps = Sample64K().maps;
    const auto isTrue = [&](int place) { return std::count(maps.begin(), maps.end(), place) > 0; };
    const auto right = int(std::count_if(found.begin(), found.end(), isTrue));
    hands_.ChooseInMenu("Clear All Markers");
    hands_.ChooseInMenu("Search and Highlight Maps", "Fuel - Part Throttle");
    hands_.ChooseInMenu("Search and Highlight Maps", "Timing - Part Throttle");
    Expect(Marked() == memory_.marked, "the marks are other ones after that");
    Expect(byChance == Number(1) && right == Number(2),
           QString("%1 are marked, %2 of them true").arg(byChance).arg(right));
}

void TReadmeWalk::ExpectLinearFinds() {
    const std::set<int> found = NewlyMarked();
    Expect(found == std::set<int>{Address(3), Address(4), Address(5), Address(6)} &&
               int(found.size()) == Number(1),
           QString("%1 are marked, or others").arg(found.size()));
    const TStringAlignGrid &grid = hands_.Contents();
    const auto byFuel = std::count_if(found.begin(), found.end(), [&](int place) {
        return grid.CellColor(place % 16 + 1, place / 16 + 1) == fuelMapColor;
    });
    Expect(2 * byFuel == Number(1) && byFuel == Number(2), "not as many by each search");
}

void TReadmeWalk::ExpectClearing() {
    Expect(Part(1) == memory_.answer && hands_.Shows(Part(2)), "nothing is cleared like that");
}

void TReadmeWalk::TakeResemblance() {
    memory_.idleRow = Part(1);
    memory_.wotRow = Part(2);
}

/// Of the map that was given to a page last, once the README has said how to tell.
void TReadmeWalk::ExpectResemblance() const {
    if (memory_.idleRow.isEmpty())
        return;
    const QString item = Part(2);
    const TBytes image = session_.Read("FERRO64K.BIN");
    const TLayout linear = LayoutOf(image, Address(1), false);
    const TWorkspace &workspace = session_.window->workspace;
    const TMap &partThrottle =
        item.startsWith("Fuel") ? *workspace.fuelMapSet.PTMap : *workspace.timingMapSet.PTMap;
    const TLayout twoD = LayoutOf(image, partThrottle.GetLocation(), true);
    const bool first = Distance(linear, twoD, 0) < Distance(linear, twoD, twoD.loadCount - 1);
    const QString row = item.endsWith("- Idle") ? memory_.idleRow : memory_.wotRow;
    Expect(first == (row == "first"), item + " resembles the other row");
}

void TReadmeWalk::ExpectMention() {
    Expect(hands_.Shows(Part(1)), "nothing is called " + Part(1));
}
