#include "chart/GraphLayer.h"

#include "chart/GraphArea.h"
#include "chart/GraphWidget.h"
#include "chart/ValueScale.h"
#include "chart/ValueScaleGrid.h"
#include "support/FontMetrics.h"

#include <QPainter>

namespace {

constexpr int textGap = 4;        // pixels between plot and text
constexpr int baselineBelow = 4;  // of a text, under the row of its value
constexpr int autoButtonGap = 16; // right of the button on the right scale
constexpr double roundTick = 2.0; // pen widths
constexpr double plainTick = 1.0;

} // namespace

void CRGraphLayer::DrawDataScale(SCALE_TYPE type, QPainter &painter) {
    const CRGraphWidget *widget = GetWidget();
    if (!widget || widget->m_loading)
        return;
    if (!HasRange())
        return;
    const bool isRight = type == RIGHT_SCALE;
    const QColor gridColor(m_pArea->m_properties.gridColor);
    const QColor fontColor(m_pArea->m_properties.fontColor);
    QFont plain(m_pArea->m_properties.font);
    plain.setWeight(QFont::Normal);
    QFont bold(plain);
    bold.setWeight(QFont::Bold);

    const int left = m_rect.left();
    const int right = m_rect.right();
    std::vector<QLine> strokes;
    if (isRight) {
        strokes.emplace_back(right - 2, 0, right + 4, 0);
        if (widget->m_bHorizontalGrid)
            strokes.emplace_back(right - 2, 0, left - 3, 0);
    } else {
        strokes.emplace_back(left - 3, 0, left - 1, 0);
    }
    ValueScaleGrid grid(painter, gridColor, std::move(strokes));
    for (const ValueLabel &label : valueLabels({m_max, m_min}, Mapping(), textHeight(plain), m_tick)) {
        const QFont &font = label.round ? bold : plain;
        painter.setFont(font);
        painter.setPen(fontColor);
        painter.drawText(isRight ? right + textGap : left - textWidth(font, label.text) - textGap,
                         label.y + baselineBelow, label.text);
        grid.Draw(label.y, label.round ? roundTick : plainTick);
    }
    painter.setFont(plain);
    painter.setPen(QPen(gridColor, plainTick, Qt::DotLine));
    const int border = isRight ? right + 1 : left - 1;
    painter.drawLine(border, m_rect.top(), border, m_rect.bottom() + 1);
    DrawAutoButton(type, painter);
}

// The button shows only while the range is frozen; where it stands is kept for the mouse.
void CRGraphLayer::DrawAutoButton(SCALE_TYPE type, QPainter &painter) {
    QRect &place = type == RIGHT_SCALE ? m_rightAutoRect : m_leftAutoRect;
    place = QRect();
    if (m_bDataScaleSelfTuning)
        return;
    const CRGraphWidget *widget = GetWidget();
    const QPixmap image = LoadModulePixmap("auto.png");
    const int x = type == RIGHT_SCALE
                      ? m_rect.right() + widget->m_nRightScaleWidth - image.width() - autoButtonGap
                      : m_rect.left() - widget->m_nLeftScaleWidth + 1;
    place = QRect(QPoint(x, m_rect.top() + 1), image.size());
    painter.drawPixmap(place.topLeft(), image);
}
