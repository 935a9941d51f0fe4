#pragma once

#include "bench/Bars.h"

#include <memory>

// Ten indicators of the desk's engine over one series of bars, computed once.
class Engine {
public:
    explicit Engine(const std::vector<corePointCandle> &bars);
    ~Engine();
    void quote(); // the last bar has changed: every indicator follows

private:
    struct Kind;
    std::vector<corePointCandle> m_bars;
    std::vector<coreFieldDescriptor> m_fields;
    mvDataPointArray m_array;
    std::vector<std::unique_ptr<Kind>> m_kinds;
};
