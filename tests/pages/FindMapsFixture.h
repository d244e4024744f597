// Base of tests of the page "Find Maps": a sample image in the window, the page and its list.
#pragma once

#include "discovery/FindMapsPage.h"
#include "filedisplay/FileDisplay.h"
#include "maps/QuickChart.h"
#include "pages/WindowFixture.h"

#include <QAction>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QTreeWidget>

class TFindMapsFixture : public TWindowTest {
protected:
    // Columns of the list.
    enum TListColumn { Rank, Kind, Offset, Shape, Rpm, Percent, Chance, Picture, Given, Why };
    // Of the sample of 64 KiB.
    static constexpr int fuel = 0xB2C6;
    static constexpr int timing = 0xC91A;
    static constexpr int idle = 0xB406;

    /// Loads a sample; its folder is the current one then, with its spec files.
    void LoadSample(const std::string &name) {
        for (const char *file : {"FERRO32K.BIN", "FERRO64K.BIN", "FERRO32K.SPC"})
            std::filesystem::copy_file(
                std::filesystem::path(FERROLYN_SOURCE_DIR) / "samples" / file, folder / file,
                std::filesystem::copy_options::overwrite_existing);
        TWindowTest::Load(QString::fromStdString((folder / name).string()));
    }
    void FindInSample() {
        LoadSample("FERRO64K.BIN");
        Find();
    }
    void Find() {
        Press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
        page = dynamic_cast<TfrmFindMaps *>(window.CurrentPage());
        ASSERT_TRUE(page);
    }
    template <class Control>
    Control &OnPage(const QString &name) {
        return FindControl<Control>(*page, name);
    }
    QPushButton &Button(const QString &name) { return OnPage<QPushButton>(name); }
    void ClickOn(const QString &button) { QTest::mouseClick(&Button(button), Qt::LeftButton); }
    QTreeWidget &List() { return OnPage<QTreeWidget>("lstFound"); }
    QString Headline() { return OnPage<QLabel>("lblFound").text(); }
    QString Reasons() { return OnPage<QPlainTextEdit>("memReasons").toPlainText(); }
    QString Said() { return window.StatusBar1->currentMessage(); }

    /// The line of the map at an offset.
    QTreeWidgetItem &Line(int offset) {
        const QString text = "$" + QString::number(offset, 16).toUpper().rightJustified(4, '0');
        const QList<QTreeWidgetItem *> lines = List().findItems(text, Qt::MatchExactly, Offset);
        if (lines.size() != 1)
            throw std::runtime_error("not listed once: " + text.toStdString());
        return *lines.constFirst();
    }
    void ChooseLine(int offset) { List().setCurrentItem(&Line(offset)); }
    QStringList ColumnTexts(int column) {
        QStringList texts;
        for (int line = 0; line < List().topLevelItemCount(); ++line)
            texts << List().topLevelItem(line)->text(column);
        return texts;
    }
    /// As a user does to sort.
    void ClickHeader(int column) {
        QHeaderView &header = *List().header();
        const int x = header.sectionViewportPosition(column) + header.sectionSize(column) / 2;
        List().horizontalScrollBar()->setValue(0);
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, {x, header.height() / 2});
    }
    int PlaceOf(const TMapSet &set, TMapKind kind) { return set.Map(kind).GetLocation(); }
    TfrmFileContents &Contents() {
        return dynamic_cast<TfrmFileContents &>(*window.Page(contentsTab));
    }
    TStringAlignGrid &Bytes() { return On<TStringAlignGrid>(contentsTab, "grdFile"); }
    TColor ColorAt(int offset) { return Bytes().CellColor(offset % 16 + 1, offset / 16 + 1); }

    TfrmFindMaps *page = nullptr;
};
