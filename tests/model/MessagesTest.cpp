#include "model/Messages.h"

#include "model/MapSets.h"
#include "support/ModelFixture.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TMessages : public TModelTest {
protected:
    /// Called in place of the fixture's own hook.
    std::vector<std::string> heard;
    TMessageHook recorder = [this](const std::string &text) { heard.push_back(text); };
};

TEST_F(TMessages, GoToTheHookInForceAndTheOldOneIsGivenBack) {
    TMessageHook old = SetMessageHook(recorder);
    ShowModelMessage("one");
    EXPECT_THAT(heard, ElementsAre("one"));
    EXPECT_THAT(Messages(), IsEmpty());
    SetMessageHook(std::move(old));
    ShowModelMessage("two");
    EXPECT_THAT(heard, ElementsAre("one"));
    EXPECT_THAT(Messages(), ElementsAre("two"));
}

TEST_F(TMessages, AreSwallowedWithoutAHook) {
    const TMessageHook old = SetMessageHook({});
    ShowModelMessage("nobody hears");
    EXPECT_FALSE(SetMessageHook(old)) << "no hook was in force";
    EXPECT_THAT(Messages(), IsEmpty());
}

// What is shown once for many cells goes through a hook of its own for that long.
TEST_F(TMessages, OfManyCellsAreSwallowedWithoutAHook) {
    PutMap(0x100, {0x20, 0x40}, {0x20, 0x00});
    TTimingMapSet set;
    set.SetOffsets(0x100, 0x100, 0x100);
    set.SetShowConverted(true);
    TimingConstants().divider = 0;
    const TMessageHook old = SetMessageHook({});
    set.ZeroMaps();
    EXPECT_FALSE(SetMessageHook(old));
    EXPECT_THAT(Messages(), IsEmpty());
}

} // namespace
