// The page "Earlier Versions": what saves have replaced of the loaded file.
#include "changes/EarlierPage.h"

#include "pages/WindowFixture.h"
#include "support/OwnState.h"

#include <QAction>
#include <QLabel>
#include <QTreeWidget>

namespace {
class TEarlierPageTest : public TWindowTest {
protected:
    static constexpr int fuelBody = fuelPT + 6 + 5;

    TEarlierPageTest() {
        LoadAndPlace();
        image = Get(0, Image().size);
    }
    /// As a save that replaced `bytes` so many days ago.
    void KeepReplaced(const TBytes &bytes, int daysAgo, const std::string &file = "A.BIN") {
        const std::string day = "2026110" + std::to_string(9 - daysAgo);
        KeepEarlier(state.Folder(), folder / file, bytes, day);
        for (const auto &kept : std::filesystem::directory_iterator(state.Folder()))
            if (kept.path().string().find(day) != std::string::npos)
                std::filesystem::last_write_time(kept.path(),
                                                 std::filesystem::file_time_type::clock::now() -
                                                     std::chrono::hours(24 * daysAgo));
    }
    TBytes With(int offset, std::uint8_t value) {
        TBytes bytes = image;
        bytes[static_cast<std::size_t>(offset)] = value;
        return bytes;
    }
    TEmbeddedForm &Page() { return *window.CurrentPage(); }
    QTreeWidget &List() { return FindControl<QTreeWidget>(Page(), "lstVersions"); }
    QString Headline() { return FindControl<QLabel>(Page(), "lblVersions").text(); }
    QPushButton &Button(const QString &name) { return FindControl<QPushButton>(Page(), name); }
    /// The last two columns of a line.
    QStringList Line(int line) {
        const QTreeWidgetItem *item = List().topLevelItem(line);
        return item ? QStringList{item->text(1), item->text(2)} : QStringList();
    }
    void ShowPageByCommand() { FindControl<QAction>(window, "actEarlier").trigger(); }

    TOwnState state;
    TBytes image;
};

TEST_F(TEarlierPageTest, SaysThatNothingIsKept) {
    ShowPageByCommand();
    EXPECT_EQ(window.PageControl1->tabText(Current()), "Earlier Versions");
    EXPECT_EQ(Headline(), "No earlier version of A.BIN is kept");
    EXPECT_EQ(List().topLevelItemCount(), 0);
    EXPECT_FALSE(Button("btnShowVersion").isEnabled());
    EXPECT_FALSE(Button("btnBringBackVersion").isEnabled());
}

TEST_F(TEarlierPageTest, SaysThatNoImageIsLoaded) {
    Image().size = 0;
    KeepReplaced(image, 1);
    ShowPageByCommand();
    EXPECT_EQ(Headline(), "No ROM image is loaded");
    EXPECT_EQ(List().topLevelItemCount(), 0);
}

TEST_F(TEarlierPageTest, ListsWhatSavesHaveReplacedOfThisFile) {
    KeepReplaced(With(0x7000, 99), 3);
    KeepReplaced(image, 1);
    KeepReplaced(TBytes(image.begin(), image.end() - 2), 2);
    KeepReplaced(With(0x7000, 98), 4, "B.BIN");
    ShowPageByCommand();
    EXPECT_EQ(Headline(), "What saves have replaced of A.BIN");
    ASSERT_EQ(List().topLevelItemCount(), 3) << "newest first";
    EXPECT_EQ(Line(0), QStringList({"32768", "0"}));
    EXPECT_EQ(Line(1), QStringList({"32766", "2"}));
    EXPECT_EQ(Line(2), QStringList({"32768", "1"}));
    const QDate day = QDate::currentDate().addDays(-3);
    EXPECT_TRUE(
        List().topLevelItem(2)->text(0).startsWith(QLocale().toString(day, QLocale::ShortFormat)))
        << List().topLevelItem(2)->text(0).toStdString();
    EXPECT_EQ(List().currentItem(), List().topLevelItem(0));
}

TEST_F(TEarlierPageTest, BringsAVersionBackAsOneStep) {
    KeepReplaced(With(fuelBody, 77), 1);
    ShowPageByCommand();
    Button("btnBringBackVersion").click();
    EXPECT_EQ(Get(0, Image().size), With(fuelBody, 77));
    EXPECT_EQ(window.workspace.fuelMapSet.PTMap->data->values->GetItem(0, 0)->raw, 77)
        << "the maps are read anew";
    EXPECT_TRUE(Page().DataChanged);
    EXPECT_EQ(Line(0), QStringList({"32768", "0"}));
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Get(0, Image().size), image);
    EXPECT_EQ(Line(0), QStringList({"32768", "1"}));
    Press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(Get(0, Image().size), With(fuelBody, 77));
}

