// Where the toolkit's own save dialog opens, and what it offers: images of one name in two folders
// are not to be mixed up.
#include "DialogScript.h"
#include "Session.h"
#include "samples/SampleFiles.h"

#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QTest>

namespace {
const QString overwrite = "Overwrite existing file?";

class TSaveFolder : public testing::Test {
protected:
    TSaveFolder() {
        for (const char *name : {"a", "b"}) {
            std::filesystem::create_directory(session.folder / name);
            for (const char *file : {"FERRO32K.BIN", "FERRO32K.SPC"})
                std::filesystem::copy_file(session.folder / file, session.folder / name / file);
        }
    }
    /// Loads the folder's image, chooses its spec file and changes one cell.
    void LoadAndEdit(const char *name, const QString &value) {
        session.SelectTab("ROM Information");
        script.ThenFile(Path(name) + "/FERRO32K.BIN");
        session.Click(romPage, "btnLoad");
        session.Choose(byOffsets);
        session.SelectTab("Fuel Maps");
        session.Type(fuelPage, TMapKind::PT, {1, 1}, value);
        session.Commit(fuelPage, TMapKind::PT);
        session.SelectTab("ROM Information");
    }
    /// The next dialog opens in the folder `name` with `offered` in its
    /// name box, and is confirmed with `typed`.
    void ThenSave(const char *name, const QString &offered, const QString &typed) {
        script.Then<QFileDialog>([=, this](QFileDialog &dialog) {
            EXPECT_EQ(dialog.directory(), QDir(Path(name)));
            auto *edit = dialog.findChild<QLineEdit *>("fileNameEdit");
            EXPECT_EQ(edit->text(), offered);
            ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
            edit->setFocus();
            edit->setText(typed);
            QTest::keyClick(edit, Qt::Key_Return);
        });
    }
    void SaveOver(const char *name, const QString &offered) {
        ThenSave(name, offered, "FERRO32K.BIN");
        script.ThenBox(overwrite, "Yes");
        session.Click(romPage, "btnSave");
    }
    QString Path(const char *name) {
        return QString::fromStdString((session.folder / name).string());
    }
    TBytes Image(const char *name) { return session.Read(std::string(name) + "/FERRO32K.BIN"); }

    TSession session;
    const TBytes original = session.WriteSamples();
    TDialogScript script;
};

TEST_F(TSaveFolder, AnImageOfTheSameNameElsewhereIsNotWrittenOver) {
    LoadAndEdit("a", "101");
    SaveOver("a", "");
    const TBytes first = Image("a");
    EXPECT_NE(first, original);
    EXPECT_EQ(Image("b"), original);
    LoadAndEdit("b", "102");
    SaveOver("b", "");
    EXPECT_EQ(Image("a"), first);
    EXPECT_NE(Image("b"), original);
    EXPECT_NE(Image("b"), first);
    LoadAndEdit("b", "103");
    SaveOver("b", "FERRO32K.BIN");
    EXPECT_EQ(Image("a"), first);
}
} // namespace
