#include "chart/GraphLayer.h"

#include "chart/GraphArea.h"
#include "chart/GraphWidget.h"
#include "chart/Primitive.h"
#include "chart/PrimitiveLinkPainter.h"
#include "chart/PrimitivePainters.h"
#include "chart/TimeScale.h"

#include <QPainter>

namespace {

constexpr int overdraw = 500; // columns past the edge whose strokes may reach into the window

void buildPens(CRPrimitive &primitive) {
    primitive.m_linePen = seriesPen(primitive, primitive.m_lineColor);
    primitive.m_risePen = seriesPen(primitive, primitive.m_riseColor);
    primitive.m_bColumnPending = false;
}

bool isZero(float value) {
    return !(std::abs(value) > FLT_EPSILON * std::abs(value));
}

} // namespace

void CRGraphLayer::Draw(QPainter &painter, QRect &rect, bool lastOnly) {
    const CRGraphWidget *widget = GetWidget();
    if (!widget || widget->m_loading)
        return;
    UpdatePaintProperties(rect);
    if (m_primitives.empty())
        return;
    painter.setFont(m_pArea->m_properties.font);
    if (!lastOnly)
        DrawScales(painter);
    painter.setClipRect(m_rect);
    for (CRPrimitive *primitive : m_primitives)
        buildPens(*primitive);

    PaintPass pass(painter, Mapping());
    pass.firstColumn = lastOnly ? m_nScreenPoints : 0;
    pass.lastColumn = lastOnly ? 1 : m_nScreenPoints;
    pass.manualTest = widget->m_bManualTestMode;
    pass.timeCount = widget->m_pTimeScale ? widget->m_pTimeScale->GetTimeCount() : 0;
    pass.freeSpace = widget->m_nFreeSpacePositions;
    pass.blinkPhase = m_nBlinkPhase;

    DrawWideCandles(pass);
    DrawLinks(pass);
    DrawLevels(pass, false);
    if (m_nBlinkPhase > 1)
        m_nBlinkPhase = 0;
    pass.blinkPhase = m_nBlinkPhase;
    DrawPrimitives(pass);
    ++m_nBlinkPhase;
    DrawLevels(pass, true);
    painter.setClipping(false);
}

// The first layer has its scale on the right, and on the left as well when it is alone; the second has
// the left one, further ones have none.
bool CRGraphLayer::ShowsScale(SCALE_TYPE type) const {
    const CRGraphWidget *widget = GetWidget();
    const int index = GetIndex();
    if (type == RIGHT_SCALE)
        return index == 0;
    return index == 1 ||
           (index == 0 && m_pArea->m_layers.size() == 1 && widget && widget->m_nLeftScaleWidth > 0);
}

void CRGraphLayer::DrawScales(QPainter &painter) {
    for (SCALE_TYPE type : {RIGHT_SCALE, LEFT_SCALE})
        if (ShowsScale(type))
            DrawDataScale(type, painter);
}

void CRGraphLayer::DrawWideCandles(PaintPass &pass) {
    std::vector<std::unique_ptr<PrimitivePainter>> painters;
    for (CRPrimitive *primitive : m_primitives)
        if (primitive->m_type == PT_WIDE_CANDLE)
            if (auto painter = PrimitivePainter::Create(pass, *primitive))
                painters.push_back(std::move(painter));
    if (!painters.empty())
        paintColumns(pass.mapping, painters, pass.firstColumn - overdraw,
                     pass.lastColumn + overdraw + pass.freeSpace);
    pass.ink.Flush();
    pass.ink.Forget();
}

void CRGraphLayer::DrawLinks(PaintPass &pass) const {
    if (!m_links.empty())
        paintLinks(pass, m_links, pass.firstColumn, pass.lastColumn + overdraw);
}

// Levels lie under the series, that of zero over them.
void CRGraphLayer::DrawLevels(PaintPass &pass, bool zero) const {
    for (const CRPrimitive *primitive : m_primitives) {
        const InkPen pen(primitive->IsSelected()
                             ? highlightPen(*primitive, 2)
                             : QPen(primitive->m_levelColor, seriesPenWidth(*primitive), Qt::SolidLine));
        for (float level : primitive->m_levels)
            if (isZero(level) == zero)
                pass.ink.Level(pen, m_rect.left(), m_rect.right(), CalcY(level));
        pass.ink.Flush();
        pass.ink.Forget();
    }
}

// All series advance together, column by column.
void CRGraphLayer::DrawPrimitives(PaintPass &pass) {
    std::vector<std::unique_ptr<PrimitivePainter>> painters;
    for (CRPrimitive *primitive : m_primitives)
        if (primitive->m_type != PT_WIDE_CANDLE)
            if (auto painter = PrimitivePainter::Create(pass, *primitive))
                painters.push_back(std::move(painter));
    paintColumns(pass.mapping, painters, pass.firstColumn, pass.lastColumn + overdraw);
    pass.ink.Flush();
    pass.ink.Forget();
}