TEST_F(TEarlierPageTest, BringsNoVersionOfAnotherLengthBack) {
    KeepReplaced(TBytes(0x4000, 1), 1);
    ShowPageByCommand();
    Button("btnBringBackVersion").click();
    EXPECT_EQ(
        dialogs.messages,
        QStringList("This version has 16384 bytes, the image in memory has 32768: it cannot be "
                    "brought back"));
    EXPECT_EQ(Get(0, Image().size), image);
    EXPECT_FALSE(Page().DataChanged);
}

TEST_F(TEarlierPageTest, ShowsAVersionOnThePageCompare) {
    KeepReplaced(With(fuelBody, 77), 1);
    ShowPageByCommand();
    const QString time = List().topLevelItem(0)->text(0);
    Button("btnShowVersion").click();
    EXPECT_EQ(window.PageControl1->tabText(Current()), "Compare");
    EXPECT_EQ(FindControl<QLabel>(Page(), "lblTotal").text(),
              "1 byte differs from A.BIN of " + time);
}

TEST_F(TEarlierPageTest, IsWorkedByKeys) {
    KeepReplaced(With(fuelBody, 77), 2);
    KeepReplaced(With(fuelBody, 78), 1);
    ShowPageByCommand();
    List().setFocus();
    Press(Qt::Key_Down);
    Press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &Button("btnShowVersion"));
    Press(Qt::Key_Tab);
    Press(Qt::Key_Space);
    EXPECT_EQ(Image().Peek(fuelBody), 77);
    EXPECT_EQ(List().indexOfTopLevelItem(List().currentItem()), 1) << "what was chosen stays";
    List().setFocus();
    Press(Qt::Key_Return);
    EXPECT_EQ(window.PageControl1->tabText(Current()), "Compare");
}

TEST_F(TEarlierPageTest, HasNoButtonShowWithoutSomebodyWhoShows) {
    KeepReplaced(With(fuelBody, 77), 1);
    TfrmEarlier page(nullptr, window.workspace);
    page.ShowPage();
    EXPECT_TRUE(FindControl<QPushButton>(page, "btnShowVersion").isHidden());
    page.btnShowVersionClick();
    page.LetShow([](const std::string &, const TBytes &) {});
    EXPECT_FALSE(FindControl<QPushButton>(page, "btnShowVersion").isHidden());
}

TEST_F(TEarlierPageTest, IsOneAndIsReadAnewEachTime) {
    ShowPageByCommand();
    const int pages = window.PageCount();
    Enter(romTab);
    KeepReplaced(image, 1);
    ShowPageByCommand();
    EXPECT_EQ(window.PageCount(), pages);
    EXPECT_EQ(List().topLevelItemCount(), 1);
    Button("btnClose").click();
    EXPECT_EQ(window.PageCount(), pages - 1);
}

TEST_F(TEarlierPageTest, ForgetsItsStepsAndVersionsWhenItIsLeft) {
    KeepReplaced(With(fuelBody, 77), 1);
    ShowPageByCommand();
    Button("btnBringBackVersion").click();
    const QTreeWidget &list = List();
    Enter(romTab);
    EXPECT_EQ(list.topLevelItemCount(), 0);
    Image().Poke(fuelBody, 55);
    ShowPageByCommand();
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Image().Peek(fuelBody), 55);
}

TEST_F(TEarlierPageTest, SaysWhyTheVersionsCannotBeRead) {
    PutFile(state.Folder(), {1}); // no folder
    ShowPageByCommand();
    ASSERT_EQ(dialogs.messages.size(), 1);
    EXPECT_TRUE(dialogs.messages[0].contains(QString::fromStdString(state.Folder().string())))
        << dialogs.messages[0].toStdString();
    EXPECT_EQ(Headline(), "No earlier version of A.BIN is kept");
}
} // namespace
