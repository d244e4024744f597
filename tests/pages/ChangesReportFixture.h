// Base of the tests of the printed pages of differences: two images with the planted maps.
#pragma once

#include "changes/ChangesReport.h"
#include "pages/PageFixture.h"

class TChangesReportTest : public TPageTest {
protected:
    void SetUp() override {
        PlantMaps();
        PlaceMaps(workspace);
        before.assign(Image().data.begin(), Image().data.begin() + 0x8000);
        after = before;
    }
    QString Pdf() { return QString::fromStdString((folder.Path() / "report.pdf").string()); }

    void Write() {
        TMappedImage one(before);
        TMappedImage other(after);
        one.PlaceAs(workspace);
        other.PlaceAs(workspace);
        WriteReport(folder.Path() / "report.pdf", {one, other, "/roms/OLD.BIN", "/roms/NEW.BIN"});
    }
    TWorkspace workspace;
    TBytes before;
    TBytes after;
};
