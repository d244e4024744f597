// Base of the bulk adjust window's tests: the window of a fuel page inside a main window, shown by
// "Recalculate".
#pragma once

#include "pages/MapPageFixture.h"

#include <QMainWindow>
#include <QRadioButton>

class TToolWindowTest : public TFuelPageTest {
protected:
    void SetUp() override {
        PlantMaps();
        PlaceMaps(workspace);
        page = std::make_unique<TfrmFuelMaps>(nullptr, workspace, workspace.fuelMapSet);
        host.setCentralWidget(page.get());
        host.show();
        page->ShowPage();
        Click("btnRecalculate");
        QTest::qWait(0);
    }
    void TearDown() override { host.takeCentralWidget()->setParent(nullptr); }

    TfrmToolWindow &Tool() { return *page->ToolWindow; }
    template <class Control>
    Control &Its(const QString &name) {
        return FindControl<Control>(Tool(), name);
    }
    TRadioGroup &Group(const QString &name) { return Its<TRadioGroup>(name); }
    void Pick(const QString &group, int item) {
        Its<QRadioButton>(group + QString::number(item)).click();
    }
    QLineEdit &Amount() { return Its<QLineEdit>("edtVal"); }
    /// Types the amount and moves on by Tab.
    void Enter(const QString &text) {
        Activate(Tool());
        Amount().setFocus();
        Amount().selectAll();
        QTest::keyClicks(&Amount(), text);
        QTest::keyClick(&Amount(), Qt::Key_Tab);
    }
    static void Activate(QWidget &window) {
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    void Go() { Its<QPushButton>("btnExec").click(); }
    QStringList Items(const QString &name) {
        QStringList items;
        for (int item = 0; item < Group(name).ItemCount(); ++item)
            items << Group(name).Item(item);
        return items;
    }
    QStringList RowTexts(const QString &gridName, int row) {
        QStringList texts;
        for (int column = 1; column < Grid(gridName).ColCount(); ++column)
            texts << Grid(gridName).Cell(column, row);
        return texts;
    }
    /// The colours of a whole grid row by row, b for blue, r for red, . for untouched.
    QString Colors(const QString &gridName) {
        QString colors;
        const TStringAlignGrid &grid = Grid(gridName);
        for (int row = 0; row < grid.RowCount(); ++row) {
            for (int column = 0; column < grid.ColCount(); ++column) {
                const TColor color = grid.FontColor(column, row);
                colors += color == clBlue ? 'b' : color == clRed ? 'r' : '.';
            }
            colors += ' ';
        }
        return colors.trimmed();
    }
    void ExpectFlags(bool partThrottle, bool idle, bool fullThrottle) {
        EXPECT_EQ(page->PTChanged, partThrottle);
        EXPECT_EQ(page->IdleChanged, idle);
        EXPECT_EQ(page->FTChanged, fullThrottle);
    }

    QMainWindow host;
};
