#include "chart/GraphLayer.h"

#include "chart/GraphWidget.h"
#include "chart/HitTestGeometry.h"
#include "chart/HitTestLine.h"
#include "chart/Primitive.h"
#include "chart/PrimitiveGeometry.h"
#include "chart/PrimitiveMarks.h"
#include "chart/PrimitivePaintersCandle.h"
#include "chart/PrimitiveTypes.h"
#include "chart/TimeScale.h"

#include <algorithm>

namespace {

constexpr int tolerance = 5;
constexpr int overdraw = 500;

// What a test needs: the layer, the series, the point, and the position under it.
struct Probe {
    const CRGraphLayer &layer;
    const CRPrimitive &primitive;
    LayerMapping mapping;
    QPoint point;
    int position;

    int Row(double value) const { return mapping.Y(static_cast<float>(value)); }
    bool OnLine(const QLine &line) const {
        return CRGraphLayer::PtInLine(line.p1(), line.p2(), point, tolerance);
    }
    bool InRect(const QRect &rect) const { return CRGraphLayer::PtInRect(rect, point, tolerance); }
};

// Each test gives the data index that was hit, or -1.
using Test = int (*)(const Probe &);

// The tests of one column: `hits` looks at the column's centre and its data index.
template <bool (*hits)(const Probe &, int x, int dataIndex)>
int testColumn(const Probe &probe) {
    const int dataIndex = probe.primitive.GetPos(probe.position);
    if (!probe.primitive.GetDataPoint(dataIndex))
        return -1;
    return hits(probe, probe.mapping.CenterX(probe.position - probe.mapping.firstPos), dataIndex) ? dataIndex
                                                                                                  : -1;
}

int testLine(const Probe &probe) {
    int dataIndex = -1;
    const auto wrapper = Wrap::Primitive::Create(&probe.layer, &probe.primitive, probe.primitive.m_type);
    return wrapper && wrapper->IsUnderMouse(probe.point, dataIndex) ? dataIndex : -1;
}

bool hitsDot(const Probe &probe, int x, int dataIndex) {
    constexpr double smallStep = 5;
    const bool onClose = probe.primitive.m_type == PT_CLOSE_DOTS;
    const int y =
        probe.Row(onClose ? probe.primitive.GetClose(dataIndex) : probe.primitive.FirstValue(dataIndex));
    const QRect dot = dotSize(probe.mapping.candleStep).At(x, y);
    if (probe.mapping.candleStep < smallStep)
        return probe.OnLine(QLine(x, dot.top(), x, dot.top() + dot.height()));
    return probe.InRect(dot);
}

bool hitsHistogram(const Probe &probe, int x, int dataIndex) {
    return probe.OnLine(QLine(x, probe.Row(probe.primitive.FirstValue(dataIndex)), x,
                              histogramBase(probe.primitive, probe.mapping)));
}

bool hitsCandle(const Probe &probe, int x, int dataIndex) {
    const double half = 0.5 * candleWidth(probe.mapping.candleStep).full;
    const QRect body(QPoint(static_cast<int>(x - half), probe.Row(probe.primitive.GetOpen(dataIndex))),
                     QPoint(static_cast<int>(x + half), probe.Row(probe.primitive.GetClose(dataIndex))));
    return probe.InRect(body) || probe.OnLine(QLine(x, probe.Row(probe.primitive.GetHigh(dataIndex)), x,
                                                    probe.Row(probe.primitive.GetLow(dataIndex))));
}

bool hitsBar(const Probe &probe, int x, int dataIndex) {
    const int tick = barTick(probe.mapping.candleStep);
    const int open = probe.Row(probe.primitive.GetOpen(dataIndex));
    const int close = probe.Row(probe.primitive.GetClose(dataIndex));
    return probe.OnLine(QLine(x, probe.Row(probe.primitive.GetHigh(dataIndex)), x,
                              probe.Row(probe.primitive.GetLow(dataIndex)))) ||
           probe.OnLine(QLine(x - tick, open, x, open)) || probe.OnLine(QLine(x, close, x + tick, close));
}

bool hitsMark(const Probe &probe, int x, int dataIndex) {
    const Mark mark = markAt(probe.primitive, dataIndex);
    const int first = probe.Row(mark.first);
    const int second = probe.Row(mark.second);
    const auto onArrow = [&probe](const Arrow &arrow) {
        return probe.OnLine(arrow.left) || probe.OnLine(arrow.right);
    };
    const double step = probe.mapping.candleStep;
    return probe.OnLine(QLine(x, first, x, second)) ||
           (hasArrowAbove(mark.kind) && onArrow(arrowAbove(x, std::min(first, second), step))) ||
           (hasArrowBelow(mark.kind) && onArrow(arrowBelow(x, std::max(first, second), step)));
}

// The boxes that can reach the point begin at or before its column; of those in the same pixel column the
// walk begins with the first.
int testWideCandle(const Probe &probe) {
    const CRGraphWidget *widget = probe.layer.GetWidget();
    const CRTimeScale *axis = widget ? widget->m_pTimeScale : nullptr;
    if (!axis || probe.mapping.rect.width() <= 0)
        return -1;
    const bool tick = probe.primitive.IsTickSeries();
    const int firstPos = probe.mapping.firstPos;
    const auto leftOf = [&](int position) { return probe.mapping.LeftX(position - firstPos, tick); };
    int position = probe.position + 1;
    while (position > firstPos - overdraw && leftOf(position) >= probe.point.x())
        --position;
    position = std::max(probe.primitive.PreviousSignedPos(position), firstPos - overdraw);
    for (position = probe.primitive.NextSignedPos(position);
         position >= 0 && leftOf(position) <= probe.point.x();
         position = probe.primitive.NextSignedPos(position + 1)) {
        const int dataIndex = probe.primitive.GetPos(position);
        const int end = wideCandleEnd(probe.primitive, position, firstPos, axis->GetTimeCount(),
                                      widget->m_nFreeSpacePositions);
        const QRect box(QPoint(leftOf(position), probe.Row(probe.primitive.GetHigh(dataIndex))),
                        QPoint(probe.mapping.LeftX(end, tick), probe.Row(probe.primitive.GetLow(dataIndex))));
        if (probe.InRect(box))
            return dataIndex;
    }
    return -1;
}

// By draw type. A pattern is never under the mouse.
constexpr Test tests[] = {
    testLine,
    testColumn<hitsDot>,
    testColumn<hitsHistogram>,
    testLine,
    testLine,
    testColumn<hitsCandle>,
    testColumn<hitsBar>,
    testWideCandle,
    testColumn<hitsMark>,
    testColumn<hitsDot>,
};
constexpr int testCount = sizeof tests / sizeof tests[0];

} // namespace

