#pragma once
// Data for charts: bars, ticks and values, and the host arrays that hold them.
#include "module/HostRecords.h"

#include <QString>
#include <functional>
#include <memory>
#include <vector>

struct Bar {
    int time; // seconds
    float open, high, low, close, volume;
};

struct Tick {
    int time;
    float value, volume;
};

struct Value {
    int time;
    float value;
};

/// A walk of bars that depends on nothing but its arguments; prices stay near `price`.
std::vector<Bar> makeBars(int count, int startTime = 1388534400, int stepSec = 3600, float price = 1.3f);
std::vector<Tick> makeTicks(int count, int startTime = 1388534400, int stepSec = 5, float price = 1.3f);

namePeriod makePeriod(char letter, int length, int start = 0);
coreNameInstrument makeName(const QString &symbol, const char *type, namePeriod period);
int periodSeconds(const namePeriod &period); // of one bar; 5 for ticks

/// An array of the host: the header stays at its address, the data may move.
class FakeArray {
public:
    FakeArray();
    FakeArray(const FakeArray &) = delete;
    FakeArray &operator=(const FakeArray &) = delete;

    mvDataPointArray *header() { return &m_header; }
    void setFields(const std::vector<std::pair<DATA_POINT_TYPES, QString>> &fields);
    void append(const void *record); // recordSize bytes
    void replaceLast(const void *record);
    void clear();
    int count() const { return m_header.count; }
    const unsigned char *record(int index) const { return m_data.data() + index * m_header.recordSize; }

    void setCandles(const std::vector<Bar> &bars);          // TIME, OPEN, HIGH, LOW, CLOSE, VOLUME
    void setTicks(const std::vector<Tick> &ticks);          // TIME, VALUE, VOLUME
    void setValues(const std::vector<Value> &values);       // TIME, VALUE
    void setMarks(const std::vector<corePointMark> &marks); // TIME, HIGH, LOW, SIGN, COLOR
    Bar bar(int index) const;

private:
    void publish();

    mvDataPointArray m_header;
    std::vector<coreFieldDescriptor> m_fields;
    std::vector<unsigned char> m_data;
};
