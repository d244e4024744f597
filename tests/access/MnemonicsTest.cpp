// The underlined letters of every page and window, and the other keys of the program: none stands
// for two things at once.
#include "access/Scenes.h"

#include <map>

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QShortcut>

namespace {
/// What Alt and a letter do in a window, its hidden controls included: some come and go.
std::map<QString, QStringList> LettersOf(const QWidget &root) {
    std::map<QString, QStringList> letters;
    const auto note = [&](const QString &text, const QObject &control) {
        const QKeySequence key = QKeySequence::mnemonic(text);
        if (!key.isEmpty())
            letters[key.toString()] << control.objectName();
    };
    for (const QWidget *widget : root.findChildren<QWidget *>()) {
        if (const auto *button = qobject_cast<const QAbstractButton *>(widget))
            note(button->text(), *button);
        else if (const auto *group = qobject_cast<const QGroupBox *>(widget))
            note(group->title(), *group);
        else if (const auto *label = qobject_cast<const QLabel *>(widget); label && label->buddy())
            note(label->text(), *label);
    }
    return letters;
}

struct TLetters {
    TScene scene;
    QStringList letters;
};

void PrintTo(const TLetters &expected, std::ostream *out) {
    *out << SceneName(expected.scene);
}

class TLettersTest : public TSceneTest, public testing::WithParamInterface<TLetters> {};

TEST_P(TLettersTest, EachStandsForOneControl) {
    QWidget &opened = Open(GetParam().scene);
    // Of the pages only the current one can be seen.
    const QWidget &root = &opened == &window ? static_cast<QWidget &>(Page()) : opened;
    QStringList letters;
    for (const auto &[letter, controls] : LettersOf(root)) {
        EXPECT_EQ(controls.size(), 1) << letter.toStdString() << controls.join(", ").toStdString();
        letters << letter;
    }
    EXPECT_EQ(letters, GetParam().letters);
}

INSTANTIATE_TEST_SUITE_P(
    Scenes, TLettersTest,
    testing::Values(TLetters{TScene::ROM, {"Alt+L", "Alt+S"}}, TLetters{TScene::Fuel, {}},
                    TLetters{TScene::Timing, {}}, TLetters{TScene::FuelChart, {}},
                    TLetters{TScene::TimingChart, {}}, TLetters{TScene::Contents, {}},
                    TLetters{TScene::AddedPage, {}},
                    TLetters{TScene::Tools, {"Alt+D", "Alt+G", "Alt+O", "Alt+R", "Alt+S", "Alt+U"}},
                    TLetters{TScene::Key, {"Alt+O"}}, TLetters{TScene::QuickChart, {"Alt+O"}},
                    TLetters{TScene::Offsets, {"Alt+O"}}, TLetters{TScene::Help, {}}));

class TKeysOfTheProgram : public TSceneTest {};

TEST_F(TKeysOfTheProgram, TheWindowHasNoLettersBesidesThoseOfItsPages) {
    Open(TScene::DockedTools);
    QStringList letters;
    for (const auto &[letter, controls] : LettersOf(window))
        for (const QString &name : controls)
            if (!Page().findChild<QWidget *>(name))
                letters << letter + " " + name;
    // The docked tools and the page that hides them are never seen together.
    EXPECT_EQ(letters, (QStringList{"Alt+D rdoDataset", "Alt+G btnExec", "Alt+L btnLoad",
                                    "Alt+O rdoOperation", "Alt+R rdoRange", "Alt+S btnSave",
                                    "Alt+S rdoScale", "Alt+U Button2"}));
}

TEST_F(TKeysOfTheProgram, NoShortcutIsSetTwice) {
    Open(TScene::Tools);
    std::map<QString, int> keys;
    for (const QShortcut *shortcut : window.findChildren<QShortcut *>())
        ++keys[shortcut->key().toString()];
    EXPECT_EQ(keys, (std::map<QString, int>{{"F6", 1},
                                            {"F10", 1},
                                            {"Alt+M", 1},
                                            {"Ctrl+Tab", 1},
                                            {"Ctrl+Shift+Tab", 1},
                                            {"Ctrl+PgDown", 1},
                                            {"Ctrl+PgUp", 1}}));
}

/// The commands of the menu button, on each page.
class TCommandKeysTest : public TSceneTest, public testing::WithParamInterface<TScene> {
protected:
    /// Those of a menu that can be chosen; those of its submenus too, when told so.
    static QList<QAction *> Commands(const QMenu &menu, bool deep) {
        QList<QAction *> commands;
        for (QAction *action : menu.actions()) {
            if (!action->isSeparator())
                commands << action;
            if (action->menu() && deep)
                commands << Commands(*action->menu(), deep);
        }
        return commands;
    }
    /// No letter stands for two commands of a menu, and no command is without one.
    static void ExpectLetters(const QMenu &menu) {
        std::map<QString, QStringList> letters;
        for (const QAction *command : Commands(menu, false)) {
            letters[QKeySequence::mnemonic(command->text()).toString()] << command->text();
            if (command->menu())
                ExpectLetters(*command->menu());
        }
        for (const auto &[letter, commands] : letters)
            EXPECT_EQ(commands.size(), letter.isEmpty() ? 0 : 1)
                << letter.toStdString() << ": " << commands.join(", ").toStdString();
    }
    QMenu &OpenMenu() {
        Open(GetParam());
        Press(Qt::Key_F10);
        auto &menu = FindControl<QMenu>(window, "mnuCommands");
        EXPECT_TRUE(menu.isVisible());
        return menu;
    }
};

TEST_P(TCommandKeysTest, EachHasALetterOfItsOwn) {
    QMenu &menu = OpenMenu();
    ExpectLetters(menu);
    menu.close();
}

TEST_P(TCommandKeysTest, EachKeyStandsForOneThing) {
    QMenu &menu = OpenMenu();
    std::map<QString, QStringList> keys;
    for (const QAction *command : Commands(menu, true))
        for (const QKeySequence &key : command->shortcuts())
            keys[key.toString()] << command->text();
    for (const QShortcut *shortcut : window.findChildren<QShortcut *>())
        keys[shortcut->key().toString()] << "a shortcut";
    EXPECT_GE(keys.size(), 10U);
    for (const auto &[key, uses] : keys)
        EXPECT_EQ(uses.size(), 1) << key.toStdString() << ": " << uses.join(", ").toStdString();
    menu.close();
}

TEST_P(TCommandKeysTest, TheArrowsAndEnterOfTheMenuAreEnough) {
    QMenu &menu = OpenMenu();
    const auto count = Commands(menu, false).size();
    QStringList visited;
    for (int i = 0; i < count; ++i) {
        ASSERT_TRUE(menu.activeAction());
        visited << menu.activeAction()->text();
        QTest::keyClick(&menu, Qt::Key_Down);
    }
    EXPECT_TRUE(visited.contains("&About"));
    QTest::keyClick(&menu, Qt::Key_Escape);
    EXPECT_FALSE(menu.isVisible());
}

INSTANTIATE_TEST_SUITE_P(Scenes, TCommandKeysTest,
                         testing::Values(TScene::FreshROM, TScene::ROM, TScene::Fuel,
                                         TScene::Timing, TScene::FuelChart, TScene::Contents,
                                         TScene::AddedPage),
                         [](const auto &scene) { return SceneName(scene.param); });
} // namespace
