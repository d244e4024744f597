// Base of the page tests: a fresh model, scripted dialogs that also record the model's messages, a
// folder of its own as current directory, and a plain ROM image with six known maps.
#pragma once

#include "model/ROMTypes.h"
#include "support/FakeDialogs.h"
#include "support/FindControl.h"
#include "support/ModelFixture.h"
#include "support/OwnState.h"
#include "support/TemporaryFolder.h"

#include <filesystem>

#include <QTest>

class TPageTest : public TModelTest {
protected:
    TPageTest() : oldFolder_(std::filesystem::current_path()) {
        std::filesystem::current_path(folder.Path());
        SetMessageHook(
            [this](const std::string &text) { dialogs.ShowMessage(QString::fromStdString(text)); });
    }
    ~TPageTest() override { std::filesystem::current_path(oldFolder_); }

    static constexpr int fuelPT = 0x1000;
    static constexpr int fuelIdle = 0x1200;
    static constexpr int fuelWOT = 0x1300;
    static constexpr int timingPT = 0x2000;
    static constexpr int timingIdle = 0x2200;
    static constexpr int timingWOT = 0x2300;
    static constexpr int revLimiter = 0x0040;

    /// Plants the six maps (4 RPM points: 2400, 4800, 7200, 9600; part throttle with 3 load points:
    /// 20, 60, 100 %) and a rev limiter of 6800 rpm. Bodies count up from 1.
    void PlantMaps() {
        Image().size = 0x8000;
        const TBytes rpm{60, 60, 60, 16};
        const TBytes load{100, 100, 0};
        for (const int offset : {fuelPT, timingPT})
            PutMap(offset, rpm, load);
        for (const int offset : {fuelIdle, fuelWOT, timingIdle, timingWOT})
            PutMap(offset, rpm, {});
        Image().Poke(revLimiter, 170);
    }
    /// Places both sets of the workspace at the planted maps.
    void PlaceMaps(TWorkspace &workspace) {
        workspace.fuelMapSet.SetOffsets(fuelPT, fuelIdle, fuelWOT);
        workspace.timingMapSet.SetOffsets(timingPT, timingIdle, timingWOT);
        workspace.fuelMapSet.revLimiter.SetOffset(revLimiter);
    }

    TFakeDialogs dialogs;
    TTemporaryFolder folder;
    TOwnState ownState;

private:
    std::filesystem::path oldFolder_;
};
