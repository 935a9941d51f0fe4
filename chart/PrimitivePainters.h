#pragma once

#include "chart/GraphLayerMapping.h"
#include "chart/PrimitiveInk.h"

#include <QPen>
#include <memory>

class CRPrimitive;
class PricePainter;

constexpr QRgb selectionColor = 0xFFFFC78F;

// A pen of a series in `color`, `wider` pixels wider than its own: whatever the host says, of a width and a
// style that can be drawn.
QPen seriesPen(const CRPrimitive &primitive, const QColor &color, int wider = 0);
QPen highlightPen(const CRPrimitive &primitive, int wider); // solid
int seriesPenWidth(const CRPrimitive &primitive);

// One frame of a layer, as its series see it.
struct PaintPass {
    QPainter &painter;
    PrimitiveInk ink;
    LayerMapping mapping;
    int firstColumn = 0; // relative positions of the loops over the columns
    int lastColumn = 0;
    int blinkPhase = 0;
    bool manualTest = false; // outputs of indicators end at the window's right edge
    int timeCount = 0;
    int freeSpace = 0;
    PricePainter *columnOwner = nullptr; // whose merged column came last

    PaintPass(QPainter &target, const LayerMapping &map) : painter(target), ink(target), mapping(map) {}
};

// Paints one series, column by column. A class for each draw type.
class PrimitivePainter {
public:
    // Null for a series that paints nothing: without a pen or data, or a pattern.
    static std::unique_ptr<PrimitivePainter> Create(PaintPass &pass, CRPrimitive &primitive);
    virtual ~PrimitivePainter();

    // Takes the columns in ascending order. False: no later column can show anything.
    bool Column(int relativePos, int x);
    virtual void Finish() {} // behind the last column

protected:
    PrimitivePainter(PaintPass &pass, CRPrimitive &primitive, int reach);
    virtual void Paint(int relativePos, int x, int dataIndex) = 0;
    virtual bool IsBehind(int relativePos, int x) const; // this column and all later ones are out of sight
    int Y(double value) const { return m_pass.mapping.Y(static_cast<float>(value)); }

    PaintPass &m_pass;
    CRPrimitive &m_primitive;
    InkPen m_line; // with the look of the selection
    InkPen m_rise;
    bool m_selected;

private:
    int m_count;
    int m_reach;      // pixels to both sides of the centre
    int m_lastColumn; // of a series that ends at the right edge
};

// Paints the columns from..to (exclusive) of all painters, side by side; the order of the painters is that
// in which they land on each other within a column.
void paintColumns(const LayerMapping &mapping, std::vector<std::unique_ptr<PrimitivePainter>> &painters,
                  int from, int to);
