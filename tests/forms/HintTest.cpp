#include "forms/Hint.h"

#include "support/FakeDialogs.h"

#include <stdexcept>

#include <QApplication>
#include <QEnterEvent>
#include <QLabel>
#include <gtest/gtest.h>

namespace {
struct THintCase {
    const char *hint;
    const char *shortPart;
    const char *longPart;
};

class HintParts : public testing::TestWithParam<THintCase> {};

void Enter(QWidget &control) {
    QEnterEvent event({}, {}, {});
    QApplication::sendEvent(&control, &event);
}

void Leave(QWidget &control) {
    QEvent event(QEvent::Leave);
    QApplication::sendEvent(&control, &event);
}

/// Puts the handler that was in force back when the test ends.
class HintHandler : public testing::Test {
protected:
    HintHandler() : old(SetApplicationHint([this](const QString &hint) { seen << hint; })) {}
    ~HintHandler() override { SetApplicationHint(old); }

    QStringList seen;
    THintHandler old;
    QWidget window;
    QLabel control{&window};
};
} // namespace

TEST_P(HintParts, AreWhatStandsBeforeAndBehindTheBar) {
    EXPECT_EQ(ShortHint(GetParam().hint), GetParam().shortPart);
    EXPECT_EQ(LongHint(GetParam().hint), GetParam().longPart);
}

INSTANTIATE_TEST_SUITE_P(Hints, HintParts,
                         testing::Values(THintCase{"Close", "Close", "Close"},
                                         THintCase{"Close|Ends it all", "Close", "Ends it all"},
                                         THintCase{"a|b|c", "a", "b|c"},
                                         THintCase{"|only long", "", "only long"},
                                         THintCase{"only short|", "only short", ""},
                                         THintCase{"", "", ""}));

TEST_F(HintHandler, GetsTheLongPartOnEnteringAndNothingOnLeaving) {
    SetHint(&control, "Print|Print Displayed Data");
    Enter(control);
    Leave(control);
    EXPECT_EQ(seen, QStringList({"Print Displayed Data", ""}));
}

TEST_F(HintHandler, IsLeftAloneByControlsWithoutHint) {
    Enter(control);
    EXPECT_TRUE(seen.isEmpty());
}

TEST_F(HintHandler, ReplacedHandlersComeBack) {
    QStringList others;
    THintHandler mine = SetApplicationHint([&](const QString &hint) { others << hint; });
    SetHint(&control, "one");
    Enter(control);
    EXPECT_EQ(others, QStringList({"one"}));
    EXPECT_TRUE(seen.isEmpty());
    SetApplicationHint(mine);
    Enter(control);
    EXPECT_EQ(seen, QStringList({"one"}));
    EXPECT_EQ(others.size(), 1);
}

TEST_F(HintHandler, AnEmptyHandlerLeavesHintsToTheToolkit) {
    SetApplicationHint({});
    SetHint(&control, "one");
    Enter(control);
    EXPECT_TRUE(seen.isEmpty());
}

TEST_F(HintHandler, ErrorsAreShown) {
    TFakeDialogs dialogs;
    SetApplicationHint([](const QString &) { throw std::runtime_error("no bar"); });
    SetHint(&control, "one");
    Enter(control);
    EXPECT_EQ(dialogs.messages, QStringList({"no bar"}));
}

TEST(SetHint, ShowsTheShortPartAsToolTipLetterByLetter) {
    QLabel control;
    SetHint(&control, "Right-click for more options");
    EXPECT_EQ(control.toolTip(), "Right-click for more options");
    SetHint(&control, "Save & go|long");
    EXPECT_EQ(control.toolTip(), "Save & go");
    SetHint(&control, "<b>bold</b>");
    EXPECT_EQ(control.toolTip(), "<p>&lt;b&gt;bold&lt;/b&gt;</p>");
}
