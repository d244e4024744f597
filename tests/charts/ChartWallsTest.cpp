// The walls' faces: places, pieces and colours, and that painting them in their order shows what a
// depth buffer shows.
#include "maps/ChartWalls.h"

#include "charts/BruteForce.h"
#include "charts/RandomWalls.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace {
constexpr TScreenArea square{0, 0, 1000, 1000};

TChartView FrontView() {
    TChartView view;
    view.rotation = view.elevation = 360;
    view.horizontalOffset = view.verticalOffset = 0;
    return view;
}

bool Contains(const TChartFace &face, double x, double y) {
    bool inside = false;
    for (std::size_t i = 0, j = face.count - 1; i < face.count; j = i++) {
        const TScreenPoint &a = face.corners[i];
        const TScreenPoint &b = face.corners[j];
        if ((a.y > y) != (b.y > y) && x < (b.x - a.x) * (y - a.y) / (b.y - a.y) + a.x)
            inside = !inside;
    }
    return inside;
}

/// The last face that covers a place of the screen; none: nullptr.
const TChartFace *SeenAt(const std::vector<TChartFace> &faces, double x, double y) {
    const TChartFace *seen = nullptr;
    for (const TChartFace &face : faces)
        if (Contains(face, x, y))
            seen = &face;
    return seen;
}

/// Colour at a place of the box; 0xFFFFFFFF where there is no wall.
TColor ColorAt(const std::vector<TWall> &walls, bool firstAtRight, const TBoxPoint &place) {
    const TChartProjection projection(FrontView(), 1, square);
    const TScreenPoint at = projection.Map(place);
    const std::vector<TChartFace> faces = FacesOf(walls, {{0, 10, 1}, firstAtRight}, projection);
    const TChartFace *seen = SeenAt(faces, at.x, at.y);
    return seen ? seen->color : 0xFFFFFFFF;
}

constexpr TColor none = 0xFFFFFFFF;

TEST(ChartWalls, PointsStandAtEqualSteps) {
    EXPECT_EQ(PlaceOf(0, 5, false), 0);
    EXPECT_EQ(PlaceOf(1, 5, false), 0.25);
    EXPECT_EQ(PlaceOf(4, 5, false), 1);
    EXPECT_EQ(PlaceOf(0, 5, true), 1) << "inverted: the first at the right";
    EXPECT_EQ(PlaceOf(1, 5, true), 0.75);
    EXPECT_EQ(PlaceOf(0, 1, false), 0.5);
    EXPECT_EQ(PlaceOf(0, 1, true), 0.5);
}

TEST(ChartWalls, TheFirstWallIsTheFarthest) {
    EXPECT_EQ(SlotOf(0, 4), 0.875);
    EXPECT_EQ(SlotOf(3, 4), 0.125);
    EXPECT_EQ(SlotOf(0, 1), 0.5);
    const std::vector<TWall> walls{{{{8, 1}, {8, 1}}}, {{{4, 2}, {4, 2}}}};
    EXPECT_EQ(ColorAt(walls, false, {0.5, 0.2, 0}), 2U) << "the near one";
    EXPECT_EQ(ColorAt(walls, false, {0.5, 0.6, 0}), 1U) << "the far one above it";
    EXPECT_EQ(ColorAt(walls, false, {0.5, 0.9, 0}), none);
}

TEST(ChartWalls, EachPointsColourReachesHalfWayToItsNeighbours) {
    // Places 0, 0.5 and 1; heights 0.2, 0.8, 0.4.
    const std::vector<TWall> walls{{{{2, 1}, {8, 2}, {4, 3}}}};
    EXPECT_EQ(ColorAt(walls, false, {0.01, 0.1, 0}), 1U);
    EXPECT_EQ(ColorAt(walls, false, {0.24, 0.4, 0}), 1U);
    EXPECT_EQ(ColorAt(walls, false, {0.26, 0.4, 0}), 2U);
    EXPECT_EQ(ColorAt(walls, false, {0.74, 0.5, 0}), 2U);
    EXPECT_EQ(ColorAt(walls, false, {0.76, 0.5, 0}), 3U);
    EXPECT_EQ(ColorAt(walls, false, {0.99, 0.3, 0}), 3U);
    // Half-way the slope is at (0.2 + 0.8) / 2.
    EXPECT_EQ(ColorAt(walls, false, {0.25, 0.51, 0}), none);
    EXPECT_EQ(ColorAt(walls, false, {0.49, 0.77, 0}), 2U);
    EXPECT_EQ(ColorAt(walls, false, {0.5, 0.81, 0}), none);
    EXPECT_EQ(ColorAt(walls, true, {0.01, 0.3, 0}), 3U) << "inverted";
    EXPECT_EQ(ColorAt(walls, true, {0.99, 0.1, 0}), 1U);
    EXPECT_EQ(ColorAt(walls, true, {0.01, 0.45, 0}), none);
}

TEST(ChartWalls, StairsKeepTheirHeightHalfWay) {
    const std::vector<TWall> walls{{{{2, 1}, {8, 2}, {4, 3}}, true}};
    EXPECT_EQ(ColorAt(walls, false, {0.24, 0.19, 0}), 1U);
    EXPECT_EQ(ColorAt(walls, false, {0.24, 0.21, 0}), none);
    EXPECT_EQ(ColorAt(walls, false, {0.26, 0.79, 0}), 2U);
    EXPECT_EQ(ColorAt(walls, false, {0.76, 0.39, 0}), 3U);
    EXPECT_EQ(ColorAt(walls, false, {0.76, 0.41, 0}), none);
}

