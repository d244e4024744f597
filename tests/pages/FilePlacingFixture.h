// Base of tests with the contents view in its notebook: images with planted maps, the menu by
// action names, pages that were added.
#pragma once

#include "filedisplay/FileDisplay.h"
#include "forms/PageControl.h"
#include "maps/Maps.h"
#include "maps/QuickChart.h"
#include "pages/PageFixture.h"
#include "spec/main.h"

class TPlacingTest : public TPageTest {
protected:
    TPlacingTest() {
        TfrmBaseForm::ProgRegKey = "\\Software\\Kelvane\\Ferrolyn";
        page = &dynamic_cast<TfrmFileContents &>(*window.Page(contentsTab));
    }
    ~TPlacingTest() override { TfrmBaseForm::ProgRegKey.clear(); }

    /// Shows an image of `size` bytes of 255 with these bytes planted.
    void Show(int size, const std::map<int, TBytes> &planted) {
        Put(0, TBytes(static_cast<std::size_t>(size), 255));
        for (const auto &[offset, bytes] : planted)
            Put(offset, bytes);
        Image().size = size;
        window.workspace.romFileName = "image.BIN";
        window.PageControl1->SelectByProgram(contentsTab);
        page->ShowPage();
    }
    void Trigger(const QString &name) { FindControl<QAction>(*page, name).trigger(); }
    TStringAlignGrid &Grid() { return FindControl<TStringAlignGrid>(*page, "grdFile"); }
    void Select(int column, int row) { Grid().SetCurrent(column, row); }
    QStringList AddedCaptions() const {
        QStringList captions;
        for (int tab = contentsTab + 1; tab < window.PageCount(); ++tab)
            captions << window.PageControl1->tabText(tab);
        return captions;
    }
    TfrmMaps &Added(int index) {
        return *page->placing.AddedPages().at(static_cast<std::size_t>(index));
    }
    TfrmQuickChart *Chart() { return window.findChild<TfrmQuickChart *>(); }

    static constexpr int contentsTab = 5;
    /// 2 x 2 points, the axis bytes 5 to 8.
    static TBytes TwoD(std::uint8_t value) {
        return {1, 2, 5, 6, 1, 2, 7, 8, value, value, value, value};
    }
    static TBytes Linear(std::uint8_t axisByte, std::uint8_t value) {
        return {1, 2, axisByte, 6, value, value};
    }
    static constexpr std::uint8_t fuelValue = 100;
    static constexpr std::uint8_t timingValue = 40;

    TfrmNotebook window;
    TfrmFileContents *page;
};
