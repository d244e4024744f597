// Base of the map page tests: a fuel or a timing page over the planted maps, shown at once, with
// its controls by name and the gestures of the user.
#pragma once

#include "forms/Aligrid.h"
#include "maps/FuelMaps.h"
#include "maps/TimingMaps.h"
#include "maps/ToolWindow.h"
#include "pages/PageFixture.h"

#include <type_traits>

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>

template <class Page>
class TMapPageTest : public TPageTest {
protected:
    void SetUp() override {
        PlantMaps();
        PlaceMaps(workspace);
        page = std::make_unique<Page>(nullptr, workspace, Set());
        page->ShowPage();
    }

    auto &Set() {
        if constexpr (std::is_same_v<Page, TfrmFuelMaps>)
            return workspace.fuelMapSet;
        else
            return workspace.timingMapSet;
    }
    template <class Control>
    Control &Find(const QString &name) {
        return FindControl<Control>(*page, name);
    }
    TStringAlignGrid &Grid(const QString &name) { return Find<TStringAlignGrid>(name); }
    void Click(const QString &button) { Find<QPushButton>(button).click(); }
    void Choose(const QString &menuItem) { Find<QAction>(menuItem).trigger(); }
    QString Text(const QString &edit) { return Find<QLineEdit>(edit).text(); }
    /// The byte of a body cell, counted from the body's start.
    int BodyByte(TMapKind kind, int cell) {
        return Image().Peek(Set().Map(kind).data->offset + cell);
    }

    /// The open cell editor, or none.
    QLineEdit *Editor(const QString &gridName) {
        return Grid(gridName).viewport()->template findChild<QLineEdit *>();
    }
    /// Opens the editor of a cell and types `text` into it, but does not end the edit.
    void BeginType(const QString &gridName, int column, int row, const QString &text) {
        TStringAlignGrid &grid = Grid(gridName);
        grid.SetCurrent(column, row);
        QTest::keyClick(grid.viewport(), Qt::Key_F2);
        ASSERT_TRUE(Editor(gridName)) << "no editor in " << gridName.toStdString();
        Editor(gridName)->selectAll();
        QTest::keyClicks(Editor(gridName), text);
    }
    /// Types `text` into a cell and ends the edit with Enter.
    void Type(const QString &gridName, int column, int row, const QString &text) {
        ASSERT_NO_FATAL_FAILURE(BeginType(gridName, column, row, text));
        QTest::keyClick(Editor(gridName), Qt::Key_Enter);
        QTest::qWait(0);
    }

    TWorkspace workspace;
    std::unique_ptr<Page> page;
};

using TFuelPageTest = TMapPageTest<TfrmFuelMaps>;
using TTimingPageTest = TMapPageTest<TfrmTimingMaps>;
