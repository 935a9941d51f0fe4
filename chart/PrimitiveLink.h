#pragma once

class CRGraphWidget;
class CRPrimitive;

// Two lines of one indicator that are joined by strokes or a filled area.
class CPrimitiveLink {
public:
    CPrimitiveLink() = default;
    CPrimitiveLink(CRGraphWidget *widget, CRPrimitive *first, CRPrimitive *second, int fill, int colorMode)
        : m_pWidget(widget), m_pFirst(first), m_pSecond(second), m_nColorMode(colorMode), m_nFill(fill) {}
    virtual ~CPrimitiveLink() = default;

    CRGraphWidget *m_pWidget = nullptr;
    CRPrimitive *m_pFirst = nullptr;
    CRPrimitive *m_pSecond = nullptr;
    int m_nColorMode = 0; // 0 the first line's colour, 1 the second's, 2 that of the higher line
    int m_nFill = 0;      // 0 vertical strokes, else a filled area
};
