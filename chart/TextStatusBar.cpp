#include "chart/TextStatusBar.h"

#include "chart/GraphLayer.h"
#include "chart/GraphWidget.h"
#include "chart/TimeScale.h"
#include "chart/TimeText.h"
#include "module/GraphModule.h"
#include "module/HostCalls.h"
#include "module/HostMessages.h"
#include "support/Numbers.h"

#include <QPoint>
#include <cfloat>
#include <cmath>

namespace {

constexpr int timePane = 98;
constexpr int timePaneWidth = 120;
constexpr int pricePane = 99;
constexpr int pricePaneWidth = 50;

QString priceText(double price, int decimals) {
    if (!(std::fabs(price) <= static_cast<double>(FLT_MAX)) || price == 0)
        return QStringLiteral("0.0");
    return QString::asprintf("%0.*f", decimals, price);
}

} // namespace

CTextStatusBar::CTextStatusBar(CRGraphModule *module) : m_module(module) {
    RequestPanes(ToHost::StatusPane);
}

CTextStatusBar::~CTextStatusBar() = default;

void CTextStatusBar::RequestPanes(unsigned message) {
    void *statusBar = m_module->GetInterfaceByName("STATUSBAR", "VELMAR", "velmarStatusBar");
    if (!statusBar)
        return;
    if (!m_timeLabel)
        m_timeLabel = RequestPane(statusBar, message, timePane, timePaneWidth);
    if (!m_priceLabel)
        m_priceLabel = RequestPane(statusBar, message, pricePane, pricePaneWidth);
}

// Null when the host has no such pane, or one that is no label.
QLabel *CTextStatusBar::RequestPane(void *statusBar, unsigned message, int id, int width) {
    const Word windowId = HostCalls::statusPane(statusBar, message, this, id, width);
    return windowId ? qobject_cast<QLabel *>(QWidget::find(windowId)) : nullptr;
}

void CTextStatusBar::setTextStatusBar(CRGraphWidget *widget, CRGraphLayer *layer, const QPoint &point) {
    if (!m_module->m_mainWindowLoaded)
        return;
    layer->Update();
    const double price = layer->m_yScale != 0 ? layer->CalcPrice(point.y()) : 0;
    const long time = widget->m_pTimeScale ? widget->m_pTimeScale->GetPointTime(point) : -1;
    if (m_priceLabel)
        m_priceLabel->setText(priceText(price, decimalsOf(layer->m_tick)));
    if (m_timeLabel)
        m_timeLabel->setText(isAxisTime(time) ? timeText(time, "G0ddMMyyyyhhmmss") : QString());
}

void CTextStatusBar::clearTextStatusBar() {
    if (!m_timeLabel || !m_priceLabel)
        RequestPanes(ToHost::StatusPaneAgain);
    if (m_timeLabel)
        m_timeLabel->clear();
    if (m_priceLabel)
        m_priceLabel->clear();
}
