#pragma once

#include "chart/PrimitivePainters.h"

#include <QPolygon>

class CPrimitiveLink;

// Joins two series: an upright stroke in every column, or the area between them.
class PrimitiveLinkPainter {
public:
    PrimitiveLinkPainter(PaintPass &pass, const CPrimitiveLink &link);

    bool IsPainted() const; // both series are there, with data and a pen
    bool IsFilled() const;
    bool IsBehind() const; // no later column can show anything
    void Column(int relativePos, int x);
    void FlushArea(); // paints what was gathered so far

private:
    struct Values {
        double first;
        double second;
    };
    bool ValuesAt(int position, Values &values) const;
    void FindPrevious(int position);
    QColor Color(const Values &values) const;
    int Row(double value) const;
    void Remember(int x, const Values &values);

    PaintPass &m_pass;
    const CPrimitiveLink &m_link;
    bool m_hasPrevious = false;
    int m_previousX = 0;
    int m_previousFirst = 0; // rows
    int m_previousSecond = 0;
    // Neighbouring quadrilaterals of one colour, as one polygon: along the first line and back.
    QColor m_areaColor;
    QPolygon m_areaFirst;
    QPolygon m_areaSecond;
    InkPen m_pen;
};

// All links of a layer, columns from..to (exclusive).
void paintLinks(PaintPass &pass, const std::vector<CPrimitiveLink> &links, int from, int to);
