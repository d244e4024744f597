// The page "ROM Information": loads a ROM image, lets the user choose how its maps are placed, and
// saves it. What stands in a spec file is SpecFile.h's; placing by hand is offsetentry.h's.
#pragma once

#include "forms/Dialogs.h"
#include "forms/ElidedLabel.h"
#include "forms/RadioGroup.h"
#include "forms/TEmbedFm.h"
#include "model/Workspace.h"
#include "spec/MappingChoice.h"
#include "spec/SpecFile.h"

#include <array>
#include <filesystem>
#include <functional>
#include <optional>

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>

class TProgrammerControls;
class TRecovery;
class TRecoveryBar;

class TfrmROMInformation : public TEmbeddedForm {
    Q_OBJECT
public:
    /// `workspace` and `recovery` outlive the page. Scans the spec files of the current directory.
    TfrmROMInformation(QWidget *parent, TWorkspace &workspace, TRecovery &recovery);

    /// Shows the page and enables "Save ROM" exactly when a page of the notebook reports changed
    /// data.
    void ShowPage() override;
    int GuideChapter() const override { return 5; }

    /// Rebuilds the spec table and the items of "Set Mapping Type"; leaves none selected or
    /// recorded.
    void ScanSpecDirectory();
    /// Places the map sets from a spec file, reads the timing constants, then always runs ApplyROM.
    /// @throws EConvertError for a bad rev limiter offset or timing constant, after ApplyROM has
    /// run
    void LoadSpec(const std::filesystem::path &fileName);
    /// Reads the image again from the ROM file when a mapping type is in force; sets caption and
    /// buttons.
    /// @throws EFileError when the file cannot be read
    void ApplyROM();
    /// Asks for a name and writes all maps and the image; false when the user backed out.
    /// @throws EFileError when the image cannot be written
    bool SaveROM();
    /// True when the caller may go on: nothing to save, the user declined, or the save succeeded.
    bool QuerySave();
    /// Sets the page's ROM file name and the workspace's copy.
    void SetROMFileName(const std::filesystem::path &name);

    void btnLoadClick();
    /// "Load ROM Image" with a file that is chosen already.
    void LoadChosen(const QString &fileName);
    void btnSaveClick() { SaveROM(); }
    void btnSaveSpecClick();
    void btnOffsetEntryClick();
    /// Runs the choice that stands in "Set Mapping Type" and records it; see MappingChoice.h. After
    /// an error, and after Cancel in the offset entry, "Manual Offsets" keeps its state.
    void rdoROMtemplateClick();
    void tmrThanksTimer();

    const std::filesystem::path &ROMFileName() const { return romFileName_; }
    const std::filesystem::path &CurrentSpecFileName() const { return currentSpecFileName_; }
    /// Offers changes that were never saved.
    TRecoveryBar &RecoveryBar() const { return *barRecovery_; }
    int TemplateIndex() const { return templateIndex_; }
    bool Loaded() const { return loaded_; }
    /// What has placed or zeroed the maps last; a choice that came to nothing leaves it.
    TMappingType Mapping() const { return mapping_; }
    /// Whether a spec file is in force that lies in another folder than the image.
    bool SpecIsElsewhere() const;
    /// Index of "Use Manual Offset Method", and of the last spec file in front of it.
    int LastItemIndex() const { return rdoROMtemplate_->ItemCount() - 1; }
    int LastSpecIndex() const { return LastItemIndex() - 1; }

protected:
    /// Shows the title and credit lines and starts and stops the turning of the credits.
    void FormShow() override;
    void FormHide() override;

private:
    static constexpr std::array<int, 3> panelWidths{500, 80, 50}; ///< of StatusBar1

    void MakeControls();
    void ConnectControls();
    QGroupBox *MakeROMGroup();
    QWidget *MakeAbout();
    QStatusBar *MakeStatusBar();
    void SetCaption(bool withFile);
    void ShowStatus();
    /// The result of the open dialog; the current file when it is cancelled, empty when there is
    /// none.
    std::filesystem::path ChooseROMFile();
    /// The file's name as a path; its folder becomes the one whose spec files are listed.
    static std::filesystem::path Confirm(const QString &fileName);
    /// Loads the image that `choose` gives, which runs behind the question about changes.
    void LoadImage(const std::function<std::filesystem::path()> &choose);
    /// Runs the save dialog as it was prepared. The name to write under; nothing when the user
    /// backed out of the dialog or of overwriting what exists or cannot be looked at. Empty after a
    /// cancelled dialog whose earlier target is to be overwritten.
    std::optional<std::filesystem::path> ChooseTarget();
    void WriteROM(const std::filesystem::path &target);
    /// Reads the image from the page's file. @throws EFileError
    void ReadImage();
    void TakeBack(bool broughtBack);
    /// Asks for the label. @throws EFileError, before the question where that can be told then;
    /// nothing of a new file is left.
    void WriteSpec(const std::filesystem::path &target);
    /// The manual offset dialog, then places the maps; false when it was left by anything but OK.
    /// @throws EConvertError for a text that is no integer
    bool EnterOffsets();

    TWorkspace &workspace_;
    TRecovery &recovery_;
    std::vector<TSpecEntry> specTable_;
    std::filesystem::path romFileName_;
    int templateIndex_ = -1; ///< recorded by the last choice; a scan sets it to -1
    TMappingType mapping_ = TMappingType::None;
    std::filesystem::path currentSpecFileName_;
    bool loaded_ = false; ///< ApplyROM has loaded an image
    std::size_t creditIndex_ = 0;

    QPushButton *btnLoad_;
    QPushButton *btnSaveSpec_;
    QPushButton *btnSave_;
    QPushButton *btnOffsetEntry_;
    TProgrammerControls *programmer_;
    TRadioGroup *rdoROMtemplate_;
    std::array<QLabel *, 4> aboutLabels_;
    std::array<TElidedLabel *, 3> statusPanels_;
    TRecoveryBar *barRecovery_ = nullptr;
    TSaveDialog *dlgSave_;
    QTimer *tmrThanks_;
};
