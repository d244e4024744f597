// Fuzz target: one map set over any image, placed anywhere, shown, edited with any texts, copied,
// pasted and saved, beside plain integers and bytes (LiteralSet.h). After each step the whole
// image, every point and cell, the modified flags and the messages are the same; grids and charts
// show what they should.
//
// The input: one byte of flags (1: fuel, 2: comma as decimal separator), one that chooses where the
// image's bytes lie, a 16-bit length, those bytes, then steps: one byte each, and what it takes.
#include "FuzzInput.h"
#include "LiteralSet.h"
#include "maps/ChartData.h"
#include "maps/PasteBuffer.h"
#include "model/ROMTypes.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <memory>

namespace {

constexpr std::array<TMapKind, 3> kinds{TMapKind::PT, TMapKind::Idle, TMapKind::WOT};
constexpr std::array<std::int32_t, 4> bases{0, 0x6000, 0xFFE00, 0xFFFE0};
constexpr std::array<TTimingConstants, 5> constants{
    {{0.65, 12.7}, {0.0, 0.0}, {-1.5, 200.0}, {1e-12, 0.25}, {1e308, -1e308}}};
constexpr int mostSteps = 64;

void DemandSameGrid(const TFakeMapGrid &expected, const TFakeMapGrid &grid) {
    Demand(grid.Visible() == expected.Visible(), "a grid is shown or hidden wrongly");
    Demand(grid.ColCount() == expected.ColCount() && grid.RowCount() == expected.RowCount(),
           "a grid of another shape");
    for (int column = 0; column < grid.ColCount(); ++column)
        for (int row = 0; row < grid.RowCount(); ++row) {
            const std::string shown = grid.Cell(column, row);
            Demand(shown == expected.Cell(column, row),
                   "a cell shows " + shown + " instead of " + expected.Cell(column, row));
            Demand(grid.FontColor(column, row) == expected.FontColor(column, row),
                   "a cell has another mark");
        }
}

class TPlayedMaps {
public:
    explicit TPlayedMaps(TFuzzInput &input)
        : input_(input), literal_(world_, input.Byte() % 2 == 1), base_(bases[input.Byte() % 4]) {
        if (literal_.fuel)
            set_ = std::make_unique<TFuelMapSet>();
        else
            set_ = std::make_unique<TTimingMapSet>();
        ROMImage()->data.fill(0);
        ROMImage()->modified = false;
        TimingConstants() = constants[0];
        SetMessageHook([this](const std::string &text) { messages_.push_back(text); });
        const int length = input.Word() % 1024;
        for (int i = 0; i < length; ++i)
            PokeBoth(base_ + i, input.Byte());
    }
    TPlayedMaps(const TPlayedMaps &) = delete;
    TPlayedMaps &operator=(const TPlayedMaps &) = delete;
    ~TPlayedMaps() { SetMessageHook({}); }

    void Run() {
        for (int step = 0; step < mostSteps && !input_.Empty(); ++step) {
            Step();
            Compare();
        }
    }

private:
    TMap &Map(std::size_t index) { return set_->Map(kinds[index]); }
    std::size_t Which() { return static_cast<std::size_t>(input_.Below(3)); }
    TFuelMapSet *Fuel() { return dynamic_cast<TFuelMapSet *>(set_.get()); }

    std::int32_t Place() {
        switch (input_.Below(5)) {
        case 0:
            return input_.Long();
        case 1:
            return input_.Below(44) - 4;
        case 2:
            return 0x100004 - input_.Byte();
        default:
            return base_ + input_.Word() % 1024;
        }
    }

    std::string Text() {
        switch (input_.Below(4)) {
        case 0:
            return input_.Text(static_cast<std::size_t>(input_.Below(16)));
        case 1:
            return FormatReal("##0", static_cast<std::int16_t>(input_.Word())) + "%";
        default:
            return FormatReal("###0.00", static_cast<std::int16_t>(input_.Word()) / 100.0);
        }
    }

    void PokeBoth(std::int32_t place, std::uint8_t byte) {
        PutByte(world_.image, place, byte);
        ROMImage()->Poke(place, byte);
    }

    void Step() {
        switch (input_.Below(18)) {
        case 0:
            return PlaceAll();
        case 1:
            return PointAll();
        case 2:
            return PlaceOne(Which());
        case 14:
            return Save(Which());
        case 3:
            return SaveAll();
        case 4:
            return Interpret();
        case 5:
            set_->ZeroMaps();
            return literal_.Zero();
        case 6:
            return RevLimiter();
        case 7:
            return Copy(Which());
        case 8:
            return Paste(Which());
        case 9:
            return PokeBoth(Place(), input_.Byte());
        case 10:
            TimingConstants() = constants[static_cast<std::size_t>(input_.Below(5))];
            return;
        case 11:
        case 12:
            return Show(Which());
        case 13:
            return Take(Which());
        default:
            return Edit(Which());
        }
    }