TEST(ChartWalls, OnePointIsALevelWall) {
    const std::vector<TWall> walls{{{{5, 1}}}};
    EXPECT_EQ(ColorAt(walls, false, {0.01, 0.49, 0}), 1U);
    EXPECT_EQ(ColorAt(walls, true, {0.99, 0.49, 0}), 1U);
    EXPECT_EQ(ColorAt(walls, false, {0.5, 0.51, 0}), none);
}

TEST(ChartWalls, AShorterWallEndsBeforeTheOthers) {
    // Of three places the near wall has two, of the other kind one.
    const std::vector<TWall> two{{{{9, 1}, {9, 1}, {9, 1}}}, {{{5, 2}, {5, 2}}}};
    EXPECT_EQ(ColorAt(two, false, {0.49, 0.2, 0}), 2U);
    EXPECT_EQ(ColorAt(two, false, {0.51, 0.2, 0}), 1U);
    const std::vector<TWall> one{{{{9, 1}, {9, 1}, {9, 1}}}, {{{5, 2}}}};
    EXPECT_EQ(ColorAt(one, false, {0.24, 0.2, 0}), 2U);
    EXPECT_EQ(ColorAt(one, false, {0.26, 0.2, 0}), 1U);
    EXPECT_EQ(ColorAt(one, true, {0.76, 0.2, 0}), 2U);
}

TEST(ChartWalls, UnreadablePointsEndAtTheFloor) {
    const std::vector<TWall> walls{{{{8, 1}, {-255, clRed}, {8, 3}}}};
    EXPECT_EQ(ColorAt(walls, false, {0.4, 0.1, 0}), clRed);
    EXPECT_EQ(ColorAt(walls, false, {0.49, 0.1, 0}), none);
    EXPECT_EQ(ColorAt(walls, false, {0.2, 0.4, 0}), 1U);
}

TEST(ChartWalls, NothingMakesNoFaces) {
    const TChartProjection projection(TChartView(), 1, square);
    EXPECT_TRUE(FacesOf({}, {{}}, projection).empty());
    EXPECT_TRUE(FacesOf({{}, {}}, {{}}, projection).empty());
    EXPECT_EQ(PlaceCount({}), 0);
}

/// The last face over each sample of `columns` x `rows`; none: nullptr.
std::vector<const TChartFace *> Painted(const std::vector<TChartFace> &faces, int columns,
                                        int rows) {
    std::vector<const TChartFace *> samples(static_cast<std::size_t>(columns * rows));
    for (const TChartFace &face : faces) {
        const auto begin = face.corners.begin();
        const auto end = begin + static_cast<std::ptrdiff_t>(face.count);
        const auto [top, bottom] =
            std::minmax_element(begin, end, [](const auto &a, const auto &b) { return a.y < b.y; });
        const auto [left, right] =
            std::minmax_element(begin, end, [](const auto &a, const auto &b) { return a.x < b.x; });
        const int lastRow = static_cast<int>(std::min<double>(bottom->y, rows - 1));
        const int lastColumn = static_cast<int>(std::min<double>(right->x, columns - 1));
        for (int row = static_cast<int>(std::max(top->y, 0.0)); row <= lastRow; ++row)
            for (int column = static_cast<int>(std::max(left->x, 0.0)); column <= lastColumn;
                 ++column)
                if (Contains(face, column + 0.5, row + 0.5))
                    samples[static_cast<std::size_t>(row * columns + column)] = &face;
    }
    return samples;
}

struct TCounts {
    int walls = 0;
    int undecided = 0; ///< samples where the depth buffer cannot tell
};

/// Compares the last painted face with the nearest one at every sample of one random chart.
void Compare(TRandomCharts &random, int mostWalls, int mostPoints, TCounts &counts) {
    constexpr int columns = 110;
    constexpr int rows = 80;
    const std::vector<TWall> walls = random.Walls(mostWalls, mostPoints);
    const TChartView view = random.View();
    const bool firstAtRight = random.Number(0, 1) == 1;
    const double depth = random.Number(3, 10) / 10.0;
    const TChartProjection projection(view, depth, {0, 0, columns, rows});
    const TChartScale scale = ScaleOf(walls, 10);
    TDepthBuffer buffer(columns, rows);
    buffer.AddWalls(walls, scale, firstAtRight, view, depth, projection);
    const std::vector<TChartFace> faces = FacesOf(walls, {scale, firstAtRight}, projection);
    const std::vector<const TChartFace *> painted = Painted(faces, columns, rows);
    int wrong = 0;
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column) {
            const TSample &expected = buffer.At(column, row);
            const TChartFace *seen = painted[static_cast<std::size_t>(row * columns + column)];
            counts.walls += expected.wall;
            counts.undecided += expected.undecided;
            wrong += !expected.undecided &&
                     ((seen != nullptr) != expected.wall ||
                      (seen && (seen->color != expected.color || seen->end != expected.end)));
        }
    EXPECT_EQ(wrong, 0) << walls.size() << " walls of " << PlaceCount(walls) << ", rotation "
                        << view.rotation << ", elevation " << view.elevation;
}

TEST(ChartWalls, PaintedInOrderShowWhatADepthBufferShows) {
    TRandomCharts random(4);
    TCounts counts;
    for (int i = 0; i < 400; ++i)
        Compare(random, 8, 8, counts);
    for (int i = 0; i < 30; ++i)
        Compare(random, 20, 31, counts);
    EXPECT_GT(counts.walls, 300'000);
    EXPECT_LT(counts.undecided, counts.walls / 1000);
}
} // namespace
