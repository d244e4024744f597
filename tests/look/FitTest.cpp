// No text is cut off and every window fits a small screen, in both directions and in large fonts.
#include "charts/ChartContents.h"
#include "forms/Aligrid.h"
#include "look/LookFixture.h"
#include "look/VisibleTexts.h"
#include "maps/AreaChart.h"
#include "spec/main.h"

#include <QAbstractScrollArea>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QToolButton>

namespace {
constexpr QSize smallScreen(800, 600);
constexpr QSize frame(2, 30); ///< of a plain window manager: borders and title

struct TCase {
    const char *name;
    Qt::LayoutDirection direction;
    double fontShare;
};

class TFitTest : public TLookTest, public testing::WithParamInterface<TCase> {
protected:
    TFitTest() {
        QApplication::setLayoutDirection(GetParam().direction);
        UseFont(GetParam().fontShare);
    }
};

/// Those of the toolkit's own file dialog are its business.
bool IsOurs(const QWidget &window) {
    return !window.inherits("QFileDialog");
}

/// Where a control lies in a scroll area what is beyond the edge can be reached; a menu that is
/// larger than the screen scrolls too.
bool Scrolls(const QWidget *control) {
    for (; control; control = control->parentWidget())
        if (qobject_cast<const QAbstractScrollArea *>(control) || control->inherits("QTabBar") ||
            control->inherits("QMenu"))
            return true;
    return false;
}

/// Items of a radio group come from spec files: they may be cut and show the rest in a tool tip.
bool MayBeCut(const TVisibleText &text) {
    return text.control->objectName().startsWith("rdoROMtemplate");
}

TEST_P(TFitTest, NoTextIsCutOff) {
    int checked = 0;
    Visit([&](const QString &name, QWidget &window) {
        if (!IsOurs(window))
            return;
        for (const TVisibleText &text : VisibleTexts(window)) {
            ++checked;
            const std::string what = name.toStdString() + ", " + text.owner.toStdString() + ": " +
                                     text.text.toStdString();
            if (!MayBeCut(text)) {
                EXPECT_GE(text.place.width(), text.neededWidth) << what;
            }
            EXPECT_GE(text.place.height(), text.control->fontMetrics().height() - 2) << what;
            if (!Scrolls(text.control)) {
                EXPECT_TRUE(window.rect().contains(text.place)) << what << ": outside the window";
            }
        }
    });
    EXPECT_GT(checked, 100);
}

TEST_P(TFitTest, NoCellIsCutOff) {
    Visit([](const QString &name, QWidget &window) {
        for (const auto *grid : window.findChildren<TStringAlignGrid *>()) {
            if (!grid->isVisible())
                continue;
            for (int row = 0; row < std::min(grid->RowCount(), 200); ++row)
                for (int column = 0; column < grid->ColCount(); ++column)
                    ASSERT_LE(grid->fontMetrics().size(0, grid->Cell(column, row)).width(),
                              grid->ColWidth(column))
                        << name.toStdString() << " " << grid->Cell(column, row).toStdString();
        }
    });
}

TEST_P(TFitTest, EveryWindowFitsASmallScreen) {
    Visit([](const QString &name, QWidget &window) {
        if (window.inherits("QMenu") || !IsOurs(window))
            return; // menus scroll
        window.resize(smallScreen - frame);
        TGallery::Settle();
        EXPECT_LE(window.width(), smallScreen.width()) << name.toStdString();
        EXPECT_LE(window.height(), smallScreen.height() - frame.height()) << name.toStdString();
    });
}

TEST_P(TFitTest, TheContentsFitASmallScreenFromSideToSide) {
    int checked = 0;
    Visit([&](const QString &name, QWidget &window) {
        if (!name.contains("file-contents"))
            return;
        window.resize(smallScreen - frame);
        TGallery::Settle();
        const auto *grid = window.findChild<TStringAlignGrid *>("grdFile");
        const auto *strip = window.findChild<QWidget *>("ovwFile");
        EXPECT_GE(strip->width(), strip->minimumSizeHint().width());
        for (const auto *area : window.findChildren<QScrollArea *>())
            if (area->isAncestorOf(grid)) {
                EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0) << name.toStdString();
                ++checked;
            }
    });
    EXPECT_EQ(checked, 3);
}

