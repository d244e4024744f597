// Every control of the pages and windows by its name: kind, text, hint and first state, so that
// nobody renames or forgets one unnoticed.
#include "forms/Help.h"
#include "pages/ControlStates.h"
#include "pages/ControlsFixture.h"

#include <fstream>
#include <iterator>
#include <map>
#include <vector>

#include <QAction>
#include <QStatusBar>

namespace {
constexpr auto doubleClick = "Double-click to enter new offset to map";
constexpr auto rightClick = "Right-click for more options";
constexpr auto commitHint = "Write the edits of this map into the image in memory";
constexpr auto resetHint = "Drop the edits of this map";
constexpr auto interpretHint = "Show lambda trims or degrees in place of the stored bytes";
constexpr auto toolHint = "Show or hide the tool that changes many cells at once";
constexpr auto closeHint = "Take the page away until the program is started again";
constexpr auto chartHint = "Drag it to turn it; a double-click brings the first view back";
constexpr auto giveHint = "Move this map of the notebook to the place that is chosen in the list";
constexpr auto dollarHint = "Decimal, or hexadecimal behind a $";

const TControl controls[] = {
    {TForm::ROM, "grpLoadROM", "QGroupBox", "ROM Information", "", ""},
    {TForm::ROM, "btnLoad", "QPushButton", "&Load ROM Image",
     "Load a new ROM Image into the program", ""},
    {TForm::ROM, "btnSaveSpec", "QPushButton", "Save Spec",
     "Save a new spec file using offsets listed on map pages", "d"},
    {TForm::ROM, "btnSave", "QPushButton", "&Save ROM", "Save the ROM Image to a binary file", "d"},
    {TForm::ROM, "btnOffsetEntry", "QPushButton", "Manual Offsets",
     "Open the offset dialog again; its OK reads the image anew", "d"},
    {TForm::ROM, "btnRead", "QPushButton", "Read ROM", "", "h"},
    {TForm::ROM, "btnWrite", "QPushButton", "Write ROM", "", "h"},
    {TForm::ROM, "chkUsePP2", "QCheckBox", "Use Direct Interface to Programmer", "", "h"},
    {TForm::ROM, "cmbDevice", "QComboBox", "Select EPROM type", "", "h"},
    {TForm::ROM, "rdoROMtemplate", "TRadioGroup",
     "Select a directory containing .SPC files to fill list",
     "Say where the maps are: by a spec file of the image's folder, or by hand", "d"},
    {TForm::ROM, "Label1", "QLabel", nullptr, "", ""},
    {TForm::ROM, "Label2", "QLabel", nullptr, "", ""},
    {TForm::ROM, "Label3", "QLabel", nullptr, "", ""},
    {TForm::ROM, "Label4", "QLabel", nullptr, "", ""},
    {TForm::ROM, "Label5", "QLabel", "data offset", "", ""},
    {TForm::ROM, "StatusBar1", "QStatusBar", nullptr, "", ""},
    {TForm::ROM, "barRecovery", "TRecoveryBar", nullptr, "", "h"},
    {TForm::ROM, "lblRecovery", "QLabel", "", "", "h"},
    {TForm::ROM, "btnShowRecovered", "QPushButton", "Show", "Show what these changes are", "h"},
    {TForm::ROM, "btnBringBack", "QPushButton", "Bring Back",
     "Make these changes again in the image in memory; choose the mapping first", "h"},
    {TForm::ROM, "btnForget", "QPushButton", "Forget", "Throw these changes away for good", "h"},
    {TForm::ROM, "btnHelp", "QPushButton", "Help", "", "h"},

    {TForm::Fuel, "grdPTMap", "TStringAlignGrid", nullptr, rightClick, ""},
    {TForm::Fuel, "grdIdMap", "TStringAlignGrid", nullptr, rightClick, ""},
    {TForm::Fuel, "grdFTMap", "TStringAlignGrid", nullptr, rightClick, ""},
    {TForm::Fuel, "lblPTGrid", "QLabel", "Partial Throttle /\\ Trim Map", "", ""},
    {TForm::Fuel, "lblIdGrid", "QLabel", "Idle /\\ Trim Map", "", ""},
    {TForm::Fuel, "lblFTGrid", "QLabel", "Full Throttle /\\ Trim Map", "", ""},
    {TForm::Fuel, "lblPTNote", "QLabel",
     "Not placed: neither a spec file nor an offset says where this map is", "", ""},
    {TForm::Fuel, "lblIdNote", "QLabel", nullptr, "", ""},
    {TForm::Fuel, "lblFTNote", "QLabel", nullptr, "", ""},
    {TForm::Fuel, "edtPTOffset", "QLineEdit", "$0000", doubleClick, "r"},
    {TForm::Fuel, "edtIdOffset", "QLineEdit", "$0000", doubleClick, "r"},
    {TForm::Fuel, "edtFTOffset", "QLineEdit", "$0000", doubleClick, "r"},
    {TForm::Fuel, "chkInterpret", "QCheckBox", "Interpret Byte Values", interpretHint, ""},
    {TForm::Fuel, "chtPTMap", "TAreaChart", nullptr, chartHint, ""},
    {TForm::Fuel, "chtIdMap", "TAreaChart", nullptr, chartHint, ""},
    {TForm::Fuel, "chtFTMap", "TAreaChart", nullptr, chartHint, ""},
    {TForm::Fuel, "btnSavePT", "QPushButton", "Commit", commitHint, ""},
    {TForm::Fuel, "btnSaveIdle", "QPushButton", "Commit", commitHint, ""},
    {TForm::Fuel, "btnSaveFT", "QPushButton", "Commit", commitHint, ""},
    {TForm::Fuel, "btnResetPT", "QPushButton", "Reset", resetHint, ""},
    {TForm::Fuel, "btnResetIdle", "QPushButton", "Reset", resetHint, ""},
    {TForm::Fuel, "btnResetFT", "QPushButton", "Reset", resetHint, ""},
    {TForm::Fuel, "btnRecalculate", "QPushButton", "Recalculate", toolHint, ""},
    {TForm::Fuel, "btnClose", "QPushButton", "Close Page", closeHint, ""},
    {TForm::Fuel, "btnHelp", "QPushButton", "Help", "", "h"},
    {TForm::Fuel, "Copy1", "QAction", "Copy Map", nullptr, ""},
    {TForm::Fuel, "Copy2", "QAction", "Copy Map", nullptr, ""},
    {TForm::Fuel, "Copy3", "QAction", "Copy Map", nullptr, ""},
    {TForm::Fuel, "Paste1", "QAction", "Paste Map", nullptr, ""},
    {TForm::Fuel, "Paste2", "QAction", "Paste Map", nullptr, ""},
    {TForm::Fuel, "Paste3", "QAction", "Paste Map", nullptr, ""},
    {TForm::Fuel, "UnlockAxis1", "QAction", "Unlock Axis", nullptr, ""},
    {TForm::Fuel, "UnlockAxis2", "QAction", "Unlock Axis", nullptr, ""},
    {TForm::Fuel, "UnlockAxis3", "QAction", "Unlock Axis", nullptr, ""},
    {TForm::Fuel, "PopupMenu1", "QMenu", nullptr, nullptr, ""},
    {TForm::Fuel, "PopupMenu2", "QMenu", nullptr, nullptr, ""},
    {TForm::Fuel, "PopupMenu3", "QMenu", nullptr, nullptr, ""},
    {TForm::Fuel, "spnRevLimiter", "QSpinBox", nullptr,
     "The engine speed of the rev limiter, in steps of 40 rpm", "h"},
    {TForm::Fuel, "Label1", "QLabel", "Max RPM", nullptr, "h"},
    {TForm::Fuel, "btnSaverev", "QPushButton", "Commit",
     "Take the rev limiter and commit the part throttle map", ""},
    {TForm::Fuel, "btnResetRev", "QPushButton", "Reset",
     "Drop the edits of the rev limiter and of the part throttle map", ""},

    {TForm::Timing, "lblPTGrid", "QLabel", "Partial Throttle Ign Timing Map", "", ""},
    {TForm::Timing, "lblIdGrid", "QLabel", "Idle Ign Timing Map", "", ""},
    {TForm::Timing, "lblFTGrid", "QLabel", "Full Throttle Ign Timing Map", "", ""},
    {TForm::Timing, "grdPTMap", "TStringAlignGrid", nullptr, rightClick, ""},
    {TForm::Timing, "chkInterpret", "QCheckBox", "Interpret Byte Values", interpretHint, ""},

    {TForm::FuelChart, "chtPTMap", "TAreaChart", nullptr, chartHint, ""},
    {TForm::FuelChart, "chtIdMap", "TAreaChart", nullptr, chartHint, "h"},
    {TForm::FuelChart, "chtFTMap", "TAreaChart", nullptr, chartHint, "h"},
    {TForm::FuelChart, "btnUp", "QToolButton", "", "Tilt up", ""},
    {TForm::FuelChart, "btnDown", "QToolButton", "", "Tilt down", ""},
    {TForm::FuelChart, "btnLeft", "QToolButton", "", "Turn left", ""},
    {TForm::FuelChart, "btnRight", "QToolButton", "", "Turn right", ""},
    {TForm::FuelChart, "udZoomUp", "QToolButton", "", "Zoom in", ""},
    {TForm::FuelChart, "udZoomDown", "QToolButton", "", "Zoom out", ""},
    {TForm::FuelChart, "udZoom", "QWidget", nullptr, nullptr, ""},
    {TForm::FuelChart, "btnRecalculate", "QPushButton", "Recalculate", toolHint, ""},
    {TForm::FuelChart, "btnClose", "QPushButton", "Close Page", closeHint, ""},
    {TForm::FuelChart, "grdPTMap", "TStringAlignGrid", nullptr, rightClick, "h"},
    {TForm::FuelChart, "grdIdMap", "TStringAlignGrid", nullptr, rightClick, "h"},
    {TForm::FuelChart, "grdFTMap", "TStringAlignGrid", nullptr, rightClick, "h"},
    {TForm::FuelChart, "lblPTGrid", "QLabel", "Partial Throttle /\\ Trim Map", "", "h"},
    {TForm::FuelChart, "lblIdGrid", "QLabel", "Idle /\\ Trim Map", "", "h"},
    {TForm::FuelChart, "lblFTGrid", "QLabel", "Full Throttle /\\ Trim Map", "", "h"},
    {TForm::FuelChart, "edtPTOffset", "QLineEdit", "$0000", doubleClick, "hr"},
    {TForm::FuelChart, "edtIdOffset", "QLineEdit", "$0000", doubleClick, "hr"},
    {TForm::FuelChart, "edtFTOffset", "QLineEdit", "$0000", doubleClick, "hr"},
    {TForm::FuelChart, "Panel1", "QFrame", nullptr, nullptr, "h"},
    {TForm::FuelChart, "Panel2", "QFrame", nullptr, nullptr, "h"},
    {TForm::FuelChart, "Panel3", "QFrame", nullptr, nullptr, "h"},
    {TForm::FuelChart, "chkInterpret", "QCheckBox", "Interpret Byte Values", interpretHint, "h"},
    {TForm::FuelChart, "btnSavePT", "QPushButton", "Commit", commitHint, "h"},
    {TForm::FuelChart, "btnSaveIdle", "QPushButton", "Commit", commitHint, "h"},
    {TForm::FuelChart, "btnSaveFT", "QPushButton", "Commit", commitHint, "h"},
    {TForm::FuelChart, "btnResetPT", "QPushButton", "Reset", resetHint, "h"},
    {TForm::FuelChart, "btnResetIdle", "QPushButton", "Reset", resetHint, "h"},
    {TForm::FuelChart, "btnResetFT", "QPushButton", "Reset", resetHint, "h"},
    {TForm::FuelChart, "btnHelp", "QPushButton", "Help", "", "h"},

    {TForm::TimingChart, "chtPTMap", "TAreaChart", nullptr, chartHint, ""},
    {TForm::TimingChart, "chtIdMap", "TAreaChart", nullptr, chartHint, "h"},
    {TForm::TimingChart, "chtFTMap", "TAreaChart", nullptr, chartHint, "h"},
    {TForm::TimingChart, "btnUp", "QToolButton", "", "Tilt up", ""},
    {TForm::TimingChart, "btnDown", "QToolButton", "", "Tilt down", ""},
    {TForm::TimingChart, "btnLeft", "QToolButton", "", "Turn left", ""},
    {TForm::TimingChart, "btnRight", "QToolButton", "", "Turn right", ""},
    {TForm::TimingChart, "udZoomUp", "QToolButton", "", "Zoom in", ""},
    {TForm::TimingChart, "udZoomDown", "QToolButton", "", "Zoom out", ""},
    {TForm::TimingChart, "udZoom", "QWidget", nullptr, nullptr, ""},
    {TForm::TimingChart, "btnRecalculate", "QPushButton", "Recalculate", toolHint, ""},
    {TForm::TimingChart, "btnClose", "QPushButton", "Close Page", closeHint, ""},
    {TForm::TimingChart, "grdPTMap", "TStringAlignGrid", nullptr, rightClick, "h"},
    {TForm::TimingChart, "grdIdMap", "TStringAlignGrid", nullptr, rightClick, "h"},
    {TForm::TimingChart, "grdFTMap", "TStringAlignGrid", nullptr, rightClick, "h"},
    {TForm::TimingChart, "lblPTGrid", "QLabel", "Partial Throttle Ign Timing Map", "", "h"},
    {TForm::TimingChart, "lblIdGrid", "QLabel", "Idle Ign Timing Map", "", "h"},
    {TForm::TimingChart, "lblFTGrid", "QLabel", "Full Throttle Ign Timing Map", "", "h"},
    {TForm::TimingChart, "edtPTOffset", "QLineEdit", "$0000", doubleClick, "hr"},
    {TForm::TimingChart, "edtIdOffset", "QLineEdit", "$0000", doubleClick, "hr"},
    {TForm::TimingChart, "edtFTOffset", "QLineEdit", "$0000", doubleClick, "hr"},
    {TForm::TimingChart, "Panel1", "QFrame", nullptr, nullptr, "h"},
    {TForm::TimingChart, "Panel2", "QFrame", nullptr, nullptr, "h"},
    {TForm::TimingChart, "Panel3", "QFrame", nullptr, nullptr, "h"},
    {TForm::TimingChart, "chkInterpret", "QCheckBox", "Interpret Byte Values", interpretHint, "h"},
    {TForm::TimingChart, "btnSavePT", "QPushButton", "Commit", commitHint, "h"},
    {TForm::TimingChart, "btnSaveIdle", "QPushButton", "Commit", commitHint, "h"},
    {TForm::TimingChart, "btnSaveFT", "QPushButton", "Commit", commitHint, "h"},
    {TForm::TimingChart, "btnResetPT", "QPushButton", "Reset", resetHint, "h"},
    {TForm::TimingChart, "btnResetIdle", "QPushButton", "Reset", resetHint, "h"},
    {TForm::TimingChart, "btnResetFT", "QPushButton", "Reset", resetHint, "h"},
    {TForm::TimingChart, "btnHelp", "QPushButton", "Help", "", "h"},

    {TForm::QuickChart, "chtMap", "TAreaChart", nullptr, chartHint, ""},
    {TForm::QuickChart, "edtOffset", "QLineEdit", "", "Where the map begins", "r"},
    {TForm::QuickChart, "btnUp", "QToolButton", "", "Tilt up", ""},
    {TForm::QuickChart, "btnDown", "QToolButton", "", "Tilt down", ""},
    {TForm::QuickChart, "btnLeft", "QToolButton", "", "Turn left", ""},
    {TForm::QuickChart, "btnRight", "QToolButton", "", "Turn right", ""},
    {TForm::QuickChart, "udZoomUp", "QToolButton", "", "Zoom in", ""},
    {TForm::QuickChart, "udZoomDown", "QToolButton", "", "Zoom out", ""},
    {TForm::QuickChart, "udZoom", "QWidget", nullptr, nullptr, ""},
    {TForm::QuickChart, "pnlMain", "QFrame", nullptr, "", ""},
    {TForm::QuickChart, "btnOK", "QPushButton", "&Ok", "", "h"},
    {TForm::QuickChart, "btnCancel", "QPushButton", "Cancel", "", "h"},
    {TForm::QuickChart, "btnFilter", "QPushButton", "Filter", "", "h"},
    {TForm::QuickChart, "btnHelp", "QPushButton", "Help", "", "h"},

    {TForm::Contents, "grdFile", "TStringAlignGrid", nullptr,
     "Right-click for copies, searches and what to do with found maps", ""},
    {TForm::Contents, "ovwFile", "TOverview", nullptr,
     "The whole image with its marks: a click or the arrow keys go there", ""},
    {TForm::Contents, "Button1", "QPushButton", "Key", "Show or hide what the colours mean", ""},
    {TForm::Contents, "chkDisplayHex", "QCheckBox", "Display in Hex",
     "Show 10 as $0A; takes all marks away", ""},
    {TForm::Contents, "redPrint", "QTextEdit", nullptr, "", "h"},
    {TForm::Contents, "btnHelp", "QPushButton", "Help", "", "h"},
    {TForm::Contents, "PopupMenu1", "QMenu", nullptr, nullptr, ""},
    {TForm::Contents, "HighlightMapFromCurrentCell1", "QMenu", "Highlight Map From Current Cell",
     nullptr, ""},
    {TForm::Contents, "SetSearchParameters1", "QMenu", "Set Search Parameters", nullptr, ""},
    {TForm::Contents, "ManualSearches1", "QMenu", "Manual Searches", nullptr, ""},
    {TForm::Contents, "SearchandHighlightMaps1", "QMenu", "Search and Highlight Maps", nullptr, ""},
    {TForm::Contents, "mnuGraphPT", "QMenu", "Update Notebook Map", nullptr, ""},
    {TForm::Contents, "AddNotebookMap1", "QMenu", "Add Notebook Map", nullptr, ""},
    {TForm::Contents, "QuickMap1", "QMenu", "Quick Map", nullptr, ""},
    {TForm::Contents, "Copy1", "QAction", "Copy", nullptr, ""},
    {TForm::Contents, "CopySelected1", "QAction", "Copy Selected", nullptr, ""},
    {TForm::Contents, "Print1", "QAction", "Print", nullptr, ""},
    {TForm::Contents, "PrintSetup1", "QAction", "Print Setup", nullptr, ""},
    {TForm::Contents, "ClearAllMarkers1", "QAction", "Clear All Markers", nullptr, ""},
    {TForm::Contents, "Fuel3", "QAction", "Fuel - Part Throttle", nullptr, ""},
    {TForm::Contents, "Fuel4", "QAction", "Fuel - WOT/Idle", nullptr, ""},
    {TForm::Contents, "Timing3", "QAction", "Timing - Part Throttle", nullptr, ""},
    {TForm::Contents, "Timing4", "QAction", "Timing - WOT/Idle", nullptr, ""},
    {TForm::Contents, "MinFuelVal1", "QAction", "Fuel Val Min", nullptr, ""},
    {TForm::Contents, "MaxFuelVal1", "QAction", "Fuel Value Max", nullptr, ""},
    {TForm::Contents, "MinTimingVal1", "QAction", "Timing Val Min", nullptr, ""},
    {TForm::Contents, "MaxTimingVal1", "QAction", "Timing Val Max", nullptr, ""},
    {TForm::Contents, "RPMRAMLocation1", "QAction", "RPM RAM Location", nullptr, ""},
    {TForm::Contents, "LoadRAMLocation1", "QAction", "% Load RAM Location", nullptr, ""},
    {TForm::Contents, "FindConsecutivePossFuelVals", "QAction", "Mark Possible Fuel Vals", nullptr,
     ""},
    {TForm::Contents, "FindConsecutivePossTimeVals", "QAction", "Mark Possible Timing Vals",
     nullptr, ""},
    {TForm::Contents, "HighlightAValue1", "QAction", "Mark All Instances of a Specific Value",
     nullptr, ""},
    {TForm::Contents, "FindMapPointers1", "QAction", "Find Map Pointers by offset Address", nullptr,
     ""},
    {TForm::Contents, "Fuel5", "QAction", "Fuel - Part Throttle", nullptr, ""},
    {TForm::Contents, "Fuel6", "QAction", "Fuel - WOT/Idle", nullptr, ""},
    {TForm::Contents, "Timing5", "QAction", "Timing - Part Throttle", nullptr, ""},
    {TForm::Contents, "Timing6", "QAction", "Timing - WOT/Idle", nullptr, ""},
    {TForm::Contents, "Any1", "QAction", "All 2D Maps (any values)", nullptr, ""},
    {TForm::Contents, "Any2", "QAction", "All Linear Maps (any values)", nullptr, ""},
    {TForm::Contents, "Fuel1", "QAction", "Fuel Maps - Part Throttle", nullptr, ""},
    {TForm::Contents, "Fuel2", "QAction", "Fuel Maps - Idle", nullptr, ""},
    {TForm::Contents, "WOTFuel1", "QAction", "Fuel Maps - WOT", nullptr, ""},
    {TForm::Contents, "Timing1", "QAction", "Timing Maps - Part Throttle", nullptr, ""},
    {TForm::Contents, "Timing2", "QAction", "Timing Maps - Idle", nullptr, ""},
    {TForm::Contents, "WOTTiming1", "QAction", "Timing Maps - WOT", nullptr, ""},
    {TForm::Contents, "AllHighlighted1", "QAction", "All Highlighted", nullptr, ""},
    {TForm::Contents, "SelectedCellisMapOffset1", "QAction", "Selected Cell is 2D Map Offset",
     nullptr, ""},
    {TForm::Contents, "SelectedCellisLinearMapOffset1", "QAction",
     "Selected Cell is Linear Map Offset", nullptr, ""},
    {TForm::Contents, "SelectedCellisMapPointerOffset1", "QAction",
     "Selected Cell is address of 2D Map Address", nullptr, ""},
    {TForm::Contents, "SelectedCellisLinearMapPointer1", "QAction",
     "Selected Cell is address of Linear Map Offset", nullptr, ""},

    {TForm::Key, "lblFuelMin", "QLabel", "min: 90", "", ""},
    {TForm::Key, "lblFuelMax", "QLabel", "max: 200", "", ""},
    {TForm::Key, "lblTimingMin", "QLabel", "min: 10", "", ""},
    {TForm::Key, "lblTimingMax", "QLabel", "max: 90", "", ""},
    {TForm::Key, "lblRPMLocation", "QLabel", "RPM: (not specified)", "", ""},
    {TForm::Key, "lblLoadLocation", "QLabel", "Load: (not specified)", "", ""},
    {TForm::Key, "pnlMain", "QFrame", nullptr, "", ""},
    {TForm::Key, "btnOK", "QPushButton", "&Ok", "Hide this window", ""},
    {TForm::Key, "btnCancel", "QPushButton", "Cancel", "", "h"},
    {TForm::Key, "btnFilter", "QPushButton", "Filter", "", "h"},
    {TForm::Key, "btnHelp", "QPushButton", "Help", "", "h"},

    {TForm::Tools, "rdoOperation", "TRadioGroup", "&Operation",
     "Whether the amount is added or subtracted", ""},
    {TForm::Tools, "rdoRange", "TRadioGroup", "&Range",
     "All cells, or the row or the column of the selected cell", ""},
    {TForm::Tools, "rdoScale", "TRadioGroup", "&Scale",
     "The amount in the numbers that the grid shows, or in percent of them", ""},
    {TForm::Tools, "rdoDataset", "TRadioGroup", "&Data Set", "The map that is changed", ""},
    {TForm::Tools, "edtVal", "QLineEdit", "0", "The amount, a whole number", ""},
    {TForm::Tools, "lblfromto", "QLabel", nullptr, "", ""},
    {TForm::Tools, "Label1", "QLabel", "of", "", ""},
    {TForm::Tools, "btnExec", "QPushButton", "&Go", "Change the cells", ""},
    {TForm::Tools, "Button2", "QPushButton", "&Undo", "", "h"},

    {TForm::Window, "PageControl1", "QTabWidget", nullptr, "", ""},
    {TForm::Window, "btnPrint", "QPushButton", "Print", "Print Displayed Data", "h"},
    {TForm::Window, "btnClose", "QPushButton", "Close", "Close", "h"},
    {TForm::Window, "btnSave", "QPushButton", "Save", "", "dh"},
    {TForm::Window, "btnCancel", "QPushButton", "Cancel", "", "dh"},
    {TForm::Window, "StatusBar1", "QStatusBar", nullptr, "", ""},
    {TForm::Window, "btnMenu", "QToolButton", "", nullptr, ""},
    {TForm::Window, "btnState", "QPushButton", nullptr, nullptr, ""},
    {TForm::Window, "actLoad", "QAction", "&Load ROM Image", nullptr, ""},
    {TForm::Window, "actSave", "QAction", "&Save ROM", nullptr, ""},
    {TForm::Window, "actState", "QAction", "S&tate", nullptr, ""},
    {TForm::Window, "actFindMaps", "QAction", "&Find Maps", nullptr, ""},
    {TForm::Window, "actMovedMaps", "QAction", "Move&d Maps", nullptr, ""},
    {TForm::Window, "actChanges", "QAction", "Sho&w Changes", nullptr, ""},
    {TForm::Window, "actCompare", "QAction", "Co&mpare", nullptr, ""},
    {TForm::Window, "actEarlier", "QAction", "Earl&ier Versions", nullptr, ""},
    {TForm::Window, "actGuide", "QAction", "&Guide", nullptr, ""},
    {TForm::Window, "actAbout", "QAction", "&About", nullptr, ""},

    {TForm::Changes, "btnPutBackCells", "QPushButton", "Put Back &Cells",
     "Give the selected cells their values of the file again", "d"},
    {TForm::Changes, "btnPutBack", "QPushButton", "Put &Back All",
     "Give all that is chosen in the list its bytes of the file again", "d"},

    {TForm::Compare, "btnOther", "QPushButton", "&Other Image...",
     "Choose the image file to compare with", ""},
    {TForm::Compare, "cboSpec", "QComboBox", nullptr,
     "Where the maps of the other image are: as here, or by a spec file", ""},
    {TForm::Compare, "btnTakeCells", "QPushButton", "Take Over &Cells",
     "Enter the values there into the selected cells of the map page", "d"},
    {TForm::Compare, "btnTakeAll", "QPushButton", "&Take Over All",
     "Enter all that is chosen in the list into the map page", "d"},

    {TForm::Earlier, "lblVersions", "QLabel", "No ROM image is loaded", "", ""},
    {TForm::Earlier, "lstVersions", "QTreeWidget", nullptr,
     "What was replaced by the first save of a day", ""},
    {TForm::Earlier, "btnShowVersion", "QPushButton", "Show",
     "Compare the image in memory with this version", "d"},
    {TForm::Earlier, "btnBringBackVersion", "QPushButton", "Bring Back",
     "Give the image in memory the bytes of this version", "d"},
    {TForm::Earlier, "btnClose", "QPushButton", "Close Page", "Close this page", ""},

    {TForm::FindMaps, "lblFound", "QLabel", "No ROM image is loaded", "", ""},
    {TForm::FindMaps, "btnSearch", "QPushButton", "Search", "Search the image in memory again", ""},
    {TForm::FindMaps, "lstFound", "QTreeWidget", nullptr,
     "Enter or a double-click draws the map; 1 to 6 give it to the notebook; a click on a header "
     "sorts",
     ""},
    {TForm::FindMaps, "memReasons", "QPlainTextEdit", nullptr,
     "What speaks for the chosen map and against it, the strongest first", "r"},
    {TForm::FindMaps, "grpGive", "QGroupBox", "Give to the notebook", "", ""},
    {TForm::FindMaps, "btnGiveFuelPT", "QPushButton", "1 Fuel PT", giveHint, "d"},
    {TForm::FindMaps, "btnGiveFuelIdle", "QPushButton", "2 Fuel Idle", giveHint, "d"},
    {TForm::FindMaps, "btnGiveFuelWOT", "QPushButton", "3 Fuel WOT", giveHint, "d"},
    {TForm::FindMaps, "btnGiveTimingPT", "QPushButton", "4 Timing PT", giveHint, "d"},
    {TForm::FindMaps, "btnGiveTimingIdle", "QPushButton", "5 Timing Idle", giveHint, "d"},
    {TForm::FindMaps, "btnGiveTimingWOT", "QPushButton", "6 Timing WOT", giveHint, "d"},
    {TForm::FindMaps, "btnGiveSix", "QPushButton", "Give All Six",
     "Move the maps of the notebook to the six places that seem to belong together", "d"},
    {TForm::FindMaps, "lblLocations", "QLabel", "", "", ""},
    {TForm::FindMaps, "btnUseLocations", "QPushButton", "Use These for the Searches",
     "Set the RAM locations of the searches on \"File Contents\" to these", "d"},
    {TForm::FindMaps, "btnShowContents", "QPushButton", "Show in File Contents",
     "Go to the bytes of the chosen map, with its parts in colours", "d"},
    {TForm::FindMaps, "btnSaveFound", "QPushButton", "Save Spec",
     "Save a new spec file using offsets listed on map pages", "d"},
    {TForm::FindMaps, "btnClose", "QPushButton", "Close Page", "Close this page", ""},
    {TForm::FindMaps, "actGiveFuelPT", "QAction", "&1 Fuel PT", nullptr, ""},
    {TForm::FindMaps, "actGiveTimingWOT", "QAction", "&6 Timing WOT", nullptr, ""},
    {TForm::FindMaps, "actSortRank", "QAction", "&Rank", nullptr, ""},
    {TForm::FindMaps, "actSortOffset", "QAction", "&Offset", nullptr, ""},
    {TForm::MovedMaps, "btnOther", "QPushButton", "&Known Image...",
     "Choose an image file of the same family with its spec file", ""},
    {TForm::MovedMaps, "cboSpec", "QComboBox", nullptr,
     "The spec file that says where the known image has its maps", ""},
    {TForm::MovedMaps, "lblMoved", "QLabel", "No ROM image is loaded", "", ""},
    {TForm::MovedMaps, "lstMoved", "QTreeWidget", nullptr,
     "Where the maps lie in the known image and here; Enter places one", ""},
    {TForm::MovedMaps, "memReasons", "QPlainTextEdit", nullptr,
     "Why the place is proposed, and what speaks against it", "r"},
    {TForm::MovedMaps, "lblThere", "QLabel", "", "", ""},
    {TForm::MovedMaps, "grdThere", "TStringAlignGrid", nullptr, "The map in the known image", "h"},
    {TForm::MovedMaps, "lblHere", "QLabel", "", "", ""},
    {TForm::MovedMaps, "grdHere", "TStringAlignGrid", nullptr,
     "The map at the place that is proposed for it", "h"},
    {TForm::MovedMaps, "lblTiming", "QLabel", "", "", ""},
    {TForm::MovedMaps, "btnPlaceSure", "QPushButton", "Place S&ure Maps",
     "Give the notebook's maps all places that are sure", "d"},
    {TForm::MovedMaps, "btnPlaceMap", "QPushButton", "&Place",
     "Give the chosen map its place, sure or not", "d"},
    {TForm::MovedMaps, "btnSaveMoved", "QPushButton", "Save Spec",
     "Save a new spec file using offsets listed on map pages", "d"},
    {TForm::MovedMaps, "btnClose", "QPushButton", "Close Page", "Close this page", ""},

    {TForm::Offsets, "pnlMain", "QFrame", nullptr, "", ""},
    {TForm::Offsets, "edtDataOffset", "QLineEdit", "", dollarHint, ""},
    {TForm::Offsets, "edtFuelPTMapOffset", "QLineEdit", "", dollarHint, ""},
    {TForm::Offsets, "edtFuelIdMapOffset", "QLineEdit", "", dollarHint, ""},
    {TForm::Offsets, "edtFuelFTMapOffset", "QLineEdit", "", dollarHint, ""},
    {TForm::Offsets, "edtTimingPTMapOffset", "QLineEdit", "", dollarHint, ""},
    {TForm::Offsets, "edtTimingIdMapOffset", "QLineEdit", "", dollarHint, ""},
    {TForm::Offsets, "edtTimingFTMapOffset", "QLineEdit", "", dollarHint, ""},
    {TForm::Offsets, "btnOK", "QPushButton", "&OK", "Take the offsets and close", ""},
    {TForm::Offsets, "btnCancel", "QPushButton", "Cancel", "Close without placing any map", ""},
    {TForm::Offsets, "btnFilter", "QPushButton", "Filter", "", "h"},
    {TForm::Offsets, "btnHelp", "QPushButton", "Help", "", "h"},

    {TForm::Splash, "imgLogo", "QLabel", nullptr, "", ""},
    {TForm::Splash, "lblStatus", "QLabel", "", "", ""},
};

// What the pages "Changes" and "Compare" share; named for the first.
const TControl differencesControls[] = {
    {TForm::Changes, "lblTotal", "QLabel", "No ROM image is loaded", "", ""},
    {TForm::Changes, "lstChanges", "QTreeWidget", nullptr,
     "What differs: maps, rev limiter, the rest of the image", ""},
    {TForm::Changes, "lblHigher", "QLabel", "higher here", "", ""},
    {TForm::Changes, "lblLower", "QLabel", "lower here", "", ""},
    {TForm::Changes, "lblBeneath", "QLabel", "beneath: the value there", "", ""},
    {TForm::Changes, "grdChanges", "TStringAlignGrid", nullptr,
     "Values here; where they differ, those there beneath", ""},
    {TForm::Changes, "lblCell", "QLabel", "", "", ""},
    {TForm::Changes, "chtChanges", "TAreaChart", nullptr, nullptr, "h"},
    {TForm::Changes, "btnExport", "QPushButton", "&Export",
     "Write the differences into a file: patch, table or printed pages", "d"},
    {TForm::Changes, "actPatch", "QAction", "&Patch...", nullptr, ""},
    {TForm::Changes, "actTable", "QAction", "&Table...", nullptr, ""},
    {TForm::Changes, "actPages", "QAction", "Pr&inted Pages...", nullptr, ""},
    {TForm::Changes, "btnClose", "QPushButton", "Close Page", "Close this page", ""},
};

std::vector<TControl> AllControls() {
    std::vector<TControl> all(std::begin(controls), std::end(controls));
    for (const TForm form : {TForm::Changes, TForm::Compare})
        for (TControl control : differencesControls) {
            control.form = form;
            all.push_back(control);
        }
    return all;
}

TEST_F(TControlsTest, EachStandsInItsFirstState) {
    for (const TControl &wanted : AllControls()) {
        SCOPED_TRACE(testing::Message()
                     << wanted.name << " on " << Form(wanted.form).objectName().toStdString());
        QObject *control = Control(wanted);
        ASSERT_TRUE(control);
        EXPECT_TRUE(control->inherits(wanted.kind)) << control->metaObject()->className();
        if (wanted.text) {
            EXPECT_EQ(TextOf(*control), wanted.text);
        }
        if (wanted.hint) {
            EXPECT_EQ(control->property("toolTip").toString(), wanted.hint);
        }
        EXPECT_EQ(StatesOf(*control, Form(wanted.form)), wanted.states);
    }
}

TEST_F(TControlsTest, AHintIsShownInTheStatusBarToo) {
    for (const TControl &wanted : AllControls()) {
        if (wanted.hint && *wanted.hint) {
            EXPECT_EQ(Control(wanted)->property("statusTip").toString(), wanted.hint)
                << wanted.name;
        }
    }
}

TEST_F(TControlsTest, RadioGroupsHoldTheirItems) {
    struct {
        const char *name;
        QStringList items;
        int chosen;
    } const groups[] = {
        {"rdoOperation", {"Add", "Subtract"}, 0},
        {"rdoRange", {"All", "Row", "Column"}, 0},
        {"rdoScale", {"Units", "Percent"}, 0},
        {"rdoDataset", {"Part Throttle", "Idle", "Full Throttle"}, 0},
    };
    for (const auto &group : groups) {
        const auto &found = FindControl<TRadioGroup>(Form(TForm::Tools), group.name);
        QStringList items;
        for (int i = 0; i < found.ItemCount(); ++i)
            items << found.Item(i);
        EXPECT_EQ(items, group.items);
        EXPECT_EQ(found.ItemIndex(), group.chosen);
    }
}

TEST_F(TControlsTest, WindowsHaveTheirNamesAndCaptions) {
    EXPECT_EQ(window.objectName(), "frmNotebook");
    EXPECT_EQ(offsets->objectName(), "frmOffsetEntry");
    EXPECT_EQ(offsets->windowTitle(), "Offset Entry");
    EXPECT_EQ(Form(TForm::Tools).objectName(), "frmToolWindow");
    EXPECT_EQ(Form(TForm::Tools).property("windowTitle").toString(), "Tools");
    EXPECT_EQ(quickChart->objectName(), "frmQuickChart");
    EXPECT_EQ(quickChart->windowTitle(), "Quick Map");
    EXPECT_EQ(splash.objectName(), "frmSplash");
    EXPECT_EQ(splash.size(), QSize(492, 151));
}

TEST_F(TControlsTest, TheHelpWindowHasItsMemo) {
    std::ofstream(ProgramDirectory().toStdString() + "controls-test.txt") << "a\nb\n";
    const TfrmHelp help("controls-test.txt");
    QFile::remove(ProgramDirectory() + "controls-test.txt");
    EXPECT_TRUE(help.findChild<QWidget *>("Memo1"));
}

TEST_F(TControlsTest, NamesAreUniqueOnEachForm) {
    for (const TForm form :
         {TForm::ROM, TForm::Fuel, TForm::Timing, TForm::FuelChart, TForm::TimingChart,
          TForm::QuickChart, TForm::Contents, TForm::Changes, TForm::Compare, TForm::Earlier,
          TForm::FindMaps, TForm::MovedMaps, TForm::Offsets}) {
        std::map<QString, int> counts;
        for (const QWidget *widget : Form(form).findChildren<QWidget *>())
            if (!widget->objectName().startsWith("qt_") && !widget->objectName().isEmpty())
                ++counts[widget->objectName()];
        for (const auto &[name, count] : counts)
            EXPECT_EQ(count, 1) << name.toStdString();
    }
}
} // namespace
