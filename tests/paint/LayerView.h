#pragma once
// A layer of a chart in a test: its series, and where their values must be on the picture.
#include "chart/GraphArea.h"
#include "chart/GraphLayer.h"
#include "chart/GraphWidget.h"
#include "chart/Primitive.h"
#include "chart/TimeScrollBar.h"
#include "objects/Indicator.h"
#include "tests/support/FakeHost.h"

#include <QDialog>
#include <QTreeWidget>
#include <cmath>
#include <gtest/gtest.h>

constexpr QRgb testRise = 0xFF00A000; // colours of the instruments that the host makes
constexpr QRgb testFall = 0xFFC00000;

struct LayerView {
    explicit LayerView(const Chart &chart, int area = 0, int layer = 0)
        : layer(chart.handle->m_areas.at(static_cast<std::size_t>(area))
                    ->m_layers.at(static_cast<std::size_t>(layer))),
          bar(chart.handle->m_pScrollBar) {}

    int points() const { return bar->m_nScreenDataPoints; }
    int firstPos() const { return bar->m_nValue - points(); }
    double step() const { return static_cast<double>(layer->m_rect.width()) / points(); }
    int x(int position) const {
        const int offset = layer->m_rect.width() * (position - firstPos()) / points();
        return static_cast<int>(layer->m_rect.left() + 0.5 * step() + offset);
    }
    int leftX(int position) const {
        return layer->m_rect.left() + layer->m_rect.width() * (position - firstPos()) / points();
    }
    int y(double value) const {
        return layer->m_rect.bottom() + 1 - static_cast<int>((value - layer->m_min) * layer->m_yScale + 0.5);
    }
    CRPrimitive *series(int index = 0) const {
        return layer->m_primitives.at(static_cast<std::size_t>(index));
    }

    CRGraphLayer *layer;
    CTimeScrollBar *bar;
};

/// A chart with one instrument whose bars are given.
struct SeriesChart {
    explicit SeriesChart(const std::vector<Bar> &bars, Word drawKind = 1, QSize size = QSize(800, 600),
                         char letter = 'I', int length = 60) {
        host.setHistory("EURUSD", bars);
        host.setDrawKind(drawKind);
        chart = host.createChart(size);
        instrument = host.addInstrument(chart, "EURUSD", letter, length);
        host.tick();
    }
    QImage grab() { return host.grab(chart).convertToFormat(QImage::Format_RGB32); }
    LayerView view(int area = 0, int layer = 0) { return LayerView(chart, area, layer); }
    CRPrimitive *series() { return chart.handle->m_indicators.front()->m_primitives.front(); }
    // An indicator on the instrument, in its layer (placement 0) or in a new pane (3).
    FakeObject *addOutputs(const std::vector<FakeOutput> &outputs,
                           const std::vector<coreIndicatorLinks> &links = {},
                           const coreHorizontLine *levels = nullptr) {
        FakeIndicator kind;
        kind.name = kind.displayName = "IND";
        kind.outputs = outputs;
        kind.links = links;
        if (levels)
            kind.levels = *levels;
        host.addIndicatorKind(kind);
        if (outputs.front().placement == 0)
            host.onDialog([](QDialog *dialog) {
                auto *tree = dialog->findChild<QTreeWidget *>();
                tree->setCurrentItem(tree->topLevelItem(0));
                dialog->accept();
            });
        host.addIndicator(chart, "IND");
        host.tick();
        return host.lastObject();
    }
    void show(int points) { // positions, at the right end of the axis
        CTimeScrollBar *bar = chart.handle->m_pScrollBar;
        bar->m_nScreenDataPoints = points;
        bar->setRange(points, std::max(points, static_cast<int>(series()->GetPosSize()) + 30));
        bar->setPageStep(points);
        bar->m_nValue = bar->maximum();
    }
    void showFrom(int firstPos, int points) {
        show(points);
        chart.handle->m_pScrollBar->m_nValue = firstPos + points;
    }

    FakeHost host;
    Chart chart;
    FakeObject *instrument = nullptr;
};

inline int colorCount(const QImage &image, const QRect &rect, QRgb color) {
    int count = 0;
    const QRect inside = rect.intersected(image.rect());
    for (int y = inside.top(); y <= inside.bottom(); ++y)
        for (int x = inside.left(); x <= inside.right(); ++x)
            count += (image.pixel(x, y) | 0xFF000000u) == color;
    return count;
}

inline bool isColor(const QImage &image, int x, int y, QRgb color) {
    return image.rect().contains(x, y) && (image.pixel(x, y) | 0xFF000000u) == color;
}
