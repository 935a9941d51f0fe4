// What a chart window asks of its host: plain messages, the host's widgets, game mode.
#include "chart/GraphWidget.h"

#include "chart/TimeScrollBar.h"
#include "module/GraphModule.h"
#include "module/HostCalls.h"
#include "module/HostMessages.h"
#include "objects/Indicator.h"

#include <QCoreApplication>
#include <QPointer>
#include <QTimer>

namespace {

constexpr int gameModeTestInterval = 20000; // milliseconds
constexpr int gameScreenPoints = 10;
constexpr int normalScreenPoints = 60;
constexpr Word mostAccounts = 10000; // more is no answer

/// Every account of every dealing interface leaves the game.
void leaveGame(CRGraphModule *module) {
    const std::vector<void *> interfaces = module->GetTradeModule()->Interfaces();
    for (void *dealing : interfaces) {
        Word count = 0;
        if (module->Send(dealing, ToHost::AccountCount, &count, 0) != 0 || count == 0 || count > mostAccounts)
            continue;
        std::vector<mvdDealAccount> accounts(count, zeroRecord<mvdDealAccount>());
        mvdList list{static_cast<int>(count), accounts.data()};
        if (module->Send(dealing, ToHost::Accounts, &list, 0) != 0)
            continue;
        accounts.resize(static_cast<std::size_t>(qBound(0, list.count, static_cast<int>(count))));
        for (const mvdDealAccount &account : accounts)
            HostCalls::accountLeavesGame(dealing, fromWord<void>(account.account));
    }
}

} // namespace

int CRGraphWidget::SendMessageCore(unsigned message, int a, int b) {
    return m_module->SendCore(message, a, b);
}

int CRGraphWidget::SendMessageWindow(unsigned message, int a, int b) {
    return m_module->Send(m_hComponent, message, a, b);
}

QSlider *CRGraphWidget::GetZoomSlider() {
    return HostCalls::zoomSlider(m_hComponent);
}

QToolButton *CRGraphWidget::GetToolButton(int id) {
    return HostCalls::toolButton(m_hComponent, static_cast<unsigned>(id));
}

QToolButton *CRGraphWidget::GetZoomInButton() {
    return GetToolButton(ToHost::ZoomInButton);
}

QToolButton *CRGraphWidget::GetZoomOutButton() {
    return GetToolButton(ToHost::ZoomOutButton);
}

QToolButton *CRGraphWidget::GetLastCandleIndicatorButton() {
    return GetToolButton(ToHost::LastCandleButton);
}

QToolButton *CRGraphWidget::GetInformationBoxButton() {
    return GetToolButton(ToHost::InformationBoxButton);
}

/// In game mode the instruments show ticks, a few at a time, and no studies.
void CRGraphWidget::SwitchToGameMode(bool on) {
    const QPointer<CRGraphWidget> alive(this);
    if (on)
        ResetPeriods();
    if (!alive)
        return;
    std::vector<CRPrimitive *> primitives;
    GetAllPrimitives(&primitives, 1);
    for (CRPrimitive *primitive : primitives)
        primitive->SafeDeleteLS();
    if (!m_pScrollBar)
        return;
    const int points = on ? gameScreenPoints : normalScreenPoints;
    m_pScrollBar->m_nScreenDataPoints = points;
    m_pScrollBar->setPageStep(points);
    // Each of these can scroll, which the host hears of.
    m_pScrollBar->setMinimum(0);
    if (alive)
        m_pScrollBar->setMaximum(points);
    if (alive)
        m_pScrollBar->SetValue(0);
}

void CRGraphWidget::OnSwitchGameMode() {
    static bool gameMode = false; // of the process
    gameMode = !gameMode;
    if (!gameMode)
        leaveGame(m_module);
    HostCalls::setGameMode(gameMode);
}

/// Starts the switching of the mode every 20 seconds for the whole process, or stops it.
void CRGraphWidget::OnTestGameMode() {
    static QPointer<QTimer> timer;
    if (timer) {
        delete timer.data();
        return;
    }
    timer = new QTimer(QCoreApplication::instance());
    connect(timer.data(), SIGNAL(timeout()), this, SLOT(OnSwitchGameMode()));
    timer->start(gameModeTestInterval);
}
