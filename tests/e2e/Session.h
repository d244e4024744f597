// One sitting at the real main window: a fresh model, a folder of its own as current directory,
// scripted dialogs, and the window's controls, found by object name and used with mouse and keys.
#pragma once

#include "ExpectedImage.h"
#include "forms/Aligrid.h"
#include "maps/MapPanel.h"
#include "spec/main.h"
#include "support/FakeDialogs.h"
#include "support/FindControl.h"
#include "support/ModelFixture.h"
#include "support/OwnState.h"
#include "support/TemporaryFolder.h"

#include <filesystem>
#include <memory>
#include <string>

#include <QAbstractButton>

/// The object name of the page "File Contents".
inline const QString contentsPage = "frmFileContents";

/// The text of the spec file that names six offsets (fuel part throttle, idle, full throttle, then
/// timing) and a rev limiter.
std::string SpecText(const std::string &label, const std::vector<int> &offsets, int revLimiter);

/// Makes a folder the current one while it lives.
class TCurrentFolder {
public:
    explicit TCurrentFolder(const std::filesystem::path &folder)
        : old_(std::filesystem::current_path()) {
        std::filesystem::current_path(folder);
    }
    TCurrentFolder(const TCurrentFolder &) = delete;
    TCurrentFolder &operator=(const TCurrentFolder &) = delete;
    ~TCurrentFolder() { std::filesystem::current_path(old_); }

private:
    std::filesystem::path old_;
};

/// Every member function throws std::runtime_error when a control is missing, hidden or disabled.
class TSession {
public:
    TSession();
    /// Answers that nobody asked for fail the test.
    ~TSession();
    TSession(const TSession &) = delete;
    TSession &operator=(const TSession &) = delete;

private:
    TFreshModel fresh_;

public:
    TTemporaryFolder folder;
    TOwnState ownState;

private:
    TCurrentFolder current_{folder.Path()};

public:
    TFakeDialogs dialogs;
    std::unique_ptr<TfrmNotebook> window;

    /// The page's object name, for example "frmFuelMaps", and a control on it.
    template <class Control>
    Control &On(const QString &page, const QString &name) {
        return FindControl<Control>(FindControl<QWidget>(*window, page), name);
    }
    void Click(const QString &page, const QString &button);
    bool MayClick(const QString &page, const QString &button);
    void Trigger(const QString &page, const QString &menuItem);

    /// Puts a file into the folder and returns its path.
    QString Write(const std::string &name, const TBytes &bytes);
    QString Write(const std::string &name, const std::string &text);
    TBytes Read(const std::string &name) const { return GetFile(folder / name); }
    /// The four samples, and the bytes of the 32 KiB image.
    TBytes WriteSamples();

    void SelectTab(const QString &caption);
    /// Confirms the open dialog with a file of the folder.
    void Load(const std::string &name);
    /// Chooses an item of "Set Mapping Type" by its text.
    void Choose(const QString &label);
    void LoadAndChoose(const std::string &name, const QString &label);
    /// From any page: goes to "ROM Information" and saves under a name of the folder.
    void SaveAs(const std::string &name);

    TStringAlignGrid &Grid(const QString &page, TMapKind kind);
    /// Types a text into a cell and ends the edit with Enter.
    void Type(const QString &page, TMapKind kind, TGridCell cell, const QString &text);
    void TypeInto(TStringAlignGrid &grid, TGridCell cell, const QString &text);
    void Commit(const QString &page, TMapKind kind);
    void Reset(const QString &page, TMapKind kind);
    void Interpret(const QString &page);
    void TypeRevLimiter(int rpm);
    /// Double-clicks the offset box, types and presses Enter.
    void TypeOffset(const QString &page, TMapKind kind, const QString &text);
};

inline const QString fuelPage = "frmFuelMaps";
inline const QString timingPage = "frmTimingMaps";
inline const QString romPage = "frmROMInformation";
inline constexpr const char *byOffsets = "Ferrolyn sample 32K, offsets";
inline constexpr const char *byPointers = "Ferrolyn sample 32K, map pointers";
