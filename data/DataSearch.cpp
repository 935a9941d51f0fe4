#include "data/DataLine.h"
#include "data/Time.h"

#include <QLocale>
#include <algorithm>
#include <functional>

namespace {

template <class T>
T load(const unsigned char *source) {
    T value;
    std::memcpy(&value, source, sizeof value);
    return value;
}

// Runs `visit` with a reader of a field of this type: the type is looked at once, not at every point.
template <class Visit>
auto withReader(DATA_POINT_TYPES type, Visit visit) {
    switch (type) {
    case DPT_BYTE:
    case DPT_INT64:
    case DPT_DOUBLE:
        return visit([](const unsigned char *source) { return static_cast<double>(*source); });
    case DPT_SHORT:
        return visit(
            [](const unsigned char *source) { return static_cast<double>(load<unsigned short>(source)); });
    case DPT_LONG:
        return visit([](const unsigned char *source) { return static_cast<double>(load<int>(source)); });
    case DPT_FLOAT:
        return visit([](const unsigned char *source) { return static_cast<double>(load<float>(source)); });
    default:
        return visit([](const unsigned char *) { return 0.0; });
    }
}

struct Range {
    int from;
    int to;
};

// Both ends brought into the array; a `to` of -1 or past the end is the last point.
Range rangeOf(int from, int to, int count) {
    Range range{std::max(from, 0), to};
    if (to == -1 || to >= count)
        range.to = count - 1;
    return range;
}

// FindTime and FindElement: an inverted range is the one point at `from`.
Range forwardRange(int from, int to, int count) {
    Range range = rangeOf(from, to, count);
    range.from = std::min(range.from, count - 1);
    range.to = std::max(range.from, range.to);
    return range.from < 0 ? Range{0, -1} : range;
}

// FindMinElement and FindMaxElement: an inverted range is the one point at `to`.
Range extremeRange(int from, int to, int count) {
    Range range = rangeOf(from, to, count);
    range.from = std::min(range.from, range.to);
    return range.to < 0 ? Range{0, -1} : range;
}

constexpr double farAway = 1.7e308;

} // namespace

double CRMDataLine::ValueByName(const QString &field, int index) const {
    const auto offset = m_fieldOffsets.find(field);
    if (!m_pArray || !m_pArray->data || offset == m_fieldOffsets.end())
        return 0.0;
    const unsigned char *source = m_pArray->data +
                                  static_cast<ptrdiff_t>(index) * static_cast<int>(m_pArray->recordSize) +
                                  offset->second;
    return withReader(GetFieldType(field), [&](auto read) { return read(source); });
}

int CRMDataLine::FindTime(long timeSec, int from, int to) const {
    if (!m_pArray || !m_pArray->data || m_fieldOffset[TIME] < 0)
        return 0;
    const Range range = forwardRange(from, to, m_pArray->count);
    for (int i = range.from; i <= range.to; ++i) {
        const long time = longAt(TIME, i);
        if (time == timeSec)
            return i;
        if (time > timeSec)
            break;
    }
    return -1;
}

int CRMDataLine::FindElement(const QString &field, double value, int from, int to) const {
    if (!m_pArray || !m_pArray->data)
        return 0;
    const int offset = GetFieldOffset(field);
    if (offset < 0)
        return -1;
    const Range range = forwardRange(from, to, m_pArray->count);
    return withReader(GetFieldType(field), [&](auto read) {
        const unsigned char *source =
            m_pArray->data + static_cast<size_t>(range.from) * m_pArray->recordSize + offset;
        for (int i = range.from; i <= range.to; ++i, source += m_pArray->recordSize)
            if (read(source) == value)
                return i;
        return -1;
    });
}

double CRMDataLine::FindMinElement(const QString &field, int from, int to) const {
    return FindExtreme(field, from, to, farAway, std::less<double>());
}

double CRMDataLine::FindMaxElement(const QString &field, int from, int to) const {
    return FindExtreme(field, from, to, -farAway, std::greater<double>());
}

// Begins with `start`, which an empty range leaves.
template <class Better>
double CRMDataLine::FindExtreme(const QString &field, int from, int to, double start, Better better) const {
    const auto place = m_fieldOffsets.find(field);
    if (!m_pArray || !m_pArray->data || place == m_fieldOffsets.end())
        return 0.0;
    const Range range = extremeRange(from, to, m_pArray->count);
    return withReader(GetFieldType(field), [&](auto read) {
        double best = start;
        const Word step = m_pArray->recordSize;
        const unsigned char *source = m_pArray->data + static_cast<size_t>(range.from) * step + place->second;
        for (int i = range.from; i <= range.to; ++i, source += step) {
            const double value = read(source);
            best = better(value, best) ? value : best;
        }
        return best;
    });
}

void CRMDataLine::GetStringRepresentation(QString &out) const {
    static const struct {
        Field field;
        const char *name;
    } columns[] = {{TIME, "TIME"},     {OPEN, "OPEN"},   {HIGH, "HIGH"},
                   {LOW, "LOW"},       {CLOSE, "CLOSE"}, {VALUE, "VALUE"},
                   {VOLUME, "VOLUME"}, {SIGN, "SIGN"},   {POSITION, "POSITION"}};
    for (const auto &column : columns)
        if (HasField(column.field))
            out += QLatin1String(column.name) + QLatin1Char('\t');
    out += '\n';
    QLocale::setDefault(QLocale::system());
    const QLocale locale;
    const int count = m_pArray && m_pArray->data ? m_pArray->count : 0;
    for (int i = 0; i < count; ++i) {
        for (const auto &column : columns) {
            if (!HasField(column.field))
                continue;
            switch (column.field) {
            case TIME:
                out += QString::fromLocal8Bit(CRMTime::Format(longAt(TIME, i), "%d/%m/%y %H:%M:%S"));
                break;
            case SIGN:
                out += QString::asprintf("%d", byteAt(SIGN, i));
                break;
            case POSITION:
                out += QString::asprintf("%d", longAt(POSITION, i));
                break;
            case VOLUME:
                out +=
                    locale.toString(double(floatAt(VOLUME, i)), 'f', m_pArray->precision).remove(QChar(160));
                break;
            default:
                out += locale.toString(double(floatAt(column.field, i)), 'f', m_pArray->precision);
                break;
            }
            out += '\t';
        }
        out += '\n';
    }
}
