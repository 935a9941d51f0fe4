#pragma once

#include "chart/PrimitiveGeometry.h"
#include "chart/PrimitivePainters.h"

// Series of four prices. Where they stand too close, those that share a pixel column become one upright
// stroke, which ends as soon as another series paints, too.
class PricePainter : public PrimitivePainter {
public:
    void Finish() override;

protected:
    PricePainter(PaintPass &pass, CRPrimitive &primitive, int reach);

    struct Rows {
        int open, high, low, close;
        bool rising;
    };
    Rows RowsAt(int dataIndex) const;
    const InkPen &Pen(bool rising) const { return rising ? m_rise : m_line; }
    const QColor &Color(bool rising) const;
    void Merge(int x, const Rows &rows);
    void FlushColumn();
    void TakeColumns(); // ends the column of the series that painted before

private:
    InkPen m_column;
};

// Type 5.
class CandlePainter : public PricePainter {
public:
    CandlePainter(PaintPass &pass, CRPrimitive &primitive);

protected:
    void Paint(int relativePos, int x, int dataIndex) override;

private:
    void DrawFallingBody(int x, const Rows &rows);

    CandleWidth m_width;
    QBrush m_selectedBrush;
};

// Type 6.
class BarPainter : public PricePainter {
public:
    BarPainter(PaintPass &pass, CRPrimitive &primitive);

protected:
    void Paint(int relativePos, int x, int dataIndex) override;

private:
    int m_tick;
    bool m_merged;
};

// Type 7: a box from this point's left edge to that of the next.
class WideCandlePainter : public PricePainter {
public:
    WideCandlePainter(PaintPass &pass, CRPrimitive &primitive);

protected:
    void Paint(int relativePos, int x, int dataIndex) override;
    bool IsBehind(int relativePos, int x) const override;

private:
    bool m_tickSeries;
    QBrush m_selectedLine;
    QBrush m_selectedRise;
};

// The relative position at which the box of the point at `position` ends.
int wideCandleEnd(const CRPrimitive &primitive, int position, int firstPos, int timeCount, int freeSpace);
