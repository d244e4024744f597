// Base of the tests of the page "ROM Information": the page in a notebook, beside a page that can
// claim to have changed data, ROM images on the disk and spec files in the current folder.
#pragma once

#include "changes/Recovery.h"
#include "forms/KelvaneNotebook.h"
#include "forms/RadioGroup.h"
#include "forms/TEmbedFm.h"
#include "pages/PageFixture.h"
#include "spec/ROMInfo.h"
#include "support/Environment.h"

#include <fstream>

#include <QRadioButton>

/// The last item of the list of spec files.
inline constexpr const char *manual = "Use Manual Offset Method";
inline constexpr const char *overwrite = "Overwrite existing file?";

class TROMInfoTest : public TPageTest {
protected:
    void SetUp() override {
        auto added = std::make_unique<TfrmROMInformation>(nullptr, workspace, recovery);
        page = added.get();
        host.AddPage(std::move(added), "tabROMInfo", "ROM Information");
        auto beside = std::make_unique<TEmbeddedForm>();
        other = beside.get();
        host.AddPage(std::move(beside), "tabOther", "Other");
        page->ShowPage();
    }

    /// Writes a ROM image with the six planted maps as `name` and empties the process's image. The
    /// byte at 0x7000 is `mark`.
    std::filesystem::path MakeROM(const std::string &name, std::uint8_t mark = 1) {
        PlantMaps();
        Image().Poke(0x7000, mark);
        const std::filesystem::path file = folder / name;
        PutFile(file, Get(0, Image().size));
        Image().data.fill(0);
        Image().size = 0;
        return file;
    }
    std::filesystem::path MakeText(const std::string &name, const std::string &text) {
        std::ofstream(folder / name, std::ios::binary) << text;
        return folder / name;
    }
    /// A spec file in the direct form for the planted maps, and lines behind it.
    std::filesystem::path MakeSpec(const std::string &name = "DIRECT.SPC",
                                   const std::string &more = "") {
        return MakeText(name, "; Direct\n"
                              "[Fuel Maps]\npt_offset=$1000\nidle_offset=$1200\nwot_offset=$1300\n"
                              "[Timing Maps]\npt_offset=$2000\nidle_offset=$2200\n"
                              "wot_offset=$2300\n[Other Maps]\nrevlimit_offset=$40\n" +
                                  more);
    }

    template <class Control>
    Control &Find(const QString &name) {
        return FindControl<Control>(*page, name);
    }
    TRadioGroup &Group() { return Find<TRadioGroup>("rdoROMtemplate"); }
    QPushButton &Button(const QString &name) { return Find<QPushButton>(name); }
    QString Caption() { return host.windowTitle(); }
    /// "Load, save spec, save, manual offsets": the enabled ones by their letters l, c, s, m.
    std::string EnabledButtons() {
        std::string letters;
        for (const auto &[name, letter] : {std::pair{"btnLoad", 'l'},
                                           {"btnSaveSpec", 'c'},
                                           {"btnSave", 's'},
                                           {"btnOffsetEntry", 'm'}})
            if (Button(name).isEnabled())
                letters += letter;
        return letters;
    }
    QStringList Items() {
        QStringList items;
        for (int i = 0; i < Group().ItemCount(); ++i)
            items << Group().Item(i);
        return items;
    }

    void Load(const std::filesystem::path &file) {
        dialogs.opens.push_back(QString::fromStdString(file.string()));
        Button("btnLoad").click();
    }
    /// Clicks the item of that text as the user does.
    void Choose(const QString &text) {
        const int index = static_cast<int>(Items().indexOf(text));
        ASSERT_GE(index, 0) << "no item " << text.toStdString();
        Group().findChildren<QRadioButton *>()[index]->click();
    }
    /// Loads a ROM image and chooses the spec file for it.
    void LoadAndPlace(const std::filesystem::path &file) {
        MakeSpec();
        Load(file);
        Choose("Direct");
        ASSERT_EQ(workspace.fuelMapSet.PTMap->GetLocation(), fuelPT);
    }
    template <class TAnyMap>
    static auto &Cell(TAnyMap &map, std::int32_t rpm = 0) {
        return *map.data->values->GetItem(rpm, 0);
    }
    /// Whether all cells of both sets are 0.
    bool AllZero() {
        const auto zero = [](const TMapSet &maps) {
            for (const TMapKind kind : {TMapKind::PT, TMapKind::Idle, TMapKind::WOT})
                for (const std::int32_t raw : RawOf(*maps.Map(kind).data))
                    if (raw != 0)
                        return false;
            return true;
        };
        return zero(workspace.fuelMapSet) && zero(workspace.timingMapSet);
    }
    static QString Name(const std::filesystem::path &file) {
        return QString::fromStdString(file.string());
    }
    static QString Says(TReason reason) { return QString::fromStdString(Words(reason)); }

    TWorkspace workspace;
    TRecovery recovery{workspace, ownState.Folder()};
    TfrmKelvaneNotebook host;
    TfrmROMInformation *page = nullptr;
    TEmbeddedForm *other = nullptr;
};
