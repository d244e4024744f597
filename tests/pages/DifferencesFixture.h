// Base of the tests of the pages "Changes" and "Compare": the notebook's window over a saved image
// with the planted maps.
#pragma once

#include "changes/ChangesPage.h"
#include "changes/ComparePage.h"
#include "forms/Aligrid.h"
#include "forms/PageControl.h"
#include "pages/PageFixture.h"
#include "spec/main.h"

#include <fstream>

#include <QAction>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>

class TDifferencesTest : public TPageTest {
protected:
    TDifferencesTest() {
        PlantMaps();
        Image().SaveToFile("MINE.BIN");
        PlaceMaps(window.workspace);
        window.workspace.romFileName = "MINE.BIN";
        window.workspace.fuelMapSet.SetShowConverted(true);
    }

    static constexpr int fuelBody = fuelPT + 11;
    static constexpr int timingBody = timingPT + 11;

    void Change(int offset, std::uint8_t byte) { Image().Poke(offset, byte); }
    TEmbeddedForm &Page() { return *window.CurrentPage(); }
    QString Caption() { return window.PageControl1->tabText(window.PageControl1->currentIndex()); }
    template <class Control>
    Control &Find(const QString &name) {
        return FindControl<Control>(Page(), name);
    }
    TStringAlignGrid &Grid() { return Find<TStringAlignGrid>("grdChanges"); }
    QString Total() { return Find<QLabel>("lblTotal").text(); }
    QTreeWidget &List() { return Find<QTreeWidget>("lstChanges"); }
    /// "Where: what differs" of each line of the list.
    QStringList Listed() {
        QStringList lines;
        for (int i = 0; i < List().topLevelItemCount(); ++i)
            lines << List().topLevelItem(i)->text(0) + ": " + List().topLevelItem(i)->text(1);
        return lines;
    }
    void Choose(int line) { List().setCurrentItem(List().topLevelItem(line)); }
    void Click(const QString &button) { Find<QPushButton>(button).click(); }
    bool Enabled(const QString &button) { return Find<QPushButton>(button).isEnabled(); }
    void Trigger(const QString &action) { Find<QAction>(action).trigger(); }
    /// Of the whole image.
    TBytes Bytes() { return Get(0, Image().size); }
    static std::string ReadText(const std::filesystem::path &file) {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    TfrmNotebook window;
};
