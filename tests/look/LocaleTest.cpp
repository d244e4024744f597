// A user with a decimal comma: what is shown has it, what is typed needs it, files do not change.
#include "forms/Aligrid.h"
#include "forms/Paths.h"
#include "forms/TEmbedFm.h"
#include "look/LookFixture.h"
#include "spec/main.h"
#include "support/FakeDialogs.h"
#include "support/FindControl.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QStatusBar>
#include <QTest>

namespace {
class TLocaleTest : public TLookTest {
protected:
    TLocaleTest() : oldFolder_(std::filesystem::current_path()) {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        std::filesystem::current_path(folder.Path());
        // The spec file of a German user: constants as this locale writes them.
        std::string spec;
        for (const std::uint8_t byte : GetFile(folder / "FERRO32K.SPC"))
            spec += static_cast<char>(byte);
        for (const char *number : {"timing_divider=0.", "timing_subtractor=12."})
            if (const auto at = spec.find(number); at != std::string::npos)
                spec.replace(at + std::string(number).size() - 1, 1, ",");
        std::filesystem::remove(folder / "FERRO32P.SPC");
        PutFile(folder / "FERRO32K.SPC", {spec.begin(), spec.end()});
        SetUpApplication();
        window = std::make_unique<TfrmNotebook>();
        window->show();
        window->tmrSplashTimer();
        dialogs.opens.push_back(QString::fromStdString((folder / "FERRO32K.BIN").string()));
        Control<QAbstractButton>(0, "btnLoad").click();
        Control<QAbstractButton>(0, "rdoROMtemplate0").click();
    }
    ~TLocaleTest() override { std::filesystem::current_path(oldFolder_); }

    template <class T>
    T &Control(int page, const QString &name) {
        return FindControl<T>(*window->Page(page), name);
    }
    void Type(TStringAlignGrid &grid, const QString &text) {
        grid.SetCurrent(2, 2);
        QTest::keyClick(grid.viewport(), Qt::Key_F2);
        auto *editor = grid.viewport()->findChild<QLineEdit *>();
        ASSERT_TRUE(editor);
        editor->setText(text);
        QTest::keyClick(editor, Qt::Key_Enter);
        QTest::qWait(0);
    }

    TFakeDialogs dialogs;
    std::unique_ptr<TfrmNotebook> window;

private:
    std::filesystem::path oldFolder_;
};

TEST_F(TLocaleTest, CellsAndSizesAreWrittenInTheUsersWay) {
    EXPECT_TRUE(dialogs.messages.isEmpty()) << dialogs.messages.value(0).toStdString();
    window->Page(1)->ShowPage();
    Control<QAbstractButton>(1, "chkInterpret").click();
    EXPECT_TRUE(Control<TStringAlignGrid>(1, "grdPTMap").Cell(1, 1).contains(','));
    QStringList panels;
    for (const QLabel *panel : Control<QStatusBar>(0, "StatusBar1").findChildren<QLabel *>())
        panels << panel->text();
    EXPECT_TRUE(panels.contains("32.768 bytes")) << panels.join('|').toStdString();
}

TEST_F(TLocaleTest, TypedNumbersNeedTheComma) {
    window->Page(1)->ShowPage();
    auto &grid = Control<TStringAlignGrid>(1, "grdPTMap");
    Type(grid, "1,25");
    EXPECT_EQ(grid.FontColor(2, 2), clBlue);
    EXPECT_TRUE(dialogs.messages.isEmpty());
    Type(grid, "1.25");
    EXPECT_EQ(dialogs.messages, QStringList{"'1.25' is not a valid floating point value"});
}

TEST_F(TLocaleTest, FileNamesAreTheUsers) {
    const QString name = QString::fromUtf8("Größe Ω 32K.BIN");
    const std::filesystem::path file = folder.Path() / ToPath(name);
    PutFile(file, GetFile(folder / "FERRO32K.BIN"));
    dialogs.opens.push_back(FromPath(file));
    Control<QAbstractButton>(0, "btnLoad").click();
    EXPECT_TRUE(window->windowTitle().endsWith(name)) << window->windowTitle().toStdString();
}
} // namespace
