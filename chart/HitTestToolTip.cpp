#include "chart/HitTestToolTip.h"
#include "chart/GraphArea.h"
#include "chart/GraphLayer.h"
#include "chart/GraphWidget.h"
#include "chart/Primitive.h"
#include "chart/PrimitiveMarks.h"
#include "chart/TimeText.h"
#include "module/GraphModule.h"
#include "support/Numbers.h"

namespace {

const QLatin1String separator("\n\n");
constexpr int toolTipTolerance = 5;
constexpr int topOfStrip = 20; // pixels of a scale strip that belong to the button

QString joined(const QString &a, const QString &b) {
    return a.isEmpty() || b.isEmpty() ? a + b : a + separator + b;
}

} // namespace

QString toolTipEntry(const ToolTipPoint &point) {
    QString text = point.alias + QLatin1Char('\n') + point.date;
    if (point.isIntraday)
        text += QLatin1Char('\n') + point.time;
    for (const ToolTipValue &value : point.values)
        text += QString::asprintf("\n%s %0.*f", qUtf8Printable(value.name), point.decimals, value.value);
    return text;
}

void CRGraphLayer::AddToolTip(const CRPrimitive *primitive, int dataIndex) {
    const mvDataPointArray *array = primitive->GetArray();
    if (!array)
        return;
    ToolTipPoint entry;
    entry.alias = primitive->GetAlias();
    entry.isIntraday = array->identity.m_periods.period == 'I';
    entry.decimals = decimalsOf(m_tick);
    const long time = primitive->GetTime(dataIndex);
    entry.date = timeText(time, "G0ddMMyyyy");
    if (entry.isIntraday)
        entry.time = timeText(time, "G0hhmmss");
    switch (primitive->m_type) {
    case PT_CANDLE:
    case PT_BAR:
    case PT_WIDE_CANDLE:
        entry.values = {{"Open", primitive->GetOpen(dataIndex)},
                        {"High", primitive->GetHigh(dataIndex)},
                        {"Low", primitive->GetLow(dataIndex)},
                        {"Close", primitive->GetClose(dataIndex)}};
        break;
    case PT_MARKS: {
        const Mark mark = markAt(*primitive, dataIndex);
        entry.values = {{"High", mark.first}, {"Low", mark.second}};
        break;
    }
    default:
        entry.values = {{primitive->m_name, primitive->TitleValue(dataIndex, nullptr)}};
        break;
    }
    m_toolTip = joined(m_toolTip, toolTipEntry(entry));
}

QString CRGraphLayer::GetToolTipInfo(const QPoint &point) {
    m_toolTip.clear();
    const bool onStrip = !m_bDataScaleSelfTuning && point.y() >= m_rect.top() + topOfStrip &&
                         ((ShowsScale(RIGHT_SCALE) && ScaleStrip(RIGHT_SCALE).contains(point)) ||
                          (ShowsScale(LEFT_SCALE) && ScaleStrip(LEFT_SCALE).contains(point)));
    if (m_rightAutoRect.contains(point) || m_leftAutoRect.contains(point) || onStrip) {
        m_toolTip = GetModule()->tr("G0112Message", nullptr);
        return m_toolTip;
    }
    if (!PtInRect(m_rect, point, toolTipTolerance))
        return m_toolTip;
    m_gatherToolTip = true;
    const std::vector<CRPrimitive *> primitives(m_primitives); // the host's formatters may come back
    for (CRPrimitive *primitive : primitives)
        IsPrimitiveUnderMouse(primitive, point);
    m_gatherToolTip = false;
    return m_toolTip;
}

QString CRGraphArea::GetToolTipInfo(const QPoint &point) const {
    QString text;
    for (CRGraphLayer *layer : m_layers)
        text = joined(text, layer->GetToolTipInfo(point));
    return text;
}

QString CRGraphWidget::GetToolTipInfo(const QPoint &point) {
    if (IsMouseModeActive())
        return QString();
    QString text;
    for (const CRGraphArea *area : m_areas)
        text = joined(text, area->GetToolTipInfo(point));
    return text;
}
