#include "chart/PrimitivePaintersLine.h"

#include "chart/Primitive.h"
#include "chart/PrimitiveMarks.h"
#include "support/Numbers.h"

#include <algorithm>

// ---- lines ----

LinePainter::LinePainter(PaintPass &pass, CRPrimitive &primitive) : PrimitivePainter(pass, primitive, 0) {}

double LinePainter::Value(int dataIndex) const {
    return m_primitive.m_type == PT_CLOSE_LINE ? m_primitive.GetClose(dataIndex)
                                               : m_primitive.FirstValue(dataIndex);
}

// A segment ends in its column: the first point behind the right edge still has one that shows.
bool LinePainter::IsBehind(int, int) const {
    return m_hasPrevious && m_previousX - seriesPenWidth(m_primitive) > m_pass.mapping.rect.right();
}

void LinePainter::Remember(int x, int y) {
    m_hasPrevious = true;
    m_previousX = x;
    m_previousY = y;
}

// The nearest point to the left; that of the first visible column may be far outside. Ticks begin at
// themselves.
bool LinePainter::FindPrevious(int position, int dataIndex, int x, int y) {
    if (m_hasPrevious)
        return true;
    if (position == 0 && m_primitive.IsTickSeries()) {
        Remember(x, y);
        return true;
    }
    const int previous = position == 0 || dataIndex == 0 ? -1 : m_primitive.PreviousSignedPos(position - 1);
    const int index = m_primitive.GetPos(previous);
    if (!m_primitive.GetDataPoint(index))
        return false;
    Remember(m_pass.mapping.CenterX(previous - m_pass.mapping.firstPos), Y(Value(index)));
    return true;
}

void LinePainter::Paint(int relativePos, int x, int dataIndex) {
    const int y = Y(Value(dataIndex));
    if (FindPrevious(m_pass.mapping.firstPos + relativePos, dataIndex, x, y)) {
        CRPrimitive &p = m_primitive;
        if (x == m_previousX) {
            const bool pending = p.m_bColumnPending;
            p.m_nColumnTop = std::min({pending ? p.m_nColumnTop : y, y, m_previousY});
            p.m_nColumnBottom = std::max({pending ? p.m_nColumnBottom : y, y, m_previousY});
            p.m_nColumnX = x;
            p.m_bColumnPending = true;
        } else if (p.m_bColumnPending) {
            p.m_bColumnPending = false;
            m_pass.ink.Line(m_line, QLine(p.m_nColumnX, p.m_nColumnTop, p.m_nColumnX, p.m_nColumnBottom));
            m_pass.ink.Line(m_line, QLine(x, y, p.m_nColumnX, p.m_nColumnTop));
            m_pass.ink.Line(m_line, QLine(x, y, p.m_nColumnX, p.m_nColumnBottom));
        } else if (p.m_nPenStyle != Qt::NoPen) { // a selection does not show a line that has no style
            m_pass.ink.Line(m_line, QLine(x, y, m_previousX, m_previousY));
        }
    }
    Remember(x, y);
}

void LinePainter::Finish() {
    CRPrimitive &p = m_primitive;
    if (p.m_bColumnPending)
        m_pass.ink.Line(m_line, QLine(p.m_nColumnX, p.m_nColumnTop, p.m_nColumnX, p.m_nColumnBottom));
    p.m_bColumnPending = false;
}

// ---- dots ----

DotPainter::DotPainter(PaintPass &pass, CRPrimitive &primitive)
    : PrimitivePainter(pass, primitive, dotSize(pass.mapping.candleStep).diameter),
      m_size(dotSize(pass.mapping.candleStep)),
      m_brush(primitive.m_lineColor, primitive.IsSelected() ? Qt::Dense3Pattern : Qt::SolidPattern) {}

void DotPainter::Paint(int, int x, int dataIndex) {
    const bool onClose = m_primitive.m_type == PT_CLOSE_DOTS;
    const int y = Y(onClose ? m_primitive.GetClose(dataIndex) : m_primitive.FirstValue(dataIndex));
    if (m_size.IsPoint())
        m_pass.ink.Dot(m_line, x, y);
    else
        m_pass.ink.Ellipse(m_line, m_brush, m_size.At(x, y));
}

// ---- histogram ----

HistogramPainter::HistogramPainter(PaintPass &pass, CRPrimitive &primitive)
    : PrimitivePainter(pass, primitive, 0), m_precision(primitive.GetArray()->precision),
      m_base(histogramBase(primitive, pass.mapping)) {}

void HistogramPainter::Paint(int, int x, int dataIndex) {
    const int y = Y(roundFloat(m_primitive.FirstValue(dataIndex), m_precision));
    QLine line;
    if (histogramLine(x, y, m_base, seriesPenWidth(m_primitive), line))
        m_pass.ink.Upright(m_line, x, line.y1(), line.y2());
}

// ---- marks ----

MarkPainter::MarkPainter(PaintPass &pass, CRPrimitive &primitive)
    : PrimitivePainter(pass, primitive, static_cast<int>(pass.mapping.candleStep) + 1),
      m_joined(areMarksJoined(primitive)), m_highlight(highlightPen(primitive, 2)) {}

void MarkPainter::DrawArrow(const InkPen &pen, const Arrow &arrow) {
    m_pass.ink.Line(pen, arrow.left);
    m_pass.ink.Line(pen, arrow.right);
}

void MarkPainter::Paint(int, int x, int dataIndex) {
    const Mark mark = markAt(m_primitive, dataIndex);
    const int first = Y(mark.first);
    const int second = Y(mark.second);
    if (m_joined) {
        if (!m_selected) {
            m_pass.ink.Flush();
            m_pass.ink.Forget();
            m_own = InkPen(seriesPen(m_primitive, QColor(mark.color)));
        }
        m_pass.ink.Upright(m_selected ? m_highlight : m_own, x, first, second);
    }
    if (m_selected && mark.kind == markBoth)
        return;
    const double step = m_pass.mapping.candleStep;
    if (hasArrowAbove(mark.kind))
        DrawArrow(m_selected ? m_highlight : m_line, arrowAbove(x, std::min(first, second), step));
    if (hasArrowBelow(mark.kind))
        DrawArrow(m_selected ? m_highlight : m_rise, arrowBelow(x, std::max(first, second), step));
}
