// What runs the searches of the page "File Contents": asks what they need, starts them and has
// their outcome shown. The searching is ContentsSession.h's; what becomes of found maps is
// FilePlacing.h's.
#pragma once

#include "filedisplay/ContentsSession.h"

#include <QCoreApplication>

class TfrmFileContents;

/// The handlers are named after the menu's items, which FileMenu.cpp lists with their captions.
class TFileSearches {
    Q_DECLARE_TR_FUNCTIONS(TFileSearches)
public:
    /// Of `page`, which outlives this.
    explicit TFileSearches(TfrmFileContents &page) : page_(page) {}

    /// Asks for one search parameter; what is no number stores -1.
    void EnterParamClick(std::int32_t TSearchParameters::*parameter, const QString &prompt);
    void FindConsecutivePossFuelValsClick() { Run(&TContentsSession::MarkPossibleFuelValues); }
    void FindConsecutivePossTimeValsClick() { Run(&TContentsSession::MarkPossibleTimingValues); }
    void HighlightAValue1Click();
    void FindMapPointers1Click();
    void ClearAllMarkers1Click() { Run(&TContentsSession::ClearAllMarkers); }

    // "Highlight Map From Current Cell": 3 is a part throttle map, 4 one of full throttle or idle.
    void Fuel3Click() { HighlightFromSelected(TMapShape::TwoD, TMapContents::Fuel); }
    void Fuel4Click() { HighlightFromSelected(TMapShape::Linear, TMapContents::Fuel); }
    void Timing3Click() { HighlightFromSelected(TMapShape::TwoD, TMapContents::Timing); }
    void Timing4Click() { HighlightFromSelected(TMapShape::Linear, TMapContents::Timing); }

    // "Search and Highlight Maps": 5 (and 1 of any values) is part throttle, 6 (and 2) the others.
    void Fuel5Click() { HighlightAll(TMapShape::TwoD, TMapContents::Fuel); }
    void Fuel6Click() { HighlightAll(TMapShape::Linear, TMapContents::Fuel); }
    void Timing5Click() { HighlightAll(TMapShape::TwoD, TMapContents::Timing); }
    void Timing6Click() { HighlightAll(TMapShape::Linear, TMapContents::Timing); }
    void Any1Click() { HighlightAll(TMapShape::TwoD, TMapContents::Any); }
    void Any2Click() { HighlightAll(TMapShape::Linear, TMapContents::Any); }

private:
    /// Has the page show what an operation of its session did.
    void Run(const std::function<std::string(TContentsSession &)> &operation);
    void HighlightFromSelected(TMapShape shape, TMapContents contents) {
        Run([=](TContentsSession &own) { return own.HighlightFromRecorded(shape, contents); });
    }
    void HighlightAll(TMapShape shape, TMapContents contents) {
        Run([=](TContentsSession &own) { return own.HighlightAllMaps(shape, contents); });
    }

    TfrmFileContents &page_;
};
