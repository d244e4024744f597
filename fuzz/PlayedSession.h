// One sitting at the real main window, played from an input of the fuzzer beside a plain model of
// it: the image, both map sets, every page's grids, the files. Each step does to the window what a
// user does and to the model what the window should have done; then both are the same.
#pragma once

#include "FuzzInput.h"
#include "LiteralPage.h"
#include "e2e/Session.h"

#include <map>
#include <memory>

/// A spec file of the session's folder.
struct TPlayedSpec {
    std::string label;
    bool throughPointers;
    std::array<int, 6> places; ///< of the maps, or of their pointers
    int mask;
    int revPlace;
    TTimingConstants constants;
    /// What its rev limiter is instead of a number; nothing is placed then.
    std::string brokenRevPlace;
};

class TPlayedSession {
public:
    /// Writes the files, loads the first image and chooses its first spec file. The input is lent.
    explicit TPlayedSession(TFuzzInput &input);
    /// Plays to the input's end, at most `mostSteps`, and closes the window. A difference is a
    /// Finding; a control that cannot be used throws std::runtime_error.
    void Run(int mostSteps);

private:
    struct TPlayedPage {
        TEmbeddedForm *form;
        std::unique_ptr<TLiteralSet> ownSet;  ///< of an added page
        std::unique_ptr<TLiteralPage> map;    ///< of a map page
        bool graphical = false;               ///< shows a chart alone
        std::optional<std::size_t> only = {}; ///< the one map that an added page shows
    };

    void Step();
    void OnMapPage(int what);

    // Pages and tabs.
    std::size_t Current() const;
    TPlayedPage &CurrentPage() { return pages_[Current()]; }
    std::size_t IndexOf(const QString &form) const;
    void GoTo(std::size_t index);
    void Leave(TPlayedPage &page);
    void Enter(TPlayedPage &page);
    void ClosePage();
    void CloseWindow();
    void TakeNewPages();

    // On the current map page; `which` is one of its three maps.
    bool Shown(std::size_t which);
    bool Editable(std::size_t which);
    std::string NumberText();
    void TypeInto(std::size_t which, TGridCell cell, const std::string &text, bool leaveOpen);
    /// False when there is no such cell.
    bool EditCell(std::size_t which, bool leaveOpen);
    void EndOpenEdit(std::size_t which);
    void UndoAndRedo();
    void Interpret();
    void Paste(std::size_t which);
    void PasteIntoEdit(std::size_t which);
    void Reset(std::size_t which);
    void Commit(std::size_t which);
    void EditAxis(std::size_t which);
    void Adjust(std::size_t which);
    void PlayRevLimiter();
    void MoveMap(std::size_t which);

    // On "ROM Information".
    void WriteSpec(const TPlayedSpec &spec);
    void Load();
    void Choose();
    void Place(const TPlayedSpec &spec);
    void ChooseManually();
    void Save();
    void SaveSpec();
    bool PlaySave();
    void ApplyROM();
    void LoadBytes();

    // On "File Contents".
    void AddFoundPages();
    void UpdateMap();

    void Compare();
    void CompareGrids();

    TFuzzInput &input_;
    TSession session_;
    TLiteralWorld world_;
    TLiteralSet fuel_{world_, true};
    TLiteralSet timing_{world_, false};
    TLiteralSlots fuelSlots_;
    TLiteralSlots timingSlots_;
    std::vector<TPlayedPage> pages_; ///< in the order of the tabs
    QStringList questions_;          ///< the expected ones of this step
    std::map<std::string, TBytes> files_;
    std::string romFile_;
    std::string dialogName_; ///< what the save dialog remembers
    std::int32_t size_ = 0;
    std::vector<TPlayedSpec> specs_; ///< in the folder
    std::size_t listed_ = 0;         ///< how many of them the list shows
    int chosen_ = -1;
    bool editTells_ = false; ///< the last edit ends with a message
    bool maySave_ = false;
    bool maySaveSpec_ = false;
    int written_ = 0;
};
