// Measures the contents view beside plain counterparts, prints a table of the ratios with their
// limits and marks what is over. Ends with 1 when something is.
//   ferrolyn_bench_contents
// Figures of a release build on a quiet machine are the ones to go by.

#include "Measure.h"
#include "SearchImages.h"
#include "Start.h"
#include "filedisplay/FileDisplay.h"
#include "filedisplay/FileGrid.h"
#include "filedisplay/Overview.h"
#include "model/ROMTypes.h"
#include "spec/Application.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <random>

#include <QApplication>
#include <QPainter>
#include <QScrollBar>

namespace {
namespace fs = std::filesystem;

constexpr int rounds = 31;
constexpr int programRounds = 7;
constexpr int visibleRows = 40;
constexpr int columns = 17;

std::vector<std::uint8_t> RandomBytes(std::size_t size) {
    std::mt19937 random(1);
    std::vector<std::uint8_t> bytes(size);
    for (std::uint8_t &byte : bytes)
        byte = static_cast<std::uint8_t>(random());
    return bytes;
}

/// Rebuilding beside one vector with as many texts, shared as the view shares them.
TPair Rebuilding(const std::vector<std::uint8_t> &bytes) {
    TStringAlignGrid grid;
    PrepareFileGrid(grid);
    std::array<QString, 256> texts;
    for (std::size_t i = 0; i < texts.size(); ++i)
        texts[i] = QString::number(i);
    std::vector<QString> plain;
    const auto fill = [&] {
        plain.clear();
        plain.shrink_to_fit();
        plain.reserve(bytes.size());
        for (const std::uint8_t byte : bytes)
            plain.push_back(texts[byte]);
    };
    return Measure(
        rounds, [&] { return Time([&] { FillFileGrid(grid, bytes, false); }); },
        [&] { return Time(fill); });
}

/// The text that "Copy" puts on the clipboard, beside joining as many texts of one vector.
TPair Copying(const std::vector<std::uint8_t> &bytes) {
    TStringAlignGrid grid;
    PrepareFileGrid(grid);
    FillFileGrid(grid, bytes, false);
    std::vector<QString> plain;
    for (int row = 0; row < grid.RowCount(); ++row)
        for (int column = 0; column < columns; ++column)
            plain.push_back(grid.Cell(column, row));
    const auto join = [&plain] {
        QString text;
        for (const QString &cell : plain) {
            text += cell;
            text += QChar('\t');
        }
        return text;
    };
    return Measure(
        rounds,
        [&] {
            return Time([&] {
                grid.RectangleText({0, 0, columns - 1, grid.RowCount() - 1}, '\t');
            });
        },
        [&] { return Time([&] { join(); }); });
}

/// A repaint of 40 rows after scrolling on, beside drawing their texts directly.
TPair Repainting(const std::vector<std::uint8_t> &bytes) {
    TStringAlignGrid grid;
    PrepareFileGrid(grid);
    FillFileGrid(grid, bytes, true);
    const int rowHeight = grid.DefaultRowHeight() + grid.GridLineWidth();
    SizeFileGrid(grid, 0);
    grid.resize(grid.width(), (visibleRows + 1) * rowHeight + 4);
    grid.show();
    QApplication::processEvents();
    QImage picture(grid.size(), QImage::Format_ARGB32_Premultiplied);
    int top = 0;
    const auto scroll = [&] {
        top = (top + visibleRows) % (grid.RowCount() - visibleRows - 1);
        grid.verticalScrollBar()->setValue(top);
        QApplication::processEvents();
    };
    const auto direct = [&] {
        QPainter painter(&picture);
        painter.setFont(grid.font());
        painter.fillRect(picture.rect(), Qt::white);
        for (int row = 0; row <= visibleRows; ++row)
            for (int column = 0; column < columns; ++column)
                painter.drawText(QRect(column * 39, row * rowHeight, 38, rowHeight),
                                 Qt::AlignRight | Qt::AlignVCenter,
                                 grid.Cell(column, row == 0 ? 0 : top + row));
    };
    return Measure(
        rounds,
        [&] {
            scroll();
            return Time([&] { grid.render(&picture); });
        },
        [&] { return Time(direct); });
}

/// The contents view with an image of these cells, as the notebook shows it.
class TShownContents {
public:
    explicit TShownContents(const std::vector<TCellValue> &cells) {
        ROMImage()->size = static_cast<std::int32_t>(cells.size());
        std::copy(cells.begin(), cells.end(), ROMImage()->data.begin());
        workspace_.romFileName = "image.BIN";
        page.ShowPage();
    }
    /// Writes one colour into every cell of the view.
    void ColorAll() {
        auto &grid = *page.findChild<TStringAlignGrid *>("grdFile");
        const TGridUpdate update(grid);
        for (int row = 1; row < grid.RowCount(); ++row)
            for (int column = 1; column < columns; ++column)
                grid.SetCellColor(column, row, possibleFuelColor);
    }

private:
    TWorkspace workspace_;
    TPrinting printing_;

public:
    TfrmFileContents page{nullptr, workspace_, printing_};
};

using TCommand = void (TFileSearches::*)();

/// A command as the user runs it, its colours given to the grid, beside colouring all cells.
TPair Commanding(const std::vector<TCellValue> &cells, TCommand command) {
    TShownContents ours(cells);
    TShownContents plain(cells);
    ours.page.ShowPage();
    return Measure(
        rounds,
        [&] {
            ours.page.searches.ClearAllMarkers1Click();
            return Time([&] { (ours.page.searches.*command)(); });
        },
        [&] { return Time([&] { plain.ColorAll(); }); });
}

void MeasureCommands(TTable &table, std::size_t size) {
    const std::string suffix = ", " + std::to_string(size / 1024) + " KiB";
    const std::vector<TCellValue> random = RandomCells(size);
    table.Ratio("mark fuel values / colour all cells, ms" + suffix,
                Commanding(random, &TFileSearches::FindConsecutivePossFuelValsClick), 3);
    for (const TSearchImage &image : SearchImages()) {
        if (image.contents != TMapContents::Any || image.markedOneIn != 0)
            continue;
        const bool linear = image.shape == TMapShape::Linear;
        table.Ratio((linear ? "linear maps, " : "2-D maps, ") + std::string(image.name) + suffix,
                    Commanding(CellsOf(image, size),
                               linear ? &TFileSearches::Any2Click : &TFileSearches::Any1Click),
                    10);
    }
}

/// The overview strip made anew and painted, beside a look at every colour. Marks of all kinds and
/// shades, and those in every place, cost most.
TPair PaintingTheStrip(const std::vector<TCellValue> &cells, TCommand command) {
    constexpr QSize strip(24, 1000);
    TShownContents shown(cells);
    (shown.page.searches.*command)();
    auto &overview = *shown.page.findChild<TOverview *>("ovwFile");
    overview.resize(strip);
    QImage picture(strip, QImage::Format_ARGB32_Premultiplied);
    std::ptrdiff_t marked = 0;
    const auto look = [&] {
        const TSeenColors colors = shown.page.SeenMarks();
        for (std::size_t i = 0; i < colors.size(); ++i)
            marked += colors[i] != unmarkedColor ? 1 : 0;
    };
    return Measure(
        rounds,
        [&] {
            overview.Renew();
            return Time([&] { overview.render(&picture); });
        },
        [&] { return Time(look); });
}

void MeasureStrip(TTable &table, std::size_t size) {
    const std::vector<TCellValue> random = RandomCells(size);
    for (const auto &[marks, command] :
         {std::pair{"possible values", &TFileSearches::FindConsecutivePossFuelValsClick},
          {"linear maps", &TFileSearches::Any2Click},
          {"no marks", &TFileSearches::ClearAllMarkers1Click}})
        table.Milliseconds(std::string("paint the strip, ") + marks + ", 1024 KiB",
                           PaintingTheStrip(random, command), 4);
}

/// Resident memory of the program with the image shown, and with the empty view.
TPair Memory(const fs::path &image) {
    std::vector<double> figures[2];
    for (int i = 0; i < programRounds; ++i) {
        figures[0].push_back(
            Start("ferrolyn_bench_window", {"contents", image.string()}).mebibytes);
        figures[1].push_back(Start("ferrolyn_bench_window", {"contents"}).mebibytes);
    }
    return {Median(figures[0]), Median(figures[1])};
}

bool MeasureAll(const fs::path &image) {
    TTable table;
    for (const std::size_t size : {0x10000U, 0x40000U, 0x100000U}) {
        const std::vector<std::uint8_t> bytes = RandomBytes(size);
        const std::string suffix = ", " + std::to_string(size / 1024) + " KiB";
        table.Ratio("rebuild the view / fill a vector, ms" + suffix, Rebuilding(bytes), 0.75);
        table.Ratio("repaint 40 rows / draw their texts, ms" + suffix, Repainting(bytes), 3);
        table.Ratio("copy the grid / join its texts, ms" + suffix, Copying(bytes), 3);
        MeasureCommands(table, size);
    }
    MeasureStrip(table, 0x100000);
    const std::vector<std::uint8_t> bytes = RandomBytes(0x100000);
    std::ofstream(image, std::ios::binary)
        .write(reinterpret_cast<const char *>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    table.Difference("memory with 1 MiB shown - without an image, MiB", Memory(image), 10);
    return !table.AnyOver();
}
} // namespace

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    SetUpApplication();
    return MeasureWithImage(MeasureAll);
}
