#pragma once

#include "module/HostRecords.h"

#include <list>

class QAction;

// One indicator that the host offers, and its entry in the open menu.
struct indListEntry {
    void *interfaceHandle = nullptr;
    INDICATOR_DESCRIPTION description{};
    unsigned category = 0;
    QAction *action = nullptr;
};

using indListIndicators = std::list<indListEntry>;
