// The titles of a pane: one for each indicator in a row, over the layers.
#include "chart/GraphArea.h"

#include "chart/GraphLayer.h"
#include "chart/GraphWidget.h"
#include "chart/Primitive.h"
#include "chart/TitleLayout.h"
#include "module/GraphModule.h"
#include "module/HostCalls.h"
#include "objects/Indicator.h"
#include "support/FontMetrics.h"
#include "support/Numbers.h"
#include "support/PeriodText.h"

#include <QPainter>
#include <QPointer>

namespace {

/// The symbol or output that a series is named after, by the host's answer of now.
QString outputLabel(const CRPrimitive *primitive) {
    const mvDataPointArray *array = primitive->GetArray();
    if (OnePrimitiveOnArea::Check(primitive))
        return array ? fieldText(array->identity.m_szNameSymbol) : QString();
    return fieldText(HostCalls::identity(array ? array->owner : nullptr).sNameInstrument.m_szNameSymbol);
}

/// The name of an instrument, with the chart's period where the array has another one.
QString instrumentLabel(const QPointer<CRPrimitive> &primitive) {
    if (primitive->m_name.startsWith(QLatin1Char('/'))) {
        primitive->RequestExNames();
        if (primitive)
            primitive->SyncInternalData();
    }
    const mvDataPointArray *array = primitive ? primitive->GetArray() : nullptr;
    if (!array)
        return primitive ? primitive->m_name : QString();
    const namePeriod own = array->identity.m_periods;
    const namePeriod answered = HostCalls::sourcePeriod(array->owner, own);
    if (!primitive)
        return QString();
    if (answered.period == own.period && answered.lenPeriod == own.lenPeriod)
        return primitive->m_name;
    return primitive->m_name + QLatin1Char('/') + periodText(answered.period, answered.lenPeriod);
}

/// The value of the last shown point; a blank without one, nothing where a title has none.
QString valuePart(const CRPrimitive *primitive, bool top) {
    const int position = primitive->GetLastSignedTimePos();
    const int index = position < 0 ? -1 : primitive->GetPos(position);
    if (index < 0 || !primitive->GetDataPoint(index))
        return QStringLiteral(" ");
    double value = 0;
    switch (primitive->m_type) {
    case PT_CLOSE_DOTS:
    case PT_CLOSE_LINE:
    case PT_CANDLE:
    case PT_BAR:
    case PT_WIDE_CANDLE:
        value = primitive->GetClose(index);
        break;
    case PT_MARKS:
        if (top)
            return QString();
        value = primitive->GetHigh(index);
        break;
    default:
        if (top)
            return QString();
        value = primitive->FirstValue(index);
    }
    return titleValue(value, decimalsOf(primitive->m_fPoint));
}

/// The upper `rows` rows of a text whose rectangle is `rect`.
void drawTitle(QPainter &painter, const QRect &rect, int rows, const QString &text, const QColor &color) {
    painter.setClipRect(QRect(rect.left(), rect.top(), rect.width() + 3, rows));
    painter.setPen(color);
    painter.drawText(rect.left() + 3, rect.bottom() - 1, text);
}

} // namespace

void CRGraphArea::DrawTitles(QPainter &painter, const QRect &pane) {
    // The labels ask the host, which can take a series away meanwhile.
    std::vector<QPointer<CRPrimitive>> titled;
    const CRIndicator *previous = nullptr;
    for (const CRGraphLayer *layer : m_layers) {
        for (CRPrimitive *primitive : layer->m_primitives) {
            if (primitive->m_pIndicator && primitive->m_pIndicator == previous)
                continue;
            previous = primitive->m_pIndicator;
            titled.emplace_back(primitive);
        }
    }
    const int alignment = m_pWidget->m_nSymbolNamesPos;
    const bool top = alignment == titlesTop;
    const QFont &font = m_pWidget->m_titleFont;
    const int height = textHeight(font);
    TitleAnchors anchors(alignment, m_rect.left(), m_rect.right(), pane.top());
    QString separator;
    for (const QPointer<CRPrimitive> &primitive : titled) {
        if (!primitive)
            continue;
        const QString label = primitive->IsInstrumentType() ? instrumentLabel(primitive) : outputLabel(primitive);
        if (!primitive)
            continue;
        const QString text = separator + label + valuePart(primitive, top);
        const int width = textWidth(font, text);
        const bool dayOff = m_pWidget->Module()->IsDayOff(primitive->ExName(0));
        const QString remark = dayOff ? m_pWidget->Module()->tr("G0213") : QString();
        const int remarkWidth = dayOff ? textWidth(font, remark) : 0;
        if (!anchors.IsOut()) {
            const QRect rect = anchors.Place(width, height);
            const bool twoColors = m_pWidget->m_bTwoColorTitles && primitive->m_type >= PT_CANDLE &&
                                   primitive->m_type <= PT_MARKS;
            drawTitle(painter, rect, height, text, primitive->m_lineColor);
            if (twoColors)
                drawTitle(painter, rect, height / 2, text, primitive->m_riseColor);
            if (dayOff)
                drawTitle(painter, anchors.PlaceRemark(rect, remarkWidth), height, remark, Qt::red);
        }
        anchors.Advance(width, height, remarkWidth);
        if (top)
            separator = QStringLiteral(", ");
    }
}
