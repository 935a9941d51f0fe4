// What a pane paints: its frame, the layers, and what stands over them.
#include "chart/GraphArea.h"

#include "chart/GraphLayer.h"
#include "chart/GraphWidget.h"
#include "chart/Primitive.h"
#include "chart/PrimitivePainters.h"
#include "module/GraphModule.h"
#include "support/FontMetrics.h"
#include "support/Numbers.h"
#include "support/Skin.h"

#include <QPainter>
#include <cmath>

namespace {

constexpr int watermarkSize = 36; // points
const QColor watermarkColor(240, 240, 240);

/// The series that have a last price.
bool hasLastPrice(const CRPrimitive *primitive) {
    const int type = primitive->m_type;
    return (type == PT_CLOSE_DOTS || (type >= PT_CLOSE_LINE && type <= PT_WIDE_CANDLE)) &&
           primitive->GetDataPointCount() >= 2 && primitive->GetLastSignedTimePos() >= 0;
}

/// The close of the last point; the quote of a tick.
double lastPrice(const CRPrimitive *primitive) {
    const int last = primitive->GetDataPointCount() - 1;
    if (!primitive->IsTickSeries())
        return primitive->GetClose(last);
    return primitive->HasField(CRMDataLine::OPEN) ? primitive->GetOpen(last) : primitive->FirstValue(last);
}

} // namespace

void CRGraphArea::Draw(QPainter &painter, bool lastOnly) {
    if (m_pWidget->m_loading)
        return;
    const QRect pane = m_rect;
    painter.setClipRect(pane);
    painter.setPen(QColor(m_properties.gridColor));
    painter.setFont(m_pWidget->m_titleFont);
    UpdateData();
    if (!HasPoints())
        DrawPrompt(painter, pane);
    m_rect.adjust(m_pWidget->m_nLeftScaleWidth, 0, -m_pWidget->m_nRightScaleWidth, 0);
    if (m_pWidget->Module()->IsGameMode())
        DrawWatermark(painter);
    for (std::size_t i = 0; i < m_layers.size(); ++i)
        m_layers[i]->Draw(painter, m_rect, lastOnly);
    if (m_pWidget->Module()->m_drawSymbolImages && GetPrimitiveCount() > 0)
        DrawSymbolImage(painter);
    if (m_pWidget->m_bLastCandleIndicator) {
        painter.setClipRect(pane);
        DrawLastCandleIndicator(painter);
    }
    painter.setFont(m_pWidget->m_titleFont);
    DrawTopStrip(painter, pane);
    DrawTitles(painter, pane);
    DrawCloseBox(painter, pane);
    if (m_pWidget->m_bShowAreasBorder)
        DrawBorder(painter);
}

void CRGraphArea::DrawPrompt(QPainter &painter, const QRect &pane) {
    const QString text = m_pWidget->Module()->tr("G0048Message");
    const int width = textWidth(m_pWidget->m_titleFont, text);
    const int height = textHeight(m_pWidget->m_titleFont);
    const int x = pane.left() + pane.width() / 2 - width / 2;
    const int y = pane.top() + pane.height() / 2;
    const QPoint corner(x - 15, y - 15);
    painter.fillRect(QRect(corner, QPoint(corner.x() + width - 1 + 20, corner.y() + height - 1 + 10)),
                     QColor(m_properties.backgroundColor));
    painter.setPen(QColor(m_properties.fontColor));
    painter.drawText(QRect(x, y, width, height), Qt::AlignVCenter | Qt::AlignRight, text);
}

void CRGraphArea::DrawWatermark(QPainter &painter) {
    const CRGraphModule *module = m_pWidget->Module();
    const QString text = QLatin1String("  ") + module->tr("G0177") + QLatin1Char(' ');
    const QFont font(module->getFont(font::chartElement), watermarkSize, QFont::Bold);
    const int width = textWidth(font, text);
    const int height = textHeight(font);
    if (width <= 0 || height <= 0 || m_rect.width() <= 0 || m_rect.height() <= 0)
        return;
    painter.save();
    painter.setFont(font);
    painter.setPen(watermarkColor);
    painter.rotate(360 - std::atan(m_rect.height() * 0.5 / m_rect.width()) * 180 / 3.1415926535);
    painter.scale(static_cast<double>(m_rect.width()) / width, static_cast<double>(m_rect.height()) / height);
    const QPointF corner(m_rect.left() + 10, m_rect.bottom());
    painter.drawText(painter.worldTransform().inverted().map(corner), text);
    painter.restore();
}

