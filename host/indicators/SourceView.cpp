#include "host/indicators/SourceView.h"
#include "module/HostRecords.h"

namespace desk {

SourceView::SourceView(const mvDataPointArray *array) : m_array(array) {
    static constexpr int widths[] = {1, 2, 4, 8, 4, 8, 0};
    int offset = 0;
    int value = -1;
    m_open = m_high = m_low = m_close = -1;
    for (int i = 0; i < array->fieldCount; ++i) {
        const coreFieldDescriptor &field = array->fields[i];
        const QByteArray name = fieldBytes(field.name);
        if (field.type == DPT_FLOAT && value < 0)
            value = offset; // the first one speaks for what is missing
        if (name == "TIME")
            m_time = offset;
        else if (name == "OPEN")
            m_open = offset;
        else if (name == "HIGH")
            m_high = offset;
        else if (name == "LOW")
            m_low = offset;
        else if (name == "CLOSE")
            m_close = offset;
        else if (name == "VOLUME")
            m_volume = offset;
        offset += field.type <= DPT_NONE ? widths[field.type] : 0;
    }
    for (int *price : {&m_open, &m_high, &m_low, &m_close}) {
        if (*price < 0)
            *price = value < 0 ? 0 : value;
    }
}

int SourceView::count() const {
    return m_array && m_array->data ? m_array->count : 0;
}

const unsigned char *SourceView::point(int index) const {
    return m_array->data + std::size_t(index) * m_array->recordSize;
}

double SourceView::price(int index, Price price) const {
    switch (price) {
    case Price::Close:
        return close(index);
    case Price::Open:
        return open(index);
    case Price::High:
        return high(index);
    case Price::Low:
        return low(index);
    case Price::Median:
        return (high(index) + low(index)) / 2;
    case Price::Typical:
        return (high(index) + low(index) + close(index)) / 3;
    case Price::Weighted:
        return (high(index) + low(index) + 2 * close(index)) / 4;
    }
    return 0;
}

int SourceView::indexOf(qint32 time) const {
    int first = 0;
    int last = count();
    while (first < last) {
        const int middle = first + (last - first) / 2;
        if (this->time(middle) < time)
            first = middle + 1;
        else
            last = middle;
    }
    return first;
}

} // namespace desk
