#include "spec/ROMInfo.h"

#include "changes/RecoveryBar.h"
#include "forms/KelvaneNotebook.h"
#include "forms/Paths.h"
#include "forms/Places.h"
#include "model/ROMTypes.h"
#include "spec/MappingChoice.h"
#include "spec/offsetentry.h"
#include "system/Files.h"
#include "system/SafeFile.h"

#include <exception>
#include <system_error>

#include <QCoreApplication>
#include <QDate>
#include <QDir>
#include <QFileInfo>
#include <QScopeGuard>

namespace {
namespace fs = std::filesystem;

/// The folder whose spec files are listed: the process's current one. One that has been deleted
/// gives way to the folder of `image`, else to the user's own.
fs::path ListedFolder(const fs::path &image) {
    std::error_code error;
    const fs::path current = fs::current_path(error);
    if (!error)
        return current;
    const fs::path folder = image.parent_path();
    return IsFolder(folder) ? folder : ToPath(QDir::homePath());
}

QString ROMFilter() {
    return TfrmROMInformation::tr("Binary Data (*.BIN)|*.BIN");
}
} // namespace

void TfrmROMInformation::ShowPage() {
    SetPageVisible(true);
    btnSave_->setEnabled(Notebook() && Notebook()->AnyDataChanged());
}

void TfrmROMInformation::ScanSpecDirectory() {
    rdoROMtemplate_->Clear();
    templateIndex_ = -1;
    const TSpecScan scan = ScanSpecFiles(ListedFolder(romFileName_));
    specTable_ = scan.entries;
    for (const TSpecEntry &entry : specTable_)
        rdoROMtemplate_->AddItem(QString::fromStdString(entry.label));
    // 21 are listed where the message names 20, so that a folder of 21 keeps its list.
    if (scan.moreRemain)
        Dialogs().ShowMessage(tr("There is a maximum of 20 spec files per directory, some spec "
                                 "files were not loaded."));
    rdoROMtemplate_->setTitle(specTable_.empty()
                                  ? tr("Select a directory containing .SPC files to fill list")
                                  : tr("Select Mapping Specification"));
    rdoROMtemplate_->AddItem(tr("Use Manual Offset Method"));
    barRecovery_->ComeLast();
}

void TfrmROMInformation::LoadSpec(const fs::path &fileName) {
    const TSpecReading reading = ReadSpec(fileName, workspace_);
    if (reading.placed) {
        currentSpecFileName_ = fileName;
        mapping_ = TMappingType::Spec;
    }
    // Whatever happened the image is read again, and the maps are not placed again after it
    // (docs/peculiarities.md).
    ApplyROM();
    if (reading.error)
        std::rethrow_exception(reading.error);
}

void TfrmROMInformation::ApplyROM() {
    btnSaveSpec_->setEnabled(false);
    const bool inForce = MappingTypeOf(templateIndex_, LastItemIndex()) != TMappingType::None;
    if (inForce && MayExist(romFileName_)) {
        ReadImage();
        SetCaption(true);
        loaded_ = true;
        btnSaveSpec_->setEnabled(true);
    } else {
        SetCaption(false);
    }
    btnSave_->setEnabled(false);
}

void TfrmROMInformation::SetCaption(bool withFile) {
    QString caption = "Ferrolyn";
    if (withFile)
        caption +=
            " - " + FromPath(romFileName_).replace("[*]", "[*][*]"); // the toolkit's own mark
    if (Notebook())
        Notebook()->setWindowTitle(caption);
    ShowStatus();
}

void TfrmROMInformation::ShowStatus() {
    statusPanels_[0]->ShowText(FromPath(romFileName_));
    QLabel &size = *statusPanels_[1];
    size.setMinimumWidth(panelWidths[1]); // or the hint would be that of a longer text before
    size.setText(tr("%L1 bytes").arg(ROMImage()->size));
    size.setFixedWidth(size.sizeHint().width()); // more in large fonts
}

bool TfrmROMInformation::SpecIsElsewhere() const {
    const fs::path spec = currentSpecFileName_.parent_path();
    const fs::path image = romFileName_.parent_path();
    return mapping_ == TMappingType::Spec && spec != image && !IsSame(spec, image);
}

void TfrmROMInformation::SetROMFileName(const fs::path &name) {
    romFileName_ = name;
    workspace_.romFileName = name;
}

fs::path TfrmROMInformation::ChooseROMFile() {
    const QString current = FromPath(romFileName_);
    const QString folder =
        current.isEmpty() ? QCoreApplication::applicationDirPath() : QFileInfo(current).path();
    const QString chosen = Dialogs().OpenFile(ROMFilter(), folder);
    // Cancelling the dialog while a file is loaded gives that file again and so reloads it; "Save
    // Changes?" has been asked (docs/peculiarities.md).
    return chosen.isEmpty() ? romFileName_ : Confirm(chosen);
}

fs::path TfrmROMInformation::Confirm(const QString &fileName) {
    QDir::setCurrent(QFileInfo(fileName).absolutePath());
    return ToPath(fileName);
}

