#include "Describe.h"

#include "forms/Aligrid.h"
#include "maps/AreaChart.h"

#include <map>

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTabWidget>

namespace {
constexpr int mostRows = 40;

QString Quoted(const QString &text) {
    return '"' + QString(text).remove('&') + '"';
}

QString Color(TColor color) {
    return QString("$%1").arg(color, 8, 16, QChar('0')).toUpper();
}

/// The texts of a row; "*" marks those in another colour than the usual one.
QString Row(const TStringAlignGrid &grid, int row) {
    QStringList texts;
    for (int column = 0; column < grid.ColCount(); ++column)
        texts << grid.Cell(column, row) + (grid.FontColor(column, row) == clWindowText ? "" : "*");
    return texts.join(' ');
}

QString CellColors(const TStringAlignGrid &grid) {
    std::map<TColor, int> counts;
    for (int row = 1; row < grid.RowCount(); ++row)
        for (int column = 1; column < grid.ColCount(); ++column)
            ++counts[grid.CellColor(column, row)];
    QStringList texts;
    for (const auto &[color, count] : counts)
        texts << QString("%1 x %2").arg(count).arg(Color(color));
    return texts.join(", ");
}

QString GridText(const TStringAlignGrid &grid) {
    QString text = QString("%1 columns, %2 rows, at column %3, row %4")
                       .arg(grid.ColCount())
                       .arg(grid.RowCount())
                       .arg(grid.Col())
                       .arg(grid.Row());
    if (grid.RowCount() > mostRows)
        return text + "\n    colours: " + CellColors(grid) + "\n    " + Row(grid, grid.Row());
    for (int row = 0; row < grid.RowCount(); ++row)
        text += "\n    " + Row(grid, row);
    return text;
}

QString ChartText(const TAreaChart &chart) {
    return Quoted(chart.Title()) + QString(", rotation %1, elevation %2, zoom %3, %4 series")
                                       .arg(chart.Rotation())
                                       .arg(chart.Elevation())
                                       .arg(chart.Zoom())
                                       .arg(chart.property("series").toList().size());
}

QString MenuText(const QMenu &menu) {
    QStringList texts;
    for (const QAction *action : menu.actions())
        if (!action->isSeparator())
            texts << Quoted(action->text()) + (action == menu.activeAction() ? " (chosen)" : "");
    return texts.join(", ");
}

QString TabsText(const QTabWidget &tabs) {
    QStringList texts;
    for (int i = 0; i < tabs.count(); ++i)
        texts << Quoted(tabs.tabText(i)) + (i == tabs.currentIndex() ? " (current)" : "");
    return texts.join(", ");
}

QString ButtonText(const QAbstractButton &button) {
    return Quoted(button.text()) + (button.isChecked() ? ", checked" : "");
}

/// What a control says; null for what says nothing itself.
QString TextOf(const QWidget &control) {
    if (const auto *grid = qobject_cast<const TStringAlignGrid *>(&control))
        return GridText(*grid);
    if (const auto *chart = qobject_cast<const TAreaChart *>(&control))
        return ChartText(*chart);
    if (const auto *menu = qobject_cast<const QMenu *>(&control))
        return MenuText(*menu);
    if (const auto *tabs = qobject_cast<const QTabWidget *>(&control))
        return TabsText(*tabs);
    if (const auto *button = qobject_cast<const QAbstractButton *>(&control))
        return ButtonText(*button);
    if (const auto *label = qobject_cast<const QLabel *>(&control))
        return label->text().isEmpty() ? QString() : Quoted(label->text());
    if (const auto *edit = qobject_cast<const QLineEdit *>(&control))
        return Quoted(edit->text());
    if (const auto *spin = qobject_cast<const QAbstractSpinBox *>(&control))
        return Quoted(spin->text());
    if (const auto *text = qobject_cast<const QPlainTextEdit *>(&control))
        return Quoted(text->toPlainText().section('\n', 0, 0));
    return {};
}

void Append(QStringList &lines, const QWidget &control) {
    static const QStringList changing = {"Label4"};
    const QString name = control.objectName();
    const QString said = TextOf(control);
    if (!said.isNull() && !name.isEmpty() && !name.startsWith("qt_") && !changing.contains(name))
        lines << "  " + name + ": " + said + (control.isEnabled() ? "" : ", disabled");
    for (const QObject *child : control.children()) {
        const auto *widget = qobject_cast<const QWidget *>(child);
        if (widget && !widget->isWindow() && widget->isVisible())
            Append(lines, *widget);
    }
}
} // namespace

QString Describe(const QWidget &window) {
    QStringList lines;
    Append(lines, window);
    lines.sort(); // the order in which they were made does not count
    return "window " + Quoted(window.windowTitle()) + '\n' + lines.join('\n') + '\n';
}
