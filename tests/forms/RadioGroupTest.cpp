#include "forms/RadioGroup.h"

#include "support/FakeDialogs.h"

#include <stdexcept>

#include <QAccessible>
#include <QRadioButton>
#include <QScrollArea>
#include <QTest>
#include <gtest/gtest.h>

namespace {
class RadioGroup : public testing::Test {
protected:
    RadioGroup() {
        group.setObjectName("rdoROMtemplate");
        group.OnClick = [this] { chosen << group.ItemIndex(); };
    }

    void Fill(int count) {
        for (int i = 0; i < count; ++i)
            group.AddItem("item " + QString::number(i));
    }

    void Show() {
        group.show();
        group.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&group));
    }

    QRadioButton &Button(int index) {
        return *group.findChild<QRadioButton *>("rdoROMtemplate" + QString::number(index));
    }

    /// The round mark, which every style takes as part of the button.
    void Click(int index) {
        QTest::mouseClick(&Button(index), Qt::LeftButton, {}, {6, Button(index).height() / 2});
    }

    TFakeDialogs dialogs;
    TRadioGroup group{"Set Mapping Type", 2};
    QList<int> chosen;
};

struct TLabelCase {
    const char *name;
    QString text;
    QString label; ///< in the toolkit's notation, where "&&" shows one ampersand
};

class RadioGroupLabel : public RadioGroup, public testing::WithParamInterface<TLabelCase> {};

const TLabelCase labels[] = {
    {"plain", "Stock", "Stock"},
    {"ampersand", "R&D && more", "R&&D &&&& more"},
    {"markup", "<b>Stock</b>", "<b>Stock</b>"},
    {"empty", "", ""},
    {"nul", QString("a") + QChar(0) + "b", QString("a") + QChar::ReplacementCharacter + "b"},
    {"line_end", "a\nb", QString("a") + QChar::ReplacementCharacter + "b"},
    {"tab", "a\tb", QString("a") + QChar::ReplacementCharacter + "b"},
    {"line_separator", QString("a") + QChar(0x2028), QString("a") + QChar::ReplacementCharacter},
    {"beyond_latin", QString::fromUtf8("\xF0\x9F\x9A\x97 \xC3\xA4"),
     QString::fromUtf8("\xF0\x9F\x9A\x97 \xC3\xA4")},
};
} // namespace

