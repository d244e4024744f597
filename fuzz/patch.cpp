// Fuzz target: patch files. The first byte chooses. Either the rest is a patch as text: it is read
// or refused, what was read is written and read again, and applied to an image that fits it and to
// one that does not. Or the rest is an image and its changed copy: the patch of them, as text and
// back, gives one from the other.
#include "changes/Patch.h"

#include "FuzzInput.h"

#include <algorithm>

namespace {
using TBytes = std::vector<std::uint8_t>;

constexpr std::uint32_t largestImage = 0x10000; // larger ones only take longer

/// An image that fits the patch: its old bytes, zeros between them.
TBytes FittingImage(const TPatch &patch) {
    TBytes image(patch.size);
    for (const TPatchRun &run : patch.runs)
        std::copy(run.before.begin(), run.before.end(), image.begin() + run.offset);
    return image;
}

void ReadPatch(const std::string &text) {
    TPatch patch;
    try {
        patch = ParsePatch(text);
    } catch (const EPatchError &) {
        return;
    }
    Demand(ParsePatch(PatchText(patch)) == patch, "written and read again");
    if (patch.size > largestImage)
        return;
    const TBytes before = FittingImage(patch);
    TBytes image = before;
    ApplyPatch(patch, image);
    ApplyPatch(Reversed(patch), image);
    Demand(image == before, "applied and taken back");
    if (patch.runs.empty())
        return;
    image[patch.runs.back().offset] ^= 1;
    const TBytes other = image;
    try {
        ApplyPatch(patch, image);
        Demand(false, "another byte is not noticed");
    } catch (const EPatchError &) {
        Demand(image == other, "refused, but changed");
    }
}

void MakeAndApply(const TBytes &bytes) {
    const auto half = static_cast<std::ptrdiff_t>(bytes.size() / 2);
    const TBytes before(bytes.begin(), bytes.begin() + half);
    const TBytes after(bytes.begin() + half, bytes.begin() + 2 * half);
    const TPatch patch =
        ParsePatch(PatchText(MakePatch("A.BIN", std::string(64, '0'), before, after)));
    TBytes image = before;
    ApplyPatch(patch, image);
    Demand(image == after, "one from the other");
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    if (size == 0)
        return 0;
    const TBytes rest(data + 1, data + size);
    if (data[0] % 2 == 0)
        ReadPatch(std::string(rest.begin(), rest.end()));
    else
        MakeAndApply(rest);
    return 0;
}
