#include "chart/PrimitivePaintersCandle.h"

#include "chart/Primitive.h"

#include <algorithm>

// ---- what candles and bars share ----

PricePainter::PricePainter(PaintPass &pass, CRPrimitive &primitive, int reach)
    : PrimitivePainter(pass, primitive, reach),
      m_column(primitive.IsSelected() ? highlightPen(primitive, 0) : primitive.m_linePen) {}

PricePainter::Rows PricePainter::RowsAt(int dataIndex) const {
    const double open = m_primitive.GetOpen(dataIndex);
    const double close = m_primitive.GetClose(dataIndex);
    return {Y(open), Y(m_primitive.GetHigh(dataIndex)), Y(m_primitive.GetLow(dataIndex)), Y(close),
            open <= close};
}

const QColor &PricePainter::Color(bool rising) const {
    return rising ? m_primitive.m_riseColor : m_primitive.m_lineColor;
}

void PricePainter::TakeColumns() {
    if (m_pass.columnOwner && m_pass.columnOwner != this)
        m_pass.columnOwner->FlushColumn();
    m_pass.columnOwner = this;
}

void PricePainter::Merge(int x, const Rows &rows) {
    TakeColumns();
    CRPrimitive &p = m_primitive;
    if (p.m_bColumnPending && p.m_nColumnX != x)
        FlushColumn();
    p.m_nColumnTop = p.m_bColumnPending ? std::min(p.m_nColumnTop, rows.high) : rows.high;
    p.m_nColumnBottom = p.m_bColumnPending ? std::max(p.m_nColumnBottom, rows.low) : rows.low;
    p.m_nColumnX = x;
    p.m_bColumnPending = true;
}

void PricePainter::FlushColumn() {
    CRPrimitive &p = m_primitive;
    if (p.m_bColumnPending)
        m_pass.ink.Upright(m_column, p.m_nColumnX, p.m_nColumnTop, p.m_nColumnBottom);
    p.m_bColumnPending = false;
}

void PricePainter::Finish() {
    FlushColumn();
    if (m_pass.columnOwner == this)
        m_pass.columnOwner = nullptr;
}

// ---- candles ----

CandlePainter::CandlePainter(PaintPass &pass, CRPrimitive &primitive)
    : PricePainter(pass, primitive, candleWidth(pass.mapping.candleStep).half),
      m_width(candleWidth(pass.mapping.candleStep)),
      m_selectedBrush(primitive.m_lineColor, Qt::Dense3Pattern) {}

void CandlePainter::Paint(int, int x, int dataIndex) {
    const Rows rows = RowsAt(dataIndex);
    if (m_width.isMerged) {
        Merge(x, rows);
        return;
    }
    FlushColumn();
    const InkPen &pen = Pen(rows.rising);
    m_pass.ink.Upright(pen, x, rows.open, rows.low);
    m_pass.ink.Upright(pen, x, rows.close, rows.high);
    if (rows.rising)
        m_pass.ink.Outline(pen, QRect(x - m_width.half, rows.close, m_width.body, rows.open - rows.close));
    else
        DrawFallingBody(x, rows);
}

void CandlePainter::DrawFallingBody(int x, const Rows &rows) {
    if (rows.open == rows.close) {
        m_pass.ink.Level(m_line, x - m_width.half, x + m_width.half, rows.open);
        return;
    }
    const QRect outline(x - m_width.half, rows.open, m_width.body, rows.close - rows.open);
    if (m_selected) {
        m_pass.ink.Fill(outline, m_selectedBrush);
        m_pass.ink.Outline(m_line, outline);
    } else if (m_line.isPlain()) {
        m_pass.ink.Fill(outline.adjusted(0, 0, 1, 1), m_primitive.m_lineColor); // outline and inside alike
    } else {
        m_pass.ink.Fill(outline, m_primitive.m_lineColor);
        m_pass.ink.Outline(m_line, outline);
    }
}

// ---- bars ----

BarPainter::BarPainter(PaintPass &pass, CRPrimitive &primitive)
    : PricePainter(pass, primitive, barTick(pass.mapping.candleStep)),
      m_tick(barTick(pass.mapping.candleStep)), m_merged(isBarMerged(pass.mapping.candleStep)) {}

void BarPainter::Paint(int, int x, int dataIndex) {
    const Rows rows = RowsAt(dataIndex);
    if (m_merged) {
        Merge(x, rows);
        return;
    }
    FlushColumn();
    const InkPen &pen = Pen(rows.rising);
    m_pass.ink.Upright(pen, x, rows.high, rows.low + 1);
    m_pass.ink.Level(pen, x - m_tick, x, rows.open);
    m_pass.ink.Level(pen, x, x + m_tick, rows.close);
}

// ---- wide candles ----

WideCandlePainter::WideCandlePainter(PaintPass &pass, CRPrimitive &primitive)
    : PricePainter(pass, primitive, 0), m_tickSeries(primitive.IsTickSeries()),
      m_selectedLine(primitive.m_lineColor, Qt::Dense3Pattern),
      m_selectedRise(primitive.m_riseColor, Qt::Dense3Pattern) {}

int wideCandleEnd(const CRPrimitive &primitive, int position, int firstPos, int timeCount, int freeSpace) {
    const bool isLast = primitive.GetPos(position) >= primitive.GetDataPointCount() - 1;
    const int next = isLast ? -1 : primitive.NextSignedPos(position + 1);
    if (next >= 0)
        return next - firstPos;
    const mvDataPointArray *array = primitive.GetArray();
    const bool intraday = array && array->identity.m_periods.period == 'I';
    return (intraday ? timeCount - freeSpace : primitive.GetLastSignedTimePos() + 1) - firstPos;
}

bool WideCandlePainter::IsBehind(int relativePos, int) const {
    return m_pass.mapping.LeftX(relativePos, m_tickSeries) - seriesPenWidth(m_primitive) >
           m_pass.mapping.rect.right();
}

void WideCandlePainter::Paint(int relativePos, int, int dataIndex) {
    const int end = wideCandleEnd(m_primitive, m_pass.mapping.firstPos + relativePos, m_pass.mapping.firstPos,
                                  m_pass.timeCount, m_pass.freeSpace);
    const int left = m_pass.mapping.LeftX(relativePos, m_tickSeries);
    const int right = m_pass.mapping.LeftX(end, m_tickSeries);
    if (right + seriesPenWidth(m_primitive) < m_pass.mapping.rect.left())
        return;
    const Rows rows = RowsAt(dataIndex);
    if (right <= left) {
        Merge(left, rows);
        return;
    }
    FlushColumn();
    const InkPen &pen = Pen(rows.rising);
    const int top = std::min(rows.open, rows.close);
    const int bottom = std::max(rows.open, rows.close);
    if (top == bottom)
        m_pass.ink.Level(pen, left, right, top);
    else if (m_selected)
        m_pass.ink.Fill(QRect(QPoint(left, top), QPoint(right - 1, bottom)),
                        rows.rising ? m_selectedRise : m_selectedLine);
    else
        m_pass.ink.Fill(QRect(QPoint(left, top), QPoint(right - 1, bottom)), Color(rows.rising));
    if (!m_selected)
        m_pass.ink.Outline(pen, QRect(left, rows.high, right - left, rows.low - rows.high));
}