/// The picture named after the pane's symbol: its own name, else that of its first instrument.
void CRGraphArea::DrawSymbolImage(QPainter &painter) {
    QString name = m_symbolName;
    for (const CRGraphLayer *layer : m_layers) {
        for (const CRPrimitive *primitive : layer->m_primitives) {
            if (name.isEmpty() && primitive->IsInstrumentType() && primitive->GetArray())
                name = fieldText(primitive->GetArray()->identity.m_szNameSymbol);
        }
    }
    QPixmap image = LoadModulePixmap(name.toLower() + QLatin1String(".png"));
    if (image.isNull())
        image = LoadModulePixmap("usd.png");
    painter.drawPixmap(m_rect.left() + (m_rect.width() - image.width()) / 2,
                       m_rect.top() + (m_rect.height() - image.height()) / 2, image);
}

/// A line across the pane at each last price, and its value on the scale.
void CRGraphArea::DrawLastCandleIndicator(QPainter &painter) {
    const int rightWidth = m_pWidget->m_nRightScaleWidth;
    const int leftWidth = m_pWidget->m_nLeftScaleWidth;
    const QFont &font = m_properties.font;
    const int height = textHeight(font);
    painter.setFont(font);
    for (const CRGraphLayer *layer : m_layers) {
        for (CRPrimitive *primitive : layer->m_primitives) {
            if (!hasLastPrice(primitive))
                continue;
            const double price = lastPrice(primitive);
            const int y = layer->CalcY(static_cast<float>(price));
            primitive->m_linePen = seriesPen(*primitive, primitive->m_lineColor);
            primitive->m_linePen.setWidth(1);
            painter.setPen(primitive->m_linePen);
            painter.drawLine(m_rect.left(), y, m_rect.right(), y);

            const QString text = QString::asprintf("%0.*f", decimalsOf(primitive->m_fPoint), price);
            const int top = y - height / 2 - 1;
            const QRect box = rightWidth ? QRect(m_rect.right(), top, rightWidth, height + 2)
                                         : QRect(m_rect.left() - leftWidth, top, leftWidth, height + 2);
            painter.fillRect(box, primitive->m_lineColor);
            painter.setPen(QColor(m_properties.backgroundColor));
            const int x = rightWidth ? m_rect.right() + 4 : m_rect.left() - textWidth(font, text) - 4;
            painter.drawText(x, y + height / 2 - 2, text);
        }
    }
}

void CRGraphArea::DrawTopStrip(QPainter &painter, const QRect &pane) {
    const bool selected = m_pWidget->m_nSelectedArea >= 0 && m_pWidget->m_nSelectedArea == GetIndex();
    const int left = pane.left() - 1;
    const int right = pane.right() + 1;
    painter.fillRect(QRect(QPoint(left, pane.top()), QPoint(right, pane.top() + 1)),
                     QColor(selected ? m_properties.gridColor : m_properties.backgroundColor));
    painter.setPen(QColor(m_properties.gridColor));
    for (int y : {pane.top() + 1, pane.top(), pane.top() + 1})
        painter.drawLine(left, y, right, y);
}

/// The box is where the mouse looks for it even when it is not shown.
void CRGraphArea::DrawCloseBox(QPainter &painter, const QRect &pane) {
    m_closeRect = QRect(QPoint(pane.right() - 11, pane.top() + 2), QPoint(pane.right() - 1, pane.top() + 12));
    painter.setClipRect(m_closeRect);
    if (m_pWidget->GetAreaCount() > 1) {
        const bool selected = m_pWidget->m_nSelectedArea == GetIndex();
        painter.fillRect(m_closeRect,
                         QColor(selected ? m_properties.gridColor : m_properties.backgroundColor));
        painter.setPen(QColor(m_properties.fontColor));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(m_closeRect.adjusted(0, 0, -1, 0));
        const QRect cross = m_closeRect.adjusted(3, 3, -3, -3);
        painter.drawLine(cross.topLeft(), cross.bottomRight());
        painter.drawLine(cross.bottomLeft(), cross.topRight());
    }
    painter.setClipping(false);
}

void CRGraphArea::DrawBorder(QPainter &painter) {
    painter.setCompositionMode(QPainter::CompositionMode_Xor);
    painter.setPen(QPen(QColor(Qt::white), 1.0, Qt::SolidLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(m_rect.adjusted(-1, 1, 1, 0));
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
}
