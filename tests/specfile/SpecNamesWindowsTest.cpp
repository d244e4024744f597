// Spec files in folders and under names that only some programs can cope with.
#include "specfile/SpecFixture.h"
#include "specfile/SpecFolder.h"
#include "support/NamesWindows.h"

#include <gmock/gmock.h>

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

class TSpecNames : public TSpecFixture {
protected:
    /// Saves a spec file, finds it in its folder and places the maps by it.
    void SaveFindAndPlace(const fs::path &file) {
        fuel_.SetOffsets(0x100, 0x200, 0x300);
        timing_.SetOffsets(0x400, 0x500, 0x600);
        SaveNewSpecFile(file, "Ζύνδωση 点火 🔧", fuel_, timing_);
        SaveNewSpecFile(file, "Ζύνδωση 点火 🔧", fuel_, timing_); // over it
        const TSpecScan scan = ScanSpecFiles(file.parent_path());
        EXPECT_THAT(Labels(scan), ElementsAre("Ζύνδωση 点火 🔧"));
        ASSERT_EQ(scan.entries.size(), 1U);
        EXPECT_EQ(scan.entries[0].path, file);
        fuel_.ZeroMaps();
        EXPECT_TRUE(PlaceFromSpec(TIniFile::Load(scan.entries[0].path), fuel_, timing_));
        EXPECT_THAT(FuelPlaces(), ElementsAre(0x100, 0x200, 0x300));
    }
};

TEST_F(TSpecNames, MayBeForeign) {
    for (const std::u8string &name : foreignNames) {
        const TTemporaryFolder folder;
        SaveFindAndPlace(folder.Path() / fs::path(name + u8".SPC"));
    }
}

TEST_F(TSpecNames, MayBeLong) {
    const TLongFolder folder;
    SaveFindAndPlace(folder / "a.spc");
}

TEST_F(TSpecNames, MayBeTheLabel) {
    const TTemporaryFolder folder;
    std::vector<std::string> labels;
    for (const std::u8string &name : foreignNames) {
        PutFile(folder.Path() / fs::path(name + u8".spc"), {'['});
        labels.push_back(fs::path(name).string() + ".spc");
    }
    EXPECT_THAT(Labels(ScanSpecFiles(folder.Path())), testing::UnorderedElementsAreArray(labels));
}

TEST_F(TSpecScanTest, TakesEndingsOfAnyLetterCase) {
    for (const char *name : {"A.SPC", "b.spc", "C.Spc", "x.Spc"})
        Write(name, ";" + std::string(name));
    EXPECT_THAT(Labels(ScanSpecFiles(folder_)),
                UnorderedElementsAre("A.SPC", "b.spc", "C.Spc", "x.Spc"));
}

TEST_F(TSpecScanTest, HasOneFileOfANameInAnyLetterCase) {
    Write("A.SPC", "; old");
    const TFuelMapSet fuel;
    const TTimingMapSet timing;
    SaveNewSpecFile(folder_ / "a.spc", "new", fuel, timing);
    EXPECT_THAT(Labels(ScanSpecFiles(folder_)), ElementsAre("new"));
}

TEST_F(TSpecScanTest, OfALongFolderThatIsNotThereIsEmpty) {
    const TLongFolder folder;
    EXPECT_THAT(ScanSpecFiles(folder / "gone").entries, IsEmpty());
}

} // namespace
