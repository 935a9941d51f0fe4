#pragma once
#include "host/quotes/Period.h"
#include "module/HostRecords.h"
#include <QString>
#include <vector>

namespace desk {

// The fields of a kind of point, in their order in the record.
struct PointLayout {
    coreFieldDescriptor *fields;
    int fieldCount;
    Word recordSize;
};
const PointLayout &candleLayout(); // corePointCandle
const PointLayout &tickLayout();   // corePointTick
const PointLayout &valueLayout();  // corePointValue
const PointLayout &markLayout();   // corePointMark

namePeriod recordOf(Period period);
Period periodOf(const namePeriod &record);
void setName(coreNameInstrument &record, const QString &symbol, const QString &type, Period period);

// The header of one array that charts read in place. It stays at its address; its data may move.
class ArrayHeader {
public:
    explicit ArrayHeader(const PointLayout &layout);
    ArrayHeader(const ArrayHeader &) = delete;
    ArrayHeader &operator=(const ArrayHeader &) = delete;

    mvDataPointArray *record() { return &m_record; }
    const mvDataPointArray *record() const { return &m_record; }
    void setLayout(const PointLayout &layout);
    void setData(const void *data, size_t count);

private:
    mvDataPointArray m_record;
};

// An array of points that grows at its end at a cost that does not depend on its length.
template <class Point>
class PointArray : public ArrayHeader {
public:
    explicit PointArray(const PointLayout &layout) : ArrayHeader(layout) {}

    const std::vector<Point> &points() const { return m_points; }
    void assign(std::vector<Point> points) {
        m_points = std::move(points);
        publish();
    }
    void append(const Point &point) {
        m_points.push_back(point);
        publish();
    }
    void setLast(const Point &point) { m_points.back() = point; }
    void set(size_t index, const Point &point) { m_points[index] = point; }
    void resize(size_t count) {
        m_points.resize(count);
        publish();
    }
    void publish() { setData(m_points.data(), m_points.size()); }

private:
    std::vector<Point> m_points;
};

} // namespace desk
