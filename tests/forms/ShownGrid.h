// A grid on the (virtual) screen with a button beside it, and shorthands for what a user does.
#pragma once

#include "forms/Aligrid.h"
#include "support/FakeDialogs.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <gmock/gmock.h>

/// 4 x 5 cells, row 0 and column 0 fixed; cell (c, r) reads "cr".
class TShownGrid : public testing::Test {
protected:
    TShownGrid() {
        auto *layout = new QHBoxLayout(&window);
        layout->addWidget(&grid);
        layout->addWidget(&button);
        grid.Editable = true;
        grid.SetShape(4, 5);
        for (int row = 0; row < 5; ++row)
            for (int column = 0; column < 4; ++column)
                grid.SetCell(column, row, QString::number(column) + QString::number(row));
        grid.OnAfterEdit = [this](int column, int row) { Record("after", column, row); };
        grid.OnBeforeEdit = [this](int column, int row) { Record("before", column, row); };
        grid.OnCancelEdit = [this](int column, int row) { Record("cancel", column, row); };
        window.resize(600, 400);
        window.show();
        window.activateWindow();
        grid.setFocus();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    void Record(const char *event, int column, int row) {
        log.push_back(QString("%1 %2 %3").arg(event).arg(column).arg(row).toStdString());
    }

    QLineEdit *Editor() const {
        return qobject_cast<QLineEdit *>(grid.indexWidget(grid.currentIndex()));
    }
    /// Types where the keyboard's focus is.
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    void Type(const QString &text) {
        for (const QChar letter : text)
            QTest::keyClick(QApplication::focusWidget(), letter.toLatin1());
    }
    QPoint PointIn(int column, int row) const {
        return grid
            .visualRect(grid.model()->index(row - grid.FixedRows(), column - grid.FixedCols()))
            .center();
    }
    void Click(int column, int row, Qt::MouseButton mouse = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::mouseClick(grid.viewport(), mouse, modifiers, PointIn(column, row));
    }
    void DoubleClick(int column, int row) {
        Click(column, row);
        QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, PointIn(column, row));
    }
    TGridCell Current() const { return {grid.Col(), grid.Row()}; }

    TFakeDialogs dialogs;
    std::vector<std::string> log;
    QWidget window;
    TStringAlignGrid &grid = *new TStringAlignGrid(&window);
    QPushButton &button = *new QPushButton(&window);
};

/// Cells print as (column, row) in failure messages.
inline void PrintTo(const TGridCell &cell, std::ostream *out) {
    *out << '(' << cell.column << ", " << cell.row << ')';
}

inline void PrintTo(const TGridRect &rect, std::ostream *out) {
    *out << '(' << rect.left << ", " << rect.top << ") to (" << rect.right << ", " << rect.bottom
         << ')';
}
