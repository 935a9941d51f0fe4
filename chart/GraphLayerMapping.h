#pragma once

#include <QRect>

// How one value scale turns positions into columns and values into rows. A position is relative to the
// first visible one; columns and rows are pixels of the widget.
struct LayerMapping {
    QRect rect;           // the plot
    int firstPos = 0;     // position of relative position 0
    int screenPoints = 0; // visible positions
    float candleStep = 0; // pixels a position
    float yScale = 0;     // pixels a value unit
    float min = 0;        // value at the lower edge

    int CenterX(int relativePos) const; // centre of a column
    int LeftX(int relativePos, bool tick) const;
    // The relative position at a column; `rounding` is added before the truncation.
    int RelativePos(int x, double rounding = 0.5) const;
    int Y(float value) const;
    double Value(int y) const;
};

// Goes over the columns of a mapping from the left to the right, with the values of CenterX and no division.
class ColumnWalk {
public:
    ColumnWalk(const LayerMapping &mapping, int relativePos);
    int RelativePos() const { return m_relativePos; }
    int CenterX() const;
    void Next();

private:
    void Place();

    const LayerMapping &m_mapping;
    int m_relativePos;
    int m_offset = 0;    // pixels from the left edge
    int m_remainder = 0; // of the division behind the offset
    int m_step = 0;
    int m_stepRemainder = 0;
};

// The value without its fraction; out of range, and for what is no number, the end of the range on that side.
int toPixel(double value);
