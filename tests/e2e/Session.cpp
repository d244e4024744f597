#include "Session.h"

#include "forms/RadioGroup.h"
#include "model/Numbers.h"
#include "samples/SampleFiles.h"
#include "spec/Application.h"

#include <sstream>

#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QLocale>
#include <QSpinBox>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

namespace {
const QPoint markOfARadioButton(10, 10);

[[noreturn]] void Fail(const QString &what) {
    throw std::runtime_error(what.toStdString());
}
} // namespace

std::string SpecText(const std::string &label, const std::vector<int> &offsets, int revLimiter) {
    const auto section = [&](const std::string &name, std::size_t first) {
        return "[" + name + "]\npt_offset=" + FormatOffset(offsets.at(first)) +
               "\nidle_offset=" + FormatOffset(offsets.at(first + 1)) +
               "\nwot_offset=" + FormatOffset(offsets.at(first + 2)) + "\n";
    };
    return "; " + label + "\n" + section("Fuel Maps", 0) + section("Timing Maps", 3) +
           "[Other Maps]\nrevlimit_offset=" + FormatOffset(revLimiter) + "\n";
}

TSession::TSession() {
    QLocale::setDefault(QLocale::c());
    SetUpApplication();
    window = std::make_unique<TfrmNotebook>();
    window->setWindowTitle("Ferrolyn");
    window->show();
    window->tmrSplashTimer(); // what the first tick does; nobody waits for it here
    QTest::qWait(0);
}

TSession::~TSession() {
    EXPECT_TRUE(dialogs.answers.empty());
    EXPECT_TRUE(dialogs.inputs.empty());
    EXPECT_TRUE(dialogs.opens.empty());
    EXPECT_TRUE(dialogs.saves.empty());
}

void TSession::Click(const QString &page, const QString &button) {
    auto &control = On<QAbstractButton>(page, button);
    if (!control.isVisible() || !control.isEnabled())
        Fail(button + " cannot be clicked");
    QTest::mouseClick(&control, Qt::LeftButton);
}

bool TSession::MayClick(const QString &page, const QString &button) {
    const auto &control = On<QAbstractButton>(page, button);
    return control.isVisible() && control.isEnabled();
}

void TSession::Trigger(const QString &page, const QString &menuItem) {
    On<QAction>(page, menuItem).trigger();
}

QString TSession::Write(const std::string &name, const TBytes &bytes) {
    PutFile(folder / name, bytes);
    return QString::fromStdString((folder / name).string());
}

QString TSession::Write(const std::string &name, const std::string &text) {
    return Write(name, TBytes(text.begin(), text.end()));
}

TBytes TSession::WriteSamples() {
    std::ostringstream told;
    if (!WriteSampleFiles(folder.Path(), told, told))
        throw std::runtime_error(told.str());
    return Read("FERRO32K.BIN");
}

void TSession::SelectTab(const QString &caption) {
    auto &tabs = FindControl<QTabWidget>(*window, "PageControl1");
    for (int i = 0; i < tabs.count(); ++i)
        if (tabs.tabText(i) == caption) {
            QTest::mouseClick(tabs.tabBar(), Qt::LeftButton, {},
                              tabs.tabBar()->tabRect(i).center());
            if (tabs.currentIndex() != i)
                Fail("tab " + caption + " is not shown");
            return;
        }
    Fail("no tab " + caption);
}

void TSession::Load(const std::string &name) {
    dialogs.opens.push_back(QString::fromStdString((folder / name).string()));
    Click(romPage, "btnLoad");
}

void TSession::Choose(const QString &label) {
    auto &group = On<TRadioGroup>(romPage, "rdoROMtemplate");
    for (int i = 0; i < group.ItemCount(); ++i)
        if (group.Item(i) == label) {
            auto &item = FindControl<QAbstractButton>(group, "rdoROMtemplate" + QString::number(i));
            QTest::mouseClick(&item, Qt::LeftButton, {}, markOfARadioButton);
            return;
        }
    Fail("no item " + label);
}

void TSession::LoadAndChoose(const std::string &name, const QString &label) {
    Load(name);
    Choose(label);
}

void TSession::SaveAs(const std::string &name) {
    SelectTab("ROM Information");
    dialogs.saves.push_back(QString::fromStdString((folder / name).string()));
    Click(romPage, "btnSave");
}

TStringAlignGrid &TSession::Grid(const QString &page, TMapKind kind) {
    return On<TStringAlignGrid>(page, PanelTraits(kind).grid);
}

void TSession::Type(const QString &page, TMapKind kind, TGridCell cell, const QString &text) {
    TypeInto(Grid(page, kind), cell, text);
}

void TSession::TypeInto(TStringAlignGrid &grid, TGridCell cell, const QString &text) {
    grid.SetCurrent(cell.column, cell.row);
    QTest::keyClick(grid.viewport(), Qt::Key_F2);
    auto *editor = grid.viewport()->findChild<QLineEdit *>();
    if (!editor)
        Fail("no editor in " + grid.objectName());
    editor->selectAll();
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, Qt::Key_Enter);
    QTest::qWait(0);
    if (grid.Cell(cell.column, cell.row) != text)
        Fail("the text did not reach " + grid.objectName());
}

void TSession::Commit(const QString &page, TMapKind kind) {
    Click(page, PanelTraits(kind).commit);
}

void TSession::Reset(const QString &page, TMapKind kind) {
    Click(page, PanelTraits(kind).reset);
}

void TSession::Interpret(const QString &page) {
    auto &box = On<QCheckBox>(page, "chkInterpret");
    QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(8, box.height() / 2));
}

void TSession::TypeRevLimiter(int rpm) {
    auto &box = On<QSpinBox>(fuelPage, "spnRevLimiter");
    if (!box.isVisible())
        Fail("no rev limiter");
    box.selectAll();
    QTest::keyClicks(&box, QString::number(rpm));
}

void TSession::TypeOffset(const QString &page, TMapKind kind, const QString &text) {
    auto &box = On<QLineEdit>(page, PanelTraits(kind).offset);
    QTest::mouseDClick(&box, Qt::LeftButton);
    box.selectAll();
    QTest::keyClicks(&box, text);
    QTest::keyClick(&box, Qt::Key_Enter);
}
