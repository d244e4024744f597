#include "forms/QtDialogs.h"

#include "forms/Hourglass.h"
#include "forms/Places.h"

#include <functional>

#include <QAbstractButton>
#include <QAbstractItemModel>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QProgressBar>
#include <QProgressDialog>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <QUrl>
#include <gmock/gmock.h>

namespace {
/// Runs `act` on the dialog of the wanted kind as soon as the toolkit has it open.
template <class Dialog>
void WhenOpen(std::function<void(Dialog &)> act) {
    QTimer::singleShot(0, qApp, [act] {
        auto *dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        act(*dialog);
        // A test that found no way to close it must fail, not hang.
        if (dialog->isVisible())
            dialog->reject();
    });
}

void Touch(const QString &name) {
    QFile file(name);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
}

void Type(QFileDialog &dialog, const QString &name) {
    auto *edit = dialog.findChild<QLineEdit *>("fileNameEdit");
    edit->setText(name);
    QTest::keyClick(edit, Qt::Key_Return);
}

class QtDialogs : public testing::Test {
protected:
    QtDialogs() { QApplication::setApplicationName("Dialog Test"); }
    ~QtDialogs() override { QDir::setCurrent(oldFolder_); }

    /// Makes a folder in the test's own and gives its path.
    QString Folder(const QString &name) {
        EXPECT_TRUE(QDir(folder.path()).mkpath(name));
        return folder.filePath(name);
    }

    TQtDialogs dialogs;
    QTemporaryDir folder;

private:
    const QString oldFolder_ = QDir::currentPath();
};

struct TAnswerCase {
    const char *name;
    QMessageBox::StandardButton button; ///< NoButton: Escape
    bool withCancel;
    TAnswer answer;
};

class QtDialogsAnswer : public QtDialogs, public testing::WithParamInterface<TAnswerCase> {};

const TAnswerCase answers[] = {
    {"yes", QMessageBox::Yes, false, TAnswer::Yes},
    {"no", QMessageBox::No, false, TAnswer::No},
    {"escape_is_no", QMessageBox::NoButton, false, TAnswer::No},
    {"three_yes", QMessageBox::Yes, true, TAnswer::Yes},
    {"three_no", QMessageBox::No, true, TAnswer::No},
    {"three_cancel", QMessageBox::Cancel, true, TAnswer::Cancel},
    {"three_escape_is_cancel", QMessageBox::NoButton, true, TAnswer::Cancel},
};
} // namespace

TEST_P(QtDialogsAnswer, IsTheButtonPressed) {
    int buttons = 0;
    WhenOpen<QMessageBox>([&](QMessageBox &box) {
        buttons = int(box.buttons().size());
        EXPECT_EQ(box.text(), "Commit Changes?");
        if (GetParam().button == QMessageBox::NoButton)
            QTest::keyClick(&box, Qt::Key_Escape);
        else
            QTest::mouseClick(box.button(GetParam().button), Qt::LeftButton);
    });
    const TAnswer answer = GetParam().withCancel ? dialogs.AskYesNoCancel("Commit Changes?")
                                                 : dialogs.AskYesNo("Commit Changes?");
    EXPECT_EQ(answer, GetParam().answer);
    EXPECT_EQ(buttons, GetParam().withCancel ? 3 : 2);
}

INSTANTIATE_TEST_SUITE_P(Answers, QtDialogsAnswer, testing::ValuesIn(answers),
                         [](const auto &test) { return std::string(test.param.name); });

namespace {
class QtDialogsAboutEdits : public QtDialogs,
                            public testing::WithParamInterface<QMessageBox::StandardButton> {};
} // namespace

TEST_P(QtDialogsAboutEdits, StaysOpenUntilOneOfItsTwoButtonsIsPressed) {
    WhenOpen<QMessageBox>([](QMessageBox &box) {
        EXPECT_EQ(box.text(), "Commit Changes?");
        ASSERT_EQ(box.buttons().size(), 2);
        QTest::keyClick(&box, Qt::Key_Escape);
        for (QAbstractButton *button : box.buttons())
            QTest::keyClick(button, Qt::Key_Escape);
        EXPECT_FALSE(box.close()); // the window's X and Alt+F4 end in this
        ASSERT_TRUE(box.isVisible());
        QTest::mouseClick(box.button(GetParam()), Qt::LeftButton);
        EXPECT_FALSE(box.isVisible());
    });
    EXPECT_EQ(dialogs.AskAboutEdits("Commit Changes?"),
              GetParam() == QMessageBox::Yes ? TAnswer::Yes : TAnswer::No);
}

