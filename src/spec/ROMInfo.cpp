#include "spec/ROMInfo.h"

#include "forms/KelvaneNotebook.h"
#include "forms/Paths.h"
#include "model/Errors.h"
#include "model/ROMTypes.h"
#include "model/SafeFile.h"
#include "spec/IniFile.h"
#include "spec/offsetentry.h"

#include <algorithm>
#include <exception>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace {
bool Exists(const std::filesystem::path &name) {
    return QFileInfo::exists(FromPath(name));
}

QString ROMFilter() {
    return TfrmROMInformation::tr("Binary Data (*.BIN)|*.BIN");
}

/// A file name that is too long for its panel is cut in the middle and whole in the tool tip.
void ShowInPanel(QLabel &panel, const QString &name) {
    panel.setText(panel.fontMetrics().elidedText(name, Qt::ElideMiddle, panel.width()));
    panel.setToolTip(panel.text() == name ? QString() : name);
}

/// Refuses to replace; a failure does not matter. The copy is the user's own new file: it does not
/// take over a write protection of the loaded one, which would keep the save that follows from it.
void CopyToNewFile(const std::filesystem::path &from, const std::filesystem::path &to) {
    if (from.empty() || to.empty() || Exists(to))
        return;
    try {
        WriteFileSafely(to, ReadWholeFile(from, TROMImage::capacity));
    } catch (const EFileError &) {
        // The save that follows tells what is wrong with the target.
    }
}
} // namespace

void TfrmROMInformation::ShowPage() {
    SetPageVisible(true);
    btnSave_->setEnabled(Notebook() && Notebook()->AnyDataChanged());
}

void TfrmROMInformation::ScanSpecDirectory() {
    rdoROMtemplate_->Clear();
    const TSpecScan scan = ScanSpecFiles(std::filesystem::current_path());
    specTable_ = scan.entries;
    for (const TSpecEntry &entry : specTable_)
        rdoROMtemplate_->AddItem(QString::fromStdString(entry.label));
    // The limit in force is 21 although the message names 20; both numbers are intended.
    if (scan.moreRemain)
        Dialogs().ShowMessage(tr("There is a maximum of 20 spec files per directory, some spec "
                                 "files were not loaded."));
    rdoROMtemplate_->setTitle(specTable_.empty()
                                  ? tr("Select a directory containing .SPC files to fill list")
                                  : tr("Select Mapping Specification"));
    rdoROMtemplate_->AddItem(tr("Use Manual Offset Method"));
}

void TfrmROMInformation::LoadSpec(const std::filesystem::path &fileName) {
    std::exception_ptr error;
    try {
        const TIniFile ini = TIniFile::Load(fileName);
        if (PlaceFromSpec(ini, workspace_.fuelMapSet, workspace_.timingMapSet))
            currentSpecFileName_ = fileName;
        ReadTimingConstants(ini);
    } catch (...) {
        error = std::current_exception();
    }
    // Whatever happened the image is read again, and the maps are not placed again after it:
    // intended.
    ApplyROM();
    if (error)
        std::rethrow_exception(error);
}

