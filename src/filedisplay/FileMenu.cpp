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
    const char *prompt;
    std::int32_t TSearchParameters::*parameter;
};

/// The missing blank after "Possible" is intended.
constexpr std::array<TParameterItem, 6> parameterItems{{
    {"MinFuelVal1", QT_TRANSLATE_NOOP("TFileMenu", "Fuel Val Min"),
     QT_TRANSLATE_NOOP("TFileMenu", "Minimum PossibleFuel value to include"),
     &TSearchParameters::fuelMinimum},
    {"MaxFuelVal1", QT_TRANSLATE_NOOP("TFileMenu", "Fuel Value Max"),
     QT_TRANSLATE_NOOP("TFileMenu", "Maximum PossibleFuel value to include"),
     &TSearchParameters::fuelMaximum},
    {"MinTimingVal1", QT_TRANSLATE_NOOP("TFileMenu", "Timing Val Min"),
     QT_TRANSLATE_NOOP("TFileMenu", "Minimum PossibleTiming value to include"),
     &TSearchParameters::timingMinimum},
    {"MaxTimingVal1", QT_TRANSLATE_NOOP("TFileMenu", "Timing Val Max"),
     QT_TRANSLATE_NOOP("TFileMenu", "Maximum PossibleTiming value to include"),
     &TSearchParameters::timingMaximum},
    {"RPMRAMLocation1", QT_TRANSLATE_NOOP("TFileMenu", "RPM RAM Location"),
     QT_TRANSLATE_NOOP("TFileMenu", "RAM location of RPM reading"),
     &TSearchParameters::rpmLocation},
    {"LoadRAMLocation1", QT_TRANSLATE_NOOP("TFileMenu", "% Load RAM Location"),
     QT_TRANSLATE_NOOP("TFileMenu", "RAM Location of % Load reading"),
     &TSearchParameters::loadLocation},
}};
} // namespace

TFileMenu::TFileMenu(TfrmFileContents &page) : QMenu(&page), page_(page) {
    using TPage = TfrmFileContents;
    setObjectName("PopupMenu1");
    setAccessibleName(tr("File Contents"));
    AddItems(*this, {{"Copy1", QT_TR_NOOP("Copy"), &TPage::Copy1Click},
                     {"CopySelected1", QT_TR_NOOP("Copy Selected"), &TPage::CopySelected1Click},
                     {"Print1", QT_TR_NOOP("Print"), &TPage::Print1Click},
                     {"PrintSetup1", QT_TR_NOOP("Print Setup"), &TPage::PrintSetup1Click}});
    addSeparator();
    AddItems(*this, {{"ClearAllMarkers1", QT_TR_NOOP("Clear All Markers"),
                      &TPage::ClearAllMarkers1Click}});
    AddSubmenu("HighlightMapFromCurrentCell1", tr("Highlight Map From Current Cell"),
               {{"Fuel3", QT_TR_NOOP("Fuel - Part Throttle"), &TPage::Fuel3Click},
                {"Fuel4", QT_TR_NOOP("Fuel - WOT/Idle"), &TPage::Fuel4Click},
                {"Timing3", QT_TR_NOOP("Timing - Part Throttle"), &TPage::Timing3Click},
                {"Timing4", QT_TR_NOOP("Timing - WOT/Idle"), &TPage::Timing4Click}});
    addSeparator();
    AddParameters();
    AddSubmenu("ManualSearches1", tr("Manual Searches"),
               {{"FindConsecutivePossFuelVals", QT_TR_NOOP("Mark Possible Fuel Vals"),
                 &TPage::FindConsecutivePossFuelValsClick},
                {"FindConsecutivePossTimeVals", QT_TR_NOOP("Mark Possible Timing Vals"),
                 &TPage::FindConsecutivePossTimeValsClick},
                {"HighlightAValue1", QT_TR_NOOP("Mark All Instances of a Specific Value"),
                 &TPage::HighlightAValue1Click},
                {"FindMapPointers1", QT_TR_NOOP("Find Map Pointers by offset Address"),
                 &TPage::FindMapPointers1Click}});
    AddSubmenu("SearchandHighlightMaps1", tr("Search and Highlight Maps"),
               {{"Fuel5", QT_TR_NOOP("Fuel - Part Throttle"), &TPage::Fuel5Click},
                {"Fuel6", QT_TR_NOOP("Fuel - WOT/Idle"), &TPage::Fuel6Click},
                {"Timing5", QT_TR_NOOP("Timing - Part Throttle"), &TPage::Timing5Click},
                {"Timing6", QT_TR_NOOP("Timing - WOT/Idle"), &TPage::Timing6Click},
                {"Any1", QT_TR_NOOP("All 2D Maps (any values)"), &TPage::Any1Click},
                {"Any2", QT_TR_NOOP("All Linear Maps (any values)"), &TPage::Any2Click}});
    addSeparator();
    AddSubmenu("mnuGraphPT", tr("Update Notebook Map"),
               {{"Fuel1", QT_TR_NOOP("Fuel Maps - Part Throttle"), &TPage::Fuel1Click},
                {"Fuel2", QT_TR_NOOP("Fuel Maps - Idle"), &TPage::Fuel2Click},
                {"WOTFuel1", QT_TR_NOOP("Fuel Maps - WOT"), &TPage::WOTFuel1Click},
                {"Timing1", QT_TR_NOOP("Timing Maps - Part Throttle"), &TPage::Timing1Click},
                {"Timing2", QT_TR_NOOP("Timing Maps - Idle"), &TPage::Timing2Click},
                {"WOTTiming1", QT_TR_NOOP("Timing Maps - WOT"), &TPage::WOTTiming1Click}});
    AddSubmenu("AddNotebookMap1", tr("Add Notebook Map"),
               {{"AllHighlighted1", QT_TR_NOOP("All Highlighted"), &TPage::AllHighlighted1Click}});
    AddSubmenu("QuickMap1", tr("Quick Map"),
               {{"SelectedCellisMapOffset1", QT_TR_NOOP("Selected Cell is 2D Map Offset"),
                 &TPage::SelectedCellisMapOffset1Click},
                {"SelectedCellisLinearMapOffset1", QT_TR_NOOP("Selected Cell is Linear Map Offset"),
                 &TPage::SelectedCellisLinearMapOffset1Click},
                {"SelectedCellisMapPointerOffset1",
                 QT_TR_NOOP("Selected Cell is address of 2D Map Address"),
                 &TPage::SelectedCellisMapPointerOffset1Click},
                {"SelectedCellisLinearMapPointer1",
                 QT_TR_NOOP("Selected Cell is address of Linear Map Offset"),
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
        Add(menu, item.name, tr(item.caption),
            [this, &item] { page_.EnterParamClick(item.parameter, tr(item.prompt)); });
}