bool CRGraphLayer::PtInLine(const QRect &line, const QPoint &point, int tolerance) {
    return Util::Point::InLine(line, point, tolerance);
}

bool CRGraphLayer::PtInLine(const QPoint &a, const QPoint &b, const QPoint &point, int tolerance) {
    return Util::Point::InLine(a, b, point, tolerance);
}

// The tolerance is not for rectangles.
bool CRGraphLayer::PtInRect(const QRect &rect, const QPoint &point, int) {
    return rect.normalized().contains(point);
}

bool CRGraphLayer::IsPrimitiveUnderMouse(CRPrimitive *primitive, const QPoint &point) {
    const CRGraphWidget *widget = GetWidget();
    const CRTimeScale *axis = widget ? widget->m_pTimeScale : nullptr;
    if (!primitive || !axis || axis->GetTimeCount() == 0 || m_nScreenPoints == 0)
        return false;
    primitive->m_nHoverIndex = -1;
    primitive->m_nHoverTime = 0;
    if (primitive->m_type < 0 || primitive->m_type >= testCount || m_rect.width() <= 0)
        return false;
    const LayerMapping mapping = Mapping();
    const Probe probe{*this, *primitive, mapping, point, mapping.RelativePos(point.x()) + m_nFirstPos};
    const int dataIndex = tests[primitive->m_type](probe);
    if (dataIndex < 0)
        return false;
    primitive->m_nHoverIndex = dataIndex;
    primitive->m_nHoverTime = primitive->GetTime(dataIndex);
    if (m_gatherToolTip)
        AddToolTip(primitive, dataIndex);
    return true;
}
