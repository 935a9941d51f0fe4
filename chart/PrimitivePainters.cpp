#include "chart/PrimitivePainters.h"

#include "chart/Primitive.h"
#include "chart/PrimitiveGeometry.h"
#include "chart/PrimitivePaintersCandle.h"
#include "chart/PrimitivePaintersLine.h"
#include "chart/PrimitiveTypes.h"

#include <algorithm>
#include <climits>

namespace {

QPen selectedPen(const QPen &pen, int blinkPhase) {
    QPen result(pen);
    result.setStyle(blinkPhase == 0 ? Qt::DashDotDotLine : Qt::DotLine);
    return result;
}

template <class Painter>
std::unique_ptr<PrimitivePainter> make(PaintPass &pass, CRPrimitive &primitive) {
    return std::make_unique<Painter>(pass, primitive);
}

// A pen of no style leaves what is filled.
bool isOnlyStroked(PRIMITIVE_TYPES type) {
    return type != PT_CANDLE && type != PT_WIDE_CANDLE && type != PT_DOTS && type != PT_CLOSE_DOTS;
}

using Maker = std::unique_ptr<PrimitivePainter> (*)(PaintPass &, CRPrimitive &);

// By draw type.
constexpr Maker makers[] = {
    make<LinePainter>,   make<DotPainter>, make<HistogramPainter>,  make<LinePainter>, make<LinePainter>,
    make<CandlePainter>, make<BarPainter>, make<WideCandlePainter>, make<MarkPainter>, make<DotPainter>,
};
constexpr int makerCount = sizeof makers / sizeof makers[0];

} // namespace

int seriesPenWidth(const CRPrimitive &primitive) {
    constexpr int widest = 255;
    return std::clamp(primitive.m_nPenWidth, 0, widest);
}

QPen seriesPen(const CRPrimitive &primitive, const QColor &color, int wider) {
    const int style = primitive.m_nPenStyle;
    const bool known = style >= Qt::NoPen && style <= Qt::DashDotDotLine;
    return QPen(color, seriesPenWidth(primitive) + wider,
                known ? static_cast<Qt::PenStyle>(style) : Qt::SolidLine);
}

QPen highlightPen(const CRPrimitive &primitive, int wider) {
    return QPen(QColor(selectionColor), seriesPenWidth(primitive) + wider, Qt::SolidLine);
}

std::unique_ptr<PrimitivePainter> PrimitivePainter::Create(PaintPass &pass, CRPrimitive &primitive) {
    if (primitive.m_type < 0 || primitive.m_type >= makerCount)
        return nullptr;
    if (primitive.m_nPenWidth == 0 || primitive.GetDataPointCount() <= 0)
        return nullptr;
    if (primitive.m_nPenStyle == Qt::NoPen && !primitive.IsSelected() && isOnlyStroked(primitive.m_type))
        return nullptr;
    return makers[primitive.m_type](pass, primitive);
}

PrimitivePainter::PrimitivePainter(PaintPass &pass, CRPrimitive &primitive, int reach)
    : m_pass(pass), m_primitive(primitive),
      m_line(primitive.IsSelected() ? selectedPen(primitive.m_linePen, pass.blinkPhase)
                                    : primitive.m_linePen),
      m_rise(primitive.IsSelected() ? selectedPen(primitive.m_risePen, pass.blinkPhase)
                                    : primitive.m_risePen),
      m_selected(primitive.IsSelected()), m_count(primitive.GetDataPointCount()),
      m_reach(reach + seriesPenWidth(primitive) + 1),
      m_lastColumn(pass.manualTest && !primitive.IsInstrumentType() ? pass.mapping.screenPoints - 1
                                                                    : INT_MAX) {
    primitive.m_bColumnPending = false;
}

PrimitivePainter::~PrimitivePainter() = default;

bool PrimitivePainter::IsBehind(int, int x) const {
    return x - m_reach > m_pass.mapping.rect.right();
}

bool PrimitivePainter::Column(int relativePos, int x) {
    const int position = m_pass.mapping.firstPos + relativePos;
    if (relativePos > m_lastColumn || position >= m_primitive.GetPosSize() || IsBehind(relativePos, x))
        return false;
    const int dataIndex = m_primitive.GetPos(position);
    if (dataIndex >= 0 && dataIndex < m_count)
        Paint(relativePos, x, dataIndex);
    return true;
}

void paintColumns(const LayerMapping &mapping, std::vector<std::unique_ptr<PrimitivePainter>> &painters,
                  int from, int to) {
    std::vector<PrimitivePainter *> active;
    for (const auto &painter : painters)
        active.push_back(painter.get());
    for (ColumnWalk column(mapping, from); column.RelativePos() < to && !active.empty(); column.Next()) {
        const int x = column.CenterX();
        for (std::size_t i = 0; i < active.size();) {
            if (active[i]->Column(column.RelativePos(), x)) {
                ++i;
            } else {
                active[i]->Finish();
                active.erase(active.begin() + static_cast<std::ptrdiff_t>(i));
            }
        }
    }
    for (PrimitivePainter *painter : active)
        painter->Finish();
}
