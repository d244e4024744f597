#include "spec/NetUtils.h"

#include "model/Messages.h"
#include "spec/Application.h"
#include "support/FakeDialogs.h"

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {
void AnyFunction() {}

struct TNetCase {
    const char *name;
    bool ntFamily;
    std::set<std::string> libraries; ///< that can be loaded
    std::set<std::string> missing;   ///< functions that the library does not have
    std::vector<std::string> lookedUp;
    std::vector<std::string> messages;
};

class TFakeLoader : public ILibraryLoader {
public:
    explicit TFakeLoader(const TNetCase &world) : world_(world) {}
    std::vector<std::string> loaded;
    std::vector<std::string> lookedUp;

    bool Load(const std::string &library) override {
        loaded.push_back(library);
        return world_.libraries.contains(library);
    }
    QFunctionPointer Resolve(const std::string &function) override {
        lookedUp.push_back(function);
        return world_.missing.contains(function) ? nullptr : &AnyFunction;
    }

private:
    const TNetCase &world_;
};

const std::vector<std::string> ntNames = {
    "NetShareAdd",   "NetShareDel",         "NetShareGetInfo",  "NetApiBufferFree",
    "NetFileEnum",   "NetFileGetInfo",      "NetFileClose",     "NetSessionEnum",
    "NetSessionDel", "NetWkstaUserGetInfo", "NetUserGetGroups", "NetUserGetLocalGroups"};
const std::vector<std::string> otherNames = {"NetShareAdd", "NetShareDel", "NetShareGetInfo"};

class NetUtils : public testing::TestWithParam<TNetCase> {
protected:
    std::vector<std::string> messages_;
    TMessageHook before_ =
        SetMessageHook([this](const std::string &text) { messages_.push_back(text); });
    void TearDown() override { SetMessageHook(before_); }
};
} // namespace

TEST_P(NetUtils, LooksUpTheFamilysFunctions) {
    const TNetCase &net = GetParam();
    TFakeLoader loader(net);
    const TNetFunctions functions = LoadNetworkFunctions(loader, net.ntFamily);
    EXPECT_EQ(loader.loaded,
              std::vector<std::string>{net.ntFamily ? "NETAPI32.DLL" : "SVRAPI.DLL"});
    EXPECT_EQ(loader.lookedUp, net.lookedUp);
    EXPECT_EQ(messages_, std::vector<std::string>{}) << "nobody could see it yet";
    TellOfMissingFunctions(functions);
    EXPECT_EQ(messages_, net.messages);
    EXPECT_EQ(functions.size(), net.lookedUp.size());
    for (const auto &[name, function] : functions)
        EXPECT_EQ(function == nullptr, net.missing.contains(name)) << name;
}

INSTANTIATE_TEST_SUITE_P(
    Table, NetUtils,
    testing::Values(TNetCase{"Nt", true, {"NETAPI32.DLL"}, {}, ntNames, {}},
                    TNetCase{"NtWithoutFileClose",
                             true,
                             {"NETAPI32.DLL"},
                             {"NetFileClose"},
                             ntNames,
                             {"Could not locate NTNetFileClose"}},
                    TNetCase{
                        "NtWithoutAnother", true, {"NETAPI32.DLL"}, {"NetShareAdd"}, ntNames, {}},
                    TNetCase{"NtLibraryMissing", true, {"SVRAPI.DLL"}, {}, {}, {}},
                    TNetCase{"Other", false, {"SVRAPI.DLL"}, {}, otherNames, {}},
                    TNetCase{"OtherWithoutAny",
                             false,
                             {"SVRAPI.DLL"},
                             {"NetShareAdd", "NetShareDel", "NetShareGetInfo", "NetFileClose"},
                             otherNames,
                             {}},
                    TNetCase{"OtherLibraryMissing", false, {"NETAPI32.DLL"}, {}, {}, {}}),
    [](const auto &net) { return net.param.name; });

TEST(NetUtilsStart, WhatWasMissingBeforeTheApplicationIsToldOnceItIsSetUp) {
    const TNetCase net{"", true, {"NETAPI32.DLL"}, {"NetFileClose"}, {}, {}};
    TFakeLoader loader(net);
    const TMessageHook before = SetMessageHook({}); // as when the program starts
    const TNetFunctions functions = LoadNetworkFunctions(loader, true);
    TFakeDialogs dialogs;
    SetUpApplication();
    TellOfMissingFunctions(functions);
    EXPECT_EQ(dialogs.messages, QStringList{"Could not locate NTNetFileClose"});
    SetMessageHook(before);
}

TEST(LibraryLoader, KnowsNoLibraryThatIsNotThere) {
    TLibraryLoader loader;
    EXPECT_FALSE(loader.Load("no such library"));
    EXPECT_EQ(loader.Resolve("NetFileClose"), nullptr);
}
