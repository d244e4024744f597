// Decodes the sample images with a reader of its own, so that a mistake in the builder and one in
// the program's model cannot hide each other.
#include "samples/SampleImage.h"

#include <algorithm>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::Each;
using testing::Ge;
using testing::Le;

namespace {

using TBytes = std::vector<std::uint8_t>;

struct TAxis {
    int ramLocation;
    std::vector<int> points;
    std::size_t end; // offset of the byte behind the axis
};

TAxis ReadAxis(const TBytes &image, std::size_t offset, int top) {
    TAxis axis{image.at(offset), {}, 0};
    const std::size_t count = image.at(offset + 1);
    int point = top;
    for (std::size_t step = 0; step < count; ++step) {
        point -= image.at(offset + count + 1 - step);
        axis.points.insert(axis.points.begin(), point);
    }
    axis.end = offset + count + 2;
    return axis;
}

bool Rises(const std::vector<int> &points) {
    return std::adjacent_find(points.begin(), points.end(), [](int a, int b) { return a >= b; }) ==
           points.end();
}

struct TCase {
    const char *name;
    const TSamplePlan &(*plan)();
    int mask;
};

class TSampleImage : public testing::TestWithParam<TCase> {
protected:
    std::vector<int> Body(int map, std::size_t columns) const {
        const std::size_t start = BodyStart(map);
        std::vector<int> cells;
        for (std::size_t i = 0; i < sampleRpmPoints * columns; ++i)
            cells.push_back(image_.at(start + i));
        return cells;
    }

    std::size_t BodyStart(int map) const {
        const std::size_t rpmEnd = Rpm(map).end;
        return IsPartThrottle(map) ? Load(map).end : rpmEnd;
    }

    TAxis Rpm(int map) const {
        return ReadAxis(image_, plan_.maps[static_cast<std::size_t>(map)], 256);
    }
    TAxis Load(int map) const { return ReadAxis(image_, Rpm(map).end, 250); }
    static bool IsPartThrottle(int map) { return map == smFuelPT || map == smTimingPT; }
    std::size_t Columns(int map) const { return IsPartThrottle(map) ? Load(map).points.size() : 1; }

