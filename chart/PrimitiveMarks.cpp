#include "chart/PrimitiveMarks.h"

#include "chart/Primitive.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr int joinedShowType = 4;

template <class T>
T valueAt(const unsigned char *point, std::size_t offset) {
    T value;
    std::memcpy(&value, point + offset, sizeof value);
    return value;
}

} // namespace

Mark markAt(const CRPrimitive &primitive, int dataIndex) {
    Mark mark{primitive.GetHigh(dataIndex), primitive.GetLow(dataIndex), primitive.GetSign(dataIndex), 0};
    const unsigned char *point = primitive.GetDataPoint(dataIndex);
    if (!point || primitive.GetArray()->recordSize < sizeof(corePointMark))
        return mark;
    if (!primitive.HasField(CRMDataLine::HIGH) || !primitive.HasField(CRMDataLine::LOW)) {
        mark.first = valueAt<float>(point, offsetof(corePointMark, high));
        mark.second = valueAt<float>(point, offsetof(corePointMark, low));
    }
    if (!primitive.HasField(CRMDataLine::SIGN))
        mark.kind = point[offsetof(corePointMark, sign)];
    mark.color = static_cast<QRgb>(valueAt<int>(point, offsetof(corePointMark, color)));
    return mark;
}

bool areMarksJoined(const CRPrimitive &primitive) {
    return primitive.GetArray() && primitive.GetArray()->typeShow.lineShowType == joinedShowType;
}

int histogramBase(const CRPrimitive &primitive, const LayerMapping &mapping) {
    return primitive.GetArray()
               ? std::min(mapping.Y(primitive.GetArray()->typeShow.borderValue), mapping.rect.bottom())
               : mapping.rect.bottom();
}
