// The look-up of the network-management functions, done once before the program's entry. Nothing
// else uses what is found here: see docs/peculiarities.md.
#pragma once

#include <map>
#include <string>

#include <QFunctionPointer>
#include <QLibrary>

class ILibraryLoader {
public:
    virtual ~ILibraryLoader() = default;
    /// Loads a library by file name; false when that is not possible.
    virtual bool Load(const std::string &library) = 0;
    /// The function of that name in the library loaded last; null when it has none.
    virtual QFunctionPointer Resolve(const std::string &function) = 0;
};

/// The platform's libraries. What was loaded stays loaded.
class TLibraryLoader : public ILibraryLoader {
public:
    bool Load(const std::string &library) override;
    QFunctionPointer Resolve(const std::string &function) override;

private:
    QLibrary library_;
};

/// Name and address; null for a name that the library does not have.
using TNetFunctions = std::map<std::string, QFunctionPointer>;

/// Looks up the functions of "NETAPI32.DLL" or, outside the NT family, of "SVRAPI.DLL". A library
/// that cannot be loaded is ignored and gives no functions. Says nothing: it runs before there is
/// an application to show messages.
TNetFunctions LoadNetworkFunctions(ILibraryLoader &loader, bool ntFamily);

/// Tells the user when the library of the NT family has no NetFileClose; of nothing else. Runs once
/// messages can be seen.
void TellOfMissingFunctions(const TNetFunctions &functions);
