#pragma once

#include "chart/PrimitiveGeometry.h"
#include "chart/PrimitivePainters.h"

// Types 0, 3 and 4: each point is joined to the one before it. Points that share a pixel column become
// one upright stroke.
class LinePainter : public PrimitivePainter {
public:
    LinePainter(PaintPass &pass, CRPrimitive &primitive);
    void Finish() override;

protected:
    void Paint(int relativePos, int x, int dataIndex) override;
    bool IsBehind(int relativePos, int x) const override;

private:
    double Value(int dataIndex) const;
    bool FindPrevious(int position, int dataIndex, int x, int y);
    void Remember(int x, int y);

    bool m_hasPrevious = false;
    int m_previousX = 0;
    int m_previousY = 0;
};

// Types 1 and 9.
class DotPainter : public PrimitivePainter {
public:
    DotPainter(PaintPass &pass, CRPrimitive &primitive);

protected:
    void Paint(int relativePos, int x, int dataIndex) override;

private:
    DotSize m_size;
    QBrush m_brush;
};

// Type 2.
class HistogramPainter : public PrimitivePainter {
public:
    HistogramPainter(PaintPass &pass, CRPrimitive &primitive);

protected:
    void Paint(int relativePos, int x, int dataIndex) override;

private:
    int m_precision;
    int m_base;
};

// Type 8.
class MarkPainter : public PrimitivePainter {
public:
    MarkPainter(PaintPass &pass, CRPrimitive &primitive);

protected:
    void Paint(int relativePos, int x, int dataIndex) override;

private:
    void DrawArrow(const InkPen &pen, const Arrow &arrow);

    bool m_joined; // the two values are joined by a stroke
    InkPen m_highlight;
    InkPen m_own; // in the colour of the point painted last
};
