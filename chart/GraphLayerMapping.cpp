#include "chart/GraphLayerMapping.h"

#include <cstdlib>

namespace {

// Far outside of any screen, and still far from the ends of an int: rows may be added to without overflow.
constexpr double farPixel = 1e8;

// Pixels from the left edge to a column, by integer division towards zero. A million visible positions
// leave the range of an int.
int columnOffset(int width, int relativePos, int screenPoints) {
    if (screenPoints == 0)
        return 0;
    if (std::abs(relativePos) < (1 << 17) && width < (1 << 13))
        return width * relativePos / screenPoints;
    return toPixel(static_cast<double>(static_cast<long long>(width) * relativePos / screenPoints));
}

} // namespace

int toPixel(double value) {
    if (value >= farPixel)
        return static_cast<int>(farPixel);
    if (value > -farPixel)
        return static_cast<int>(value);
    return static_cast<int>(-farPixel);
}

int LayerMapping::CenterX(int relativePos) const {
    return toPixel(rect.left() + 0.5 * candleStep +
                   static_cast<double>(columnOffset(rect.width(), relativePos, screenPoints)));
}

int LayerMapping::LeftX(int relativePos, bool tick) const {
    const int offset = columnOffset(rect.width(), relativePos, screenPoints);
    return tick ? toPixel(static_cast<double>(rect.left()) + candleStep + offset) : rect.left() + offset;
}

int LayerMapping::RelativePos(int x, double rounding) const {
    if (rect.width() <= 0)
        return 0;
    return toPixel((x - rect.left() - 0.5 * candleStep) * screenPoints / rect.width() + rounding);
}

int LayerMapping::Y(float value) const {
    return rect.bottom() + 1 - toPixel((value - min) * yScale + 0.5);
}

double LayerMapping::Value(int y) const {
    return static_cast<double>(rect.bottom() + 1 - y) / yScale + min;
}

ColumnWalk::ColumnWalk(const LayerMapping &mapping, int relativePos)
    : m_mapping(mapping), m_relativePos(relativePos) {
    if (mapping.screenPoints > 0) {
        m_step = mapping.rect.width() / mapping.screenPoints;
        m_stepRemainder = mapping.rect.width() % mapping.screenPoints;
    }
    Place();
}

void ColumnWalk::Place() {
    m_offset = columnOffset(m_mapping.rect.width(), m_relativePos, m_mapping.screenPoints);
    m_remainder = static_cast<int>(static_cast<long long>(m_mapping.rect.width()) * m_relativePos -
                                   static_cast<long long>(m_offset) * m_mapping.screenPoints);
}

int ColumnWalk::CenterX() const {
    return toPixel(m_mapping.rect.left() + 0.5 * m_mapping.candleStep + static_cast<double>(m_offset));
}

// Left of the window the division rounds the other way.
void ColumnWalk::Next() {
    ++m_relativePos;
    if (m_relativePos <= 0) {
        Place();
        return;
    }
    m_offset += m_step;
    m_remainder += m_stepRemainder;
    if (m_remainder >= m_mapping.screenPoints && m_mapping.screenPoints > 0) {
        m_remainder -= m_mapping.screenPoints;
        ++m_offset;
    }
}
