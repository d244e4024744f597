// The tour: does the program's main job in the real window, on a screen that may be virtual, and
// checks every step.
//   ferrolyn_tour SAMPLES OUTPUT
// Loads the sample image, chooses its spec, raises a fuel cell, commits, saves under OUTPUT and
// compares the bytes.

#include "spec/main.h"

#include "Driver.h"
#include "forms/Aligrid.h"
#include "forms/TEmbedFm.h"
#include "model/ROMTypes.h"
#include "spec/Application.h"

#include <iostream>

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QPushButton>
#include <QTest>

namespace {
constexpr int editedColumn = 5;
constexpr int editedRow = 4;

QByteArray Bytes(const QString &fileName) {
    QFile file(fileName);
    TDriver::Expect(file.open(QIODevice::ReadOnly), fileName + " can be read");
    return file.readAll();
}

/// Prints every byte in which the files differ and expects exactly one: at `offset`, from `before`
/// to `after`.
void CompareFiles(const QString &oldName, const QString &newName, int offset, int before,
                  int after) {
    const QByteArray oldBytes = Bytes(oldName);
    const QByteArray newBytes = Bytes(newName);
    TDriver::Expect(oldBytes.size() == newBytes.size(), "both files are equally long");
    int changes = 0;
    for (qsizetype i = 0; i < oldBytes.size(); ++i) {
        if (oldBytes[i] == newBytes[i])
            continue;
        const int was = static_cast<unsigned char>(oldBytes[i]);
        const int is = static_cast<unsigned char>(newBytes[i]);
        std::cout << "        changed byte: offset " << FormatOffset(static_cast<int>(i))
                  << ", old " << was << ", new " << is << std::endl;
        ++changes;
        TDriver::Expect(i == offset && was == before && is == after,
                        "only the edited cell's byte differs");
    }
    TDriver::Expect(changes == 1, "exactly one byte differs");
}

void RaiseCell(TStringAlignGrid &grid, const QString &text) {
    grid.setFocus();
    grid.SetCurrent(editedColumn, editedRow);
    QTest::keyClicks(grid.viewport(), text.left(1));
    QWidget *editor = grid.viewport()->focusWidget() ? QApplication::focusWidget() : nullptr;
    TDriver::Expect(editor && editor != &grid, "typing opens the cell's editor");
    QTest::keyClicks(editor, text.mid(1));
    QTest::keyClick(editor, Qt::Key_Enter);
    QTest::qWait(0);
    TDriver::Expect(grid.Cell(editedColumn, editedRow) == text, "the cell shows the typed text");
    TDriver::Expect(grid.FontColor(editedColumn, editedRow) == clBlue, "the edited cell is blue");
}

bool SplashIsUp() {
    for (const QWidget *widget : QApplication::topLevelWidgets())
        if (widget->objectName() == "frmSplash" && widget->isVisible())
            return true;
    return false;
}

void Tour(TfrmNotebook &window, const QDir &samples, const QDir &output) {
    TDriver driver(window, output);
    const QString source = samples.absoluteFilePath("FERRO32K.BIN");
    const QString target = output.absoluteFilePath("edited.BIN");

    driver.Step("start the program");
    window.show();
    QTest::qWait(1000);
    driver.Picture("1-splash");
    TDriver::WaitFor([&] { return window.isVisible() && !window.isMinimized(); },
                     "the window is normal");
    TDriver::WaitFor([] { return !SplashIsUp(); }, "the splash has gone");
    driver.Picture("2-start");

    driver.Step("load " + source);
    driver.ClickAndChooseFile(driver.Find<QPushButton>("btnLoad"), source);
    TDriver::Expect(window.windowTitle() == "Ferrolyn - " + source, "the caption names the file");

    driver.Step("choose the mapping of offsets");
    driver.ChooseItem("rdoROMtemplate", "Ferrolyn sample 32K, offsets");
    driver.Picture("3-rom-information");

    driver.Step("raise a cell of the part throttle fuel map");
    driver.SelectTab("Fuel Maps");
    auto &grid = driver.Find<TStringAlignGrid>("grdPTMap", window.GetPage(1));
    const TMap &map = *window.workspace.fuelMapSet.PTMap;
    const int cellOffset = map.data->offset + (editedColumn - 1) * map.LoadCount() + editedRow - 1;
    const int before = ROMImage()->Peek(cellOffset);
    const int after = before + 6;
    window.workspace.fuelMapSet.showConverted
        ? RaiseCell(grid, QString::number(after / 128.0, 'f', 2))
        : RaiseCell(grid, QString::number(after));
    driver.Picture("4-cell-edited");

    driver.Step("commit");
    driver.Click(driver.Find<QPushButton>("btnSavePT", window.GetPage(1)));
    TDriver::Expect(grid.FontColor(editedColumn, editedRow) == clWindowText,
                    "no cell waits for a commit");
    TDriver::Expect(ROMImage()->Peek(cellOffset) == after, "the image holds the new byte");
    driver.Picture("5-committed");

    driver.Step("look at the timing maps");
    driver.SelectTab("Timing Maps");
    driver.Picture("6-timing-maps");

    driver.Step("save as " + target);
    driver.SelectTab("ROM Information");
    driver.ClickAndChooseFile(driver.Find<QPushButton>("btnSave", window.GetPage(0)), target);
    TDriver::Expect(window.windowTitle() == "Ferrolyn - " + target,
                    "the caption names the new file");
    driver.Picture("7-saved");
    CompareFiles(source, target, cellOffset, before, after);

    driver.Step("close the window");
    TDriver::Expect(window.close(), "the window closes");
}
} // namespace

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    if (argc != 3) {
        std::cerr << "usage: ferrolyn_tour SAMPLES OUTPUT\n";
        return 2;
    }
    const QDir samples(QString::fromLocal8Bit(argv[1]));
    const QDir output(QDir(QString::fromLocal8Bit(argv[2])).absolutePath());
    try {
        TDriver::Expect(output.mkpath("."), output.path() + " can be made");
        QFile::remove(output.absoluteFilePath("edited.BIN"));
        TDriver::Expect(QDir::setCurrent(samples.absolutePath()), samples.path() + " exists");
        SetUpApplication();
        TfrmNotebook window;
        window.setWindowTitle("Ferrolyn");
        Tour(window, QDir::current(), output);
    } catch (const std::exception &error) {
        std::cerr << "tour failed: " << error.what() << std::endl;
        return 1;
    }
    std::cout << "tour passed" << std::endl;
    return 0;
}
