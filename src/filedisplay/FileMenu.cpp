#include "filedisplay/FileMenu.h"

#include "filedisplay/FileDisplay.h"
#include "forms/Guard.h"

#include <array>
#include <utility>

struct TFileMenu::TItem {
    const char *name;
    const char *caption;
    void (TfrmFileContents::*handler)();
};

namespace {
struct TParameterItem {
    const char *name;
    const char *caption;
    const char *firstText;
    const char *secondText;
    std::int32_t TSearchParameters::*parameter;
};

constexpr std::array<TParameterItem, 6> parameterItems{{
    {"MinFuelVal1", "Fuel Val Min", "Minimum Possible", "Fuel value to include",
     &TSearchParameters::fuelMinimum},
    {"MaxFuelVal1", "Fuel Value Max", "Maximum Possible", "Fuel value to include",
     &TSearchParameters::fuelMaximum},
    {"MinTimingVal1", "Timing Val Min", "Minimum Possible", "Timing value to include",
     &TSearchParameters::timingMinimum},
    {"MaxTimingVal1", "Timing Val Max", "Maximum Possible", "Timing value to include",
     &TSearchParameters::timingMaximum},
    {"RPMRAMLocation1", "RPM RAM Location", "", "RAM location of RPM reading",
     &TSearchParameters::rpmLocation},
    {"LoadRAMLocation1", "% Load RAM Location", "", "RAM Location of % Load reading",
     &TSearchParameters::loadLocation},
}};
} // namespace

TFileMenu::TFileMenu(TfrmFileContents &page) : QMenu(&page), page_(page) {
    using TPage = TfrmFileContents;
    setObjectName("PopupMenu1");
    setAccessibleName(tr("File Contents"));
    AddItems(*this, {{"Copy1", "Copy", &TPage::Copy1Click},
                     {"CopySelected1", "Copy Selected", &TPage::CopySelected1Click},
                     {"Print1", "Print", &TPage::Print1Click},
                     {"PrintSetup1", "Print Setup", &TPage::PrintSetup1Click}});
    addSeparator();
    AddItems(*this, {{"ClearAllMarkers1", "Clear All Markers", &TPage::ClearAllMarkers1Click}});
    AddSubmenu("HighlightMapFromCurrentCell1", tr("Highlight Map From Current Cell"),
               {{"Fuel3", "Fuel - Part Throttle", &TPage::Fuel3Click},
                {"Fuel4", "Fuel - WOT/Idle", &TPage::Fuel4Click},
                {"Timing3", "Timing - Part Throttle", &TPage::Timing3Click},
                {"Timing4", "Timing - WOT/Idle", &TPage::Timing4Click}});
    addSeparator();
    AddParameters();
    AddSubmenu("ManualSearches1", tr("Manual Searches"),
               {{"FindConsecutivePossFuelVals", "Mark Possible Fuel Vals",
                 &TPage::FindConsecutivePossFuelValsClick},
                {"FindConsecutivePossTimeVals", "Mark Possible Timing Vals",
                 &TPage::FindConsecutivePossTimeValsClick},
                {"HighlightAValue1", "Mark All Instances of a Specific Value",
                 &TPage::HighlightAValue1Click},
                {"FindMapPointers1", "Find Map Pointers by offset Address",
                 &TPage::FindMapPointers1Click}});
    AddSubmenu("SearchandHighlightMaps1", tr("Search and Highlight Maps"),
               {{"Fuel5", "Fuel - Part Throttle", &TPage::Fuel5Click},
                {"Fuel6", "Fuel - WOT/Idle", &TPage::Fuel6Click},
                {"Timing5", "Timing - Part Throttle", &TPage::Timing5Click},
                {"Timing6", "Timing - WOT/Idle", &TPage::Timing6Click},
                {"Any1", "All 2D Maps (any values)", &TPage::Any1Click},
                {"Any2", "All Linear Maps (any values)", &TPage::Any2Click}});
    addSeparator();
    AddSubmenu("mnuGraphPT", tr("Update Notebook Map"),
               {{"Fuel1", "Fuel Maps - Part Throttle", &TPage::Fuel1Click},
                {"Fuel2", "Fuel Maps - Idle", &TPage::Fuel2Click},
                {"WOTFuel1", "Fuel Maps - WOT", &TPage::WOTFuel1Click},
                {"Timing1", "Timing Maps - Part Throttle", &TPage::Timing1Click},
                {"Timing2", "Timing Maps - Idle", &TPage::Timing2Click},
                {"WOTTiming1", "Timing Maps - WOT", &TPage::WOTTiming1Click}});
    AddSubmenu("AddNotebookMap1", tr("Add Notebook Map"),
               {{"AllHighlighted1", "All Highlighted", &TPage::AllHighlighted1Click}});
    AddSubmenu("QuickMap1", tr("Quick Map"),
               {{"SelectedCellisMapOffset1", "Selected Cell is 2D Map Offset",
                 &TPage::SelectedCellisMapOffset1Click},
                {"SelectedCellisLinearMapOffset1", "Selected Cell is Linear Map Offset",
                 &TPage::SelectedCellisLinearMapOffset1Click},
                {"SelectedCellisMapPointerOffset1", "Selected Cell is address of 2D Map Address",
                 &TPage::SelectedCellisMapPointerOffset1Click},
                {"SelectedCellisLinearMapPointer1", "Selected Cell is address of Linear Map Offset",
                 &TPage::SelectedCellisLinearMapPointer1Click}});
}

QAction &TFileMenu::Add(QMenu &menu, const char *name, const QString &caption,
                        std::function<void()> handler) {
    QAction *action = menu.addAction(caption);
    action->setObjectName(name);
    ConnectGuarded(action, &QAction::triggered, this, std::move(handler));
    return *action;
}

void TFileMenu::AddItems(QMenu &menu, std::initializer_list<TItem> items) {
    for (const TItem &item : items)
        Add(menu, item.name, tr(item.caption),
            [this, handler = item.handler] { (page_.*handler)(); });
}

QMenu &TFileMenu::AddSubmenu(const char *name, const QString &caption,
                             std::initializer_list<TItem> items) {
    QMenu *menu = addMenu(caption);
    menu->setObjectName(name);
    menu->setAccessibleName(caption);
    AddItems(*menu, items);
    return *menu;
}

void TFileMenu::AddParameters() {
    QMenu &menu = AddSubmenu("SetSearchParameters1", tr("Set Search Parameters"), {});
    for (const TParameterItem &item : parameterItems)
        Add(menu, item.name, tr(item.caption), [this, &item] {
            page_.EnterParamClick(item.parameter, tr(item.firstText), tr(item.secondText));
        });
}
