#include "module/GraphModule.h"

#include <QAbstractEventDispatcher>

namespace {
constexpr int tickMilliseconds = 1000;
}

CGraphTimer::CGraphTimer(CRGraphModule *module) : m_module(module) {
    EnsureStarted();
}

void CGraphTimer::EnsureStarted() {
    if (m_timerId == 0 && QAbstractEventDispatcher::instance())
        m_timerId = startTimer(tickMilliseconds);
}

void CGraphTimer::timerEvent(QTimerEvent *) {
    m_module->OnTimerEvent();
}
