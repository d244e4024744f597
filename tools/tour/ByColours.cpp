#include "Roads.h"
#include "forms/Aligrid.h"
#include "forms/PageControl.h"
#include "forms/TEmbedFm.h"
#include "model/ROMTypes.h"

#include <array>

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace {
constexpr int fuelMap = 0xB2C6;
constexpr int timingMap = 0xC91A;
constexpr int contentsTab = 5;
constexpr int rpmLocation = 74; // the first byte of every map of the sample

/// Where the sample has its maps, and the menu items that give them to a page.
struct TPlace {
    int offset;
    const char *item;
};
constexpr std::array<TPlace, 6> places{{{fuelMap, "Fuel Maps - Part Throttle"},
                                        {0xB406, "Fuel Maps - Idle"},
                                        {0xB43D, "Fuel Maps - WOT"},
                                        {timingMap, "Timing Maps - Part Throttle"},
                                        {0xC8D0, "Timing Maps - Idle"},
                                        {0xCA04, "Timing Maps - WOT"}}};

class TColouredImage {
public:
    explicit TColouredImage(const TRoad &road)
        : road_(road),
          grid_(road.driver.Find<TStringAlignGrid>("grdFile", road.window.GetPage(contentsTab))) {}

    void Search(const QString &item, const QString &picture) {
        road_.driver.OpenMenu(*grid_.viewport(), {120, 60}, {"Search and Highlight Maps", item});
        if (!picture.isEmpty())
            road_.Picture(picture);
        road_.driver.TriggerMenu();
    }
    void Menu(const QStringList &path) {
        road_.driver.OpenMenu(*grid_.viewport(), {120, 60}, path);
        road_.driver.TriggerMenu();
    }
    /// Scrolls to a byte and clicks it.
    void ClickByte(int offset) {
        const QModelIndex cell =
            grid_.model()->index(offset / 16, offset % 16); // without the headers
        grid_.scrollTo(cell, QAbstractItemView::PositionAtCenter);
        QTest::mouseClick(grid_.viewport(), Qt::LeftButton, {}, grid_.visualRect(cell).center());
        TDriver::Expect(grid_.Row() == offset / 16 + 1 && grid_.Col() == offset % 16 + 1,
                        "the byte is the current cell");
    }
    bool IsMarked(int offset) const {
        return grid_.CellColor(offset % 16 + 1, offset / 16 + 1) != clWindow;
    }
    bool HasTab(const QString &caption) const {
        const QTabWidget &tabs = *road_.window.PageControl1;
        for (int i = 0; i < tabs.count(); ++i)
            if (tabs.tabText(i) == caption)
                return true;
        return false;
    }

private:
    const TRoad &road_;
    TStringAlignGrid &grid_;
};

QWidget *TopLevel(const QString &name) {
    for (QWidget *window : QApplication::topLevelWidgets())
        if (window->objectName() == name && window->isVisible())
            return window;
    return nullptr;
}
} // namespace

void ByColours(const TRoad &road) {
    TDriver &driver = road.driver;
    TfrmNotebook &window = road.window;
    const QString source = road.File("FERRO64K.BIN");

    TDriver::Step("load " + source);
    driver.ClickAndChooseFile(driver.Find<QPushButton>("btnLoad"), source);
    TDriver::Expect(window.windowTitle() == "Ferrolyn - " + source, "the caption names the file");

    TDriver::Step("search it for part throttle maps");
    driver.SelectTab("File Contents");
    TColouredImage contents(road);
    contents.Search("Fuel - Part Throttle", "5-search");
    contents.Search("Timing - Part Throttle", {});

    TDriver::Step("open what was found");
    contents.Menu({"Add Notebook Map", "All Highlighted"});
    TDriver::Expect(contents.HasTab("2-D Fuel Map at $B2C6"), "the fuel map has a page");
    TDriver::Expect(contents.HasTab("2-D Timing Map at $C91A"), "the timing map has a page");

    TDriver::Step("look at the fuel map where it stands");
    contents.ClickByte(fuelMap);
    driver.Click(driver.Find<QPushButton>("Button1", window.GetPage(contentsTab)));
    road.Picture("6-found");
    TopLevel("frmKey")->close();
    contents.Menu({"Quick Map", "Selected Cell is 2D Map Offset"});
    road.Picture("7-quick-map");
    TopLevel("frmQuickChart")->close();

    TDriver::Step("find the maps with one axis, and give all six to their pages");
    QTimer::singleShot(0, qApp, [] {
        TDriver::WhenAsked(
            [](QDialog &box) { TDriver::ConfirmText(box, QString::number(rpmLocation)); });
    });
    contents.Menu({"Set Search Parameters", "RPM RAM Location"});
    contents.Search("Fuel - WOT/Idle", {});
    contents.Search("Timing - WOT/Idle", {});
    for (const TPlace &place : places) {
        TDriver::Expect(contents.IsMarked(place.offset), QString(place.item) + " is marked");
        contents.ClickByte(place.offset);
        contents.Menu({"Update Notebook Map", place.item});
    }
    driver.SelectTab("2-D Fuel Map at $B2C6");
    road.Picture("8-added-page");

    TDriver::Step("save their places");
    driver.SelectTab("ROM Information");
    driver.ClickAndSaveSpec(driver.Find<QPushButton>("btnSaveSpec", window.GetPage(0)),
                            road.File("FOUND.SPC"), "Found by myself");

    TDriver::Step("load the image again with them");
    driver.ClickAndChooseFile(driver.Find<QPushButton>("btnLoad"), source);
    driver.ChooseItem("rdoROMtemplate", "Found by myself");
    TDriver::Expect(window.workspace.fuelMapSet.PTMap->GetLocation() == fuelMap,
                    "the fuel map is placed");
    TDriver::Expect(window.workspace.timingMapSet.PTMap->GetLocation() == timingMap,
                    "the timing map is placed");
    road.Picture("9-spec-file-chosen");
}
