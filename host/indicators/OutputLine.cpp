#include "host/indicators/OutputLine.h"
#include <algorithm>
#include <cmath>

namespace desk {

qint32 TimeAxis::time(int index) {
    const int count = m_source.count();
    if (index < count)
        return m_source.time(index);
    const size_t ahead = size_t(index - count);
    while (m_future.size() <= ahead) {
        const qint32 last = !m_future.empty() ? m_future.back() : count > 0 ? m_source.time(count - 1) : 0;
        m_future.push_back(std::max(last + 1, m_cutter.next(last)));
    }
    return m_future[ahead];
}

OutputLine::OutputLine(LineStyle style)
    : m_style(style), m_header(style == LineStyle::Marks ? markLayout() : valueLayout()) {}

void OutputLine::truncate(int index) {
    m_next = index;
    if (m_style == LineStyle::Marks) {
        while (!m_markIndexes.empty() && m_markIndexes.back() >= index) {
            m_markIndexes.pop_back();
            m_marks.pop_back();
        }
        return;
    }
    if (m_first < 0 || index <= m_first) {
        m_first = -1;
        m_values.clear();
    } else {
        m_values.resize(std::min(m_values.size(), size_t(index - m_first)));
    }
}

// A line that has begun has a value at every point: one that cannot be computed repeats the last.
void OutputLine::add(double value) {
    const int index = m_next++;
    if (m_first < 0) {
        if (!std::isfinite(value) || index + m_shift < 0)
            return;
        m_first = index;
    }
    m_values.push_back({0, std::isfinite(value) ? float(value) : m_values.back().value});
}

void OutputLine::addMark(int index, float high, float low, unsigned char sign, quint32 colour) {
    m_markIndexes.push_back(index);
    m_marks.push_back({index, high, low, sign, int(colour)}); // the time follows
}

int OutputLine::firstChanged(int index) const {
    if (m_style == LineStyle::Marks)
        return int(std::lower_bound(m_markIndexes.begin(), m_markIndexes.end(), index) -
                   m_markIndexes.begin());
    return m_first < 0 ? 0 : std::max(0, index - std::max(0, m_shift) - m_first);
}

int OutputLine::size() const {
    return int(m_style == LineStyle::Marks ? m_marks.size() : m_values.size());
}

void OutputLine::publish(TimeAxis &axis, int index) {
    const size_t from = size_t(firstChanged(index));
    if (m_style == LineStyle::Marks) {
        for (size_t i = from; i < m_marks.size(); ++i)
            m_marks[i].time = axis.time(m_markIndexes[i]);
        m_header.setData(m_marks.data(), m_marks.size());
        return;
    }
    for (size_t i = from; i < m_values.size(); ++i)
        m_values[i].time = axis.time(m_first + int(i) + m_shift);
    m_header.setData(m_values.data(), m_values.size());
}

} // namespace desk
