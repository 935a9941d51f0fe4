#pragma once
#include "host/quotes/Period.h"
#include <cstring>
#include <vector>

struct mvDataPointArray;

namespace desk {

enum class Price { Close, Open, High, Low, Median, Typical, Weighted };

// Reads an array as a series of prices, whatever its fields: where a series has one value, or a mark's two,
// that stands for all four prices.
class SourceView {
public:
    SourceView() = default;
    explicit SourceView(const mvDataPointArray *array);

    int count() const;
    qint32 time(int index) const { return read<qint32>(index, m_time); }
    double open(int index) const { return read<float>(index, m_open); }
    double high(int index) const { return read<float>(index, m_high); }
    double low(int index) const { return read<float>(index, m_low); }
    double close(int index) const { return read<float>(index, m_close); }
    double volume(int index) const { return m_volume < 0 ? 0 : double(read<float>(index, m_volume)); }
    double price(int index, Price price) const;
    // First index whose time is not before this one.
    int indexOf(qint32 time) const;

private:
    template <class Field>
    Field read(int index, int offset) const {
        Field value;
        std::memcpy(&value, point(index) + offset, sizeof value);
        return value;
    }
    const unsigned char *point(int index) const;

    const mvDataPointArray *m_array = nullptr;
    int m_time = 0;
    int m_open = 0;
    int m_high = 0;
    int m_low = 0;
    int m_close = 0;
    int m_volume = -1;
};

} // namespace desk