TEST_P(RadioGroupLabel, IsShownLetterByLetterAndReadBackExactly) {
    group.AddItem(GetParam().text);
    EXPECT_EQ(group.Item(0), GetParam().text);
    EXPECT_EQ(Button(0).text(), GetParam().label);
    EXPECT_TRUE(Button(0).shortcut().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Labels, RadioGroupLabel, testing::ValuesIn(labels),
                         [](const auto &test) { return std::string(test.param.name); });

TEST_F(RadioGroup, StartsEmptyWithNothingSelected) {
    EXPECT_EQ(group.title(), "Set Mapping Type");
    EXPECT_EQ(group.ItemCount(), 0);
    EXPECT_EQ(group.ItemIndex(), -1);
    EXPECT_EQ(group.Item(0), "");
    EXPECT_EQ(group.Item(-1), "");
}

TEST_F(RadioGroup, AddingItemsSelectsNothing) {
    Fill(3);
    EXPECT_EQ(group.ItemCount(), 3);
    EXPECT_EQ(group.Item(2), "item 2");
    EXPECT_EQ(group.ItemIndex(), -1);
    EXPECT_TRUE(chosen.isEmpty());
}

TEST_F(RadioGroup, SelectingByProgramRunsNothing) {
    Fill(3);
    for (const int index : {1, 2, 2, -1, 0}) {
        group.SetItemIndex(index);
        EXPECT_EQ(group.ItemIndex(), index);
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(Button(i).isChecked(), i == index);
    }
    group.SetItemIndex(3);
    EXPECT_EQ(group.ItemIndex(), -1);
    EXPECT_TRUE(chosen.isEmpty());
}

TEST_F(RadioGroup, TheMouseChooses) {
    Fill(3);
    Show();
    Click(1);
    EXPECT_EQ(group.ItemIndex(), 1);
    EXPECT_EQ(chosen, QList<int>({1}));
}

TEST_F(RadioGroup, ChoosingTheChosenItemRunsOnClickAgain) {
    Fill(2);
    group.SetItemIndex(1);
    Show();
    Click(1);
    Click(1);
    EXPECT_EQ(chosen, QList<int>({1, 1}));
}

TEST_F(RadioGroup, SpaceChooses) {
    Fill(2);
    Show();
    Button(1).setFocus();
    QTest::keyClick(&Button(1), Qt::Key_Space);
    EXPECT_EQ(chosen, QList<int>({1}));
}

TEST_F(RadioGroup, ArrowKeysMoveTheChoice) {
    Fill(4);
    group.SetItemIndex(0);
    Show();
    Button(0).setFocus();
    QTest::keyClick(&Button(0), Qt::Key_Down);
    QTest::keyClick(&Button(1), Qt::Key_Up);
    QTest::keyClick(&Button(0), Qt::Key_Right);
    EXPECT_EQ(chosen, QList<int>({1, 0, 2}));
}

TEST_F(RadioGroup, AccessibilityToolsChoose) {
    Fill(2);
    Show();
    QAccessibleInterface *button = QAccessible::queryAccessibleInterface(&Button(1));
    ASSERT_NE(button, nullptr);
    button->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(group.ItemIndex(), 1);
    EXPECT_EQ(chosen, QList<int>({1}));
}

TEST_F(RadioGroup, AnAccessibilityPressChooses) {
    Fill(2);
    Show();
    QAccessibleInterface *button = QAccessible::queryAccessibleInterface(&Button(1));
    button->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(QTest::qWaitFor([this] { return !chosen.isEmpty(); }));
    EXPECT_EQ(chosen, QList<int>({1}));
}

TEST_F(RadioGroup, AnErrorInTheChoiceIsShownAndTheChoiceStays) {
    Fill(2);
    Show();
    group.OnClick = [] { throw std::runtime_error("no such spec"); };
    Click(1);
    EXPECT_EQ(group.ItemIndex(), 1);
    EXPECT_EQ(dialogs.messages, QStringList({"no such spec"}));
}

TEST_F(RadioGroup, ClearLeavesNoneSelectedAndRunsNothing) {
    Fill(3);
    group.SetItemIndex(2);
    group.Clear();
    EXPECT_EQ(group.ItemCount(), 0);
    EXPECT_EQ(group.ItemIndex(), -1);
    EXPECT_TRUE(group.findChildren<QRadioButton *>().isEmpty());
    Fill(1);
    EXPECT_EQ(group.ItemIndex(), -1);
    EXPECT_TRUE(chosen.isEmpty());
}

TEST_F(RadioGroup, MayBeRefilledWhileItRunsOnClick) {
    Fill(3);
    Show();
    group.OnClick = [this] {
        group.Clear();
        group.AddItem("only one");
        group.SetItemIndex(0);
    };
    Click(2);
    QAccessible::queryAccessibleInterface(&Button(0))
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(group.ItemCount(), 1);
    EXPECT_EQ(group.Item(0), "only one");
    EXPECT_EQ(group.ItemIndex(), 0);
    EXPECT_EQ(group.findChildren<QRadioButton *>().size(), 1);
}

TEST_F(RadioGroup, FillsTheColumnsTopDown) {
    Fill(22);
    Show();
    EXPECT_EQ(Button(0).x(), Button(10).x());
    EXPECT_EQ(Button(11).x(), Button(21).x());
    EXPECT_LT(Button(0).x(), Button(11).x());
    EXPECT_EQ(Button(0).y(), Button(11).y());
    EXPECT_EQ(Button(10).y(), Button(21).y());
    for (int i = 1; i < 11; ++i)
        EXPECT_GE(Button(i).y(), Button(i - 1).geometry().bottom());
}

TEST_F(RadioGroup, ShrinksWithItsScrollAreaDownToAFewLetters) {
    group.AddItem(QString("very long label ").repeated(50));
    group.AddItem("short");
    auto *holder = new TRadioGroup("copy", 2);
    holder->AddItem(group.Item(0));
    holder->AddItem("short");
    QScrollArea area;
    area.setWidgetResizable(true);
    area.setWidget(holder);
    area.resize(400, 200);
    area.show();
    EXPECT_LE(holder->width(), area.viewport()->width());
    EXPECT_LT(group.sizeHint().width(), 1200);
}

TEST_F(RadioGroup, ALabelThatIsCutEndsInAnEllipsis) {
    group.AddItem(QString("M").repeated(200));
    group.resize(300, 100);
    Show();
    const QImage shown = Button(0).grab().toImage();
    const QRgb ground = shown.pixel(shown.width() - 1, 0);
    // Above the dots of the ellipsis there is nothing, where a letter cut through would show.
    for (int x = shown.width() - 6; x < shown.width(); ++x)
        for (int y = 0; y < shown.height() / 2; ++y)
            EXPECT_EQ(shown.pixel(x, y), ground) << x << "," << y;
}
