#pragma once

#include "bench/Bars.h"

#include <QWidget>
#include <memory>

class QCustomPlot;
class QwtPlot;

// What the module is measured beside: the same candles by other means, in a shown window of 1280 x 720.
class Contender {
public:
    virtual ~Contender() = default;
    virtual void frame() = 0; // one whole repaint, finished when it returns
};

// Candles (and lines) by a bare QPainter and nothing else: no scale, no text, no range.
std::unique_ptr<Contender> makeFloor(const std::vector<corePointCandle> &bars, int visible,
                                     const std::vector<std::vector<ValuePoint>> &lines = {});
std::unique_ptr<Contender> makeQCustomPlot(const std::vector<corePointCandle> &bars, int visible,
                                           const std::vector<std::vector<ValuePoint>> &lines = {});
std::unique_ptr<Contender> makeQwt(const std::vector<corePointCandle> &bars, int visible,
                                   const std::vector<std::vector<ValuePoint>> &lines = {});
