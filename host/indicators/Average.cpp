#include "host/indicators/Average.h"
#include <algorithm>
#include <limits>

namespace desk {

void Average::truncate(int count) {
    m_count = std::min(m_count, count);
    m_values.resize(std::min(m_values.size(), size_t(m_count)));
    m_results.resize(std::min(m_results.size(), size_t(std::max(0, m_count - m_length + 1))));
}

double Average::mean() const {
    double sum = 0;
    for (size_t i = m_values.size() - size_t(m_length); i < m_values.size(); ++i)
        sum += m_values[i];
    return sum / m_length;
}

double Average::add(double value) {
    const bool chained = m_method == AverageMethod::Exponential || m_method == AverageMethod::Smoothed;
    ++m_count;
    if (!chained || m_count <= m_length)
        m_values.push_back(value);
    if (m_count < m_length)
        return std::numeric_limits<double>::quiet_NaN();
    switch (m_method) {
    case AverageMethod::Simple:
        return mean();
    case AverageMethod::Weighted: {
        double sum = 0;
        const size_t first = m_values.size() - size_t(m_length);
        for (int i = 0; i < m_length; ++i)
            sum += m_values[first + size_t(i)] * (i + 1);
        return sum / (double(m_length) * (m_length + 1) / 2);
    }
    case AverageMethod::Exponential:
    case AverageMethod::Smoothed:
        break;
    }
    // The chain begins with the plain mean of the first values.
    double result = 0;
    if (m_results.empty()) {
        result = mean();
    } else {
        const double share = m_method == AverageMethod::Exponential ? 2.0 / (m_length + 1) : 1.0 / m_length;
        result = m_results.back() + share * (value - m_results.back());
    }
    m_results.push_back(result);
    return result;
}

} // namespace desk