    const TSamplePlan &plan_ = GetParam().plan();
    const TBytes image_ = BuildSampleImage(plan_);
};

TEST_P(TSampleImage, HasItsSizeAndComesOutTheSameAgain) {
    EXPECT_EQ(image_.size(), plan_.size);
    EXPECT_EQ(image_, BuildSampleImage(plan_));
}

TEST_P(TSampleImage, PointsAtItsMapsThroughTheMask) {
    for (std::size_t map = 0; map < sampleMapCount; ++map) {
        const std::size_t at = plan_.pointerTable + 2 * map;
        const int masked = (image_.at(at) & GetParam().mask) * 256 + image_.at(at + 1);
        EXPECT_EQ(masked, static_cast<int>(plan_.maps[map]));
    }
}

TEST_P(TSampleImage, HasRisingRpmAxes) {
    for (int map = 0; map < sampleMapCount; ++map) {
        const TAxis axis = Rpm(map);
        EXPECT_EQ(axis.ramLocation, 0x4A);
        ASSERT_EQ(axis.points.size(), 16U);
        EXPECT_EQ(axis.points.front() * 40, 600);
        EXPECT_EQ(axis.points.back() * 40, 7600);
        EXPECT_TRUE(Rises(axis.points));
    }
}

TEST_P(TSampleImage, HasRisingLoadAxes) {
    for (const int map : {smFuelPT, smTimingPT}) {
        const TAxis axis = Load(map);
        EXPECT_EQ(axis.ramLocation, 0x4C);
        EXPECT_EQ(axis.points.front(), 10); // 4 %
        EXPECT_EQ(axis.points.back(), 250); // 100 %
        EXPECT_TRUE(Rises(axis.points));
    }
    EXPECT_EQ(Load(smFuelPT).points.size(), 12U);
    EXPECT_THAT(Load(smTimingPT).points.size(), testing::AllOf(Ge(8U), Le(12U)));
}

TEST_P(TSampleImage, HasBelievableFuelCells) {
    for (const int map : {smFuelPT, smFuelIdle, smFuelWOT}) {
        const std::vector<int> cells = Body(map, Columns(map));
        EXPECT_THAT(cells, Each(Ge(109))); // 0.85
        EXPECT_THAT(cells, Each(Le(147))); // 1.15
    }
    const std::vector<int> part = Body(smFuelPT, 12);
    for (std::size_t rpm = 0; rpm < 16; ++rpm)
        EXPECT_GT(part[rpm * 12 + 11], part[rpm * 12]) << "richer at high load, row " << rpm;
}

TEST_P(TSampleImage, HasBelievableTimingCells) {
    for (const int map : {smTimingPT, smTimingIdle, smTimingWOT}) {
        const std::vector<int> cells = Body(map, Columns(map));
        EXPECT_THAT(cells, Each(Ge(25))); // 8 degrees
        EXPECT_THAT(cells, Each(Le(74))); // 40 degrees
        EXPECT_GT(cells.back(), cells.front()) << "advances with speed";
    }
    const std::size_t columns = Columns(smTimingPT);
    const std::vector<int> part = Body(smTimingPT, columns);
    for (std::size_t rpm = 0; rpm < 16; ++rpm)
        EXPECT_LT(part[rpm * columns + columns - 1], part[rpm * columns]) << "retards at high load";
}

TEST_P(TSampleImage, IsSmoothAlongLoad) {
    for (const int map : {smFuelPT, smTimingPT}) {
        const std::size_t columns = Columns(map);
        const std::vector<int> cells = Body(map, columns);
        for (std::size_t i = 1; i < cells.size(); ++i) {
            if (i % columns != 0) {
                EXPECT_LE(std::abs(cells[i] - cells[i - 1]), 6) << "map " << map << " cell " << i;
            }
        }
    }
}

TEST_P(TSampleImage, KeepsItsPartsApart) {
    std::vector<std::pair<std::size_t, std::size_t>> runs{
        {plan_.pointerTable, plan_.pointerTable + 12U}, {plan_.revLimiter, plan_.revLimiter + 1U}};
    for (int map = 0; map < sampleMapCount; ++map)
        runs.emplace_back(plan_.maps[static_cast<std::size_t>(map)],
                          BodyStart(map) + sampleRpmPoints * Columns(map));
    std::sort(runs.begin(), runs.end());
    for (std::size_t i = 1; i < runs.size(); ++i)
        EXPECT_LE(runs[i - 1].second, runs[i].first);
    EXPECT_LE(runs.back().second, plan_.codeEnd);
}

TEST_P(TSampleImage, EndsInAnErasedGapAndVectorsIntoItsCode) {
    for (std::size_t at = plan_.codeEnd; at < plan_.size - 32; ++at)
        ASSERT_EQ(image_[at], 0xFF) << at;
    for (std::size_t at = plan_.size - 32; at < plan_.size; at += 2) {
        const std::uint32_t address = image_[at] * 256U + image_[at + 1];
        EXPECT_GE(address, plan_.cpuBase);
        EXPECT_LT(address - plan_.cpuBase, plan_.codeEnd);
    }
}

TEST_P(TSampleImage, HasARevLimit) {
    EXPECT_EQ(image_[plan_.revLimiter] * 40, plan_.size == 0x8000 ? 6800 : 7200);
}

INSTANTIATE_TEST_SUITE_P(Images, TSampleImage,
                         testing::Values(TCase{"k32", Sample32K, 0x7F},
                                         TCase{"k64", Sample64K, 0xFF}),
                         [](const auto &test) { return std::string(test.param.name); });

} // namespace
