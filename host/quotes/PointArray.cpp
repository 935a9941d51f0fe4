#include "host/quotes/PointArray.h"

namespace desk {

namespace {

constexpr Word widths[] = {1, 2, 4, 8, 4, 8, 0};

template <size_t Count>
PointLayout layoutOf(coreFieldDescriptor (&fields)[Count], const char *const (&names)[Count],
                     const DATA_POINT_TYPES (&types)[Count]) {
    Word size = 0;
    for (size_t i = 0; i < Count; ++i) {
        fields[i].type = types[i];
        fillField(fields[i].name, names[i]);
        size += widths[types[i]];
    }
    return {fields, int(Count), size};
}

} // namespace

const PointLayout &candleLayout() {
    static coreFieldDescriptor fields[6];
    static const PointLayout layout =
        layoutOf(fields, {"TIME", "OPEN", "HIGH", "LOW", "CLOSE", "VOLUME"},
                 {DPT_LONG, DPT_FLOAT, DPT_FLOAT, DPT_FLOAT, DPT_FLOAT, DPT_FLOAT});
    return layout;
}

const PointLayout &tickLayout() {
    static coreFieldDescriptor fields[3];
    static const PointLayout layout =
        layoutOf(fields, {"TIME", "VALUE", "VOLUME"}, {DPT_LONG, DPT_FLOAT, DPT_FLOAT});
    return layout;
}

const PointLayout &valueLayout() {
    static coreFieldDescriptor fields[2];
    static const PointLayout layout = layoutOf(fields, {"TIME", "VALUE"}, {DPT_LONG, DPT_FLOAT});
    return layout;
}

const PointLayout &markLayout() {
    static coreFieldDescriptor fields[5];
    static const PointLayout layout = layoutOf(fields, {"TIME", "HIGH", "LOW", "SIGN", "COLOR"},
                                               {DPT_LONG, DPT_FLOAT, DPT_FLOAT, DPT_BYTE, DPT_LONG});
    return layout;
}

namePeriod recordOf(Period period) {
    return {period.unit, period.length, 0};
}

Period periodOf(const namePeriod &record) {
    return {record.period, record.lenPeriod};
}

void setName(coreNameInstrument &record, const QString &symbol, const QString &type, Period period) {
    fillField(record.m_szNameSymbol, symbol.left(254));
    fillField(record.m_szType, type.left(254));
    record.m_periods = recordOf(period);
}

ArrayHeader::ArrayHeader(const PointLayout &layout) : m_record(zeroRecord<mvDataPointArray>()) {
    setLayout(layout);
    m_record.typeShow.penType = eCoreTypeShowPenSolid;
    m_record.typeShow.weightPen = 1;
}

void ArrayHeader::setLayout(const PointLayout &layout) {
    m_record.fields = layout.fields;
    m_record.fieldCount = layout.fieldCount;
    m_record.recordSize = layout.recordSize;
}

void ArrayHeader::setData(const void *data, size_t count) {
    m_record.data = count == 0 ? nullptr : static_cast<unsigned char *>(const_cast<void *>(data));
    m_record.count = int(count);
}

} // namespace desk
