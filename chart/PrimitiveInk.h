#pragma once

#include <QBrush>
#include <QColor>
#include <QLine>
#include <QPainter>
#include <QPen>
#include <vector>

// A pen of a series, with what decides how it is put on the screen.
class InkPen {
public:
    InkPen() = default;
    explicit InkPen(const QPen &pen)
        : m_pen(pen), m_color(pen.color()),
          m_isPlain(pen.style() == Qt::SolidLine && pen.width() <= 1 && pen.color().alpha() == 255) {}

    const QPen &pen() const { return m_pen; }
    const QColor &color() const { return m_color; }
    bool isPlain() const { return m_isPlain; } // one solid pixel wide: straight strokes are filled cells

private:
    QPen m_pen;
    QColor m_color;
    bool m_isPlain = false;
};

// What a pass over the columns draws with. It changes the painter's pen only when another is asked for,
// keeps lines of one pen back to draw them together, and fills the cells of upright and level strokes of
// plain pens, which lands on the same pixels as drawing them and costs a fraction. What was asked for
// first lands first.
class PrimitiveInk {
public:
    explicit PrimitiveInk(QPainter &painter) : m_painter(painter) {}
    ~PrimitiveInk(); // flushes, and puts the painter's brush back
    PrimitiveInk(const PrimitiveInk &) = delete;
    PrimitiveInk &operator=(const PrimitiveInk &) = delete;

    void Line(const InkPen &pen, QLine line);
    void Upright(const InkPen &pen, int x, int y1, int y2);
    void Level(const InkPen &pen, int x1, int x2, int y);
    void Dot(const InkPen &pen, int x, int y);
    void Outline(const InkPen &pen, const QRect &rect); // as QPainter::drawRect: one column and row more
    void Ellipse(const InkPen &pen, const QBrush &brush, const QRect &rect);
    void Fill(const QRect &rect, const QColor &color);
    void Fill(const QRect &rect, const QBrush &brush);
    void Flush();
    void Forget() { m_used = m_pending = nullptr; } // a pen is about to change; flush before

private:
    void Use(const InkPen &pen);
    void UseBrush(const QBrush *brush); // null: none
    void FillCells(const InkPen &pen, int x, int y, int width, int height);

    QPainter &m_painter;
    const InkPen *m_used = nullptr;    // the pen that the painter has
    const InkPen *m_pending = nullptr; // the pen of the lines kept back
    bool m_brushTaken = false;         // the painter's brush is not its own
    const QBrush *m_brush = nullptr;
    QBrush m_ownBrush;
    std::vector<QLine> m_lines;
};
