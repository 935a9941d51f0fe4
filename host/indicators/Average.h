#pragma once
#include <QtGlobal>
#include <vector>

namespace desk {

enum class AverageMethod { Simple, Exponential, Smoothed, Weighted };

// A moving average over values that come one by one; its end can be taken back and given again.
class Average {
public:
    Average() = default;
    Average(AverageMethod method, int length) : m_method(method), m_length(qMax(1, length)) {}

    // Keeps the first `count` values.
    void truncate(int count);
    int count() const { return m_count; }
    // The average with this value; not a number before there are `length` values.
    double add(double value);

private:
    double mean() const;

    AverageMethod m_method = AverageMethod::Simple;
    int m_length = 1;
    int m_count = 0;
    std::vector<double> m_values;  // all of them, or those that begin the chain of averages
    std::vector<double> m_results; // of the methods that go on from their last result
};

} // namespace desk
