#include "objects/Indicator.h"

#include "chart/PrimitiveLink.h"

#include <gtest/gtest.h>
#include <limits>
#include <memory>

namespace {

// Headers of arrays as a host keeps them, without points.
struct Lines {
    explicit Lines(const QStringList &names) : headers(static_cast<std::size_t>(names.size())) {
        for (int i = 0; i < names.size(); ++i) {
            mvDataPointArray &header = headers[static_cast<std::size_t>(i)];
            clearRecord(header);
            fillField(header.identity.m_szNameSymbol, names.at(i));
            header.owner = this;
            addresses.push_back(&header);
        }
    }
    coreListCreateData list() { return {static_cast<int>(addresses.size()), addresses.data()}; }

    std::vector<mvDataPointArray> headers;
    std::vector<mvDataPointArray *> addresses;
};

struct Shown {
    explicit Shown(const QStringList &names) : lines(names), indicator(nullptr, &lines) {
        for (int i = 0; i < names.size(); ++i)
            bindLine(indicator.AddPrimitive(nullptr, i, i, PT_LINE), &lines, lines.addresses[std::size_t(i)]);
    }
    Lines lines;
    CRIndicator indicator;
};

QStringList namesOf(const CRIndicator &indicator) {
    QStringList names;
    for (const CRPrimitive *primitive : indicator.m_primitives)
        names += lineName(primitive);
    return names;
}

TEST(Indicator, StartsALineWithItsOwnStepAndColours) {
    CRIndicator indicator(nullptr, nullptr);
    const CRPrimitive *primitive = indicator.AddPrimitive(nullptr, 3, 1, PT_HISTOGRAM);
    std::uint32_t bits = 0;
    std::memcpy(&bits, &primitive->m_fPoint, sizeof bits);
    EXPECT_EQ(bits, 953267991u);
    EXPECT_EQ(primitive->m_type, PT_HISTOGRAM);
    EXPECT_EQ(primitive->m_lineColor, QColor(Qt::black));
    EXPECT_EQ(primitive->m_riseColor, QColor(Qt::blue));
    EXPECT_EQ(primitive->m_nIndex, 3);
    EXPECT_EQ(primitive->GetLineIndex(), 1);
    EXPECT_EQ(primitive->m_pIndicator, &indicator);
}

TEST(Indicator, FindsLinesByNameAndByTheHostsNumber) {
    Shown shown({"A", "B", "C"});
    EXPECT_EQ(shown.indicator.FindByName("B"), shown.indicator[1]);
    EXPECT_EQ(shown.indicator.FindByName("b"), nullptr);
    EXPECT_EQ(shown.indicator.FindByLineIndex(1), shown.indicator[0]);
    EXPECT_EQ(shown.indicator.FindByLineIndex(3), shown.indicator[2]);
    EXPECT_EQ(shown.indicator.FindByLineIndex(0), nullptr);
    EXPECT_EQ(shown.indicator.FindByLineIndex(4), nullptr);
    EXPECT_EQ(shown.indicator.GetLineIndex(shown.lines.addresses[1]), 2);
    EXPECT_EQ(shown.indicator.GetLineIndex(nullptr), 0);
    EXPECT_EQ(shown.indicator[-1], nullptr);
    EXPECT_EQ(shown.indicator[3], nullptr);
}

TEST(Indicator, FindsANameThatFillsItsField) {
    const QString name(255, QLatin1Char('x'));
    Shown shown({name});
    EXPECT_EQ(shown.indicator.FindByName(name), shown.indicator[0]);
    EXPECT_EQ(shown.indicator.RestorePrimitive(shown.lines.headers[0].identity.m_szNameSymbol),
              shown.indicator[0]);
}

TEST(Indicator, CountsTheSelectionOfVisibleLinesOnly) {
    Shown shown({"A", "B"});
    EXPECT_FALSE(shown.indicator.IsSomeSelected());
    shown.indicator.Select(true);
    shown.indicator[0]->SetSelected(false);
    EXPECT_TRUE(shown.indicator.IsSomeSelected());
    shown.indicator[1]->m_bVisible = 0;
    EXPECT_FALSE(shown.indicator.IsSomeSelected());
}

TEST(Indicator, MasksTheLinesThatArePresent) {
    CRIndicator indicator(nullptr, nullptr);
    EXPECT_EQ(indicator.GetPrimitiveMask(), 0);
    indicator.AddPrimitive(nullptr, 0, 0, PT_LINE);
    indicator.AddPrimitive(nullptr, 0, 2, PT_LINE);
    indicator.AddPrimitive(nullptr, 0, 40, PT_LINE);
    EXPECT_EQ(indicator.GetPrimitiveMask(), 5);
}

TEST(Indicator, IsInvisibleWithoutAVisibleLine) {
    CRIndicator indicator(nullptr, nullptr);
    EXPECT_TRUE(indicator.IsInvisible());
    CRPrimitive *first = indicator.AddPrimitive(nullptr, 0, 0, PT_LINE);
    CRPrimitive *second = indicator.AddPrimitive(nullptr, 1, 1, PT_LINE);
    first->m_bVisible = 0;
    EXPECT_EQ(indicator.GetAnyVisible(), second);
    second->m_bVisible = 0;
    EXPECT_TRUE(indicator.IsInvisible());
    indicator.RestorePrimitive(0);
    EXPECT_EQ(indicator.GetAnyVisible(), first);
}

TEST(Indicator, TellsWhatIsLeftAfterADeletion) {
    Shown shown({"A", "B"});
    CRPrimitive stranger(0, nullptr, 0);
    EXPECT_EQ(shown.indicator.DeletePrimitive(&stranger), -1);
    EXPECT_EQ(shown.indicator.DeletePrimitive(2), -1);
    EXPECT_EQ(shown.indicator.DeletePrimitive(shown.indicator[0]), 1);
    EXPECT_EQ(namesOf(shown.indicator), QStringList("B"));
    EXPECT_EQ(shown.indicator.DeletePrimitive(0), 0);
}

TEST(Indicator, CopiesItsLines) {
    Shown shown({"A", "B"});
    shown.indicator.m_updateKind = 2;
    const CRIndicator copy(shown.indicator);
    EXPECT_EQ(namesOf(copy), QStringList({"A", "B"}));
    EXPECT_NE(copy[0], shown.indicator[0]);
    EXPECT_EQ(copy[0]->m_pIndicator, &copy);
    EXPECT_EQ(copy.m_updateKind, 2);
    EXPECT_EQ(copy.GetHandle(), shown.indicator.GetHandle());
}

TEST(Indicator, InsertsACopyWithTheHandleOfItsArray) {
    Shown shown({"A", "B"});
    CRIndicator other(nullptr, nullptr);
    other.AddPrimitive(nullptr, 0, 0, PT_LINE);
    const CRPrimitive *inserted = other.InsertPrimitive(shown.indicator[1], 0, nullptr);
    EXPECT_EQ(other[0], inserted);
    EXPECT_EQ(inserted->m_hDpa, &shown.lines);
    EXPECT_EQ(other.GetPrimitiveCount(), 2);
}

TEST(Indicator, SortsItsLinesByAHostList) {
    Shown shown({"A", "B", "C"});
    Lines order({"C", "A", "B"});
    shown.indicator.SortPrimitives(order.list());
    EXPECT_EQ(namesOf(shown.indicator), QStringList({"C", "A", "B"}));
}

TEST(Indicator, SortsPastALineThatIsNotInTheList) {
    Shown shown({"X", "A", "B", "D", "Y"});
    Lines order({"D", "A"});
    shown.indicator.SortPrimitives(order.list());
    EXPECT_EQ(namesOf(shown.indicator), QStringList({"X", "D", "B", "A", "Y"}));
}

// ---- levels ----

coreHorizontLine levels(int line, int count, Word color = 0xFF0000) {
    auto record = zeroRecord<coreHorizontLine>();
    record.line = line;
    record.count = count;
    record.color = color;
    for (int i = 0; i < maxHorizontLevels; ++i)
        record.levels[i] = static_cast<float>(i);
    return record;
}

TEST(Levels, ReplaceThoseOfTheNamedLine) {
    Shown shown({"A", "B"});
    shown.indicator.SetHLines(levels(2, 3));
    EXPECT_EQ(shown.indicator[1]->m_levels, std::vector<float>({0.f, 1.f, 2.f}));
    EXPECT_EQ(shown.indicator[1]->m_levelColor, QColor(255, 0, 0));
    EXPECT_TRUE(shown.indicator[0]->m_levels.empty());
    shown.indicator.SetHLines(levels(2, 1));
    EXPECT_EQ(shown.indicator[1]->m_levels.size(), 1u);
    shown.indicator.SetHLines(levels(2, 0));
    EXPECT_TRUE(shown.indicator[1]->m_levels.empty());
}

TEST(Levels, OfALineThatDoesNotExistChangeNothing) {
    Shown shown({"A"});
    shown.indicator.SetHLines(levels(1, 2));
    for (int line : {0, -1, 2, 1000})
        shown.indicator.SetHLines(levels(line, 5));
    EXPECT_EQ(shown.indicator[0]->m_levels.size(), 2u);
}

TEST(Levels, AreAtMostThoseThatFitTheRecord) {
    Shown shown({"A"});
    shown.indicator.SetHLines(levels(1, 1000));
    EXPECT_EQ(shown.indicator[0]->m_levels.size(), 64u);
    shown.indicator.SetHLines(levels(1, -3));
    EXPECT_TRUE(shown.indicator[0]->m_levels.empty());
}

// ---- links ----

std::vector<CPrimitiveLink> linksOf(CRIndicator &indicator, std::vector<coreIndicatorLinks> records,
                                    const CRGraphLayer *layer = nullptr) {
    indicator.SetLinks({static_cast<int>(records.size()), records.data()});
    std::vector<CPrimitiveLink> links;
    indicator.GetPrimitiveLinks(layer, &links);
    return links;
}

TEST(Links, JoinTwoVisibleLinesOfTheLayer) {
    Shown shown({"A", "B", "C"});
    const auto links = linksOf(shown.indicator, {{0, 1, 3, 1, 2}});
    ASSERT_EQ(links.size(), 1u);
    EXPECT_EQ(links[0].m_pFirst, shown.indicator[2]);
    EXPECT_EQ(links[0].m_pSecond, shown.indicator[0]);
    EXPECT_EQ(links[0].m_nFill, 1);
    EXPECT_EQ(links[0].m_nColorMode, 2);
}

TEST(Links, OfLinesThatDoNotExistAreLeftOut) {
    Shown shown({"A", "B"});
    const auto links =
        linksOf(shown.indicator, {{0, 0, 0, 1, 0}, {0, 0, 1, 3, 0}, {0, 0, -5, 99, 0}, {0, 0, 1, 2, 0}});
    EXPECT_EQ(links.size(), 1u);
}

TEST(Links, NeedBothLinesVisible) {
    Shown shown({"A", "B"});
    shown.indicator[1]->m_bVisible = 0;
    EXPECT_TRUE(linksOf(shown.indicator, {{0, 0, 1, 2, 0}}).empty());
}

TEST(Links, NeedTwoLinesOnTheLayer) {
    Shown shown({"A"});
    EXPECT_TRUE(linksOf(shown.indicator, {{0, 0, 1, 1, 0}}).empty());
    Shown pair({"A", "B"});
    int elsewhere = 0;
    EXPECT_TRUE(
        linksOf(pair.indicator, {{0, 0, 1, 2, 0}}, reinterpret_cast<CRGraphLayer *>(&elsewhere)).empty());
}

TEST(Links, OfANullListAreNone) {
    Shown shown({"A", "B"});
    linksOf(shown.indicator, {{0, 0, 1, 2, 0}});
    shown.indicator.SetLinks({5, nullptr});
    EXPECT_TRUE(shown.indicator.m_links.empty());
    shown.indicator.SetLinks({-1, nullptr});
    EXPECT_TRUE(shown.indicator.m_links.empty());
}

// ---- order and titles ----

TEST(InstrFirst, PutsInstrumentsFirstAndEmptyOnesLast) {
    CRIndicator empty(nullptr, nullptr), instrument(nullptr, nullptr), output(nullptr, nullptr);
    instrument.AddPrimitive(nullptr, 0, 0, PT_CANDLE);
    output.AddPrimitive(nullptr, 0, 0, PT_LINE);
    const InstrFirst first;
    EXPECT_TRUE(first(&instrument, &output));
    EXPECT_FALSE(first(&output, &instrument));
    EXPECT_FALSE(first(&instrument, &instrument));
    EXPECT_TRUE(first(&output, &empty));
    EXPECT_FALSE(first(&empty, &output));
    EXPECT_FALSE(first(&empty, &empty));
}

struct TitleCase {
    double value;
    float step;
    const char *text;
};

void PrintTo(const TitleCase &row, std::ostream *out) {
    *out << row.value << " by " << row.step;
}

class TitleValue : public testing::TestWithParam<TitleCase> {};

TEST_P(TitleValue, HasTheDecimalsOfTheStep) {
    EXPECT_EQ(titleValueText(GetParam().value, GetParam().step), QString(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(Steps, TitleValue,
                         testing::Values(TitleCase{1.23456, 0.0001f, " (1.2346) "},
                                         TitleCase{1.23456, 0.00001f, " (1.23456) "},
                                         TitleCase{101.255, 0.01f, " (101.25) "}, TitleCase{7, 1.f, " (7) "},
                                         TitleCase{1700, 100.f, " (1700.00) "},
                                         TitleCase{-0.5, 0.1f, " (-0.5) "}, TitleCase{1, 0.f, ""},
                                         TitleCase{1, -std::numeric_limits<float>::max(), ""}));

} // namespace
