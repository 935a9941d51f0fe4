#pragma once

#include "module/HostRecords.h"

#include <QObject>

// Holds the host's function that shows the locator's lines.
template <class Widget>
class CMvLocator : public QObject {
public:
    using ShowFunction = mwiLocatorFunction;
    explicit CMvLocator(Widget *widget) : m_pWidget(widget) {}

    Widget *m_pWidget = nullptr;
    mwiLocatorFunction m_pfnShowLocator = nullptr;
};
