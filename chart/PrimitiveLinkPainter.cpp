#include "chart/PrimitiveLinkPainter.h"

#include "chart/Primitive.h"
#include "chart/PrimitiveLink.h"
#include "chart/PrimitiveTypes.h"

#include <QRegion>
#include <algorithm>

namespace {

enum ColorMode { firstLine = 0, secondLine = 1, higherLine = 2 };

constexpr int rowsOutside = 4000; // beyond the plot; rows further out only cost time

double valueOf(const CRPrimitive &primitive, int dataIndex) {
    const PrimitiveTypeRow *row = primitiveTypeRow(primitive.m_type);
    return row && row->value == ValueSource::Close ? primitive.GetClose(dataIndex)
                                                   : primitive.FirstValue(dataIndex);
}

// The part of an area on one side of a row. Edges that leave it are cut there and keep their slope.
QPolygon cutAt(const QPolygon &area, int row, bool keepBelow) {
    const auto isKept = [row, keepBelow](const QPoint &p) { return keepBelow ? p.y() >= row : p.y() <= row; };
    QPolygon part;
    for (int i = 0; i < area.size(); ++i) {
        const QPoint &from = area[i];
        const QPoint &to = area[(i + 1) % area.size()];
        if (isKept(from))
            part << from;
        if (isKept(from) != isKept(to)) {
            const double share = (static_cast<double>(row) - from.y()) / (static_cast<double>(to.y()) - from.y());
            part << QPoint(from.x() + qRound(share * (to.x() - from.x())), row);
        }
    }
    return part;
}

} // namespace

PrimitiveLinkPainter::PrimitiveLinkPainter(PaintPass &pass, const CPrimitiveLink &link)
    : m_pass(pass), m_link(link) {}

bool PrimitiveLinkPainter::IsPainted() const {
    return m_link.m_pFirst && m_link.m_pSecond && m_link.m_pFirst->GetDataPointCount() > 0 &&
           m_link.m_pSecond->GetDataPointCount() > 0 && m_link.m_pFirst->m_nPenWidth != 0 &&
           m_link.m_pSecond->m_nPenWidth != 0;
}

bool PrimitiveLinkPainter::IsFilled() const {
    return m_link.m_nFill != 0;
}

bool PrimitiveLinkPainter::ValuesAt(int position, Values &values) const {
    const int first = m_link.m_pFirst->GetPos(position);
    const int second = m_link.m_pSecond->GetPos(position);
    if (!m_link.m_pFirst->GetDataPoint(first) || !m_link.m_pSecond->GetDataPoint(second))
        return false;
    values = {valueOf(*m_link.m_pFirst, first), valueOf(*m_link.m_pSecond, second)};
    return true;
}

// Any other mode keeps an invalid colour.
QColor PrimitiveLinkPainter::Color(const Values &values) const {
    switch (m_link.m_nColorMode) {
    case firstLine:
        return m_link.m_pFirst->m_lineColor;
    case secondLine:
        return m_link.m_pSecond->m_lineColor;
    case higherLine:
        return values.first > values.second ? m_link.m_pFirst->m_lineColor : m_link.m_pSecond->m_lineColor;
    default:
        return QColor();
    }
}

int PrimitiveLinkPainter::Row(double value) const {
    return m_pass.mapping.Y(static_cast<float>(value));
}

void PrimitiveLinkPainter::Remember(int x, const Values &values) {
    m_hasPrevious = true;
    m_previousX = x;
    m_previousFirst = Row(values.first);
    m_previousSecond = Row(values.second);
}

// The nearest position to the left at which both series have a point.
void PrimitiveLinkPainter::FindPrevious(int position) {
    Values values;
    do {
        position = std::min(m_link.m_pFirst->PreviousSignedPos(position - 1),
                            m_link.m_pSecond->PreviousSignedPos(position - 1));
        if (position < 0)
            return;
    } while (!ValuesAt(position, values));
    Remember(m_pass.mapping.CenterX(position - m_pass.mapping.firstPos), values);
}

// The first column behind the right edge still has an area that shows.
bool PrimitiveLinkPainter::IsBehind() const {
    return m_hasPrevious && m_previousX > m_pass.mapping.rect.right() + 1;
}

void PrimitiveLinkPainter::Column(int relativePos, int x) {
    Values values;
    if (!ValuesAt(m_pass.mapping.firstPos + relativePos, values))
        return;
    const QColor color = Color(values);
    if (!IsFilled()) {
        m_pass.ink.Flush();
        m_pass.ink.Forget();
        m_pen = InkPen(QPen(color));
        m_pass.ink.Upright(m_pen, x, m_pass.mapping.Y(static_cast<float>(values.first)),
                           m_pass.mapping.Y(static_cast<float>(values.second)));
        Remember(x, values);
        return;
    }
    if (!m_hasPrevious)
        FindPrevious(m_pass.mapping.firstPos + relativePos);
    if (m_hasPrevious) {
        if (!m_areaFirst.isEmpty() && color != m_areaColor)
            FlushArea();
        if (m_areaFirst.isEmpty()) {
            m_areaFirst << QPoint(m_previousX, m_previousFirst);
            m_areaSecond << QPoint(m_previousX, m_previousSecond);
        }
        m_areaColor = color;
        m_areaFirst << QPoint(x, Row(values.first));
        m_areaSecond << QPoint(x, Row(values.second));
    }
    Remember(x, values);
}

void PrimitiveLinkPainter::FlushArea() {
    if (m_areaFirst.isEmpty())
        return;
    std::reverse(m_areaSecond.begin(), m_areaSecond.end());
    const QRect &plot = m_pass.mapping.rect;
    QPolygon outline = m_areaFirst + m_areaSecond;
    const QRect extent = outline.boundingRect();
    if (extent.top() < plot.top() - rowsOutside)
        outline = cutAt(outline, plot.top() - rowsOutside, true);
    if (extent.bottom() > plot.bottom() + rowsOutside)
        outline = cutAt(outline, plot.bottom() + rowsOutside, false);
    for (const QRect &rect : QRegion(outline))
        if (rect.intersects(plot))
            m_pass.ink.Fill(rect, m_areaColor);
    m_areaFirst.clear();
    m_areaSecond.clear();
}

// Areas of different columns do not touch, so each link is painted in one go. Strokes share a column with
// the next area: beside one of them the links go on together, column by column.
void paintLinks(PaintPass &pass, const std::vector<CPrimitiveLink> &links, int from, int to) {
    std::vector<PrimitiveLinkPainter> painters;
    bool allFilled = true;
    for (const CPrimitiveLink &link : links) {
        PrimitiveLinkPainter painter(pass, link);
        if (!painter.IsPainted())
            continue;
        painters.push_back(painter);
        allFilled = allFilled && painter.IsFilled();
    }
    if (painters.empty())
        return;
    bool inSight = true;
    for (ColumnWalk column(pass.mapping, from); inSight && column.RelativePos() < to; column.Next()) {
        const int x = column.CenterX();
        inSight = false;
        for (PrimitiveLinkPainter &painter : painters) {
            if (painter.IsBehind())
                continue;
            inSight = true;
            painter.Column(column.RelativePos(), x);
            if (!allFilled)
                painter.FlushArea();
        }
    }
    for (PrimitiveLinkPainter &painter : painters)
        painter.FlushArea();
    pass.ink.Flush();
    pass.ink.Forget();
}