    void PlaceAll() {
        const std::array places{Place(), Place(), Place()};
        set_->SetOffsets(places[0], places[1], places[2]);
        for (std::size_t i = 0; i < 3; ++i)
            literal_.PlaceDirectly(literal_.entries[i], places[i]);
        SetSingleLoadPoints();
    }

    void SetSingleLoadPoints() {
        for (const std::size_t which : {0U, 1U, 2U})
            literal_.SetSingleLoadPoint(which);
    }

    void PointAll() {
        const std::array places{Place(), Place(), Place()};
        const std::array masks{input_.Long(), input_.Long(), std::int32_t{input_.Byte()}};
        set_->SetPointers(places[0], masks[0], places[1], masks[1], places[2], masks[2]);
        for (std::size_t i = 0; i < 3; ++i)
            literal_.PlaceThroughPointer(literal_.entries[i], places[i], masks[i]);
        SetSingleLoadPoints();
    }

    void PlaceOne(std::size_t which) {
        const std::int32_t place = Place();
        Map(which).SetOffset(place);
        literal_.PlaceDirectly(literal_.entries[which], place);
    }

    void Save(std::size_t which) {
        Map(which).Save();
        literal_.Save(literal_.entries[which]);
    }

    void SaveAll() {
        set_->SaveAll();
        literal_.SaveAll();
    }

    void Interpret() {
        const bool converted = input_.Flag();
        set_->SetShowConverted(converted);
        literal_.Interpret(converted);
    }

    void RevLimiter() {
        const bool place = input_.Flag();
        const std::int32_t number = place ? Place() : input_.Long();
        if (!Fuel())
            return;
        if (place) {
            Fuel()->revLimiter.SetOffset(number);
            literal_.PlaceRevLimiter(number);
        } else {
            Fuel()->revLimiter.SetValue(number);
            literal_.SetRevLimiter(number);
        }
    }

    void Copy(std::size_t which) {
        copies_[which] = Map(which).CreateCopy();
        literalCopies_[which] = std::make_unique<TLiteralEntry>(literal_.entries[which]);
    }

    void Paste(std::size_t which) {
        const TLiteralEntry *copied = literalCopies_[which].get();
        TLiteralEntry &entry = literal_.entries[which];
        const bool may = copied && copied->map.rpm.count == entry.map.rpm.count &&
                         copied->map.load.count == entry.map.load.count;
        const std::string why = WhyNoPaste(copies_[which].get(), Map(which), "Any", kinds[which]);
        Demand(why.empty() == may, "another answer to whether a map may be pasted: " + why);
        if (!may)
            return;
        copies_[which]->AssignTo(Map(which));
        TLiteralSet::Paste(*copied, entry);
    }

    void Show(std::size_t which) {
        const TLiteralEntry &entry = literal_.entries[which];
        const TMap &map = Map(which);
        TFakeMapGrid &grid = grids_[which];
        TFakeMapChart &chart = charts_[which];
        std::string label;
        map.SizeGrid(grid);
        map.FillGrid(grid, label, map.GetCellFormat(), 12, 12);
        const auto place = std::min<std::int64_t>(entry.map.rpm.offset, 0x7FFFFFFF);
        Demand(label == FormatOffset(static_cast<std::int32_t>(place)),
               "another offset is shown: " + label);
        TFakeMapGrid expected;
        TLiteralSet::Shape(entry, expected);
        literal_.Fill(entry, expected);
        DemandSameGrid(expected, grid);
        map.SizeChart(chart);
        Demand(chart.Visible() == entry.map.Fits(), "a chart is shown or hidden wrongly");
        if (!entry.map.Fits())
            return;
        map.FillChart(chart);
        CompareChart(entry, chart, false);
        FillQuickChart(map, chart);
        CompareChart(entry, chart, true);
        Redraw(grid, chart);
    }

    /// The model's own chart, or the quick chart, whose series run the other way.
    void CompareChart(const TLiteralEntry &entry, const TFakeMapChart &chart, bool quick) {
        const TLiteralMap &map = entry.map;
        const std::size_t loads = map.load.points.size();
        Demand(chart.series.size() == loads, "another number of series");
        for (std::size_t t = 0; t < loads; ++t) {
            const auto &series = chart.series[quick ? loads - 1 - t : t];
            Demand(series.title == FormatReal("##0", TLiteralSet::LoadShown(entry, t)),
                   "another title of a series");
            Demand(series.points.size() == map.rpm.points.size(), "another number of points");
            for (std::size_t r = 0; r < series.points.size(); ++r)
                ComparePoint(series.points[r], map.rpm.points[r] * 40.0,
                             literal_.CellShown(entry, r * loads + t));
        }
    }

