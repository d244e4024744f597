// Base of tests of keys and mouse in the cells of a map page: the page over the planted maps, alone
// in its notebook, on the screen, with the keyboard in a grid.
#pragma once

#include "forms/Aligrid.h"
#include "forms/KelvaneNotebook.h"
#include "forms/PageControl.h"
#include "maps/FuelMaps.h"
#include "maps/TimingMaps.h"
#include "pages/PageFixture.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>

template <class Page>
class TMapCellsTest : public TPageTest {
protected:
    TMapCellsTest() {
        PlantMaps();
        PlaceMaps(workspace);
        TimingConstants() = {0.65, 12.7};
        if constexpr (std::is_same_v<Page, TfrmFuelMaps>)
            AddPage(std::make_unique<Page>(nullptr, workspace, workspace.fuelMapSet));
        else
            AddPage(std::make_unique<Page>(nullptr, workspace, workspace.timingMapSet));
        window.setGeometry(50, 50, 1200, 900);
        QCursor::setPos(0, 0); // beside the window: no control gives its hint
        window.show();
        QApplication::setActiveWindow(&window);
        QTest::qWait(0);
        GoTo("grdPTMap");
    }

    template <class Control>
    Control &Find(const QString &name) {
        return FindControl<Control>(*page, name);
    }
    TStringAlignGrid &Grid(const QString &name = "grdPTMap") {
        return Find<TStringAlignGrid>(name);
    }
    void GoTo(const QString &control) { Find<QWidget>(control).setFocus(); }
    void Click(const QString &button) { Find<QPushButton>(button).click(); }
    void Choose(const QString &action) { Find<QAction>(action).trigger(); }
    TMap &Map(TMapKind kind = TMapKind::PT) { return page->Map(kind); }
    const QUndoStack &Steps() { return page->history.Stack(); }

    static constexpr Qt::KeyboardModifiers ctrl = Qt::ControlModifier;
    static constexpr Qt::KeyboardModifiers ctrlShift = Qt::ControlModifier | Qt::ShiftModifier;
    /// Presses a key where the keyboard is.
    static void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    /// Types over the current cell of the grid that has the keyboard.
    static void Type(const QString &text) {
        for (const QChar key : text) // the first one opens an editor, which gets the others
            QTest::keyClick(QApplication::focusWidget(), key.toLatin1());
        Press(Qt::Key_Enter);
        QTest::qWait(0);
    }
    /// The texts of body cells, row by row.
    QStringList Texts(const QString &gridName = "grdPTMap") {
        const TStringAlignGrid &grid = Grid(gridName);
        QStringList texts;
        for (int row = 1; row < grid.RowCount(); ++row)
            for (int column = 1; column < grid.ColCount(); ++column)
                texts << grid.Cell(column, row);
        return texts;
    }
    /// The places of body cells that are marked as edited, "column,row".
    QStringList Edited(const QString &gridName = "grdPTMap") {
        const TStringAlignGrid &grid = Grid(gridName);
        QStringList edited;
        for (int row = 1; row < grid.RowCount(); ++row)
            for (int column = 1; column < grid.ColCount(); ++column)
                if (grid.FontColor(column, row) == clBlue)
                    edited << QString("%1,%2").arg(column).arg(row);
        return edited;
    }
    std::string Said() const { return window.StatusBar1->currentMessage().toStdString(); }
    static QClipboard &Clipboard() { return *QApplication::clipboard(); }

    TWorkspace workspace;
    TfrmKelvaneNotebook window;
    Page *page = nullptr;

private:
    void AddPage(std::unique_ptr<Page> made) {
        page = made.get();
        window.AddPage(std::move(made), "TabSheet1", "Maps");
    }
};

using TFuelCellsTest = TMapCellsTest<TfrmFuelMaps>;
using TTimingCellsTest = TMapCellsTest<TfrmTimingMaps>;
