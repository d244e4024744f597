#include "filedisplay/FileMenu.h"

#include "filedisplay/ContentsTexts.h"
#include "filedisplay/FileDisplay.h"
#include "forms/Guard.h"

TFileMenu::TFileMenu(TfrmFileContents &page) : QMenu(&page) {
    using TPage = TfrmFileContents;
    const auto run = [&](auto handler) { return std::bind_front(handler, &page); };
    setObjectName("PopupMenu1");
    setAccessibleName(tr("File Contents"));
    AddItems(*this, {{"Copy1", tr("Copy"), run(&TPage::Copy1Click)},
                     {"CopySelected1", tr("Copy Selected"), run(&TPage::CopySelected1Click)},
                     {"Print1", tr("Print"), run(&TPage::Print1Click)},
                     {"PrintSetup1", tr("Print Setup"), run(&TPage::PrintSetup1Click)}});
    addSeparator();
    AddSearches(page.searches);
    addSeparator();
    AddPlacing(page.placing);
}

void TFileMenu::AddSearches(TFileSearches &searches) {
    using TSearch = TFileSearches;
    using TIn = TSearchParameters;
    const auto run = [&](auto handler) { return std::bind_front(handler, &searches); };
    const auto ask = [&](auto parameter, const QString &prompt) {
        return std::bind_front(&TSearch::EnterParamClick, &searches, parameter, prompt);
    };
    AddItems(*this,
             {{"ClearAllMarkers1", tr("Clear All Markers"), run(&TSearch::ClearAllMarkers1Click)}});
    AddSubmenu("HighlightMapFromCurrentCell1", tr("Highlight Map From Current Cell"),
               {{"Fuel3", tr("Fuel - Part Throttle"), run(&TSearch::Fuel3Click)},
                {"Fuel4", tr("Fuel - WOT/Idle"), run(&TSearch::Fuel4Click)},
                {"Timing3", tr("Timing - Part Throttle"), run(&TSearch::Timing3Click)},
                {"Timing4", tr("Timing - WOT/Idle"), run(&TSearch::Timing4Click)}});
    addSeparator();
    // The missing blank after "Possible" is intended, see docs/peculiarities.md.
    AddSubmenu("SetSearchParameters1", tr("Set Search Parameters"),
               {{"MinFuelVal1", tr("Fuel Val Min"),
                 ask(&TIn::fuelMinimum, tr("Minimum PossibleFuel value to include"))},
                {"MaxFuelVal1", tr("Fuel Value Max"),
                 ask(&TIn::fuelMaximum, tr("Maximum PossibleFuel value to include"))},
                {"MinTimingVal1", tr("Timing Val Min"),
                 ask(&TIn::timingMinimum, tr("Minimum PossibleTiming value to include"))},
                {"MaxTimingVal1", tr("Timing Val Max"),
                 ask(&TIn::timingMaximum, tr("Maximum PossibleTiming value to include"))},
                {"RPMRAMLocation1", tr("RPM RAM Location"),
                 ask(&TIn::rpmLocation, tr("RAM location of RPM reading"))},
                {"LoadRAMLocation1", tr("% Load RAM Location"),
                 ask(&TIn::loadLocation, tr("RAM Location of % Load reading"))}});
    AddSubmenu("ManualSearches1", tr("Manual Searches"),
               {{"FindConsecutivePossFuelVals", tr("Mark Possible Fuel Vals"),
                 run(&TSearch::FindConsecutivePossFuelValsClick)},
                {"FindConsecutivePossTimeVals", tr("Mark Possible Timing Vals"),
                 run(&TSearch::FindConsecutivePossTimeValsClick)},
                {"HighlightAValue1", tr("Mark All Instances of a Specific Value"),
                 run(&TSearch::HighlightAValue1Click)},
                {"FindMapPointers1", tr("Find Map Pointers by offset Address"),
                 run(&TSearch::FindMapPointers1Click)}});
    AddSubmenu("SearchandHighlightMaps1", tr("Search and Highlight Maps"),
               {{"Fuel5", tr("Fuel - Part Throttle"), run(&TSearch::Fuel5Click)},
                {"Fuel6", tr("Fuel - WOT/Idle"), run(&TSearch::Fuel6Click)},
                {"Timing5", tr("Timing - Part Throttle"), run(&TSearch::Timing5Click)},
                {"Timing6", tr("Timing - WOT/Idle"), run(&TSearch::Timing6Click)},
                {"Any1", tr("All 2D Maps (any values)"), run(&TSearch::Any1Click)},
                {"Any2", tr("All Linear Maps (any values)"), run(&TSearch::Any2Click)}});
}

void TFileMenu::AddPlacing(TFilePlacing &placing) {
    using enum TMapContents;
    const auto move = [&](const char *name, TMapContents contents, TMapKind kind) {
        return TItem{name, QString::fromStdString(MapName(contents, kind)),
                     [=, &placing] { placing.UpdateNotebookMap(contents, kind); }};
    };
    const auto chart = [&](TMapShape shape, bool throughPointer) {
        return [=, &placing] { placing.QuickMap(shape, throughPointer); };
    };
    AddSubmenu("mnuGraphPT", tr("Update Notebook Map"),
               {move("Fuel1", Fuel, TMapKind::PT), move("Fuel2", Fuel, TMapKind::Idle),
                move("WOTFuel1", Fuel, TMapKind::WOT), move("Timing1", Timing, TMapKind::PT),
                move("Timing2", Timing, TMapKind::Idle),
                move("WOTTiming1", Timing, TMapKind::WOT)});
    AddSubmenu("AddNotebookMap1", tr("Add Notebook Map"),
               {{"AllHighlighted1", tr("All Highlighted"),
                 [&placing] { placing.AllHighlighted1Click(); }}});
    AddSubmenu(
        "QuickMap1", tr("Quick Map"),
        {{"SelectedCellisMapOffset1", tr("Selected Cell is 2D Map Offset"),
          chart(TMapShape::TwoD, false)},
         {"SelectedCellisLinearMapOffset1", tr("Selected Cell is Linear Map Offset"),
          chart(TMapShape::Linear, false)},
         {"SelectedCellisMapPointerOffset1", tr("Selected Cell is address of 2D Map Address"),
          chart(TMapShape::TwoD, true)},
         {"SelectedCellisLinearMapPointer1", tr("Selected Cell is address of Linear Map Offset"),
          chart(TMapShape::Linear, true)}});
}

void TFileMenu::AddItems(QMenu &menu, std::initializer_list<TItem> items) {
    for (const TItem &item : items) {
        QAction *action = menu.addAction(item.caption);
        action->setObjectName(item.name);
        ConnectGuarded(action, &QAction::triggered, this, item.handler);
    }
}

void TFileMenu::AddSubmenu(const char *name, const QString &caption,
                           std::initializer_list<TItem> items) {
    QMenu *menu = addMenu(caption);
    menu->setObjectName(name);
    menu->setAccessibleName(caption);
    AddItems(*menu, items);
}
