#include "Roads.h"
#include "forms/PageControl.h"
#include "forms/TEmbedFm.h"
#include "model/ROMTypes.h"

#include <array>

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

namespace {
constexpr int mostClicks = 8; // up to the saved spec file

/// Draws the first map of the list, and closes the drawing.
void DrawFirst(QTreeWidget &list) {
    QTest::keyClick(&list, Qt::Key_Return);
    for (QWidget *window : QApplication::topLevelWidgets())
        if (window->objectName() == "frmQuickChart" && window->isVisible()) {
            window->close();
            return;
        }
    TDriver::Expect(false, "Enter draws a map");
}
} // namespace

void UnknownImage(const TRoad &road) {
    TDriver &driver = road.driver;
    TfrmNotebook &window = road.window;
    const QString source = road.File("FERRO64K.BIN");
    const int before = TDriver::Clicks();

    TDriver::Step("load " + source);
    driver.ClickAndChooseFile(driver.Find<QPushButton>("btnLoad"), source);

    TDriver::Step("find its maps");
    driver.ChooseInWindowMenu("Find Maps");
    QWidget *page = window.CurrentPage();
    auto &list = driver.Find<QTreeWidget>("lstFound", page);
    TDriver::Expect(list.topLevelItemCount() >= 6, "six maps are listed");
    road.Picture("11-find-maps");
    DrawFirst(list);

    TDriver::Step("give all six to the notebook");
    driver.Click(driver.Find<QPushButton>("btnGiveSix", page));

    TDriver::Step("save their places");
    driver.ClickAndSaveSpec(driver.Find<QPushButton>("btnSaveFound", page), road.File("FOUND.SPC"),
                            "Found by myself");
    const int clicks = TDriver::Clicks() - before;
    TDriver::Step(QString("%1 clicks up to here").arg(clicks));
    TDriver::Expect(clicks <= mostClicks, "so few clicks do");

    TDriver::Step("load the image again with them");
    driver.SelectTab("ROM Information");
    driver.ClickAndChooseFile(driver.Find<QPushButton>("btnLoad"), source);
    driver.ChooseItem("rdoROMtemplate", "Found by myself");
    const TWorkspace &maps = window.workspace;
    const std::array<std::int32_t, 6> places{
        maps.fuelMapSet.PTMap->GetLocation(),     maps.fuelMapSet.IdleMap->GetLocation(),
        maps.fuelMapSet.WOTMap->GetLocation(),    maps.timingMapSet.PTMap->GetLocation(),
        maps.timingMapSet.IdleMap->GetLocation(), maps.timingMapSet.WOTMap->GetLocation()};
    TDriver::Expect(places ==
                        std::array<std::int32_t, 6>{0xB2C6, 0xB406, 0xB43D, 0xC91A, 0xC8D0, 0xCA04},
                    "all six maps are placed");
}
