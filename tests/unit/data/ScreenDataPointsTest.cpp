#include "data/ScreenDataPoints.h"
#include "chart/TimeScrollBar.h"
#include "tests/unit/dialogs/TestChart.h"

#include <gtest/gtest.h>
#include <type_traits>

namespace {

TEST(ScreenDataPointsTest, AFewPointsGetFreeSpaceAndAWiderView) {
    const struct {
        int points, screenBefore;
        int freeAfter, screenAfter; // 30 is the free space that a chart starts with
    } rows[] = {{60, 60, 30, 60},   {59, 60, 1, 61},  {30, 20, 30, 20}, {30, 30, 30, 90},
                {61, 200, 30, 200}, {0, 10, 60, 120}, {1, 1, 59, 119},  {59, 58, 30, 58}};
    TestChart chart;
    for (const auto &row : rows) {
        chart->m_nFreeSpacePositions = 30;
        chart->m_pScrollBar->m_nScreenDataPoints = row.screenBefore;
        ScreenDataPointsUpdate().Update(row.points, chart.get());
        EXPECT_EQ(chart->m_nFreeSpacePositions, row.freeAfter) << row.points << " " << row.screenBefore;
        EXPECT_EQ(chart->m_pScrollBar->m_nScreenDataPoints, row.screenAfter)
            << row.points << " " << row.screenBefore;
    }
}

TEST(ScreenDataPointsTest, WithBothModesTheViewOnlyNarrows) {
    TestChart chart;
    auto *module = GetModule<CRGraphModule>();
    module->m_gameMode = module->m_competitionMode = true;
    const auto screenAfter = [&](int points, int screenBefore) {
        chart->m_pScrollBar->m_nScreenDataPoints = screenBefore;
        ScreenDataPointsUpdate().Update(points, chart.get());
        return chart->m_pScrollBar->m_nScreenDataPoints;
    };
    EXPECT_EQ(screenAfter(50, 60), 60);
    EXPECT_EQ(screenAfter(50, 70), 70);
    EXPECT_EQ(screenAfter(50, 71), 70);
    EXPECT_EQ(chart->m_nFreeSpacePositions, 10);
    module->m_competitionMode = false;
    EXPECT_EQ(screenAfter(50, 60), 70);
    module->m_gameMode = false;
}

// Whoever holds a rule calls the first and only virtual operation of either class.
static_assert(std::is_polymorphic_v<ScreenDataPointsUpdate> &&
              !std::has_virtual_destructor_v<ScreenDataPointsUpdate> && sizeof(ScreenDataPointsUpdate) == 4);
static_assert(std::is_polymorphic_v<ScreenDataPointsNotUpdate> &&
              !std::has_virtual_destructor_v<ScreenDataPointsNotUpdate> &&
              sizeof(ScreenDataPointsNotUpdate) == 4);

TEST(ScreenDataPointsTest, TheOtherRuleDoesNothing) {
    TestChart chart;
    chart->m_pScrollBar->m_nScreenDataPoints = 60;
    ScreenDataPointsNotUpdate().Update(10, chart.get());
    ScreenDataPointsNotUpdate().Update(10, nullptr);
    ScreenDataPointsUpdate().Update(10, nullptr);
    EXPECT_EQ(chart->m_nFreeSpacePositions, 30);
    EXPECT_EQ(chart->m_pScrollBar->m_nScreenDataPoints, 60);
}

} // namespace
