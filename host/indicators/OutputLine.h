#pragma once
#include "host/indicators/SourceView.h"
#include "host/quotes/PointArray.h"
#include <QString>
#include <vector>

namespace desk {

enum class LineStyle { Line, Histogram, Dots, Marks };

// How an indicator's output is named and drawn, unless its user has changed that.
struct LineLook {
    QString name;
    LineStyle style = LineStyle::Line;
    quint32 colour = 0xff3060c0;
    quint32 downColour = 0; // of marks below; 0: the same
    int weight = 1;
    int penType = 1;    // a Qt::PenStyle
    int shift = 0;      // bars to the right
    int precision = -1; // -1: as the source
    bool present = true;
};

// Times of a source's bars, and of the bars that will follow the last one.
class TimeAxis {
public:
    TimeAxis(const SourceView &source, Period period) : m_source(source), m_cutter(period) {}
    qint32 time(int index);

private:
    const SourceView &m_source;
    BarCutter m_cutter;
    std::vector<qint32> m_future;
};

// One output of an indicator: values, or marks, of the source's points from its first one on that has any.
class OutputLine {
public:
    explicit OutputLine(LineStyle style);

    mvDataPointArray *record() { return m_header.record(); }
    const mvDataPointArray *record() const { return m_header.record(); }
    LineStyle style() const { return m_style; }
    void setShift(int shift) { m_shift = shift; }

    // Forgets everything at and behind this point of the source.
    void truncate(int index);
    // The next point of the source has this value; not a number before the first value.
    void add(double value);
    void addMark(int index, float high, float low, unsigned char sign, quint32 colour);
    // Points of the source from `index` on have been added: writes their times and shows them.
    void publish(TimeAxis &axis, int index);
    // First point of this line that differs when the source's points from `index` on do.
    int firstChanged(int index) const;
    int size() const;
    float value(int point) const { return m_values[size_t(point)].value; }

private:
    LineStyle m_style;
    ArrayHeader m_header;
    int m_shift = 0;
    int m_next = 0;   // point of the source that comes next
    int m_first = -1; // point of the source that the first value belongs to
    std::vector<corePointValue> m_values;
    std::vector<corePointMark> m_marks;
    std::vector<int> m_markIndexes;
};

} // namespace desk
