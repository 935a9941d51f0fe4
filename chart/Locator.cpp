#include "chart/Locator.h"

#include "chart/GraphArea.h"
#include "chart/GraphLayer.h"
#include "chart/GraphWidget.h"
#include "chart/LocatorText.h"
#include "chart/TimeScale.h"
#include "chart/TimeText.h"
#include "support/FontMetrics.h"

#include <QColor>
#include <QPainter>

namespace {

mwiLocatorMessageItem locatorItem(const QString &text, QRgb color, int fontSize) {
    mwiLocatorMessageItem item;
    fillField(item.text, text);
    item.text[std::size(item.text) - 1] = 0;
    item.color = color;
    item.fontSize = static_cast<Word>(fontSize);
    return item;
}

// One read-out as a line of text; `x` moves on by its width.
void drawReadOut(QPainter &painter, const QRect &rect, int &x, const QFont &font, QString text, QRgb color) {
    text.remove(QLatin1Char('\n'));
    const int width = textWidth(font, text);
    painter.setFont(font);
    painter.setPen(QColor(color));
    painter.drawText(QRect(x, rect.top(), width, rect.height()), Qt::AlignLeft | Qt::AlignVCenter, text);
    x += width;
}

} // namespace

void CRGraphWidget::FormLocatorMessage() {
    m_locatorItems.clear();
    const QPoint cursor = CursorPos();
    if (m_pTimeScale)
        m_pTimeScale->FormLocatorMessage(&m_locatorItems, cursor);
    for (const CRGraphArea *area : m_areas)
        area->FormLocatorMessage(&m_locatorItems, cursor);
}

void CRGraphWidget::ShowLocator() {
    if (m_bGoing || !m_pLocator || !m_pLocator->m_pfnShowLocator || !m_chartRect.contains(CursorPos()))
        return;
    FormLocatorMessage();
    std::vector<mwiLocatorMessageItem> shown = m_locatorItems; // the host may let the window form new ones
    mwiLocatorMessage message;
    message.count = static_cast<int>(shown.size());
    message.items = shown.data();
    message.background = m_backgroundColor;
    m_pLocator->m_pfnShowLocator(&message);
}

void CRTimeScale::FormLocatorMessage(std::vector<mwiLocatorMessageItem> *items, const QPoint &cursor) const {
    const long time = GetPointTime(cursor);
    if (isAxisTime(time))
        items->push_back(locatorItem(timeText(time, "G0ddMMyyyyhhmmss"), m_fontColor, m_font.pointSize()));
}

void CRTimeScale::DrawLocator(QPainter &painter, const QRect &rect, int &x) const {
    const long time = GetPointTime(m_pWidget->CursorPos());
    if (isAxisTime(time))
        drawReadOut(painter, rect, x, m_font, timeText(time, "G0ddMMyyyyhhmmss"), m_fontColor);
}

void CRGraphArea::FormLocatorMessage(std::vector<mwiLocatorMessageItem> *items, const QPoint &cursor) const {
    if (!m_rect.contains(cursor) && !m_pWidget->m_bShowAllAreasLocatorMode)
        return;
    const int fontSize = m_properties.font.pointSize();
    items->push_back(locatorItem(QStringLiteral(" "), QColor().rgb(), fontSize));
    for (CRGraphLayer *layer : m_layers) {
        layer->m_toolTip.clear();
        for (CRPrimitive *primitive : layer->m_primitives) {
            if (primitive->IsPosEmpty())
                continue;
            layer->IsPrimitiveUnderMouse(primitive, cursor);
            const int index = primitive->m_nHoverIndex;
            if (index < 0 || index >= primitive->GetDataPointCount() || !primitive->GetDataPoint(index))
                continue;
            items->push_back(
                locatorItem(locatorText(*primitive, index), primitive->m_lineColor.rgb(), fontSize));
        }
        layer->m_toolTip.clear();
    }
}

void CRGraphArea::DrawLocator(QPainter &painter, const QRect &rect, int &x) const {
    std::vector<mwiLocatorMessageItem> items;
    FormLocatorMessage(&items, m_pWidget->CursorPos());
    const QFont &font = m_pWidget->m_pTimeScale->m_font;
    for (const mwiLocatorMessageItem &item : items)
        drawReadOut(painter, rect, x, font, fieldText(item.text), item.color);
}
