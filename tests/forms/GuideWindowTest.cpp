// The guide beside the notebook: F1 and the menu open it at the chapter of the current page.
#include "forms/Help.h"
#include "forms/KelvaneNotebook.h"
#include "forms/PageControl.h"
#include "forms/ProgramFile.h"
#include "forms/TEmbedFm.h"
#include "support/FakeDialogs.h"

#include <chrono>

#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace {
constexpr auto fileName = "guide-test.txt";

class TGuidePage : public TEmbeddedForm {
public:
    explicit TGuidePage(int chapter) : chapter_(chapter) { new QLineEdit(this); }
    QString HelpFileName() const override { return fileName; }
    int GuideChapter() const override { return chapter_; }

private:
    int chapter_;
};

QByteArray Text() {
    QByteArray text = "CONTENTS\n   1  One\n   2  Two\n  12  Twelve\n";
    for (const char *head : {"1  ONE", "2  TWO", "12  TWELVE"})
        text += QByteArray("\n") + head + "\n" + QByteArray("a line\n").repeated(100);
    return text;
}

class Guide : public testing::Test {
protected:
    Guide() {
        for (const int chapter : {1, 2, 12, 7})
            window.AddPage(std::make_unique<TGuidePage>(chapter), "tab", "page");
        window.show();
        QApplication::setActiveWindow(&window);
    }

    TfrmHelp *Open() { return window.findChild<TfrmHelp *>(); }
    TfrmHelp *PressF1() {
        auto *edit = window.CurrentPage()->findChild<QLineEdit *>();
        QApplication::setActiveWindow(&window);
        edit->setFocus();
        QTest::keyClick(edit, Qt::Key_F1);
        return Open();
    }
    static QString TopLine(const TfrmHelp &guide) {
        return guide.Memo1->cursorForPosition({2, 2}).block().text();
    }

    const TProgramFile file{fileName, Text()};
    TFakeDialogs dialogs;
    TfrmKelvaneNotebook window;
};
} // namespace

TEST_F(Guide, OpensBesideTheProgramAtTheChapterOfThePage) {
    for (const auto &[page, head] : {std::pair(0, "1  ONE"), {1, "2  TWO"}, {2, "12  TWELVE"}}) {
        window.PageControl1->SelectByUser(page);
        TfrmHelp *guide = PressF1();
        ASSERT_TRUE(guide);
        EXPECT_TRUE(guide->isVisible());
        EXPECT_FALSE(guide->isModal());
        EXPECT_EQ(guide->windowType(), Qt::Window) << "a tool window would lie over the program";
        EXPECT_EQ(TopLine(*guide), head);
    }
    EXPECT_EQ(window.findChildren<TfrmHelp *>().size(), 1) << "always the same";
}

TEST_F(Guide, ComesUpAtTheProgramsSideAndStaysWhereItIsMovedTo) {
    window.move(0, 40);
    TfrmHelp *guide = PressF1();
    EXPECT_EQ(guide->y(), 40);
    EXPECT_EQ(guide->frameGeometry().left(),
              std::min(window.frameGeometry().right() + 1,
                       window.screen()->availableGeometry().right() + 1 - guide->width()));
    guide->move(7, 8);
    EXPECT_EQ(PressF1()->pos(), QPoint(7, 8));
}

TEST_F(Guide, StaysAtItsPlaceForAChapterThatItDoesNotHave) {
    window.PageControl1->SelectByUser(1);
    PressF1();
    window.PageControl1->SelectByUser(3);
    EXPECT_EQ(TopLine(*PressF1()), "2  TWO");
}

TEST_F(Guide, IsNewAfterItWasClosed) {
    PressF1()->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(Open());
    EXPECT_TRUE(PressF1()->isVisible());
}

TEST_F(Guide, IsOpenedByTheCommandToo) {
    window.actGuide->trigger();
    ASSERT_TRUE(Open());
    EXPECT_EQ(TopLine(*Open()), "1  ONE");
}

TEST_F(Guide, LeavesTheProgramUsable) {
    PressF1();
    QApplication::setActiveWindow(&window);
    auto *edit = window.CurrentPage()->findChild<QLineEdit *>();
    edit->setFocus();
    QTest::keyClicks(edit, "typed");
    EXPECT_EQ(edit->text(), "typed");
    EXPECT_TRUE(Open()->isVisible());
}

TEST_F(Guide, KeepsTheKeysOfThePageToThePage) {
    TfrmHelp *guide = PressF1();
    int pressed = 0;
    QAction key;
    key.setShortcut(Qt::Key_F3);
    window.CurrentPage()->addAction(&key);
    QObject::connect(&key, &QAction::triggered, [&] { ++pressed; });
    dialogs.inputs = {"Twelve"};
    QApplication::setActiveWindow(guide);
    QTest::keyClick(guide->Memo1, Qt::Key_F3);
    EXPECT_EQ(guide->Memo1->textCursor().selectedText(), "TWELVE");
    EXPECT_EQ(pressed, 0);
    QApplication::setActiveWindow(&window);
    QTest::keyClick(window.CurrentPage()->findChild<QLineEdit *>(), Qt::Key_F3);
    EXPECT_EQ(pressed, 1);
}

TEST_F(Guide, IsNoWindowThatKeepsTheProgramRunning) {
    const TfrmHelp *guide = PressF1();
    QObject::connect(qApp, &QGuiApplication::lastWindowClosed, guide,
                     [] { QCoreApplication::exit(7); });
    QTimer::singleShot(0, &window, [this] { window.close(); });
    QTimer::singleShot(std::chrono::seconds(30), &window, [] { QCoreApplication::exit(1); });
    EXPECT_EQ(QApplication::exec(), 7);
    EXPECT_TRUE(guide->isVisible());
}

TEST_F(Guide, ThatCannotBeReadIsAnError) {
    QFile::remove(ProgramDirectory() + fileName);
    EXPECT_FALSE(PressF1());
    ASSERT_EQ(dialogs.messages.size(), 1);
    EXPECT_TRUE(dialogs.messages[0].startsWith("Cannot read"));
}