void TfrmROMInformation::btnLoadClick() {
    LoadImage([this] { return ChooseROMFile(); });
}

void TfrmROMInformation::LoadChosen(const QString &fileName) {
    const auto tell = qScopeGuard([this] { TellState(); });
    LoadImage([&fileName] { return Confirm(fileName); });
}

void TfrmROMInformation::LoadImage(const std::function<fs::path()> &choose) {
    if (!QuerySave())
        return;
    SetROMFileName(choose());
    if (!MayExist(romFileName_))
        return;
    ReadImage();
    RememberFolder(FromPath(romFileName_.parent_path()));
    SetCaption(true);
    ScanSpecDirectory();
    rdoROMtemplate_->setEnabled(true);
    rdoROMtemplateClick();
    btnSaveSpec_->setEnabled(true);
}

void TfrmROMInformation::rdoROMtemplateClick() {
    templateIndex_ = rdoROMtemplate_->ItemIndex();
    const TMappingType type = MappingTypeOf(templateIndex_, LastItemIndex());
    switch (type) {
    case TMappingType::None:
        mapping_ = type;
        ZeroBothSets(workspace_);
        break;
    case TMappingType::Spec:
        LoadSpec(specTable_[static_cast<std::size_t>(templateIndex_)].path);
        break;
    case TMappingType::Manual:
        if (!EnterOffsets()) {
            // Only the selection goes: the recorded index keeps the image in force, its caption and
            // its buttons (docs/peculiarities.md).
            rdoROMtemplate_->SetItemIndex(-1);
            return;
        }
        mapping_ = type;
    }
    btnOffsetEntry_->setEnabled(type == TMappingType::Manual);
}

bool TfrmROMInformation::QuerySave() {
    // Only the maps count here, not the image's own modified flag.
    if (!workspace_.fuelMapSet.IsModified() && !workspace_.timingMapSet.IsModified())
        return true;
    if (Dialogs().AskAboutEdits(tr("Save Changes?")) != TAnswer::Yes)
        return true;
    if (SaveROM())
        return true;
    Dialogs().ShowMessage(tr("Save unsuccessful"));
    return false;
}

bool TfrmROMInformation::SaveROM() {
    dlgSave_->defaultExt = ".BIN";
    dlgSave_->title = tr("Save ROM File");
    dlgSave_->filter = ROMFilter();
    const std::optional<fs::path> target = ChooseTarget();
    if (target)
        WriteROM(*target);
    return target.has_value();
}

std::optional<fs::path> TfrmROMInformation::ChooseTarget() {
    const bool confirmed = dlgSave_->Execute();
    // The dialog keeps its last name when it is cancelled, so that this may ask about an earlier
    // target; "Yes" then goes on without a name and ends in the file error, with nothing written
    // (docs/peculiarities.md).
    const fs::path named = ToPath(dlgSave_->fileName);
    const bool write = MayExist(named)
                           ? Dialogs().AskYesNo(tr("Overwrite existing file?")) == TAnswer::Yes
                           : confirmed;
    if (!write)
        return std::nullopt;
    return confirmed ? named : fs::path();
}

void TfrmROMInformation::WriteROM(const fs::path &target) {
    workspace_.fuelMapSet.SaveAll();
    workspace_.timingMapSet.SaveAll();
    recovery_.KeepReplaced(target, QDate::currentDate().toString("yyyyMMdd").toStdString());
    ROMImage()->SaveToFile(target);
    recovery_.ImageSaved();
    SetROMFileName(target);
    ApplyROM();
}

void TfrmROMInformation::ReadImage() {
    ROMImage()->LoadFromFile(romFileName_);
    recovery_.ImageRead();
}

void TfrmROMInformation::TakeBack(bool broughtBack) {
    if (broughtBack) {
        DataChanged = true; // as after a commit
        btnSave_->setEnabled(true);
    }
    TellState();
}

void TfrmROMInformation::btnSaveSpecClick() {
    dlgSave_->defaultExt = ".SPC";
    dlgSave_->title = tr("Save ROM Spec File");
    dlgSave_->filter = tr("Spec Files (*.SPC)|*.SPC");
    if (const std::optional<fs::path> target = ChooseTarget())
        WriteSpec(*target);
}

void TfrmROMInformation::WriteSpec(const fs::path &target) {
    CheckCanWrite(target); // what cannot be written is told before the question
    const QString label =
        Dialogs().InputBox(tr("Display label"), tr("Display As: "), tr("User Defined"));
    SaveNewSpecFile(target, label.toStdString(), workspace_.fuelMapSet, workspace_.timingMapSet);
}

void TfrmROMInformation::btnOffsetEntryClick() {
    // What is typed here does not reach the maps; only the image is read again. Maps are placed by
    // choosing "Use Manual Offset Method" (docs/peculiarities.md).
    if (TfrmOffsetEntry(window(), workspace_).exec() == QDialog::Accepted)
        ApplyROM();
}

bool TfrmROMInformation::EnterOffsets() {
    TfrmOffsetEntry dialog(window(), workspace_);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    PlaceByHand(dialog.Typed(), workspace_);
    return true;
}