void TfrmROMInformation::ApplyROM() {
    btnSaveSpec_->setEnabled(false);
    const bool inForce = templateIndex_ >= 0 && templateIndex_ <= LastItemIndex();
    if (inForce && Exists(romFileName_)) {
        saveFileName_.clear();
        ROMImage()->LoadFromFile(romFileName_);
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
    ShowInPanel(*statusPanels_[0], FromPath(romFileName_));
    QLabel &size = *statusPanels_[1];
    size.setText(tr("%L1 bytes").arg(ROMImage()->size));
    size.setFixedWidth(std::max(size.width(), size.sizeHint().width())); // in large fonts too
}

void TfrmROMInformation::SetROMFileName(const std::filesystem::path &name) {
    romFileName_ = name;
    workspace_.romFileName = name;
}

std::filesystem::path TfrmROMInformation::ChooseROMFile() {
    const QString current = FromPath(romFileName_);
    const QString folder =
        current.isEmpty() ? QCoreApplication::applicationDirPath() : QFileInfo(current).path();
    const QString chosen = Dialogs().OpenFile(ROMFilter(), folder);
    if (chosen.isEmpty())
        return romFileName_;
    QDir::setCurrent(QFileInfo(chosen).absolutePath());
    return ToPath(chosen);
}

void TfrmROMInformation::btnLoadClick() {
    if (!QuerySave())
        return;
    // Cancelling the dialog while a file is loaded gives that file again and so reloads it:
    // intended.
    SetROMFileName(ChooseROMFile());
    if (!Exists(romFileName_))
        return;
    ROMImage()->LoadFromFile(romFileName_);
    SetCaption(true);
    ScanSpecDirectory();
    rdoROMtemplate_->setEnabled(true);
    rdoROMtemplateClick();
    btnSaveSpec_->setEnabled(true);
}

void TfrmROMInformation::rdoROMtemplateClick() {
    const int item = rdoROMtemplate_->ItemIndex();
    templateIndex_ = item;
    if (item < 0) {
        workspace_.fuelMapSet.ZeroMaps();
        workspace_.timingMapSet.ZeroMaps();
    } else if (item <= LastSpecIndex()) {
        LoadSpec(specTable_[static_cast<std::size_t>(item)].path);
    } else if (!EnterOffsets()) {
        rdoROMtemplate_->SetItemIndex(-1);
        return;
    }
    btnOffsetEntry_->setEnabled(item == LastItemIndex());
}

bool TfrmROMInformation::QuerySave() {
    // Only the maps count here, not the image's own modified flag.
    if (!workspace_.fuelMapSet.IsModified() && !workspace_.timingMapSet.IsModified())
        return true;
    if (Dialogs().AskYesNo(tr("Save Changes?")) != TAnswer::Yes)
        return true;
    if (SaveROM())
        return true;
    Dialogs().ShowMessage(tr("Save unsuccessful"));
    return false;
}

bool TfrmROMInformation::SaveROM() {
    saveFileName_.clear();
    dlgSave_->defaultExt = ".BIN";
    dlgSave_->title = tr("Save ROM File");
    dlgSave_->filter = ROMFilter();
    if (dlgSave_->Execute())
        saveFileName_ = ToPath(dlgSave_->fileName);
    const bool result = MayWrite(saveFileName_);
    if (result)
        WriteROM();
    saveFileName_.clear();
    return result;
}

bool TfrmROMInformation::MayWrite(const std::filesystem::path &target) {
    if (!target.empty() && !Exists(target))
        return true;
    // The dialog keeps its last name when it is cancelled, so that this may ask about an earlier
    // target; "Yes" then goes on without a name and ends in the file error. Intended.
    return QFileInfo::exists(dlgSave_->fileName) &&
           Dialogs().AskYesNo(tr("Overwrite existing file?")) == TAnswer::Yes;
}

void TfrmROMInformation::WriteROM() {
    const std::filesystem::path target = saveFileName_;
    CopyToNewFile(romFileName_, target);
    workspace_.fuelMapSet.SaveAll();
    workspace_.timingMapSet.SaveAll();
    ROMImage()->SaveToFile(target);
    SetROMFileName(target);
    ApplyROM();
}

void TfrmROMInformation::btnSaveSpecClick() {
    dlgSave_->defaultExt = ".SPC";
    dlgSave_->title = tr("Save ROM Spec File");
    dlgSave_->filter = tr("Spec Files (*.SPC)|*.SPC");
    const std::filesystem::path target =
        dlgSave_->Execute() ? ToPath(dlgSave_->fileName) : std::filesystem::path();
    if (!MayWrite(target))
        return;
    if (!Exists(target))
        WriteFileSafely(target, {}); // what cannot be created is told before the label is asked for
    const QString label =
        Dialogs().InputBox(tr("Display label"), tr("Display As: "), tr("User Defined"));
    NewSpecFile(label.toStdString(), workspace_.fuelMapSet, workspace_.timingMapSet).Save(target);
}

void TfrmROMInformation::btnOffsetEntryClick() {
    // What is typed here does not reach the maps; only the image is read again. Intended.
    if (TfrmOffsetEntry(window(), workspace_).exec() == QDialog::Accepted)
        ApplyROM();
}

bool TfrmROMInformation::EnterOffsets() {
    TfrmOffsetEntry dialog(window(), workspace_);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    dialog.PlaceMaps();
    return true;
}
