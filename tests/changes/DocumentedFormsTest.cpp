// The examples of the document on file formats, against the sample image.
#include "changes/ChangesTable.h"
#include "changes/Patch.h"
#include "support/ModelFixture.h"
#include "support/TemporaryFolder.h"
#include "system/Sha256.h"

namespace {
class TDocumentedFormsTest : public TModelTest {
protected:
    /// The block that begins with these words.
    static std::string Block(const std::string &words) {
        const TBytes bytes = GetFile(FERROLYN_SOURCE_DIR "/docs/file-formats.md");
        const std::string text(bytes.begin(), bytes.end());
        const std::size_t first = text.find("```\n" + words);
        if (first == std::string::npos)
            return {};
        return text.substr(first + 4, text.find("```", first + 4) - first - 4);
    }
    static std::string WithLineFeeds(std::string text) {
        std::erase(text, '\r');
        return text;
    }

    const TBytes before = GetFile(FERROLYN_SOURCE_DIR "/samples/FERRO32K.BIN");
    const std::string patchText = Block("Ferrolyn patch");
};

TEST_F(TDocumentedFormsTest, ThePatchBelongsToTheSample) {
    const TPatch patch = ParsePatch(patchText);
    EXPECT_EQ(patch.sha256, Sha256(before));
    EXPECT_EQ(PatchText(patch), patchText);
    TBytes after = before;
    ApplyPatch(patch, after);
    EXPECT_EQ(PatchText(MakePatch("FERRO32K.BIN", Sha256(before), before, after)), patchText);
}

TEST_F(TDocumentedFormsTest, TheTableIsOfThatPatch) {
    TBytes patched = before;
    ApplyPatch(ParsePatch(patchText), patched);
    TMappedImage one(before);
    TMappedImage other(patched);
    one.PlaceBySpec(FERROLYN_SOURCE_DIR "/samples/FERRO32K.SPC");
    other.PlaceBySpec(FERROLYN_SOURCE_DIR "/samples/FERRO32K.SPC");
    EXPECT_EQ(WithLineFeeds(ChangesTable(ImageChanges(one, other), one, other)), Block("map,what"));
}
} // namespace
