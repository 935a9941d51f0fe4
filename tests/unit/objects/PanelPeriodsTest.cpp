#include "objects/PanelPeriods.h"

#include <QString>
#include <gtest/gtest.h>

namespace {

struct Row {
    int row;
    char unit;
    int length;
};

void PrintTo(const Row &row, std::ostream *out) {
    *out << "row " << row.row;
}

class PanelPeriod : public testing::TestWithParam<Row> {};

TEST_P(PanelPeriod, SetsUnitAndLengthAndKeepsTheStart) {
    namePeriod period{'?', -1, 7};
    EXPECT_TRUE(setPanelPeriod(GetParam().row, &period));
    EXPECT_EQ(period.period, GetParam().unit);
    EXPECT_EQ(int(period.lenPeriod), GetParam().length);
    EXPECT_EQ(int(period.startTime), 7);
    EXPECT_FALSE(panelPeriodText(GetParam().row).isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Rows, PanelPeriod,
                         testing::Values(Row{0, 'I', 1}, Row{1, 'I', 5}, Row{2, 'I', 10}, Row{3, 'I', 60},
                                         Row{4, 'I', 180}, Row{5, 'D', 1}, Row{6, 'M', 1}, Row{7, 'Y', 1},
                                         Row{8, 'I', 0}));

TEST(PanelPeriods, LeaveAPeriodAloneBesideTheirRows) {
    for (int row : {-1, 9, 100}) {
        namePeriod period{'W', 2, 0};
        EXPECT_FALSE(setPanelPeriod(row, &period));
        EXPECT_EQ(period.period, 'W');
        EXPECT_EQ(int(period.lenPeriod), 2);
        EXPECT_TRUE(panelPeriodText(row).isEmpty());
    }
}

} // namespace
