#pragma once

#include "module/HostRecords.h"

#include <QObject>

class CRGraphWidget;

// Holds the host's function that shows the locator's lines.
class CMvLocator : public QObject {
    Q_OBJECT

public:
    using ShowFunction = void (*)(mwiLocatorMessage *);
    explicit CMvLocator(CRGraphWidget *widget) : m_pWidget(widget) {}

    CRGraphWidget *m_pWidget = nullptr;
    ShowFunction m_pfnShowLocator = nullptr;
};
