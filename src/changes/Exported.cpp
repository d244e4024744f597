#include "changes/Exported.h"

#include "system/PathText.h"
#include "system/Sha256.h"
#include "system/Texts.h"

TPatch ExportedPatch(const TExported &exported) {
    const auto before = exported.before.Bytes();
    const auto after = exported.after.Bytes();
    if (before.size() != after.size())
        throw EPatchError(Translated("Exported", "A patch needs two images of the same length"));
    return MakePatch(PathText(ToPath(exported.nameBefore).filename()), Sha256(before), before,
                     after);
}