    static void ComparePoint(const TFakeMapChart::TPoint &point, double rpm, double value) {
        const std::optional<std::int32_t> rounded = TryRound(value);
        const TColor color =
            rounded ? static_cast<TColor>(*rounded) + chartColorBase : static_cast<TColor>(clRed);
        Demand(point.x == rpm && point.label == FormatReal("####0", rpm) &&
                   point.value == (rounded ? value : unreadableValue) && point.color == color,
               "another point in a chart");
    }

    /// The page's own drawing from the texts; the fake chart ends the process for a missing series.
    static void Redraw(const TFakeMapGrid &grid, TFakeMapChart &chart) {
        RedrawChart(grid, chart);
        if (!grid.Visible())
            return;
        for (int row = 1; row < grid.RowCount(); ++row) {
            const auto series = static_cast<std::size_t>(grid.RowCount() - 1 - row);
            const auto &points = chart.series[series].points;
            Demand(points.size() + 1 == static_cast<std::size_t>(grid.ColCount()),
                   "another number of drawn points");
            for (std::size_t i = 0; i < points.size(); ++i) {
                const auto number = TryParseReal(grid.Cell(static_cast<int>(i) + 1, row));
                const bool drawn = number && TryRound(*number);
                Demand(points[i].value == (drawn ? *number : unreadableValue),
                       "another drawn value");
            }
        }
    }

    /// What is typed lands in the grid as any text and is drawn; the page would refuse some.
    void Edit(std::size_t which) {
        TFakeMapGrid &grid = grids_[which];
        TFakeMapChart &chart = charts_[which];
        const int column = input_.Byte() % grid.ColCount();
        const int row = input_.Byte() % grid.RowCount();
        grid.Edit(column, row, Text());
        if (grid.RowCount() - 1 <= chart.SeriesCount())
            Redraw(grid, chart);
    }

    void Take(std::size_t which) {
        TFakeMapGrid expected = grids_[which];
        bool stopped = false;
        try {
            Map(which).ReadGrid(grids_[which]);
        } catch (const EConvertError &) {
            stopped = true;
        } catch (const ERangeError &) {
            stopped = true;
        }
        Demand(literal_.TakeEdits(literal_.entries[which], expected) == stopped,
               "another end of reading a grid");
        DemandSameGrid(expected, grids_[which]);
    }

    void Compare() {
        Demand(std::memcmp(ROMImage()->data.data(), world_.image.data(), TROMImage::capacity) == 0,
               "another image");
        Demand(messages_ == world_.messages,
               "other messages, the last: " + (messages_.empty() ? "none" : messages_.back()));
        for (std::size_t i = 0; i < 3; ++i)
            CompareMap(Map(i), literal_.entries[i]);
        Demand(set_->IsModified() == literal_.Modified(),
               "another answer to whether the set is modified");
        messages_.clear();
        world_.messages.clear();
    }

    void CompareMap(const TMap &map, const TLiteralEntry &entry) {
        Demand(map.GetLocation() == literal_.Location(entry), "another location");
        Demand(map.IsModified() == entry.modified, "another answer to whether a map is modified");
        CompareValues(*map.axes->rpmAxis, entry.map.rpm.points);
        CompareValues(*map.axes->throttleAxis, entry.map.load.points);
        CompareValues(*map.data, entry.map.cells);
    }

    static void CompareValues(const TBlockData &block, const std::vector<std::int32_t> &raw) {
        std::size_t next = 0;
        for (std::int32_t r = 0; r < block.values->Rows(); ++r)
            for (std::int32_t c = 0; c < block.values->Columns(); ++c)
                Demand(next < raw.size() && block.values->GetItem(r, c)->raw == raw[next++],
                       "another value in a map");
        Demand(next == raw.size(), "another number of values");
    }

    TFuzzInput &input_;
    TLiteralWorld world_;
    TLiteralSet literal_;
    std::int32_t base_;
    std::unique_ptr<TMapSet> set_;
    std::array<TFakeMapGrid, 3> grids_;
    std::array<TFakeMapChart, 3> charts_;
    std::array<std::unique_ptr<TMap>, 3> copies_;
    std::array<std::unique_ptr<TLiteralEntry>, 3> literalCopies_;
    std::vector<std::string> messages_;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    TFuzzInput input(data, size);
    SetDecimalSeparator(size > 0 && (data[0] & 2) != 0 ? "," : ".");
    TPlayedMaps(input).Run();
    return 0;
}
