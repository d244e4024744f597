#include "Roads.h"
#include "forms/Aligrid.h"
#include "forms/TEmbedFm.h"
#include "model/ROMTypes.h"

#include <iostream>

#include <QApplication>
#include <QCheckBox>
#include <QFile>
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

void TypeIntoCell(TStringAlignGrid &grid, const QString &text) {
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
} // namespace

void FirstChange(const TRoad &road) {
    TDriver &driver = road.driver;
    TfrmNotebook &window = road.window;
    const QString source = road.File("FERRO32K.BIN");
    const QString target = road.File("EDITED.BIN");

    TDriver::Step("load " + source);
    driver.ClickAndChooseFile(driver.Find<QPushButton>("btnLoad"), source);
    TDriver::Expect(window.windowTitle() == "Ferrolyn - " + source, "the caption names the file");

    TDriver::Step("choose the mapping of offsets");
    driver.ChooseItem("rdoROMtemplate", "Ferrolyn sample 32K, offsets");
    road.Picture("1-rom-information");

    TDriver::Step("show the fuel maps as lambda trims, and look at the timing maps");
    driver.SelectTab("Fuel Maps");
    QWidget *page = window.GetPage(1);
    QTest::mouseClick(&driver.Find<QCheckBox>("chkInterpret", page), Qt::LeftButton, {},
                      QPoint(8, driver.Find<QCheckBox>("chkInterpret", page).height() / 2));
    TDriver::Expect(window.workspace.fuelMapSet.showConverted, "cells are lambda trims");
    driver.SelectTab("Timing Maps");
    road.Picture("2-timing-maps");

    TDriver::Step("raise a cell of the part throttle fuel map to 0.99");
    driver.SelectTab("Fuel Maps");
    auto &grid = driver.Find<TStringAlignGrid>("grdPTMap", page);
    const TMap &map = *window.workspace.fuelMapSet.PTMap;
    const int cellOffset = map.data->offset + (editedColumn - 1) * map.LoadCount() + editedRow - 1;
    const int before = ROMImage()->Peek(cellOffset);
    constexpr int after = 127; // 0.99 x 128, rounded
    TypeIntoCell(grid, "0.99");
    road.Picture("3-cell-edited");

    TDriver::Step("commit");
    driver.Click(driver.Find<QPushButton>("btnSavePT", page));
    TDriver::Expect(grid.FontColor(editedColumn, editedRow) == clWindowText,
                    "no cell waits for a commit");
    TDriver::Expect(ROMImage()->Peek(cellOffset) == after, "the image holds the new byte");

    TDriver::Step("look at the fuel map as a chart");
    driver.SelectTab("Graphical Fuel Maps");
    road.Picture("4-graphical-fuel-maps");

    TDriver::Step("look at what was changed");
    driver.SelectTab("Fuel Maps"); // so that the tab of the changes comes into view beside it
    window.ShowChanges();
    QWidget *changes = window.CurrentPage();
    auto &shown = driver.Find<TStringAlignGrid>("grdChanges", changes);
    TDriver::Expect(shown.Cell(editedColumn, editedRow) == "0.99\n0.95",
                    "the old value stands beneath the new one");
    shown.SetCurrent(editedColumn, editedRow);
    road.Picture("10-changes");
    driver.Click(driver.Find<QPushButton>("btnClose", changes));

    TDriver::Step("save as " + target);
    driver.SelectTab("ROM Information");
    driver.ClickAndChooseFile(driver.Find<QPushButton>("btnSave", window.GetPage(0)), target);
    TDriver::Expect(window.windowTitle() == "Ferrolyn - " + target,
                    "the caption names the new file");
    CompareFiles(source, target, cellOffset, before, after);
}
