#include "tests/support/Series.h"

#include <algorithm>
#include <climits>
#include <cmath>

namespace {

// A small generator of its own, so that a walk is the same on every machine.
class Walk {
public:
    explicit Walk(unsigned seed) : m_state(seed * 2654435761u + 12345u) {}
    float next() { // from -1 to 1
        m_state = m_state * 1664525u + 1013904223u;
        return static_cast<float>(static_cast<int>(m_state >> 8) % 20001 - 10000) / 10000.0f;
    }

private:
    unsigned m_state;
};

float rounded(float value) {
    return std::round(value * 100000.0f) / 100000.0f;
}

} // namespace

std::vector<Bar> makeBars(int count, int startTime, int stepSec, float price) {
    std::vector<Bar> bars;
    bars.reserve(static_cast<std::size_t>(std::max(0, count)));
    Walk walk(7);
    float last = price;
    // Times are signed 32-bit seconds: long periods end early.
    count = std::min(count, (INT_MAX - startTime) / std::max(1, stepSec));
    for (int i = 0; i < count; ++i) {
        const float open = last;
        const float pull = (price - last) * 0.02f;
        const float close = rounded(open + pull + walk.next() * price * 0.001f);
        const float high = rounded(std::max(open, close) + std::fabs(walk.next()) * price * 0.0004f);
        const float low = rounded(std::min(open, close) - std::fabs(walk.next()) * price * 0.0004f);
        const float volume = static_cast<float>(100 + i % 50);
        bars.push_back({startTime + i * stepSec, open, high, low, close, volume});
        last = close;
    }
    return bars;
}

std::vector<Tick> makeTicks(int count, int startTime, int stepSec, float price) {
    std::vector<Tick> ticks;
    Walk walk(11);
    float last = price;
    for (int i = 0; i < count; ++i) {
        last = rounded(last + (price - last) * 0.02f + walk.next() * price * 0.0002f);
        ticks.push_back({startTime + i * stepSec, last, static_cast<float>(1 + i % 5)});
    }
    return ticks;
}

namePeriod makePeriod(char letter, int length, int start) {
    namePeriod period;
    period.period = letter;
    period.lenPeriod = length;
    period.startTime = start;
    return period;
}

coreNameInstrument makeName(const QString &symbol, const char *type, namePeriod period) {
    coreNameInstrument name = zeroRecord<coreNameInstrument>();
    fillField(name.m_szNameSymbol, symbol);
    fillField(name.m_szType, type);
    name.m_periods = period;
    return name;
}

int periodSeconds(const namePeriod &period) {
    const int length = std::max(1, static_cast<int>(period.lenPeriod));
    switch (period.period) {
    case 'D':
        return length * 86400;
    case 'W':
        return length * 7 * 86400;
    case 'M':
        return length * 30 * 86400;
    case 'Y':
        return length * 365 * 86400;
    default:
        return period.lenPeriod == 0 ? 5 : length * 60;
    }
}

FakeArray::FakeArray() : m_header(zeroRecord<mvDataPointArray>()) {
    m_header.precision = 5;
    m_header.typeShow.firstColor = 0xFF00A000;
    m_header.typeShow.secondColor = 0xFFC00000;
    m_header.typeShow.drawKind = 1;
    m_header.typeShow.penType = eCoreTypeShowPenSolid;
    m_header.typeShow.weightPen = 1;
}

void FakeArray::setFields(const std::vector<std::pair<DATA_POINT_TYPES, QString>> &fields) {
    static constexpr int widths[] = {1, 2, 4, 8, 4, 8, 0};
    m_fields.clear();
    m_header.recordSize = 0;
    for (const auto &field : fields) {
        coreFieldDescriptor descriptor = zeroRecord<coreFieldDescriptor>();
        descriptor.type = field.first;
        fillField(descriptor.name, field.second);
        m_fields.push_back(descriptor);
        m_header.recordSize += static_cast<Word>(widths[field.first]);
    }
    m_data.clear();
    m_header.count = 0;
    publish();
}

void FakeArray::publish() {
    m_header.fields = m_fields.data();
    m_header.fieldCount = static_cast<int>(m_fields.size());
    m_header.data = m_data.data();
}

void FakeArray::append(const void *record) {
    const auto *bytes = static_cast<const unsigned char *>(record);
    m_data.insert(m_data.end(), bytes, bytes + m_header.recordSize);
    ++m_header.count;
    publish();
}

void FakeArray::replaceLast(const void *record) {
    if (m_header.count > 0)
        std::memcpy(m_data.data() + static_cast<std::size_t>(m_header.count - 1) * m_header.recordSize,
                    record, m_header.recordSize);
}

void FakeArray::clear() {
    m_data.clear();
    m_header.count = 0;
    publish();
}

void FakeArray::setCandles(const std::vector<Bar> &bars) {
    setFields({{DPT_LONG, "TIME"},
               {DPT_FLOAT, "OPEN"},
               {DPT_FLOAT, "HIGH"},
               {DPT_FLOAT, "LOW"},
               {DPT_FLOAT, "CLOSE"},
               {DPT_FLOAT, "VOLUME"}});
    m_data.reserve(bars.size() * sizeof(Bar));
    for (const Bar &bar : bars)
        append(&bar);
}

void FakeArray::setTicks(const std::vector<Tick> &ticks) {
    setFields({{DPT_LONG, "TIME"}, {DPT_FLOAT, "VALUE"}, {DPT_FLOAT, "VOLUME"}});
    for (const Tick &tick : ticks)
        append(&tick);
}

void FakeArray::setValues(const std::vector<Value> &values) {
    setFields({{DPT_LONG, "TIME"}, {DPT_FLOAT, "VALUE"}});
    for (const Value &value : values)
        append(&value);
}

void FakeArray::setMarks(const std::vector<corePointMark> &marks) {
    setFields({{DPT_LONG, "TIME"},
               {DPT_FLOAT, "HIGH"},
               {DPT_FLOAT, "LOW"},
               {DPT_BYTE, "SIGN"},
               {DPT_LONG, "COLOR"}});
    for (const corePointMark &mark : marks)
        append(&mark);
}

Bar FakeArray::bar(int index) const {
    Bar bar;
    std::memcpy(&bar, record(index), sizeof bar);
    return bar;
}
