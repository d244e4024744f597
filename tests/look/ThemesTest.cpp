// Everything can be read in every theme: measured on what is painted.
#include "charts/ChartContents.h"
#include "filedisplay/FileGrid.h"
#include "filedisplay/Marks.h"
#include "filedisplay/Overview.h"
#include "forms/Aligrid.h"
#include "look/LookFixture.h"
#include "look/Painted.h"
#include "look/VisibleTexts.h"
#include "maps/ChartPainter.h"
#include "maps/ChartWalls.h"
#include "maps/FuelMaps.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QToolButton>
#include <QVBoxLayout>

namespace {
class TThemesTest : public TLookTest, public testing::WithParamInterface<TTheme> {
protected:
    TThemesTest() { QApplication::setPalette(GetParam().palette); }
};

struct TCellLook {
    std::string name;
    TColor background;
    TColor font;
};

/// One row of a grid for each look that a cell can have.
std::vector<TCellLook> CellLooks() {
    std::vector<TCellLook> looks{{"plain", clWindow, clWindowText},
                                 {"edited", clWindow, clBlue},
                                 {"not readable", clWindow, clRed},
                                 {"committed", clWindow, clGreen}};
    for (const TMark &mark : marks) {
        const std::string name = mark.name;
        looks.push_back({name, mark.color, clWindowText});
        for (const int value : {1, 64, 128, 200, 255})
            looks.push_back({name + " + " + std::to_string(value),
                             Shaded(mark.color, static_cast<TCellValue>(value)), clWindowText});
        looks.push_back({name + ", edited", mark.color, clBlue});
    }
    return looks;
}

TEST_P(TThemesTest, EveryLookOfACellCanBeRead) {
    const std::vector<TCellLook> looks = CellLooks();
    TStringAlignGrid grid;
    QFont font = grid.font();
    font.setPointSize(16); // large enough for pixels that are wholly the text's colour
    grid.setFont(font);
    grid.SetShape(4, static_cast<int>(looks.size()) + 1);
    for (std::size_t i = 0; i < looks.size(); ++i)
        for (int column = 0; column < 4; ++column) {
            const int row = static_cast<int>(i) + 1;
            grid.SetCell(column, row, "88");
            if (column == 0)
                continue;
            grid.SetCellColor(column, row, looks[i].background);
            grid.SetFontColor(column, row, looks[i].font);
        }
    for (int column = 0; column < 4; ++column)
        grid.SetCell(column, 0, "88");
    grid.SetSelection({2, 1, 3, static_cast<int>(looks.size())}); // (3, last) is the current cell
    grid.resize(400, 40 * static_cast<int>(looks.size() + 2));
    grid.show();
    TGallery::Settle();
    const QImage image = ImageOf(grid);
    const auto contrast = [&](int column, int row) {
        const QRect cell = grid.visualRect(grid.model()->index(row - 1, column - 1));
        const QRect inside = cell.adjusted(3, 3, -4, -4); // without lines and frame
        return PaintedIn(image, {grid.viewport()->mapTo(&grid, inside.topLeft()), inside.size()})
            .contrast;
    };
    for (std::size_t i = 0; i < looks.size(); ++i) {
        const int row = static_cast<int>(i) + 1;
        EXPECT_GE(contrast(1, row), leastTextContrast) << looks[i].name;
        EXPECT_GE(contrast(2, row), leastTextContrast) << looks[i].name << ", selected";
        EXPECT_EQ(grid.CellColor(1, row), looks[i].background) << "what is kept stays";
        EXPECT_EQ(grid.FontColor(1, row), looks[i].font) << "what is kept stays";
    }
    EXPECT_GE(contrast(3, static_cast<int>(looks.size())), leastTextContrast) << "current cell";
    for (const QHeaderView *header : {grid.horizontalHeader(), grid.verticalHeader()}) {
        const QRect first = QRect(header->mapTo(&grid, QPoint(0, 0)), QSize(60, 28));
        EXPECT_GE(PaintedIn(image, first.adjusted(2, 2, -8, -4)).contrast, leastTextContrast)
            << "header";
    }
}

TEST_P(TThemesTest, EveryMarkIsSeenInTheOverview) {
    for (const TMark &mark : marks) {
        TStringAlignGrid grid;
        PrepareFileGrid(grid);
        FillFileGrid(grid, std::vector<std::uint8_t>(3 * cellsPerRow), false);
        MarksOf(grid)[cellsPerRow] = mark.color; // in the row of the middle
        TOverview overview(grid, nullptr);
        overview.resize(24, 306);
        const QImage image = ImageOf(overview);
        const QPoint middle = image.rect().center();
        const QColor line(image.pixel(middle));
        const QColor above(image.pixel(middle - QPoint(0, 102)));
        EXPECT_EQ(above, overview.palette().color(QPalette::Base));
        EXPECT_GE(Contrast(line, above), 1.3) << mark.name << " " << line;
    }
}

TEST_P(TThemesTest, TheCurrentCellsFrameStandsOut) {
    TStringAlignGrid grid;
    grid.resize(400, 300);
    grid.show();
    grid.SetCurrent(2, 2);
    TGallery::Settle();
    const QRect cell = grid.visualRect(grid.model()->index(1, 1));
    const QImage image = ImageOf(grid);
    const QPoint at = grid.viewport()->mapTo(&grid, cell.topLeft());
    const QColor frameColor(image.pixel(at + QPoint(cell.width() / 2, 0)));
    const QColor inside(image.pixel(at + QPoint(4, 4)));
    EXPECT_GE(Contrast(frameColor, inside), leastLineContrast);
}

TEST_P(TThemesTest, EveryTextOfAChartCanBeRead) {
    const TChartContents contents = SampleContents(12, 16);
    QFont font = QApplication::font();
    font.setPointSize(14);
    const TChartPlace place{{0, 0, 900, 600}, font, nullptr};
    QImage image(900, 600, QImage::Format_RGB32);
    QPainter painter(&image);
    PaintChart(painter, contents, place, GetParam().palette);
    painter.end();
    const TChartLayout layout = LayOut(contents, place);
    ASSERT_GT(layout.labels.size(), 12U);
    for (const TChartLabel &label : layout.labels)
        EXPECT_GE(PaintedIn(image, OnScreen(label.rect).toRect()).contrast, leastTextContrast)
            << label.text;
}

constexpr QSize usualChart(700, 500);
constexpr QSize smallChart(260, 200); ///< beside a grid

QImage ChartImage(const TChartContents &contents, const QPalette &palette, QSize size) {
    QImage image(size, QImage::Format_RGB32);
    QPainter painter(&image);
    PaintChart(painter, contents, {QRectF({0, 0}, QSizeF(size)), QApplication::font(), nullptr},
               palette);
    return image;
}

/// How far the edge of the walls stands out from what is above them, column by column.
std::vector<double> EdgeContrasts(TChartContents contents, const QPalette &palette, QSize size) {
    constexpr int edge = 3; // pixels: a line and its soft sides
    const QImage image = ChartImage(contents, palette, size);
    for (TWall &wall : contents.walls)
        for (TChartValue &point : wall.points)
            point.color = 0x40FF40;
    const QImage recoloured = ChartImage(contents, palette, size); // differs where walls are
    std::vector<double> contrasts;
    for (int x = size.width() / 3; x < size.width() * 2 / 3; ++x)
        for (int y = 0; y < image.height() - edge; ++y) {
            if (image.pixel(x, y) == recoloured.pixel(x, y))
                continue;
            double best = 1;
            for (int i = 0; i < edge; ++i)
                best = std::max(
                    best, Contrast(QColor(image.pixel(x, y + i)), palette.color(QPalette::Base)));
            contrasts.push_back(best);
            break;
        }
    return contrasts;
}

TEST_P(TThemesTest, TheWallsOfAChartStandOut) {
    for (const QSize &size : {usualChart, smallChart}) {
        std::vector<double> contrasts =
            EdgeContrasts(SampleContents(12, 16), GetParam().palette, size);
        ASSERT_EQ(contrasts.size(), size.width() * 2 / 3 - size.width() / 3) << "a wall in each";
        const auto median = contrasts.begin() + static_cast<std::ptrdiff_t>(contrasts.size() / 2);
        std::nth_element(contrasts.begin(), median, contrasts.end());
        EXPECT_GE(*median, leastLineContrast) << size.width() << ": slopes are softened";
    }
}

TEST_P(TThemesTest, EveryTextOfEveryWindowCanBeRead) {
    UseFont(1.5);
    Visit([](const QString &name, QWidget &window) {
        const QImage image = ImageOf(window);
        for (const TVisibleText &text : VisibleTexts(window)) {
            const QRect seen = text.control->visibleRegion().boundingRect().translated(
                text.control->mapTo(&window, QPoint()));
            const QRect shown = text.place.intersected(seen).intersected(window.rect());
            // What is switched off is greyed on purpose; of what is scrolled away, wholly or by
            // half, there is nothing to read.
            if (!text.enabled || 2 * shown.height() <= text.place.height() || shown.width() < 8 ||
                shown.height() < 8)
                continue;
            const TPainted painted = PaintedIn(image, shown);
            EXPECT_GE(painted.contrast, leastTextContrast)
                << name.toStdString() << ", " << text.owner.toStdString() << ": "
                << text.text.toStdString() << " on " << painted.background;
        }
    });
}

/// Without texts, so that what stands out is the control itself.
TEST_P(TThemesTest, EmptyControlsCanBeSeen) {
    SetUpApplication();
    const double least = GetParam().name == "contrast" ? leastLineContrast : 1.1;
    QWidget window;
    auto *column = new QVBoxLayout(&window);
    column->setContentsMargins(20, 20, 20, 20);
    window.setFocusPolicy(Qt::StrongFocus);
    for (QWidget *control : std::initializer_list<QWidget *>{
             new QLineEdit, new QCheckBox, new QRadioButton, new QPushButton, new QToolButton,
             new QSpinBox, new QComboBox})
        column->addWidget(control);
    window.show();
    window.setFocus();
    TGallery::Settle();
    const QImage image = ImageOf(window);
    for (int i = 0; i < column->count(); ++i) {
        const QWidget &control = *column->itemAt(i)->widget();
        // The left edge is the frame's, or the mark's, alone.
        const QRect edge(control.x(), control.y(), 6, control.height());
        EXPECT_GE(PaintedIn(image, edge.adjusted(-6, 0, 0, 0)).contrast, least)
            << control.metaObject()->className();
    }
}

TEST_P(TThemesTest, ATextOnThePictureOfTheSplashCanBeRead) {
    Visit([](const QString &name, QWidget &window) {
        if (!name.endsWith("splash"))
            return;
        for (const TVisibleText &text : VisibleTexts(window)) {
            if (!text.onPicture)
                continue;
            auto &label = const_cast<QWidget &>(*text.control);
            const int room = text.neededWidth;
            label.hide();
            const QImage picture = ImageOf(window);
            label.show();
            for (int y = text.place.top(); y <= text.place.bottom(); ++y)
                for (int x = text.place.left(); x <= text.place.left() + room; ++x)
                    ASSERT_GE(Contrast(Qt::white, QColor(picture.pixel(x, y))), leastTextContrast)
                        << x << ", " << y;
            return;
        }
        ADD_FAILURE() << "no text on the picture";
    });
}

INSTANTIATE_TEST_SUITE_P(All, TThemesTest, testing::ValuesIn(Themes()),
                         [](const auto &theCase) { return theCase.param.name.toStdString(); });

class TThemeChangeTest : public TLookTest {
protected:
    static void UseTheme(std::size_t index) {
        QApplication::setPalette(Themes().at(index).palette);
        TGallery::Settle();
    }
    static double TextContrast(const QWidget &control) {
        return Contrast(control.palette().color(QPalette::Text),
                        control.palette().color(QPalette::Base));
    }
};

TEST_F(TThemeChangeTest, ControlsWithColoursOfTheirOwnFollow) {
    UseTheme(0);
    TWorkspace workspace;
    workspace.fuelMapSet.revLimiter.SetOffset(0x40);
    TfrmFuelMaps page(nullptr, workspace, workspace.fuelMapSet);
    page.ShowPage();
    auto &spin = *page.findChild<QSpinBox *>("spnRevLimiter");
    auto &offset = *page.findChild<QLineEdit *>("edtPTOffset");
    spin.stepUp();
    EXPECT_EQ(spin.palette().color(QPalette::Text), QColor(Qt::blue));
    for (const std::size_t theme : {1U, 2U, 0U}) {
        UseTheme(theme);
        EXPECT_GE(TextContrast(spin), leastTextContrast) << theme;
        EXPECT_NE(spin.palette().color(QPalette::Text),
                  QApplication::palette().color(QPalette::Text))
            << "an edit still looks edited";
        EXPECT_GE(TextContrast(offset), leastTextContrast) << theme;
        EXPECT_EQ(offset.palette().color(QPalette::Base),
                  QApplication::palette().color(QPalette::Button))
            << theme;
    }
}
} // namespace
