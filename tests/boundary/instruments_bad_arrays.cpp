// Arrays that no working host gives out. What can be read of them is shown; nothing else goes with them.
#include "tests/boundary/InputDriver.h"
#include "tests/boundary/instruments_view.h"

#include <climits>
#include <limits>

namespace {

struct Nonsense {
    const char *what;
    void (*spoil)(mvDataPointArray *array);
};

void PrintTo(const Nonsense &row, std::ostream *out) {
    *out << row.what;
}

// The first float behind the time of every point.
void fillFloats(mvDataPointArray *array, float value) {
    for (int i = 0; i < array->count; ++i)
        for (Word offset = 4; offset + 4 <= array->recordSize; offset += 4)
            bytes::put<float>(array->data, i * static_cast<int>(array->recordSize) + static_cast<int>(offset),
                              value);
}

void fillTimes(mvDataPointArray *array, int first, int step) {
    for (int i = 0; i < array->count; ++i)
        bytes::put<int>(array->data, i * static_cast<int>(array->recordSize), first + i * step);
}

void fillNames(mvDataPointArray *array, int from) {
    for (int i = from; i < array->fieldCount; ++i)
        std::memset(array->fields[i].name, 'X', sizeof array->fields[i].name);
}

const Nonsense nonsense[] = {
    {"no data", [](mvDataPointArray *array) { array->data = nullptr; }},
    {"no points", [](mvDataPointArray *array) { array->count = 0; }},
    {"less than no points", [](mvDataPointArray *array) { array->count = -7; }},
    {"least points", [](mvDataPointArray *array) { array->count = INT_MIN; }},
    {"one point", [](mvDataPointArray *array) { array->count = 1; }},
    {"no field list", [](mvDataPointArray *array) { array->fields = nullptr; }},
    {"no fields", [](mvDataPointArray *array) { array->fieldCount = 0; }},
    {"less than no fields", [](mvDataPointArray *array) { array->fieldCount = -3; }},
    {"the time alone", [](mvDataPointArray *array) { array->fieldCount = 1; }},
    {"no time", [](mvDataPointArray *array) { std::memset(array->fields[0].name, 0, 255); }},
    {"names without end", [](mvDataPointArray *array) { fillNames(array, 0); }},
    {"values without name", [](mvDataPointArray *array) { fillNames(array, 1); }},
    {"points of no size", [](mvDataPointArray *array) { array->recordSize = 0; }},
    {"most decimals", [](mvDataPointArray *array) { array->precision = INT_MAX; }},
    {"least decimals", [](mvDataPointArray *array) { array->precision = INT_MIN; }},
    {"decimals below one", [](mvDataPointArray *array) { array->precision = -3; }},
    {"many decimals", [](mvDataPointArray *array) { array->precision = 40; }},
    {"unknown period", [](mvDataPointArray *array) { array->identity.m_periods.period = '?'; }},
    {"no period", [](mvDataPointArray *array) { array->identity.m_periods = makePeriod(0, 0); }},
    {"longest period", [](mvDataPointArray *array) { array->identity.m_periods.lenPeriod = INT_MAX; }},
    {"shortest period", [](mvDataPointArray *array) { array->identity.m_periods.lenPeriod = INT_MIN; }},
    {"period of years",
     [](mvDataPointArray *array) { array->identity.m_periods = makePeriod('Y', INT_MAX); }},
    {"months before", [](mvDataPointArray *array) { array->identity.m_periods = makePeriod('M', -5); }},
    {"no name", [](mvDataPointArray *array) { std::memset(array->identity.m_szNameSymbol, 0, 510); }},
    {"name without end",
     [](mvDataPointArray *array) { std::memset(array->identity.m_szNameSymbol, 'X', 510); }},
    {"type without end", [](mvDataPointArray *array) { std::memset(array->identity.m_szType, 'X', 255); }},
    {"no owner", [](mvDataPointArray *array) { array->owner = nullptr; }},
    {"another owner", [](mvDataPointArray *array) { array->owner = fromWord<void>(0x0BADF00Du); }},
    {"unknown draw kind", [](mvDataPointArray *array) { array->typeShow.drawKind = 0xFFFFFFFFu; }},
    {"unknown pen", [](mvDataPointArray *array) { bytes::put<int>(&array->typeShow, 12, -1); }},
    {"pen beyond all", [](mvDataPointArray *array) { bytes::put<int>(&array->typeShow, 12, INT_MAX); }},
    {"no width", [](mvDataPointArray *array) { array->typeShow.weightPen = 0; }},
    {"width below none", [](mvDataPointArray *array) { array->typeShow.weightPen = INT_MIN; }},
    {"unknown style", [](mvDataPointArray *array) { array->typeShow.lineShowType = INT_MIN; }},
    {"style beyond all", [](mvDataPointArray *array) { array->typeShow.lineShowType = INT_MAX; }},
    {"bars", [](mvDataPointArray *array) { array->typeShow.drawKind = 2; }},
    {"wide candles", [](mvDataPointArray *array) { array->typeShow.drawKind = 5; }},
    {"marks", [](mvDataPointArray *array) { array->typeShow.drawKind = 6; }},
    {"dots on values", [](mvDataPointArray *array) { array->typeShow.drawKind = 8; }},
    {"histogram",
     [](mvDataPointArray *array) {
         array->typeShow.drawKind = 4;
         array->typeShow.lineShowType = 1;
         array->typeShow.borderValue = std::numeric_limits<float>::quiet_NaN();
     }},
    {"no numbers",
     [](mvDataPointArray *array) { fillFloats(array, std::numeric_limits<float>::quiet_NaN()); }},
    {"values without bound",
     [](mvDataPointArray *array) { fillFloats(array, std::numeric_limits<float>::infinity()); }},
    {"greatest values",
     [](mvDataPointArray *array) { fillFloats(array, std::numeric_limits<float>::max()); }},
    {"smallest values",
     [](mvDataPointArray *array) { fillFloats(array, std::numeric_limits<float>::denorm_min()); }},
    {"no prices", [](mvDataPointArray *array) { fillFloats(array, 0); }},
    {"one time", [](mvDataPointArray *array) { fillTimes(array, 1388534400, 0); }},
    {"falling times", [](mvDataPointArray *array) { fillTimes(array, 1388534400, -3600); }},
    {"times before all", [](mvDataPointArray *array) { fillTimes(array, -2000000000, 60); }},
    {"last times", [](mvDataPointArray *array) { fillTimes(array, INT_MAX - 300, 1); }},
};

class BadArray : public testing::TestWithParam<Nonsense> {
protected:
    /// What a user does with whatever stands there, and what the host tells.
    void use(FakeObject *object) {
        host.crossCursor = 1;
        host.toolState = mwiStateLsButton{};
        host.tick();
        host.grab(chart);
        Mouse mouse(chart);
        for (const int x : {2, 200, 390})
            mouse.move({x, 120});
        mouse.click({200, 120});
        mouse.wheel(-1200);
        mouse.drag({300, 130}, {250, 130});
        for (const int key : {Qt::Key_Home, Qt::Key_End, Qt::Key_Plus, Qt::Key_Minus, Qt::Key_Left,
                              Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown})
            pressKey(chart, key);
        host.send(ToModule::LastCandle, 0);
        host.send(ToModule::ZoomChange, 0, -3);
        host.grab(chart);
        host.send(ToModule::ZoomChange, 0, -100000);
        host.grab(chart);
        for (const int kind : {0, 2, 1})
            EXPECT_EQ(host.update(object, chart, kind), 0);
        host.tick();
        host.grab(chart);
        host.caption(chart);
    }
    void expectAWorkingChart() {
        ASSERT_TRUE(chart.widget);
        const Chart next = host.createChart(QSize(200, 150));
        ASSERT_TRUE(host.addInstrument(next, "USDJPY"));
        EXPECT_FALSE(host.grab(next).isNull());
        EXPECT_EQ(viewOf(next).series[0].type, 5);
    }
    // The answer of 3042 for the object that is being made.
    void spoilFirstAnswer() {
        host.answer(ToHost::OutputArrays, [this](void *target, int wParam, int lParam) {
            const int result = host.defaultAnswer(target, ToHost::OutputArrays, wParam, lParam);
            if (mvDataPointArray *array = fromWord<coreListCreateData>(lParam)->arrays[0])
                GetParam().spoil(array);
            return result;
        });
    }

