// Adding instruments in the ways that have no message of their own: from a drop, from a node, of an object
// that is there already.
#include "tests/boundary/instruments_view.h"
#include "tests/unit/module/LinkedHost.h"

namespace {

struct DirectChart {
    DirectChart() : chart(host.createChart()) {}
    void *add(const QString &symbol, namePeriod period = makePeriod('I', 60), void *handle = nullptr) {
        unsigned short text[255];
        fillField(text, symbol);
        char type[] = "Bid", provider[] = "VELMAR";
        return chart.handle->AddPrimaryPrimitive(text, type, period, provider, 0, handle);
    }
    void *create(CRGraphLayer *layer, coreSzNode *node, void *handle = nullptr) {
        unsigned short text[255];
        fillField(text, QString("EURUSD"));
        return chart.handle->CreateInstrument(nullptr, layer, text, "Bid", makePeriod('D', 1), 9, node,
                                              handle);
    }
    CRGraphLayer *layer() { return chart.handle->m_areas[0]->m_layers[0]; }

    LinkedHost host;
    Chart chart;
};

TEST(InstrumentOfADrop, AlwaysAsksForALayer) {
    DirectChart on;
    on.chart.handle->m_chooseLayerOnAdd = true;
    ASSERT_TRUE(on.add("EURUSD")); // but not beside the only layer, as long as that is empty
    QString offered;
    on.host.onDialog([&](QDialog *dialog) {
        offered = treeOf(dialog)->currentItem()->text(0);
        dialog->accept();
    });
    ASSERT_TRUE(on.add("GBPUSD"));
    EXPECT_EQ(offered, "2"); // a new one
    EXPECT_EQ(viewOf(on.chart).layers, std::vector<int>({2}));
    EXPECT_EQ(viewOf(on.chart).line("GBPUSD")->layer, 1);
    EXPECT_EQ(on.layer()->m_pArea->m_layers[1]->m_name, "GBP/USD 1 Hour Bid");
}

TEST(InstrumentOfADrop, WithoutALayerIsNotAdded) {
    DirectChart on;
    ASSERT_TRUE(on.add("EURUSD"));
    on.chart.handle->m_chooseLayerOnAdd = true;
    on.chart.handle->m_nSelectedArea = 0;
    on.host.clearTraffic();
    rejectDialog(on.host);
    EXPECT_FALSE(on.add("GBPUSD"));
    EXPECT_TRUE(logged(on.host, "CRGraphWidget::AddPrimaryPrimitive: invalid Layer. return|GraphWidget|", 0));
    EXPECT_EQ(on.host.count(ToHost::CreateObject), 0);
    EXPECT_EQ(on.host.milestones.count("Add primary primitive"), 1);
    EXPECT_EQ(on.chart.handle->m_nSelectedArea, 0);
}

TEST(InstrumentPlace, InAPaneWithoutLayersIsALayerWithoutATitle) {
    DirectChart on;
    on.layer()->m_pArea->DeleteGraphLayer(0, false);
    on.host.milestones.clear();
    ASSERT_TRUE(on.add("EURUSD"));
    EXPECT_EQ(on.layer()->m_name, "");
    EXPECT_EQ(viewOf(on.chart).line("EURUSD")->layer, 0);
    EXPECT_EQ(on.host.milestones.value(0), "Create layer");
}

TEST(InstrumentPlace, MayGoWhenItIsToldToTheHost) {
    DirectChart on;
    on.layer()->m_pArea->DeleteGraphLayer(0, false);
    CRGraphWidget *const window = on.chart.handle;
    on.host.setInterruption([&](const Call &call) {
        if (call.message == ToHost::Milestone && on.chart.widget)
            on.host.send(ToModule::DeleteWindow, window);
    });
    EXPECT_FALSE(on.add("EURUSD"));
    EXPECT_FALSE(on.chart.widget);
    EXPECT_EQ(on.host.count(ToHost::CreateObject), 0);
}

TEST(InstrumentOfANode, CarriesItToTheHost) {
    DirectChart on;
    coreSzNode node{0x1234, 0x5678};
    ASSERT_TRUE(on.create(on.layer(), &node));
    const char *record = on.host.callsOf(ToHost::CreateObject).front().wRecord.constData();
    EXPECT_EQ(bytes::i32(record, 0), 9);
    EXPECT_EQ(bytes::text16(record, 4, 255), "EURUSD");
    EXPECT_EQ(bytes::text8(record, 514, 255), "Bid");
    EXPECT_EQ(bytes::u32(record, 794), 0x1234u);
    EXPECT_EQ(bytes::u32(record, 798), 0x5678u);
    EXPECT_EQ(bytes::u32(record, 802), 0u);
    EXPECT_TRUE(viewOf(on.chart).series[0].instrument);
}

TEST(InstrumentOfAHandle, IsOnlyShown) {
    DirectChart on;
    FakeObject *made = on.host.addInstrument(on.chart, "EURUSD");
    void *const handle = fromWord<void>(made->handle);
    const Chart other = on.host.createChart();
    on.chart = other;
    on.host.clearTraffic();
    EXPECT_EQ(on.create(on.layer(), nullptr, handle), handle);
    EXPECT_EQ(on.host.count(ToHost::CreateObject), 0);
    EXPECT_EQ(on.host.count(ToHost::Subscribe), 1);
    EXPECT_EQ(viewOf(other).series[0].handle, made->handle);
    EXPECT_EQ(on.create(nullptr, nullptr, handle), nullptr); // nowhere to stand
    EXPECT_EQ(viewOf(other).indicators, 1);
}

} // namespace