TEST_P(TFitTest, OffsetEditsHaveRoomForAnOffset) {
    int checked = 0;
    Visit([&](const QString &name, QWidget &window) {
        for (const auto *edit : window.findChildren<QLineEdit *>()) {
            if (!edit->isVisible() || !edit->text().startsWith('$'))
                continue;
            EXPECT_GE(edit->width() - 8, edit->fontMetrics().horizontalAdvance("$FFFFF"))
                << name.toStdString() << " " << edit->objectName().toStdString();
            ++checked;
        }
    });
    EXPECT_GT(checked, 10);
}

TEST_P(TFitTest, NumbersAndChartsRunRightwards) {
    Visit([](const QString &name, QWidget &window) {
        for (const auto *grid : window.findChildren<TStringAlignGrid *>()) {
            EXPECT_EQ(grid->layoutDirection(), Qt::LeftToRight) << name.toStdString();
            if (grid->isVisible() && grid->ColCount() > 2) {
                EXPECT_LT(grid->columnViewportPosition(0), grid->columnViewportPosition(1));
            }
        }
        for (const auto *chart : window.findChildren<TAreaChart *>())
            EXPECT_EQ(chart->layoutDirection(), Qt::LeftToRight) << name.toStdString();
        const auto *left = window.findChild<QToolButton *>("btnLeft");
        const auto *right = window.findChild<QToolButton *>("btnRight");
        if (left && right && left->isVisible()) {
            EXPECT_LT(left->x(), right->x()) << name.toStdString();
        }
        for (const auto *edit : window.findChildren<QLineEdit *>())
            if (edit->isVisible() && edit->text().startsWith('$')) {
                EXPECT_EQ(edit->layoutDirection(), Qt::LeftToRight)
                    << edit->objectName().toStdString();
            }
    });
}

TEST_P(TFitTest, ThePanelsOfAMapStandBesideEachOther) {
    Visit([](const QString &name, QWidget &window) {
        if (!name.endsWith("fuel-maps"))
            return;
        const auto *grid = window.findChild<TStringAlignGrid *>("grdPTMap");
        const auto *chart = window.findChild<TAreaChart *>("chtPTMap");
        if (!grid || !grid->isVisible())
            return;
        const int gridX = grid->mapTo(&window, QPoint()).x();
        const int chartX = chart->mapTo(&window, QPoint()).x();
        EXPECT_EQ(gridX < chartX, QApplication::isLeftToRight());
    });
}

class TDirectionTest : public TLookTest {
protected:
    /// The same picture whatever the direction of the program.
    template <class Paint>
    static void ExpectSame(const Paint &paint) {
        QApplication::setLayoutDirection(Qt::LeftToRight);
        const QImage plain = paint();
        QApplication::setLayoutDirection(Qt::RightToLeft);
        EXPECT_EQ(paint(), plain);
    }
};

TEST_F(TDirectionTest, ANumberReadsTheSame) {
    ExpectSame([] {
        TStringAlignGrid grid;
        const QStringList texts{"-12.7", "4%", "$0A", "1.02", "1A5x"};
        for (int i = 0; i < 5; ++i) {
            grid.SetCell(i, 0, texts[i]);
            grid.SetCell(0, i, texts[i]);
            grid.SetCell(i, 2, texts[i]);
        }
        grid.Alignment = TAlign::Right;
        grid.resize(400, 200);
        return grid.grab().toImage();
    });
}

TEST_F(TDirectionTest, AChartReadsTheSame) {
    ExpectSame([] {
        TAreaChart chart(nullptr, "chart");
        chart.RecreateSeries(3);
        for (int series = 0; series < 3; ++series)
            for (int point = 0; point < 5; ++point)
                chart.AddPoint(series, {double(point), 10.0 * point, "600", 0x880000});
        chart.SetTitles("% Trim", "/\\ Trim");
        chart.SetDepthTitle("% Load");
        chart.resize(600, 400);
        return chart.grab().toImage();
    });
}

INSTANTIATE_TEST_SUITE_P(All, TFitTest,
                         testing::Values(TCase{"LeftToRight", Qt::LeftToRight, 1},
                                         TCase{"RightToLeft", Qt::RightToLeft, 1},
                                         TCase{"LargeFont", Qt::LeftToRight, 1.5},
                                         TCase{"RightToLeftLargeFont", Qt::RightToLeft, 1.5}),
                         [](const auto &theCase) { return std::string(theCase.param.name); });
} // namespace
