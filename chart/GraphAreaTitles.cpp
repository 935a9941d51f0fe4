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
            const QRect clip(rect.left(), rect.top(), width + 3, height);
            painter.setClipRect(clip);
            painter.setPen(primitive->m_lineColor);
            painter.drawText(rect.left() + 3, rect.bottom() - 1, text);
            if (m_pWidget->m_bTwoColorTitles && primitive->m_type >= PT_CANDLE && primitive->m_type <= PT_MARKS) {
                painter.setClipRect(QRect(clip.left(), clip.top(), clip.width(), height / 2));
                painter.setPen(primitive->m_riseColor);
                painter.drawText(rect.left() + 3, rect.bottom() - 1, text);
            }
            if (dayOff) {
                const QRect remarkRect = anchors.PlaceRemark(rect, remarkWidth);
                painter.setClipRect(QRect(remarkRect.left(), remarkRect.top(), remarkWidth + 3, height));
                painter.setPen(Qt::red);
                painter.drawText(remarkRect.left() + 3, remarkRect.bottom() - 1, remark);
            }
        }
        anchors.Advance(width, height, remarkWidth);
        if (top)
            separator = QStringLiteral(", ");
    }
}
