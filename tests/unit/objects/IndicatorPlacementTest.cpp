#include "objects/IndicatorPlacement.h"

#include <QString>
#include <gtest/gtest.h>

namespace {

struct Row {
    PlacementCase what;
    bool sameArea;
    bool sameLayer;
};

void PrintTo(const Row &row, std::ostream *out) {
    *out << (row.what.hasBase ? "base" : "no base") << (row.what.hasSources ? ", sources" : "")
         << (row.what.isCurrencySum ? ", sum" : "") << ", code " << row.what.code;
}

class Placement : public testing::TestWithParam<Row> {};

TEST_P(Placement, IsThatOfTheTable) {
    const IndicatorPlacement place = placementOf(GetParam().what);
    EXPECT_EQ(place.sameArea, GetParam().sameArea);
    EXPECT_EQ(place.sameLayer, GetParam().sameLayer);
}

constexpr bool base = true, noBase = false, sources = true, noSources = false, sum = true, other = false;

INSTANTIATE_TEST_SUITE_P(
    OnABaseWithSources, Placement,
    testing::Values(Row{{base, sources, other, 0}, true, true}, Row{{base, sources, other, 1}, true, false},
                    Row{{base, sources, other, 2}, true, false}, Row{{base, sources, other, 3}, false, false},
                    Row{{base, sources, other, -1}, false, false},
                    Row{{base, sources, other, 0x7FFFFFFF}, false, false},
                    Row{{base, sources, sum, 0}, true, true}, Row{{base, sources, sum, 1}, true, false},
                    Row{{base, sources, sum, 3}, false, false}));

INSTANTIATE_TEST_SUITE_P(WithoutABaseOrSources, Placement,
                         testing::Values(Row{{noBase, noSources, other, 0}, true, true},
                                         Row{{noBase, noSources, other, 1}, true, true},
                                         Row{{noBase, noSources, other, 3}, true, true},
                                         Row{{base, noSources, other, 1}, true, true},
                                         Row{{base, noSources, other, 3}, true, true},
                                         Row{{base, noSources, sum, 1}, true, true},
                                         Row{{base, noSources, sum, 3}, true, true}));

INSTANTIATE_TEST_SUITE_P(CurrencySumWithoutABase, Placement,
                         testing::Values(Row{{noBase, noSources, sum, 0}, true, true},
                                         Row{{noBase, noSources, sum, 1}, true, false},
                                         Row{{noBase, noSources, sum, 2}, true, false},
                                         Row{{noBase, noSources, sum, 3}, false, false},
                                         Row{{noBase, noSources, sum, -1}, false, false}));

TEST(CurrencySum, IsNamedExactly) {
    EXPECT_TRUE(isCurrencySumName("CHF+EUR"));
    EXPECT_FALSE(isCurrencySumName("EUR+CHF"));
    EXPECT_FALSE(isCurrencySumName("chf+eur"));
    EXPECT_FALSE(isCurrencySumName(""));
}

} // namespace
