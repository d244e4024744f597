#include "spec/NetUtils.h"

#include "model/Messages.h"
#include "system/Texts.h"

#include <span>

namespace {
constexpr const char *ntFunctions[] = {
    "NetShareAdd",   "NetShareDel",         "NetShareGetInfo",  "NetApiBufferFree",
    "NetFileEnum",   "NetFileGetInfo",      "NetFileClose",     "NetSessionEnum",
    "NetSessionDel", "NetWkstaUserGetInfo", "NetUserGetGroups", "NetUserGetLocalGroups"};
constexpr const char *otherFunctions[] = {"NetShareAdd", "NetShareDel", "NetShareGetInfo"};
} // namespace

bool TLibraryLoader::Load(const std::string &library) {
    library_.setFileName(QString::fromStdString(library));
    return library_.load();
}

QFunctionPointer TLibraryLoader::Resolve(const std::string &function) {
    return library_.resolve(function.c_str());
}

TNetFunctions LoadNetworkFunctions(ILibraryLoader &loader, bool ntFamily) {
    TNetFunctions functions;
    if (!loader.Load(ntFamily ? "NETAPI32.DLL" : "SVRAPI.DLL"))
        return functions;
    using TNames = std::span<const char *const>;
    for (const char *name : ntFamily ? TNames(ntFunctions) : TNames(otherFunctions))
        functions[name] = loader.Resolve(name);
    return functions;
}

void TellOfMissingFunctions(const TNetFunctions &functions) {
    const auto closing = functions.find("NetFileClose"); // looked up in the NT family alone
    if (closing != functions.end() && !closing->second)
        ShowModelMessage(Translated("NetUtils", "Could not locate NTNetFileClose"));
}
