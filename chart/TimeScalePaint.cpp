#include "chart/TimeScale.h"

#include "chart/GraphArea.h"
#include "chart/GraphLayer.h"
#include "chart/GraphWidget.h"
#include "chart/TimeScrollBar.h"
#include "chart/TimeStrip.h"
#include "chart/TimeText.h"
#include "support/FontMetrics.h"

#include <QPainter>
#include <algorithm>

void CRTimeScale::Draw(QPainter &painter) {
    const int right = m_pWidget->width() - 1;
    const int bottom =
        m_pWidget->height() - 1 - (m_pWidget->m_pScrollBar ? m_pWidget->m_pScrollBar->height() : 0);
    m_rect = QRect(QPoint(0, bottom - m_nHeight + 1), QPoint(right, bottom));
    painter.fillRect(m_rect, QColor(m_backgroundColor));

    if (const CRGraphArea *area = m_pWidget->GetArea(0)) {
        painter.setFont(area->m_properties.font);
        m_fontColor = area->m_properties.fontColor;
    } else {
        painter.setFont(m_font);
    }

    CRGraphLayer *layer = m_pWidget->GetAnyPrimitiveLayer();
    if (!layer)
        return;
    const QRect span(QPoint(m_pWidget->m_nLeftScaleWidth, m_rect.top()),
                     QPoint(right - m_pWidget->m_nRightScaleWidth, bottom));
    layer->UpdatePaintProperties(span);

    const int middle = m_rect.bottom() - m_rect.height() / 2 + 1;
    painter.setPen(QPen(QColor(m_gridColor), 1));
    painter.drawLine(m_rect.left(), middle, m_rect.right(), middle);

    if (layer->m_nFirstPos < 0 || layer->m_nFirstPos >= GetTimeCount())
        return;
    DrawRows(painter, layer, span);
}

// The ticks and labels of both rows; each tick may go on through the panes as the vertical grid.
void CRTimeScale::DrawRows(QPainter &painter, const CRGraphLayer *layer, const QRect &span) {
    const QFont font = painter.font();
    StripInput input;
    input.times = m_times.data() + layer->m_nFirstPos;
    input.count = std::min(layer->m_nScreenPoints, GetTimeCount() - layer->m_nFirstPos);
    input.left = span.left();
    input.right = span.right();
    input.columnOf = [layer](int relative) { return layer->CenterX(relative); };
    input.textOf = [](long time, const char *format) { return timeText(time, format); };
    input.widthOf = [&font](const QString &text) { return textWidth(font, text); };
    const StripLayout layout = layOutStrip(input);

    const int middle = m_rect.bottom() - m_rect.height() / 2 + 1;
    const QRect &chart = m_pWidget->m_chartRect;
    const QPen dotted(QColor(m_gridColor), 1, Qt::DotLine);
    const QPen solid(QColor(m_gridColor), 1);
    for (const StripTick &tick : layout.ticks) {
        painter.setPen(tick.solid ? solid : dotted);
        painter.drawLine(tick.x, m_rect.top(), tick.x, tick.lower ? m_rect.bottom() + 1 : middle);
        if (m_pWidget->m_bVerticalGrid)
            painter.drawLine(tick.x, chart.top(), tick.x, chart.bottom());
    }

    const int ascent = cachedMetrics(font).ascent();
    const int lowerTop = m_rect.top() + static_cast<int>(0.5 * m_rect.height());
    const int upperTop = m_rect.top() + static_cast<int>(0.02 * m_rect.height());
    painter.setPen(QColor(m_fontColor));
    for (const StripLabel &label : layout.labels)
        painter.drawText(label.x, (label.lower ? lowerTop : upperTop) + ascent, label.text);
}
