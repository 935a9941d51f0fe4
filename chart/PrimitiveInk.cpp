#include "chart/PrimitiveInk.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr std::size_t mostLines = 4096;
constexpr int farAway = 30000; // pixels; strokes and dashes beyond are work for nothing

bool isFar(const QLine &line) {
    return std::abs(line.x1()) > farAway || std::abs(line.y1()) > farAway || std::abs(line.x2()) > farAway ||
           std::abs(line.y2()) > farAway;
}

// The part of a line within the far edges (Liang and Barsky); false when there is none.
bool clipFar(QLine &line) {
    const double dx = static_cast<double>(line.x2()) - line.x1();
    const double dy = static_cast<double>(line.y2()) - line.y1();
    const double steps[] = {-dx, dx, -dy, dy};
    const double rooms[] = {line.x1() + double(farAway), double(farAway) - line.x1(),
                            line.y1() + double(farAway), double(farAway) - line.y1()};
    double from = 0, to = 1;
    for (int side = 0; side < 4; ++side) {
        if (steps[side] == 0 && rooms[side] < 0)
            return false;
        if (steps[side] < 0)
            from = std::max(from, rooms[side] / steps[side]);
        else if (steps[side] > 0)
            to = std::min(to, rooms[side] / steps[side]);
    }
    if (from > to)
        return false;
    line = QLine(qRound(line.x1() + from * dx), qRound(line.y1() + from * dy), qRound(line.x1() + to * dx),
                 qRound(line.y1() + to * dy));
    return true;
}

} // namespace

void PrimitiveInk::Use(const InkPen &pen) {
    if (m_used == &pen)
        return;
    m_painter.setPen(pen.pen());
    m_used = &pen;
}

PrimitiveInk::~PrimitiveInk() {
    Flush();
    if (m_brushTaken)
        m_painter.setBrush(m_ownBrush);
}

void PrimitiveInk::UseBrush(const QBrush *brush) {
    if (!m_brushTaken)
        m_ownBrush = m_painter.brush();
    else if (m_brush == brush)
        return;
    m_brushTaken = true;
    m_brush = brush;
    if (brush)
        m_painter.setBrush(*brush);
    else
        m_painter.setBrush(Qt::NoBrush);
}

void PrimitiveInk::Flush() {
    if (m_lines.empty())
        return;
    Use(*m_pending);
    m_painter.drawLines(m_lines.data(), static_cast<int>(m_lines.size()));
    m_lines.clear();
}

void PrimitiveInk::Line(const InkPen &pen, QLine line) {
    if (isFar(line) && !clipFar(line))
        return;
    if (m_pending != &pen || m_lines.size() >= mostLines)
        Flush();
    m_pending = &pen;
    m_lines.push_back(line);
}

// Cells of the same colour as the lines kept back may land before them.
void PrimitiveInk::FillCells(const InkPen &pen, int x, int y, int width, int height) {
    if (m_pending != &pen)
        Flush();
    m_painter.fillRect(QRect(x, y, width, height), pen.color());
}

void PrimitiveInk::Upright(const InkPen &pen, int x, int y1, int y2) {
    if (!pen.isPlain())
        Line(pen, QLine(x, y1, x, y2));
    else
        FillCells(pen, x, std::min(y1, y2), 1, std::abs(y2 - y1) + 1);
}

void PrimitiveInk::Level(const InkPen &pen, int x1, int x2, int y) {
    if (!pen.isPlain())
        Line(pen, QLine(x1, y, x2, y));
    else
        FillCells(pen, std::min(x1, x2), y, std::abs(x2 - x1) + 1, 1);
}

void PrimitiveInk::Dot(const InkPen &pen, int x, int y) {
    if (pen.isPlain()) {
        FillCells(pen, x, y, 1, 1);
        return;
    }
    Flush();
    Use(pen);
    m_painter.drawPoint(x, y);
}

void PrimitiveInk::Ellipse(const InkPen &pen, const QBrush &brush, const QRect &rect) {
    Flush();
    Use(pen);
    UseBrush(&brush);
    m_painter.drawEllipse(rect);
}

void PrimitiveInk::Outline(const InkPen &pen, const QRect &rect) {
    if (!pen.isPlain()) {
        Flush();
        Use(pen);
        UseBrush(nullptr);
        m_painter.drawRect(rect);
        return;
    }
    const int left = rect.x();
    const int top = rect.y();
    const int right = left + rect.width();
    const int bottom = top + rect.height();
    Level(pen, left, right, top);
    if (bottom == top)
        return;
    Level(pen, left, right, bottom);
    if (bottom - top < 2)
        return;
    Upright(pen, left, top + 1, bottom - 1);
    Upright(pen, right, top + 1, bottom - 1);
}

void PrimitiveInk::Fill(const QRect &rect, const QColor &color) {
    Flush();
    m_painter.fillRect(rect, color);
}

void PrimitiveInk::Fill(const QRect &rect, const QBrush &brush) {
    Flush();
    m_painter.fillRect(rect, brush);
}
