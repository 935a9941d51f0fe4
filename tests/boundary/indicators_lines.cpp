// Which series stands for which output once an object's outputs have changed: numbers, names, arrays.
#include "tests/boundary/instruments_view.h"

namespace {

std::unique_ptr<FakeArray> outputArray(const FakeObject &object, const QString &name) {
    auto array = std::make_unique<FakeArray>();
    mvDataPointArray *header = array->header();
    fillField(header->identity.m_szNameSymbol, name);
    header->identity.m_periods = makePeriod('I', 60);
    header->owner = fromWord<void>(object.handle);
    header->typeShow.drawKind = 4;
    array->setValues({});
    return array;
}

/// What is left of an array that the host has freed: memory that something else has written to.
void overwrite(FakeArray &array) {
    std::memset(static_cast<void *>(array.header()), 0x2A, sizeof(mvDataPointArray));
    array.header()->data = nullptr;
    array.header()->fields = nullptr;
    array.header()->count = array.header()->fieldCount = 0;
}

struct LinesChart {
    explicit LinesChart(const QStringList &outputs) : chart(host.createChart()) {
        host.addInstrument(chart, "EURUSD");
        host.addIndicatorKind(indicatorKind("IND", 3, 1, outputs));
        host.addIndicator(chart, "IND");
        object = host.lastObject();
    }
    /// The outputs are these from now on; `-1` makes a new one of the name, else the one of that place stays.
    void setOutputs(const std::vector<std::pair<QString, int>> &outputs) {
        std::vector<std::unique_ptr<FakeArray>> arrays;
        object->kind.outputs.clear();
        for (const auto &[name, place] : outputs) {
            arrays.push_back(place < 0 ? outputArray(*object, name)
                                       : std::move(object->outputs[static_cast<std::size_t>(place)]));
            object->kind.outputs.push_back({name, 4, 0, 3, nullptr});
        }
        for (auto &array : object->outputs)
            if (array)
                dropped.push_back(std::move(array));
        object->outputs = std::move(arrays);
        host.recompute(object);
    }
    int rebuild() {
        std::vector<mvDataPointArray *> headers;
        for (const auto &array : object->outputs)
            headers.push_back(array->header());
        coreRebuildDpa record{fromWord<void>(object->handle), 0, static_cast<int>(headers.size()),
                              headers.data()};
        return host.send(ToModule::RebuildOutputs, chart.handle, &record);
    }
    const std::vector<CRPrimitive *> &series() const { return chart.handle->m_indicators[1]->m_primitives; }
    QString line(int place) const {
        const mvDataPointArray *array = series()[static_cast<std::size_t>(place)]->GetArray();
        return array ? fieldText(array->identity.m_szNameSymbol) : QString();
    }
    std::vector<int> numbers() const {
        std::vector<int> result;
        for (const CRPrimitive *primitive : series())
            result.push_back(primitive->m_nLineIndex);
        return result;
    }