INSTANTIATE_TEST_SUITE_P(Buttons, QtDialogsAboutEdits,
                         testing::Values(QMessageBox::Yes, QMessageBox::No));

TEST_F(QtDialogs, AQuestionAboutEditsStillHasItsKeys) {
    for (const Qt::KeyboardModifiers held : {Qt::NoModifier, Qt::AltModifier})
        for (const auto &[key, answer] :
             {std::pair(Qt::Key_Y, TAnswer::Yes), std::pair(Qt::Key_N, TAnswer::No)}) {
            WhenOpen<QMessageBox>([key = key, held](QMessageBox &box) {
                ASSERT_TRUE(QTest::qWaitForWindowActive(&box));
                QTest::keyClick(&box, key, held);
                EXPECT_TRUE(QTest::qWaitFor([&] { return !box.isVisible(); })); // it is animated
            });
            EXPECT_EQ(dialogs.AskAboutEdits("Save Changes?"), answer);
        }
}

TEST_F(QtDialogs, AClosedQuestionOfAnotherKindIsAnsweredNo) {
    WhenOpen<QMessageBox>([](QMessageBox &box) { EXPECT_TRUE(box.close()); });
    EXPECT_EQ(dialogs.AskYesNo("Overwrite existing file?"), TAnswer::No);
    WhenOpen<QMessageBox>([](QMessageBox &box) { EXPECT_TRUE(box.close()); });
    EXPECT_EQ(dialogs.AskYesNoCancel("Save Changes?"), TAnswer::Cancel);
}

TEST_F(QtDialogs, AMessageIsPlainTextUnderTheApplicationsTitle) {
    bool seen = false;
    WhenOpen<QMessageBox>([&](QMessageBox &box) {
        seen = true;
        EXPECT_EQ(box.text(), "<b>not bold</b> & so on");
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.windowTitle(), "Dialog Test");
        ASSERT_EQ(box.buttons().size(), 1);
        box.buttons().constFirst()->click();
    });
    dialogs.ShowMessage("<b>not bold</b> & so on");
    EXPECT_TRUE(seen);
}

TEST_F(QtDialogs, ABoxIsModalToTheActiveWindow) {
    QWidget window;
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    WhenOpen<QMessageBox>([&](QMessageBox &box) {
        EXPECT_TRUE(box.isModal());
        EXPECT_EQ(box.parentWidget(), &window);
        box.reject();
    });
    dialogs.ShowMessage("text");
}

TEST_F(QtDialogs, TheHourglassWaitsWhileABoxIsUp) {
    const THourglass hourglass;
    WhenOpen<QMessageBox>([](QMessageBox &box) {
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
        box.reject();
    });
    dialogs.ShowMessage("text");
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
}

