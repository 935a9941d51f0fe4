// The engine of indicators through the messages of a chart.
#include "host/pages/Page.h"
#include "quotes_desk.h"
#include <QColor>
#include <set>

using namespace desk;

namespace {

class IndicatorEngine : public QuoteDesk {
protected:
    IndicatorEngine() {
        give("EUR/USD", walk(300));
        base = instrument("EUR/USD", "Bid", {'I', 5});
        subscribe(base);
    }
    PageItem *item(Page &page, const char *name) {
        for (PageGroup &group : page.groups) {
            for (PageItem &item : group.items) {
                if (item.name == QString::fromLatin1(name))
                    return &item;
            }
        }
        return nullptr;
    }
    QString set(Handle handle, const char *name, const QVariant &value) {
        std::unique_ptr<Page> page = object(handle)->page();
        item(*page, name)->value = value;
        return object(handle)->applyPage(*page);
    }
    int needsSource(const char *name) {
        auto record = zeroRecord<coreNameInstrument>();
        fillField(record.m_szNameSymbol, QString::fromLatin1(name));
        Word answer = 1;
        sendTo(indicators->interfaceHandle(), ToHost::IndicatorNeedsSource, toWord(&record), toWord(&answer));
        return int(answer);
    }
    std::vector<coreIndicatorLinks> links(Handle handle) {
        std::vector<coreIndicatorLinks> result(word(ToHost::LinkCount, handle) + 1);
        coreListIndicatorLinks list{int(result.size()), result.data()};
        send(ToHost::Links, int(handle), toWord(&list));
        result.resize(size_t(list.count));
        return result;
    }
    coreHorizontLine levels(Handle handle) {
        auto record = zeroRecord<coreHorizontLine>();
        send(ToHost::HorizontalLevels, int(handle), toWord(&record));
        return record;
    }

