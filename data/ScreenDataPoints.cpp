#include "data/ScreenDataPoints.h"
#include "chart/GraphWidget.h"
#include "chart/TimeScrollBar.h"
#include "module/GraphModule.h"

namespace {

constexpr int fewPoints = 60;

} // namespace

void ScreenDataPointsUpdate::Update(int points, CRGraphWidget *widget) const {
    CTimeScrollBar *bar = widget ? widget->m_pScrollBar : nullptr;
    if (!bar || points >= fewPoints || points > bar->m_nScreenDataPoints)
        return;
    widget->m_nFreeSpacePositions = fewPoints - points;
    const int screenPoints = 2 * fewPoints - points;
    const auto *module = GetModule<CRGraphModule>();
    if (module->IsGameMode() && module->IsCompetitionMode() && screenPoints > bar->m_nScreenDataPoints)
        return;
    bar->m_nScreenDataPoints = screenPoints;
    bar->setPageStep(screenPoints);
}

void ScreenDataPointsNotUpdate::Update(int, CRGraphWidget *) const {}