TEST_F(QtDialogs, WithoutAnHourglassTheCursorIsLeftAlone) {
    WhenOpen<QMessageBox>([](QMessageBox &box) {
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        box.reject();
    });
    dialogs.ShowMessage("text");
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(QtDialogs, AnInputBoxGivesTheTextOrOnCancelItsDefault) {
    WhenOpen<QInputDialog>([](QInputDialog &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Find <b>");
        EXPECT_EQ(dialog.findChild<QLabel *>()->text(), "Value && <b>more</b>");
        EXPECT_EQ(dialog.findChild<QLabel *>()->textFormat(), Qt::PlainText);
        EXPECT_EQ(dialog.textValue(), "7");
        dialog.findChild<QLineEdit *>()->setText("$1F");
        dialog.accept();
    });
    EXPECT_EQ(dialogs.InputBox("Find <b>", "Value & <b>more</b>", "7"), "$1F");
    WhenOpen<QInputDialog>([](QInputDialog &dialog) {
        dialog.findChild<QLineEdit *>()->setText("$1F");
        dialog.reject();
    });
    EXPECT_EQ(dialogs.InputBox("Find", "Value", "7"), "7");
}

TEST_F(QtDialogs, AnInputBoxHasRoomForItsTitleAndTheWindowsButtons) {
    constexpr int buttons = 100; // an icon and three of them, in a plain window manager
    for (const char *title :
         {"Search Parameters", "Indirect Ref Lookup", "Display label", "A rather longer title"}) {
        int width = 0;
        QFont bold = QApplication::font();
        bold.setBold(true);
        WhenOpen<QInputDialog>([&](QInputDialog &dialog) {
            width = dialog.width();
            dialog.reject();
        });
        dialogs.InputBox(title, "a", "");
        EXPECT_GE(width, QFontMetrics(bold).horizontalAdvance(title) + buttons) << title;
    }
}

TEST_F(QtDialogs, TheColumnsOfAFileDialogShowUsualNamesWhole) {
    const QString name = "engine 2.3 turbo 1989, road, second try, 4500 rpm (1).BIN";
    Touch(folder.filePath(name));
    const auto look = [](QFileDialog &dialog) {
        QTreeView &files = *dialog.findChild<QTreeView *>("treeView");
        EXPECT_TRUE(files.isVisible());
        const auto filled = [&] { return files.model()->rowCount(files.rootIndex()) > 0; };
        EXPECT_TRUE(QTest::qWaitFor(filled));
        const QAbstractItemView &asked = files;
        for (int column = 0; column < files.header()->count(); ++column)
            if (!files.isColumnHidden(column)) {
                EXPECT_GE(files.columnWidth(column), asked.sizeHintForColumn(column)) << column;
            }
        const int dates = files.header()->count() - 1; // longer in some languages
        EXPECT_EQ(files.header()->sectionResizeMode(dates), QHeaderView::ResizeToContents);
        EXPECT_EQ(files.horizontalScrollBar()->maximum(), 0);
        EXPECT_TRUE(dialog.screen()->availableGeometry().contains(
            QRect(dialog.screen()->availableGeometry().topLeft(), dialog.size())));
        dialog.reject();
    };
    WhenOpen<QFileDialog>(look);
    dialogs.OpenFile("ROM Image (*.BIN)|*.BIN", folder.path());
    QDir::setCurrent(folder.path());
    QObject page;
    TSaveDialog save(&page, "SaveDialog1");
    save.filter = "ROM Image (*.BIN)|*.BIN";
    WhenOpen<QFileDialog>(look);
    dialogs.RunSaveDialog(save);
}

TEST_F(QtDialogs, TheOpenDialogFiltersWithoutRegardToLetterCase) {
    for (const char *name : {"upper.BIN", "lower.bin", "other.txt"})
        Touch(folder.filePath(name));
    QStringList listed;
    WhenOpen<QFileDialog>([&](QFileDialog &dialog) {
        const auto *list = dialog.findChild<QListView *>("listView");
        const auto names = [list] {
            QStringList found;
            for (int row = 0; row < list->model()->rowCount(list->rootIndex()); ++row)
                found << list->model()->index(row, 0, list->rootIndex()).data().toString();
            return found;
        };
        EXPECT_TRUE(QTest::qWaitFor([&] { return names().size() >= 2; }));
        listed = names();
        listed.sort();
        dialog.reject();
    });
    EXPECT_EQ(dialogs.OpenFile("ROM Image (*.BIN)|*.BIN", folder.path()), "");
    EXPECT_EQ(listed, QStringList({"lower.bin", "upper.BIN"}));
}

TEST_F(QtDialogs, TheOpenDialogGivesTheFullPathOfTheFile) {
    Touch(folder.filePath("rom.BIN"));
    WhenOpen<QFileDialog>([](QFileDialog &dialog) { Type(dialog, "rom.BIN"); });
    EXPECT_EQ(dialogs.OpenFile("ROM Image (*.BIN)|*.BIN", folder.path()),
              QDir::toNativeSeparators(folder.filePath("rom.BIN")));
}

TEST_F(QtDialogs, TheOpenDialogTakesANameThatDoesNotExist) {
    WhenOpen<QFileDialog>([](QFileDialog &dialog) { Type(dialog, "gone.BIN"); });
    EXPECT_EQ(dialogs.OpenFile("ROM Image (*.BIN)|*.BIN", folder.path()),
              QDir::toNativeSeparators(folder.filePath("gone.BIN")));
}

TEST_F(QtDialogs, TheSaveDialogAddsItsExtensionAndRemembersTheName) {
    QObject page;
    TSaveDialog save(&page, "SaveDialog1");
    save.title = "Save ROM Image";
    save.filter = "ROM Image (*.BIN)|*.BIN";
    save.defaultExt = ".BIN";
    save.fileName = folder.filePath("old.BIN");
    QDir::setCurrent(folder.path());
    WhenOpen<QFileDialog>([](QFileDialog &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Save ROM Image");
        EXPECT_EQ(dialog.findChild<QLineEdit *>("fileNameEdit")->text(), "old.BIN");
        EXPECT_EQ(dialog.nameFilters(), QStringList({"ROM Image (*.BIN)"}));
        Type(dialog, "new");
    });
    EXPECT_TRUE(dialogs.RunSaveDialog(save));
    EXPECT_EQ(save.fileName, QDir::toNativeSeparators(folder.filePath("new.BIN")));
}

struct TOffer {
    const char *name;
    const char *remembered; ///< below the test's folder; the current one is "here"
    const char *defaultExt;
    const char *offered;
};
class SaveDialogOffer : public QtDialogs, public testing::WithParamInterface<TOffer> {};

TEST_P(SaveDialogOffer, IsANameOfItsOwnKindInTheCurrentFolder) {
    const QString here = Folder("here");
    Folder("there");
    for (const char *name : {"here/A.BIN", "there/A.BIN"})
        Touch(folder.filePath(name));
    // Where the toolkit's dialog was last is of no account.
    WhenOpen<QFileDialog>([](QFileDialog &dialog) { Type(dialog, "A.BIN"); });
    EXPECT_NE(dialogs.OpenFile("ROM Image (*.BIN)|*.BIN", folder.filePath("there")), "");
    QDir::setCurrent(here);
    TSaveDialog save(nullptr, "SaveDialog1");
    save.defaultExt = GetParam().defaultExt;
    if (*GetParam().remembered)
        save.fileName = folder.filePath(GetParam().remembered);
    EXPECT_EQ(save.OfferedName(), GetParam().offered);
    WhenOpen<QFileDialog>([&](QFileDialog &dialog) {
        EXPECT_EQ(dialog.directory(), QDir(here));
        EXPECT_EQ(dialog.findChild<QLineEdit *>("fileNameEdit")->text(), GetParam().offered);
        Type(dialog, "A.BIN");
    });
    EXPECT_TRUE(dialogs.RunSaveDialog(save));
    EXPECT_EQ(save.fileName, QDir::toNativeSeparators(folder.filePath("here/A.BIN")));
    EXPECT_EQ(QDir::current(), QDir(here));
}

INSTANTIATE_TEST_SUITE_P(Table, SaveDialogOffer,
                         testing::Values(TOffer{"Nothing", "", ".BIN", ""},
                                         TOffer{"Own", "here/B.BIN", ".BIN", "B.BIN"},
                                         TOffer{"OwnInSmallLetters", "here/B.bin", ".BIN", "B.bin"},
                                         TOffer{"Spec", "here/B.SPC", ".SPC", "B.SPC"},
                                         TOffer{"SpecForImage", "here/B.SPC", ".BIN", ""},
                                         TOffer{"ImageForSpec", "here/B.BIN", ".SPC", ""},
                                         TOffer{"OtherEnding", "here/B.BIN.old", ".BIN", ""},
                                         TOffer{"NoEnding", "here/BIN", ".BIN", ""},
                                         TOffer{"OtherFolder", "there/A.BIN", ".BIN", ""},
                                         TOffer{"FolderAbove", "A.BIN", ".BIN", ""},
                                         TOffer{"FolderThatHasGone", "gone/A.BIN", ".BIN", ""}),
                         [](const auto &offer) { return std::string(offer.param.name); });

TEST_F(QtDialogs, FileDialogsOfferThePlacesAtTheirSideAndKeepNoneOfThem) {
    const QString recent = Folder("recent");
    RememberFolder(recent);
    QDir::setCurrent(Folder("here"));
    QList<QUrl> own;
    for (const QString &place : Places())
        own << QUrl::fromLocalFile(place);
    ASSERT_GE(own.size(), 2);
    const QList<QUrl> before = QFileDialog().sidebarUrls();
    const auto look = [&](QFileDialog &dialog) {
        EXPECT_EQ(dialog.sidebarUrls(), before + own);
        QApplication::processEvents();
        const auto *list = dialog.findChild<QListView *>("sidebar");
        EXPECT_GE(list->viewport()->width(), list->fontMetrics().horizontalAdvance("recent") + 16);
        EXPECT_LE(list->width(), dialog.width() / 4);
        dialog.reject();
    };
    WhenOpen<QFileDialog>(look);
    dialogs.OpenFile("ROM Image (*.BIN)|*.BIN", folder.path());
    TSaveDialog save(nullptr, "SaveDialog1");
    WhenOpen<QFileDialog>(look);
    dialogs.RunSaveDialog(save);
    EXPECT_EQ(QFileDialog().sidebarUrls(), before);
}

TEST_F(QtDialogs, ACancelledSaveDialogKeepsTheName) {
    QObject page;
    TSaveDialog save(&page, "SaveDialog1");
    save.fileName = folder.filePath("old.BIN");
    WhenOpen<QFileDialog>([](QFileDialog &dialog) { dialog.reject(); });
    EXPECT_FALSE(dialogs.RunSaveDialog(save));
    EXPECT_EQ(save.fileName, folder.filePath("old.BIN"));
}

TEST_F(QtDialogs, TheSaveDialogDoesNotAskAboutOverwriting) {
    Touch(folder.filePath("old.BIN"));
    QDir::setCurrent(folder.path());
    QObject page;
    TSaveDialog save(&page, "SaveDialog1");
    save.fileName = folder.filePath("old.BIN");
    WhenOpen<QFileDialog>([](QFileDialog &dialog) {
        QTimer::singleShot(0, &dialog, [] {
            auto *question = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            EXPECT_EQ(question, nullptr);
            if (question)
                question->reject();
        });
        Type(dialog, "old.BIN");
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_TRUE(dialogs.RunSaveDialog(save));
    EXPECT_EQ(save.fileName, QDir::toNativeSeparators(folder.filePath("old.BIN")));
}

namespace {
class TSteps : public QtDialogs {
protected:
    /// Takes up to 9 steps; `during` runs in each of them, once the window is up.
    int Take(const std::function<void(QProgressDialog &)> &during) {
        int taken = 0;
        dialogs.TakeSteps("Counting to nine", 9, [&] {
            ++taken;
            if (auto *window = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget()))
                during(*window);
        });
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        return taken;
    }
};
} // namespace

TEST_F(TSteps, AreTakenBehindAWindowThatShowsHowFarTheyAre) {
    QStringList shown;
    EXPECT_EQ(Take([&shown](QProgressDialog &window) {
                  shown << QString::number(window.value());
                  EXPECT_TRUE(window.isVisible());
                  EXPECT_EQ(window.windowModality(), Qt::ApplicationModal);
                  EXPECT_EQ(window.objectName(), "dlgProgress");
                  EXPECT_EQ(window.maximum(), 9);
                  EXPECT_EQ(window.labelText(), "Counting to nine");
                  EXPECT_EQ(window.findChild<QProgressBar *>()->accessibleName(),
                            "Counting to nine");
                  EXPECT_EQ(window.findChild<QPushButton *>()->text(), "Cancel");
              }),
              9);
    EXPECT_EQ(shown.join(' '), "1 2 3 4 5 6 7 8");
}

TEST_F(TSteps, AreLeftOutAfterCancel) {
    EXPECT_EQ(Take([](QProgressDialog &window) {
                  if (window.value() == 3)
                      window.findChild<QPushButton *>()->click();
              }),
              4);
}

TEST_F(TSteps, AreLeftOutAfterEscape) {
    EXPECT_EQ(Take([](QProgressDialog &window) {
                  if (window.value() == 3)
                      QTest::keyClick(&window, Qt::Key_Escape);
              }),
              4);
}

TEST_F(TSteps, LetTheUserCancelBetweenTwoOfThem) {
    QTimer::singleShot(
        0, qApp, [] { QApplication::activeModalWidget()->findChild<QPushButton *>()->click(); });
    EXPECT_LT(Take([](QProgressDialog &) {}), 9);
}
