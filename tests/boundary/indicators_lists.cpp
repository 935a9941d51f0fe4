// Lists that the module asks the host for in two steps, a count and the list: the second step follows
// whatever the count was.
#include "tests/boundary/instruments_view.h"

namespace {

/// Answers a query of the form "handle in, one word out" with `count`.
void answerCount(FakeHost &host, unsigned message, int count) {
    host.answer(message, [count](void *, int, int lParam) {
        bytes::put<int>(fromWord<void>(lParam), 0, count);
        return 0;
    });
}

/// The room that each request of a list came with; every one must have an address.
std::vector<int> rooms(const FakeHost &host, unsigned message) {
    std::vector<int> counts;
    for (const Call &call : host.callsOf(message)) {
        EXPECT_NE(bytes::u32(call.lRecord.constData(), 4), 0u);
        counts.push_back(bytes::i32(call.lRecord.constData(), 0));
    }
    return counts;
}

struct ListChart {
    ListChart() : chart(host.createChart()) {
        instrument = host.addInstrument(chart, "EURUSD");
        host.addIndicatorKind(indicatorKind("IND", 3, 1, {"A", "B"}));
    }
    int rebuild(FakeObject *object, const std::vector<int> &outputs) {
        std::vector<mvDataPointArray *> headers;
        for (int place : outputs)
            headers.push_back(object->array(place).header());
        coreRebuildDpa record{fromWord<void>(object->handle), 0, static_cast<int>(headers.size()),
                              headers.data()};
        return host.send(ToModule::RebuildOutputs, chart.handle, &record);
    }
    FakeHost host;
    Chart chart;
    FakeObject *instrument = nullptr;
};

class LinkCount : public testing::TestWithParam<std::pair<int, int>> {};

TEST_P(LinkCount, IsFollowedByTheRequestOfTheLinks) {
    ListChart on;
    answerCount(on.host, ToHost::LinkCount, GetParam().first);
    const std::vector<int> once{GetParam().second};
    on.host.clearTraffic();
    on.host.addIndicator(on.chart, "IND");
    FakeObject *object = on.host.lastObject();
    EXPECT_EQ(rooms(on.host, ToHost::Links), once);
    for (int kind : {0, 1, 2}) {
        on.host.clearTraffic();
        on.host.update(object, on.chart, kind);
        EXPECT_EQ(rooms(on.host, ToHost::Links), once) << kind;
    }
    on.host.clearTraffic();
    on.rebuild(object, {0, 1});
    EXPECT_EQ(rooms(on.host, ToHost::Links), once);
    EXPECT_EQ(viewOf(on.chart).links, GetParam().second);
}

// A number that can be no count is taken for none.
INSTANTIATE_TEST_SUITE_P(Counts, LinkCount,
                         testing::Values(std::pair<int, int>(0, 0), std::pair<int, int>(-3, 0),
                                         std::pair<int, int>(0x7FFFFFFF, 0), std::pair<int, int>(2, 2)));

TEST(LinkRequest, HasRoomForOneMoreThanTheCount) {
    ListChart on;
    answerCount(on.host, ToHost::LinkCount, 1);
    on.host.answer(ToHost::Links, [](void *, int, int lParam) {
        auto *list = fromWord<coreListIndicatorLinks>(lParam);
        list->links[0] = {0, 1, 1, 2, 2};
        list->links[1] = zeroRecord<coreIndicatorLinks>();
        list->links[1].fill = 7; // behind the last one; it is not taken
        return 0;
    });
    on.host.addIndicator(on.chart, "IND");
    EXPECT_EQ(viewOf(on.chart).links, 1);
}

TEST(OutputRequest, HasRoomForOneMoreThanTheCount) {
    ListChart on;
    on.host.answer(ToHost::OutputArrays, [&](void *target, int wParam, int lParam) {
        const int result = on.host.defaultAnswer(target, ToHost::OutputArrays, wParam, lParam);
        fromWord<coreListCreateData>(lParam)->arrays[2] = nullptr; // the end of the list
        return result;
    });
    on.host.addIndicator(on.chart, "IND");
    EXPECT_TRUE(viewOf(on.chart).line("B"));
}

TEST(RebuildRequest, AsksForTheOutputsWhateverTheirNumber) {
    for (int count : {0, -3, 2}) {
        ListChart on;
        on.host.addIndicator(on.chart, "IND");
        FakeObject *object = on.host.lastObject();
        answerCount(on.host, ToHost::OutputCount, count);
        on.host.clearTraffic();
        on.rebuild(object, {0, 1});
        EXPECT_EQ(rooms(on.host, ToHost::OutputArrays), std::vector<int>{std::max(0, count)}) << count;
        EXPECT_TRUE(viewOf(on.chart).line("A"));
        EXPECT_TRUE(viewOf(on.chart).line("B"));
    }
}

// ---- the catalogue, as a new window asks for it ----

std::vector<unsigned> catalogueTraffic(const FakeHost &host) {
    std::vector<unsigned> numbers;
    bool counted = false;
    for (const Call &call : host.calls()) {
        counted = counted || (call.toHost && call.message == ToHost::CountInterfaces);
        if (call.toHost && counted &&
            (call.message == ToHost::CountInterfaces || call.message == ToHost::FindInterface ||
             call.message == ToHost::IndicatorCount || call.message == ToHost::IndicatorList))
            numbers.push_back(call.message);
    }
    return numbers;
}

TEST(Catalogue, AsksForTheListBehindEveryCount) {
    for (int count : {0, -3, 0x7FFFFFFF, 2}) {
        FakeHost host;
        host.answer(ToHost::IndicatorCount, [count](void *, int wParam, int) {
            bytes::put<int>(fromWord<void>(wParam), 0, count);
            return 0;
        });
        host.clearTraffic();
        const Chart chart = host.createBareChart();
        ASSERT_TRUE(chart.handle);
        EXPECT_EQ(catalogueTraffic(host),
                  std::vector<unsigned>({ToHost::CountInterfaces, ToHost::FindInterface,
                                         ToHost::IndicatorCount, ToHost::IndicatorList}))
            << count;
        const Call list = host.callsOf(ToHost::IndicatorList).front();
        EXPECT_EQ(bytes::i32(list.wRecord.constData(), 0), count == 2 ? 2 : 0);
        EXPECT_NE(bytes::u32(list.wRecord.constData(), 4), 0u);
        EXPECT_EQ(chart.handle->m_globalIndicators.size(), count == 2 ? 2u : 0u);
    }
}

TEST(Catalogue, AsksForTheInterfacesBehindTheirCount) {
    for (int count : {0, -3, 0x7FFFFFFF}) {
        FakeHost host;
        host.answer(ToHost::CountInterfaces, [count](void *, int wParam, int) {
            bytes::put<int>(fromWord<void>(bytes::u32(fromWord<void>(wParam), 769)), 0, count);
            return 0;
        });
        host.clearTraffic();
        const Chart chart = host.createBareChart();
        ASSERT_TRUE(chart.handle);
        EXPECT_EQ(catalogueTraffic(host),
                  std::vector<unsigned>({ToHost::CountInterfaces, ToHost::FindInterface}))
            << count;
        const Call find = host.callsOf(ToHost::FindInterface).back();
        EXPECT_EQ(bytes::text8(find.wRecord.constData(), 0, 255), "MVINDICATORS");
        EXPECT_EQ(bytes::u32(find.wRecord.constData(), 765), 0u);
        EXPECT_TRUE(chart.handle->m_globalIndicators.empty());
    }
}

} // namespace