    Handle base = 0;
};

TEST_F(IndicatorEngine, CatalogueNamesEveryKindWithItsCategory) {
    Word count = 0;
    sendTo(indicators->interfaceHandle(), ToHost::IndicatorCount, toWord(&count));
    ASSERT_GE(count, 14u);
    std::vector<INDICATOR_DESCRIPTION> list(count);
    coreIndicatorCatalogue catalogue{int(count), list.data()};
    sendTo(indicators->interfaceHandle(), ToHost::IndicatorList, toWord(&catalogue));
    std::map<std::string, Word> categories;
    for (const INDICATOR_DESCRIPTION &entry : list) {
        EXPECT_FALSE(fieldText(entry.displayName).isEmpty());
        categories[fieldText(entry.name.m_szNameSymbol).toStdString()] = entry.category;
    }
    EXPECT_EQ(categories.size(), size_t(count)) << "names are unique";
    EXPECT_EQ(categories.at("MA"), 1u);
    EXPECT_EQ(categories.at("Ichimoku"), 1u);
    EXPECT_EQ(categories.at("MACD"), 2u);
    EXPECT_EQ(categories.at("Bollinger"), 3u);
    EXPECT_EQ(categories.at("Volume"), 0u);
    EXPECT_EQ(categories.at("OstrelChannel"), 4u);
    // Less room is filled as far as it goes.
    coreIndicatorCatalogue small{1, list.data()};
    std::memset(static_cast<void *>(&list[1]), 0x55, sizeof list[1]);
    sendTo(indicators->interfaceHandle(), ToHost::IndicatorList, toWord(&small));
    EXPECT_EQ(+small.count, int(count));
    EXPECT_EQ(+list[1].category, 0x55555555u);
}

TEST_F(IndicatorEngine, FoundByTripleOnce) {
    EXPECT_EQ(host.interfaces().findAll("MVINDICATORS", "", "").size(), 1u);
    EXPECT_EQ(host.interfaces().findAll("MVINDICATORS", "VELMAR", "").size(), 1u);
    EXPECT_EQ(host.interfaces().findAll("MVINDICATORS", "VELMAR", "BinIndicators").size(), 1u);
}

TEST_F(IndicatorEngine, NeedsASourceUnlessItIsTheSum) {
    EXPECT_EQ(needsSource("MA"), 1);
    EXPECT_EQ(needsSource("CHF+EUR"), 0);
    EXPECT_EQ(needsSource("Nonsense"), 1) << "an unknown name leaves the word alone";
    EXPECT_EQ(word(ToHost::SourceCount, demandIndicator("MA"), 7), 1u);
}

TEST_F(IndicatorEngine, UnknownNameIsRefused) {
    EXPECT_EQ(demandIndicator("Nonsense"), 0u);
    EXPECT_EQ(demandIndicator(""), 0u);
    EXPECT_TRUE(front.sentences.last().contains(QStringLiteral("no indicator")));
}

TEST_F(IndicatorEngine, IdentityOfAnIndicator) {
    const Handle macd = indicator("MACD", base);
    const Handle ma = indicator("MA", macd);
    auto record = zeroRecord<coreIndicatorIdentity>();
    send(ToHost::Identity, int(macd), toWord(&record));
    EXPECT_EQ(+record.sInterfaceObject.m_if, indicators->interfaceHandle());
    EXPECT_EQ(+record.sInterfaceObject.m_object, macd);
    EXPECT_EQ(fieldText(record.sNameInterface.nameIntreface), QStringLiteral("MVINDICATORS"));
    EXPECT_EQ(fieldText(record.sNameInterface.nameObject), QStringLiteral("BinIndicators"));
    EXPECT_EQ(fieldText(record.sNameInstrument.m_szNameSymbol), QStringLiteral("MACD"));
    EXPECT_EQ(+record.sNameInstrument.m_periods.lenPeriod, 5);
    EXPECT_EQ(+record.m_nLevelDpa, 1u);
    send(ToHost::Identity, int(ma), toWord(&record));
    EXPECT_EQ(+record.m_nLevelDpa, 2u);
    Word text[256] = {};
    send(ToHost::MenuText, int(ma), toWord(text));
    EXPECT_EQ(readEndedText(reinterpret_cast<const Unit16 *>(text)),
              QStringLiteral("Moving Average (14, Simple)"));
    EXPECT_EQ(+arrays(base)[0]->coord.rank, 0u);
    EXPECT_EQ(+arrays(macd)[0]->coord.rank, 1u);
    EXPECT_EQ(+arrays(ma)[0]->coord.rank, 2u);
}

TEST_F(IndicatorEngine, OutputsAreDrawnAsTheirKindAsks) {
    struct Case {
        const char *name;
        int outputs;
        Word drawKind; // of the last output
        int style;
        int placement; // of the first
    };
    give("USD/CHF", walk(300, 9));
    const Case cases[] = {{"MA", 1, 4, 0, 0},       {"Bollinger", 3, 4, 0, 0},    {"MACD", 3, 4, 1, 3},
                          {"Ichimoku", 5, 4, 0, 0}, {"RSI", 1, 4, 0, 3},          {"Stochastic", 2, 4, 0, 3},
                          {"ATR", 1, 4, 0, 3},      {"CCI", 1, 4, 0, 3},          {"Momentum", 1, 4, 0, 3},
                          {"SAR", 1, 8, 0, 0},      {"Fractals", 1, 6, 3, 0},     {"Volume", 1, 4, 1, 3},
                          {"CHF+EUR", 1, 4, 0, 3},  {"OstrelChannel", 3, 4, 0, 0}};
    ASSERT_EQ(std::size(cases), formulaKinds().size());
    for (const Case &expected : cases) {
        const Handle handle = indicator(expected.name, base);
        const std::vector<mvDataPointArray *> lines = arrays(handle);
        ASSERT_EQ(int(lines.size()), expected.outputs) << expected.name;
        EXPECT_EQ(+lines.back()->typeShow.drawKind, expected.drawKind) << expected.name;
        EXPECT_EQ(+lines.back()->typeShow.lineShowType, expected.style) << expected.name;
        EXPECT_EQ(+lines.front()->typeShow.scaleKind, expected.placement) << expected.name;
        std::set<QString> names;
        for (const mvDataPointArray *line : lines) {
            EXPECT_EQ(Handle(toWord(line->owner)), handle);
            EXPECT_GE(+line->typeShow.weightPen, 1);
            EXPECT_NE(+line->typeShow.penType, eCoreTypeShowPenNone);
            EXPECT_TRUE(
                fieldText(line->identity.m_szNameSymbol).startsWith(QString::fromLatin1(expected.name)));
            names.insert(fieldText(line->identity.m_szNameSymbol));
            EXPECT_EQ(+line->coord.axis == +arrays(base)[0]->coord.axis, expected.placement == 0)
                << expected.name;
            EXPECT_GT(+line->count, 0) << expected.name;
        }
        EXPECT_EQ(names.size(), lines.size()) << "a rebuild matches outputs by name";
    }
}

TEST_F(IndicatorEngine, LevelsAndLinks) {
    const coreHorizontLine rsi = levels(indicator("RSI", base));
    EXPECT_EQ(+rsi.line, 1);
    ASSERT_EQ(+rsi.count, 2);
    EXPECT_EQ(+rsi.levels[0], 30.f);
    EXPECT_EQ(+rsi.levels[1], 70.f);
    const coreHorizontLine stochastic = levels(indicator("Stochastic", base));
    EXPECT_EQ(+stochastic.levels[0], 20.f);
    EXPECT_EQ(+stochastic.levels[1], 80.f);
    const coreHorizontLine macd = levels(indicator("MACD", base));
    ASSERT_EQ(+macd.count, 1);
    EXPECT_EQ(+macd.levels[0], 0.f);
    EXPECT_EQ(+levels(indicator("MA", base)).line, 0);

    const std::vector<coreIndicatorLinks> cloud = links(indicator("Ichimoku", base));
    ASSERT_EQ(cloud.size(), 1u);
    EXPECT_EQ(+cloud[0].fill, 1u);
    EXPECT_EQ(+cloud[0].firstLine, 3);
    EXPECT_EQ(+cloud[0].secondLine, 4);
    EXPECT_EQ(+cloud[0].colorMode, 2u);
    const Handle bands = indicator("Bollinger", base);
    ASSERT_EQ(links(bands).size(), 1u);
    EXPECT_EQ(+links(bands)[0].firstLine, 2);
    EXPECT_EQ(+links(bands)[0].secondLine, 3);
    EXPECT_EQ(set(bands, "Middle line", false), QString());
    EXPECT_EQ(+links(bands)[0].firstLine, 1) << "line numbers follow the outputs";
    EXPECT_EQ(+links(bands)[0].secondLine, 2);
    EXPECT_TRUE(links(indicator("MA", base)).empty());
}

TEST_F(IndicatorEngine, LinesOfOneKindHaveColoursOfTheirOwn) {
    std::set<Word> colours;
    for (int i = 0; i < 4; ++i)
        colours.insert(+arrays(indicator("MA", base))[0]->typeShow.secondColor);
    EXPECT_EQ(colours.size(), 4u);
    // What consists of several lines keeps its colours: they tell the lines apart.
    const Word first = arrays(indicator("Bollinger", base))[0]->typeShow.secondColor;
    EXPECT_EQ(+arrays(indicator("Bollinger", base))[0]->typeShow.secondColor, first);
}

TEST_F(IndicatorEngine, UserMayRefuseIt) {
    front.consent = [](CalculatedObject &) { return false; };
    const Handle handle = demandIndicator("MA");
    subscribe(handle);
    bind(handle, base);
    EXPECT_EQ(word(ToHost::ConfirmObject, handle, 1), 0u);
    EXPECT_EQ(front.confirms, 1);
    subscribe(handle, window, false);
    send(ToHost::CreationAbandoned);
    EXPECT_FALSE(object(handle));
    quote("EUR/USD", walk(300).back().time + 1, 1.3f);
    EXPECT_TRUE(updatesOf(handle).empty());
    send(ToHost::CreationAbandoned); // nothing is being made
}

TEST_F(IndicatorEngine, SettingsOfTheDialogHoldBeforeAnyChartKnowsTheIndicator) {
    front.consent = [this](CalculatedObject &made) {
        std::unique_ptr<Page> page = made.page();
        item(*page, "Length")->value = 50;
        return made.applyPage(*page).isEmpty();
    };
    const Handle handle = indicator("MA", base);
    EXPECT_TRUE(updatesOf(handle).empty());
    EXPECT_EQ(+arrays(handle)[0]->count, 300 - 49);
    EXPECT_EQ(fieldText(arrays(handle)[0]->identity.m_szNameSymbol), QStringLiteral("MA (50, Simple)"));
}

TEST_F(IndicatorEngine, AbandonLeavesWhatStandsOnAChart) {
    const Handle handle = indicator("MA", base);
    send(ToHost::CreationAbandoned);
    EXPECT_TRUE(object(handle));
}

TEST_F(IndicatorEngine, QuoteReachesAllThatIsBuiltOnTheInstrument) {
    const Handle macd = indicator("MACD", base);
    const Handle ma = indicator("MA", macd);
    told.clear();
    const int before = arrays(ma)[0]->count;
    quote("EUR/USD", walk(300).back().time + 300, 1.31f);
    ASSERT_EQ(told.size(), 3u);
    EXPECT_EQ(told[0].object, base);
    EXPECT_EQ(told[1].object, macd);
    EXPECT_EQ(told[2].object, ma);
    for (const Update &update : told)
        EXPECT_EQ(update.kind, 0);
    EXPECT_EQ(+arrays(ma)[0]->count, before + 1);
}

TEST_F(IndicatorEngine, PeriodChangeOfTheInstrumentPassesOn) {
    const Handle macd = indicator("MACD", base);
    const Handle ma = indicator("MA", macd);
    told.clear();
    coreNameInstrument wanted = arrays(base)[0]->identity;
    wanted.m_periods = {'I', 10, 0};
    fillField(wanted.m_szType, "Ask");
    send(ToHost::ChangeArray, int(base), toWord(&wanted));
    ASSERT_EQ(told.size(), 3u);
    for (const Update &update : told)
        EXPECT_EQ(update.kind, 1);
    for (const Handle handle : {macd, ma}) {
        EXPECT_EQ(+arrays(handle)[0]->identity.m_periods.lenPeriod, 10);
        EXPECT_EQ(fieldText(arrays(handle)[0]->identity.m_szType), QStringLiteral("Ask"));
    }
    EXPECT_EQ(+arrays(macd)[0]->count, 150 - 25);
}

TEST_F(IndicatorEngine, SumFollowsThePeriodOfTheChartBesideIt) {
    give("USD/CHF", walk(300, 9));
    const Handle sum = indicator("CHF+EUR", 0);
    EXPECT_EQ(+arrays(sum)[0]->identity.m_periods.lenPeriod, 5);
    auto record = zeroRecord<coreIndicatorIdentity>();
    send(ToHost::Identity, int(sum), toWord(&record));
    EXPECT_EQ(+record.m_nLevelDpa, 1u);
    coreFullPathHandle path{nullptr, 1};
    send(ToHost::FullPath, int(sum), toWord(&path));
    EXPECT_EQ(Handle(toWord(path.buffer)), sum) << "it is not taken for an instrument";
    told.clear();
    coreNameInstrument wanted = arrays(base)[0]->identity;
    wanted.m_periods = {'I', 60, 0};
    send(ToHost::ChangeArray, int(base), toWord(&wanted));
    EXPECT_EQ(+arrays(sum)[0]->identity.m_periods.lenPeriod, 60);
    ASSERT_EQ(updatesOf(sum).size(), 1u);
    EXPECT_EQ(updatesOf(sum)[0].kind, 1);
}

TEST_F(IndicatorEngine, ParameterRenamesAndRecomputes) {
    const Handle ma = indicator("MA", base);
    const Handle above = indicator("MA", ma);
    told.clear();
    EXPECT_EQ(set(ma, "Length", 20), QString());
    EXPECT_EQ(fieldText(arrays(ma)[0]->identity.m_szNameSymbol), QStringLiteral("MA (20, Simple)"));
    ASSERT_EQ(told.size(), 3u);
    EXPECT_EQ(told[0].message, unsigned(ToModule::Rename));
    EXPECT_EQ(told[1].message, unsigned(ToModule::UpdateData));
    EXPECT_EQ(told[1].object, ma);
    EXPECT_EQ(told[1].kind, 1);
    EXPECT_EQ(told[2].object, above);
    EXPECT_EQ(+arrays(above)[0]->count, 300 - 19 - 13);
}

TEST_F(IndicatorEngine, ParameterThatDropsAnOutputRebuilds) {
    const Handle macd = indicator("MACD", base);
    mvDataPointArray *histogram = arrays(macd)[2];
    told.clear();
    EXPECT_EQ(set(macd, "Histogram", false), QString());
    ASSERT_EQ(told.size(), 1u);
    EXPECT_EQ(told[0].message, unsigned(ToModule::RebuildOutputs));
    EXPECT_EQ(told[0].kind, 2) << "two outputs are left";
    EXPECT_EQ(word(ToHost::OutputCount, macd), 2u);
    EXPECT_EQ(set(macd, "Histogram", true), QString());
    EXPECT_EQ(arrays(macd)[2], histogram) << "the header kept its address";
    EXPECT_EQ(told.back().kind, 3);
}

TEST_F(IndicatorEngine, LookChangesWithoutNewValues) {
    const Handle ma = indicator("MA", base);
    told.clear();
    EXPECT_EQ(set(ma, "Color", QColor(10, 20, 30)), QString());
    EXPECT_EQ(+arrays(ma)[0]->typeShow.secondColor, QColor(10, 20, 30).rgb());
    ASSERT_EQ(told.size(), 1u);
    EXPECT_EQ(told[0].kind, 2);
    told.clear();
    EXPECT_EQ(set(ma, "Color", QColor(10, 20, 30)), QString());
    EXPECT_TRUE(told.empty()) << "nothing changed";
}

TEST_F(IndicatorEngine, ValuesOutOfRangeAreRefused) {
    const Handle ma = indicator("MA", base);
    told.clear();
    EXPECT_FALSE(set(ma, "Length", 0).isEmpty());
    EXPECT_FALSE(set(ma, "Length", 100000).isEmpty());
    EXPECT_FALSE(set(ma, "Length", QStringLiteral("many")).isEmpty());
    EXPECT_FALSE(set(ma, "Method", 9).isEmpty());
    EXPECT_FALSE(object(ma)->applyPage(Page()).isEmpty());
    EXPECT_TRUE(told.empty());
    EXPECT_EQ(+arrays(ma)[0]->count, 300 - 13);
}

TEST_F(IndicatorEngine, WithoutAChartItRestsAndComesBackUpToDate) {
    const Handle ma = indicator("MA", base);
    const Handle above = indicator("MA", ma);
    subscribe(above, window, false);
    subscribe(ma, window, false);
    const int before = arrays(ma)[0]->count;
    told.clear();
    quote("EUR/USD", walk(300).back().time + 300, 1.31f);
    EXPECT_EQ(told.size(), 1u);
    EXPECT_EQ(+arrays(ma)[0]->count, before) << "nobody looks";
    subscribe(above);
    EXPECT_EQ(+arrays(ma)[0]->count, before + 1);
    EXPECT_EQ(+arrays(above)[0]->count, before + 1 - 13);
}

TEST_F(IndicatorEngine, SourceKeepsComputingForWhatIsBuiltOnIt) {
    const Handle ma = indicator("MA", base);
    const Handle above = indicator("MA", ma);
    subscribe(ma, window, false);
    const int before = arrays(above)[0]->count;
    quote("EUR/USD", walk(300).back().time + 300, 1.31f);
    EXPECT_EQ(+arrays(above)[0]->count, before + 1);
}

TEST_F(IndicatorEngine, StoredNumberGivesTheSameObjectToAllItsOutputs) {
    const Handle first = demandIndicator("MACD (12, 26, 9)", 77);
    ASSERT_NE(first, 0u);
    EXPECT_EQ(demandIndicator("MACD Signal", 77), first);
    EXPECT_EQ(object(first)->uniqueNumber(), 77u);
    EXPECT_NE(demandIndicator("MACD Signal", 78), first);
}

TEST_F(IndicatorEngine, NonsenseSourcesAreRefused) {
    const Handle ma = demandIndicator("MA");
    coreListCreateData list{1, nullptr};
    EXPECT_EQ(send(ToHost::HandOverSources, int(ma), toWord(&list)), 1);
    mvDataPointArray *nobody = nullptr;
    list.arrays = &nobody;
    EXPECT_EQ(send(ToHost::HandOverSources, int(ma), toWord(&list)), 1);
    auto stray = zeroRecord<mvDataPointArray>();
    nobody = &stray;
    EXPECT_EQ(send(ToHost::HandOverSources, int(ma), toWord(&list)), 1);
    list.count = 0;
    EXPECT_EQ(send(ToHost::HandOverSources, int(ma), toWord(&list)), 1);
    EXPECT_EQ(send(ToHost::HandOverSources, int(ma), 0), 1);
    EXPECT_EQ(bind(ma, base), 0);
    const Handle above = indicator("MA", ma);
    EXPECT_EQ(bind(ma, above), 1) << "a loop";
    EXPECT_EQ(bind(ma, ma), 1);
    quote("EUR/USD", walk(300).back().time + 300, 1.31f);
    send(ToHost::OutputArrays, int(ma), 0);
    send(ToHost::ConfirmObject, int(ma), 0);
    sendTo(indicators->interfaceHandle(), ToHost::IndicatorCount, 0);
    sendTo(indicators->interfaceHandle(), ToHost::IndicatorList, 0);
    sendTo(indicators->interfaceHandle(), ToHost::IndicatorNeedsSource, 0, 0);
}

TEST_F(IndicatorEngine, OlderHistoryReachesTheIndicators) {
    give("GBP/USD", walk(8000, 4));
    const Handle series = instrument("GBP/USD", "Bid", {'I', 5});
    const Handle ma = indicator("MA", series);
    EXPECT_EQ(+arrays(ma)[0]->count, 5000 - 13);
    sendTo(candles->interfaceHandle(), ToHost::OlderData, int(series), 86400);
    EXPECT_EQ(+arrays(ma)[0]->count, +arrays(series)[0]->count - 13);
    EXPECT_EQ(updatesOf(ma).back().kind, 1);
}

} // namespace
