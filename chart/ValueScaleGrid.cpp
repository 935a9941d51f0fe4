#include "chart/ValueScaleGrid.h"

#include <QPen>
#include <algorithm>

namespace {

constexpr int capRoom = 4; // pixels that a pen reaches past the ends and the row

} // namespace

ValueScaleGrid::ValueScaleGrid(QPainter &painter, const QColor &color, std::vector<QLine> strokes)
    : m_painter(painter), m_color(color), m_strokes(std::move(strokes)),
      m_direct(painter.deviceTransform().type() > QTransform::TxTranslate) {
    for (const QLine &stroke : m_strokes)
        m_place |= QRect(QPoint(std::min(stroke.x1(), stroke.x2()), 0),
                         QPoint(std::max(stroke.x1(), stroke.x2()), 0));
    m_place.adjust(-capRoom, -capRoom, capRoom, capRoom);
    m_strips.reserve(2);
}

void ValueScaleGrid::Draw(int y, double penWidth) {
    if (m_direct) {
        Stroke(m_painter, QPoint(0, y), penWidth);
        return;
    }
    m_painter.drawImage(m_place.topLeft() + QPoint(0, y), StripOf(penWidth).image);
}

const ValueScaleGrid::Strip &ValueScaleGrid::StripOf(double penWidth) {
    for (const Strip &strip : m_strips)
        if (strip.penWidth == penWidth)
            return strip;
    Strip strip{penWidth, QImage(m_place.size(), QImage::Format_ARGB32_Premultiplied)};
    strip.image.fill(Qt::transparent);
    QPainter painter(&strip.image);
    painter.setRenderHints(m_painter.renderHints());
    Stroke(painter, -m_place.topLeft(), penWidth);
    painter.end();
    m_strips.push_back(strip);
    return m_strips.back();
}

void ValueScaleGrid::Stroke(QPainter &painter, const QPoint &offset, double penWidth) const {
    painter.setPen(QPen(m_color, penWidth, Qt::DotLine));
    for (const QLine &stroke : m_strokes)
        painter.drawLine(stroke.translated(offset));
}