    std::vector<std::unique_ptr<FakeArray>> dropped;
    FakeHost host;
    Chart chart;
    FakeObject *object = nullptr;
};

// Levels and links name a line by its place in the host's list, and that has changed.
TEST(RebuiltLines, AreNumberedAsTheHostListsThem) {
    LinesChart on({"A", "B", "C"});
    on.setOutputs({{"A", 0}, {"C", 2}});
    on.object->links = {{0, 1, 1, 2, 0}};
    on.object->levels.line = 2;
    on.object->levels.count = 1;
    on.object->levels.levels[0] = 1.25f;
    on.rebuild();
    EXPECT_EQ(on.numbers(), std::vector<int>({0, 1}));
    EXPECT_EQ(viewOf(on.chart).line("C")->levels, std::vector<float>{1.25f});
    on.host.grab(on.chart);
    const CRGraphLayer *layer = on.chart.handle->m_areas[1]->m_layers[0];
    ASSERT_EQ(layer->m_links.size(), 1u);
    EXPECT_EQ(layer->m_links[0].m_pFirst, on.series()[0]);
    EXPECT_EQ(layer->m_links[0].m_pSecond, on.series()[1]);

    on.setOutputs({{"D", -1}, {"C", 1}, {"A", 0}, {"E", -1}});
    on.rebuild();
    EXPECT_EQ(on.numbers(), std::vector<int>({0, 1, 2, 3}));
    EXPECT_EQ(on.line(3), "E");
}

// The list of the host says which lines there are, the message which of them to put on the chart.
TEST(RebuiltLines, ThatTheMessageLeavesOutStayAndDoNotCome) {
    LinesChart on({"A", "B"});
    const std::vector<CRPrimitive *> before = on.series();
    on.setOutputs({{"NEW", -1}, {"A", 0}, {"LATER", -1}, {"B", 1}});
    mvDataPointArray *added = on.object->array(0).header();
    coreRebuildDpa record{fromWord<void>(on.object->handle), 0, 1, &added};
    EXPECT_EQ(on.host.send(ToModule::RebuildOutputs, on.chart.handle, &record), 0);
    ASSERT_EQ(on.series().size(), 3u);
    EXPECT_EQ(on.line(0), "NEW");
    EXPECT_EQ(on.series()[1], before[0]);
    EXPECT_EQ(on.series()[2], before[1]);
    EXPECT_EQ(on.numbers(), std::vector<int>({0, 1, 3}));
}

TEST(RebuiltLines, AreFoundWhenTheHostHasFreedItsOldArrays) {
    LinesChart on({"A", "B", "C"});
    const std::vector<CRPrimitive *> before = on.series();
    on.setOutputs({{"A", -1}, {"C", -1}});
    for (const auto &array : on.dropped)
        overwrite(*array);
    EXPECT_EQ(on.rebuild(), 0);
    EXPECT_EQ(on.series(), std::vector<CRPrimitive *>({before[0], before[2]}));
    EXPECT_EQ(on.series()[0]->GetArray(), on.object->array(0).header());
    EXPECT_EQ(on.series()[1]->GetArray(), on.object->array(1).header());
    on.host.tick();
    on.host.grab(on.chart);
}

TEST(RebuiltLines, AreFoundByTheNameOfTheirLastRename) {
    LinesChart on({"A", "B"});
    const std::vector<CRPrimitive *> before = on.series();
    fillField(on.object->array(1).header()->identity.m_szNameSymbol, QString("B2"));
    bytes::Record record(778);
    bytes::put<Word>(record.data(), 0, on.object->handle);
    EXPECT_EQ(on.host.send(ToModule::Rename, on.chart.handle, record.data()), 0);
    on.setOutputs({{"A", -1}, {"B2", -1}});
    for (const auto &array : on.dropped)
        overwrite(*array);
    on.rebuild();
    EXPECT_EQ(on.series(), before);
}

// The host may have put another text into the record of names.
TEST(RebuiltLines, OfAHiddenObjectComeBackByTheNameOfTheirArray) {
    LinesChart on({"A", "B"});
    on.host.answer(ToHost::DisplayNames, [](void *, int, int lParam) {
        bytes::putText16(fromWord<void>(lParam), 0, 255, "Shown");
        return 0;
    });
    bytes::Record record(778);
    bytes::put<Word>(record.data(), 0, on.object->handle);
    on.host.send(ToModule::Rename, on.chart.handle, record.data());
    const std::vector<CRPrimitive *> before = on.series();
    for (CRPrimitive *primitive : before)
        primitive->m_bVisible = 0;
    on.setOutputs({{"A", 0}});
    on.rebuild();
    EXPECT_EQ(before[1]->GetArray(), nullptr);
    before[0]->m_bVisible = 0;
    on.setOutputs({{"A", 0}, {"B", -1}});
    on.rebuild();
    EXPECT_EQ(on.series(), before);
    EXPECT_TRUE(before[0]->m_bVisible && before[1]->m_bVisible);
    EXPECT_EQ(before[1]->GetArray(), on.object->array(1).header());
}

TEST(RebuiltLines, OfOneNameStayApart) {
    LinesChart on({"LINE", "LINE"});
    const std::vector<CRPrimitive *> before = on.series();
    on.rebuild();
    EXPECT_EQ(on.series(), before);
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(on.series()[static_cast<std::size_t>(i)]->GetArray(), on.object->array(i).header());
}

// The same object twice on a chart: the first of the list takes the lines again, the first that is
// visible loses those that are gone.
TEST(RebuiltLines, OfAHiddenAndAVisibleSeriesOfOneObjectAreTreatedApart) {
    FakeHost host;
    const Chart chart = host.createChart();
    FakeObject *object = host.addInstrument(chart, "EURUSD");
    acceptLayer(host);
    ASSERT_EQ(host.addInstrument(chart, "EURUSD"), object);
    const CRPrimitive *second = chart.handle->m_indicators[1]->m_primitives[0];
    chart.handle->m_indicators[0]->m_primitives[0]->m_bVisible = 0;
    mvDataPointArray *header = object->array().header();
    coreRebuildDpa record{fromWord<void>(object->handle), 0, 1, &header};
    EXPECT_EQ(host.send(ToModule::RebuildOutputs, chart.handle, &record), 0);
    ASSERT_EQ(chart.handle->m_indicators.size(), 2u);
    EXPECT_TRUE(chart.handle->m_indicators[0]->m_primitives[0]->m_bVisible);
    ASSERT_EQ(chart.handle->m_indicators[1]->m_primitives.size(), 1u);
    EXPECT_EQ(chart.handle->m_indicators[1]->m_primitives[0], second);
}

// The widest text of all data is looked for anew, wherever a value has changed.
TEST(RebuiltLines, WidenTheScaleForTheirNewValues) {
    FakeHost host;
    host.setHistory("EURUSD", makeBars(30000));
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    host.addIndicatorKind(indicatorKind("IND", 3));
    host.addIndicator(chart, "IND");
    FakeObject *object = host.lastObject();
    host.tick();
    const int narrow = chart.handle->m_nRightScaleWidth;
    mvDataPointArray *header = object->array().header();
    const float large = 123456789.f;
    std::memcpy(header->data + 15000 * header->recordSize + 4, &large, sizeof large);
    coreRebuildDpa record{fromWord<void>(object->handle), 0, 1, &header};
    host.send(ToModule::RebuildOutputs, chart.handle, &record);
    EXPECT_GT(chart.handle->m_nRightScaleWidth, narrow + 20);
}

} // namespace