    FakeHost host;
    Chart chart = host.createChart(QSize(400, 300));
};

TEST_P(BadArray, OfANewInstrument) {
    spoilFirstAnswer();
    host.addInstrument(chart, "EURUSD");
    FakeObject *made = host.lastObject();
    ASSERT_TRUE(made);
    use(made);
    host.answer(ToHost::OutputArrays, nullptr);
    expectAWorkingChart();
}

TEST_P(BadArray, OfANewIndicator) {
    FakeObject *instrument = host.addInstrument(chart, "EURUSD");
    host.addIndicatorKind(indicatorKind("IND", 3, 1, {"A", "B"}));
    spoilFirstAnswer();
    host.addIndicator(chart, "IND");
    FakeObject *made = host.lastObject();
    ASSERT_NE(made, instrument);
    use(made);
    host.answer(ToHost::OutputArrays, nullptr);
    expectAWorkingChart();
    EXPECT_EQ(viewOf(chart).series[0].type, 5); // what stood there before
    EXPECT_TRUE(viewOf(chart).line("B"));       // the other output
}

TEST_P(BadArray, OfASeriesOnTheChart) {
    FakeObject *instrument = host.addInstrument(chart, "EURUSD");
    host.addInstrument(chart, "GBPUSD");
    host.grab(chart);
    GetParam().spoil(instrument->array().header());
    use(instrument);
    expectAWorkingChart();
    EXPECT_TRUE(viewOf(chart).line("GBPUSD"));
}

INSTANTIATE_TEST_SUITE_P(Nonsense, BadArray, testing::ValuesIn(nonsense));

// Candles, and points of one value, in every way of drawing: a host may change it at any time.
TEST(BadValues, AreSurvivedInEveryWayOfDrawing) {
    using Limits = std::numeric_limits<float>;
    const float values[] = {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(),
                            Limits::max(),       Limits::lowest(),   Limits::denorm_min()};
    FakeHost host;
    const Chart chart = host.createChart(QSize(400, 300));
    FakeObject *instrument = host.addInstrument(chart, "EURUSD");
    host.addIndicatorKind(indicatorKind("IND", 3));
    host.addIndicator(chart, "IND");
    FakeObject *indicator = host.lastObject();
    host.send(ToModule::LastCandle, 0);
    Mouse mouse(chart);
    for (const float value : values) {
        for (FakeObject *object : {instrument, indicator}) {
            mvDataPointArray *array = object->array().header();
            for (int i = 100; i < array->count; i += 3) // beside good points
                bytes::put<float>(array->data, i * static_cast<int>(array->recordSize) + 4, value);
            for (Word kind = 0; kind <= 11; ++kind) {
                for (int style = 0; style <= (kind == 4 ? 4 : 0); ++style) {
                    array->typeShow.drawKind = kind;
                    array->typeShow.lineShowType = style;
                    array->typeShow.borderValue = value;
                    array->typeShow.weightPen = kind % 4;
                    EXPECT_EQ(host.update(object, chart, 1), 0);
                    host.grab(chart);
                    mouse.move({200, 100});
                    mouse.move({200, 220});
                }
            }
        }
    }
    EXPECT_TRUE(chart.widget);
}

} // namespace
