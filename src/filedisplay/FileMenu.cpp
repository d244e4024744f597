#include "filedisplay/FileMenu.h"

#include "filedisplay/FileDisplay.h"
#include "forms/Guard.h"

#include <array>
#include <utility>

namespace {
struct TParameterItem {
    const char *name;
    const char *caption;
    const char *prompt; ///< two texts run together without a blank; this is intended
    std::int32_t TSearchParameters::*parameter;
};

constexpr std::array<TParameterItem, 6> parameterItems{{
    {"MinFuelVal1", "Fuel Val Min", "Minimum PossibleFuel value to include",
     &TSearchParameters::fuelMinimum},
    {"MaxFuelVal1", "Fuel Value Max", "Maximum PossibleFuel value to include",
     &TSearchParameters::fuelMaximum},
    {"MinTimingVal1", "Timing Val Min", "Minimum PossibleTiming value to include",
     &TSearchParameters::timingMinimum},
    {"MaxTimingVal1", "Timing Val Max", "Maximum PossibleTiming value to include",
     &TSearchParameters::timingMaximum},
    {"RPMRAMLocation1", "RPM RAM Location", "RAM location of RPM reading",
     &TSearchParameters::rpmLocation},
    {"LoadRAMLocation1", "% Load RAM Location", "RAM Location of % Load reading",
     &TSearchParameters::loadLocation},
}};

struct TMapItem {
    const char *name;
    const char *caption;
    TMapShape shape;
    TMapContents contents;
};

constexpr std::array<TMapItem, 4> fromCellItems{{
    {"Fuel3", "Fuel - Part Throttle", TMapShape::TwoD, TMapContents::Fuel},
    {"Fuel4", "Fuel - WOT/Idle", TMapShape::Linear, TMapContents::Fuel},
    {"Timing3", "Timing - Part Throttle", TMapShape::TwoD, TMapContents::Timing},
    {"Timing4", "Timing - WOT/Idle", TMapShape::Linear, TMapContents::Timing},
}};

constexpr std::array<TMapItem, 6> wholeImageItems{{
    {"Fuel5", "Fuel - Part Throttle", TMapShape::TwoD, TMapContents::Fuel},
    {"Fuel6", "Fuel - WOT/Idle", TMapShape::Linear, TMapContents::Fuel},
    {"Timing5", "Timing - Part Throttle", TMapShape::TwoD, TMapContents::Timing},
    {"Timing6", "Timing - WOT/Idle", TMapShape::Linear, TMapContents::Timing},
    {"Any1", "All 2D Maps (any values)", TMapShape::TwoD, TMapContents::Any},
    {"Any2", "All Linear Maps (any values)", TMapShape::Linear, TMapContents::Any},
}};
} // namespace

TFileMenu::TFileMenu(TfrmFileContents &page) : QMenu(&page), page_(page) {
    setObjectName("PopupMenu1");
    AddText();
    addSeparator();
    Add(*this, "ClearAllMarkers1", tr("Clear All Markers"),
        [this] { page_.ClearAllMarkers1Click(); });
    AddFromCurrentCell();
    addSeparator();
    AddParameters();
    AddManualSearches();
    AddMapSearches();
    addSeparator();
    AddPlacing();
}

void TFileMenu::Add(QMenu &menu, const char *name, const QString &caption,
                    std::function<void()> handler) {
    QAction *action = menu.addAction(caption);
    action->setObjectName(name);
    ConnectGuarded(action, &QAction::triggered, this, std::move(handler));
}

QMenu &TFileMenu::AddSubmenu(const char *name, const QString &caption) {
    QMenu *menu = addMenu(caption);
    menu->setObjectName(name);
    return *menu;
}

void TFileMenu::AddText() {
    Add(*this, "Copy1", tr("Copy"), [this] { page_.Copy1Click(); });
    Add(*this, "CopySelected1", tr("Copy Selected"), [this] { page_.CopySelected1Click(); });
    Add(*this, "Print1", tr("Print"), [this] { page_.Print1Click(); });
    Add(*this, "PrintSetup1", tr("Print Setup"), [this] { page_.PrintSetup1Click(); });
}

void TFileMenu::AddFromCurrentCell() {
    QMenu &menu = AddSubmenu("HighlightMapFromCurrentCell1", tr("Highlight Map From Current Cell"));
    for (const TMapItem &item : fromCellItems)
        Add(menu, item.name, tr(item.caption),
            [this, &item] { page_.HighlightFromSelected(item.shape, item.contents); });
}

void TFileMenu::AddParameters() {
    QMenu &menu = AddSubmenu("SetSearchParameters1", tr("Set Search Parameters"));
    for (const TParameterItem &item : parameterItems)
        Add(menu, item.name, tr(item.caption),
            [this, &item] { page_.EnterParam(item.parameter, tr(item.prompt)); });
}

void TFileMenu::AddManualSearches() {
    QMenu &menu = AddSubmenu("ManualSearches1", tr("Manual Searches"));
    Add(menu, "FindConsecutivePossFuelVals", tr("Mark Possible Fuel Vals"),
        [this] { page_.FindConsecutivePossFuelValsClick(); });
    Add(menu, "FindConsecutivePossTimeVals", tr("Mark Possible Timing Vals"),
        [this] { page_.FindConsecutivePossTimeValsClick(); });
    Add(menu, "HighlightAValue1", tr("Mark All Instances of a Specific Value"),
        [this] { page_.HighlightAValue1Click(); });
    Add(menu, "FindMapPointers1", tr("Find Map Pointers by offset Address"),
        [this] { page_.FindMapPointers1Click(); });
}

void TFileMenu::AddMapSearches() {
    QMenu &menu = AddSubmenu("SearchandHighlightMaps1", tr("Search and Highlight Maps"));
    for (const TMapItem &item : wholeImageItems)
        Add(menu, item.name, tr(item.caption),
            [this, &item] { page_.HighlightAll(item.shape, item.contents); });
}

void TFileMenu::AddPlacing() {
    struct TSubmenu {
        const char *name;
        QString caption;
        QStringList items;
    };
    const std::array<TSubmenu, 3> submenus{{
        {"mnuGraphPT",
         tr("Update Notebook Map"),
         {tr("Fuel Maps - Part Throttle"), tr("Fuel Maps - Idle"), tr("Fuel Maps - WOT"),
          tr("Timing Maps - Part Throttle"), tr("Timing Maps - Idle"), tr("Timing Maps - WOT")}},
        {"AddNotebookMap1", tr("Add Notebook Map"), {tr("All Highlighted")}},
        {"QuickMap1",
         tr("Quick Map"),
         {tr("Selected Cell is 2D Map Offset"), tr("Selected Cell is Linear Map Offset"),
          tr("Selected Cell is address of 2D Map Address"),
          tr("Selected Cell is address of Linear Map Offset")}},
    }};
    // Placing found maps on pages and charts is not built yet: the items stand in place, disabled.
    for (const TSubmenu &submenu : submenus) {
        QMenu &menu = AddSubmenu(submenu.name, submenu.caption);
        for (const QString &item : submenu.items)
            menu.addAction(item)->setEnabled(false);
    }
}
