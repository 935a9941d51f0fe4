#include "bench/Contenders.h"
#include "bench/Exposed.h"

#include <qcustomplot.h>

namespace {

class PlotContender : public Contender {
public:
    PlotContender(const std::vector<corePointCandle> &bars, int visible,
                  const std::vector<std::vector<ValuePoint>> &lines) {
        m_plot.resize(1280, 720);
        auto *candles = new QCPFinancial(m_plot.xAxis, m_plot.yAxis);
        candles->setChartStyle(QCPFinancial::csCandlestick);
        candles->setWidth(54);
        candles->setTwoColored(true);
        candles->setAntialiased(false);
        candles->setBrushPositive(Qt::NoBrush);
        candles->setBrushNegative(QColor(0xc0392b));
        candles->setPenPositive(QPen(QColor(0x2e8b57)));
        candles->setPenNegative(QPen(QColor(0xc0392b)));
        QVector<QCPFinancialData> data;
        data.reserve(static_cast<int>(bars.size()));
        for (const corePointCandle &bar : bars)
            data.append({double(bar.time), bar.open, bar.high, bar.low, bar.close});
        candles->data()->set(data, true);
        for (const auto &line : lines) {
            QCPGraph *graph = m_plot.addGraph();
            graph->setAntialiased(false);
            QVector<QCPGraphData> points;
            for (const ValuePoint &point : line)
                points.append({double(point.time), point.value});
            graph->data()->set(points, true);
        }
        m_plot.xAxis->setTicker(QSharedPointer<QCPAxisTickerDateTime>::create());
        m_plot.xAxis->setRange(bars[bars.size() - visible].time, bars.back().time);
        candles->rescaleValueAxis(false, true);
        showExposed(m_plot);
        m_plot.replot();
    }
    void frame() override { m_plot.replot(QCustomPlot::rpImmediateRefresh); }

private:
    QCustomPlot m_plot;
};

} // namespace

std::unique_ptr<Contender> makeQCustomPlot(const std::vector<corePointCandle> &bars, int visible,
                                           const std::vector<std::vector<ValuePoint>> &lines) {
    return std::make_unique<PlotContender>(bars, visible, lines);
}
