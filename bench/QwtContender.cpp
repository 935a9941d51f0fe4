#include "bench/Contenders.h"
#include "bench/Exposed.h"

#include <qwt_date_scale_draw.h>
#include <qwt_date_scale_engine.h>
#include <qwt_plot.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_tradingcurve.h>

namespace {

class QwtContender : public Contender {
public:
    QwtContender(const std::vector<corePointCandle> &bars, int visible,
                 const std::vector<std::vector<ValuePoint>> &lines) {
        m_plot.resize(1280, 720);
        m_plot.setCanvasBackground(Qt::white);
        m_plot.setAxisScaleDraw(QwtPlot::xBottom, new QwtDateScaleDraw(Qt::UTC));
        m_plot.setAxisScaleEngine(QwtPlot::xBottom, new QwtDateScaleEngine(Qt::UTC));
        auto *curve = new QwtPlotTradingCurve;
        curve->setOrientation(Qt::Vertical);
        curve->setSymbolStyle(QwtPlotTradingCurve::CandleStick);
        curve->setSymbolExtent(54000);
        curve->setMinSymbolWidth(1);
        curve->setSymbolBrush(QwtPlotTradingCurve::Increasing, Qt::NoBrush);
        curve->setSymbolBrush(QwtPlotTradingCurve::Decreasing, QColor(0xc0392b));
        QVector<QwtOHLCSample> samples;
        samples.reserve(static_cast<int>(bars.size()));
        for (const corePointCandle &bar : bars)
            samples.append(QwtOHLCSample(bar.time * 1000.0, bar.open, bar.high, bar.low, bar.close));
        curve->setSamples(samples);
        curve->attach(&m_plot);
        for (const auto &line : lines) {
            auto *graph = new QwtPlotCurve;
            QVector<QPointF> points;
            for (const ValuePoint &point : line)
                points.append(QPointF(point.time * 1000.0, point.value));
            graph->setSamples(points);
            graph->attach(&m_plot);
        }
        m_plot.setAxisScale(QwtPlot::xBottom, bars[bars.size() - visible].time * 1000.0, bars.back().time * 1000.0);
        float high = bars.back().high, low = bars.back().low;
        for (std::size_t i = bars.size() - visible; i < bars.size(); ++i) {
            high = std::max(high, bars[i].high);
            low = std::min(low, bars[i].low);
        }
        m_plot.setAxisScale(QwtPlot::yLeft, low, high);
        showExposed(m_plot);
        m_plot.replot();
    }
    void frame() override {
        m_plot.replot();
        m_plot.update();
        m_plot.repaint();
    }

private:
    QwtPlot m_plot;
};

} // namespace

std::unique_ptr<Contender> makeQwt(const std::vector<corePointCandle> &bars, int visible,
                                   const std::vector<std::vector<ValuePoint>> &lines) {
    return std::make_unique<QwtContender>(bars, visible, lines);
}
