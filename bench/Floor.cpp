#include "bench/Contenders.h"
#include "bench/Exposed.h"

#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <cfloat>

namespace {

class FloorWidget : public QWidget {
public:
    FloorWidget(const std::vector<corePointCandle> &bars, int visible,
                const std::vector<std::vector<ValuePoint>> &lines)
        : m_bars(bars), m_lines(lines), m_visible(visible) {
        setAttribute(Qt::WA_OpaquePaintEvent);
        for (int i = first(); i < static_cast<int>(m_bars.size()); ++i) {
            m_high = std::max(m_high, m_bars[i].high);
            m_low = std::min(m_low, m_bars[i].low);
        }
    }

protected:
    void paintEvent(QPaintEvent *) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Qt4CompatiblePainting);
        painter.fillRect(rect(), Qt::white);
        const double step = double(width()) / m_visible, w = 0.9 * step;
        const double scale = height() / double(m_high - m_low);
        const auto row = [&](float value) { return height() - int((value - m_low) * scale + 0.5); };
        const QPen rise(QColor(0x2e8b57)), fall(QColor(0xc0392b));
        const int body = int(w - (w >= 3.1 ? 1 : 0));
        int pendingX = -1, top = 0, bottom = 0;
        for (int r = 0; r < m_visible; ++r) {
            const corePointCandle &bar = m_bars[first() + r];
            const int x = int(0.5 * step + double(width()) * r / m_visible);
            if (w <= 1) { // columns of one pixel merge
                if (x != pendingX) {
                    if (pendingX >= 0) {
                        painter.setPen(fall);
                        painter.drawLine(pendingX, top, pendingX, bottom);
                    }
                    pendingX = x;
                    top = row(bar.high);
                    bottom = row(bar.low);
                } else {
                    top = std::min(top, row(bar.high));
                    bottom = std::max(bottom, row(bar.low));
                }
                continue;
            }
            const bool rising = bar.open <= bar.close;
            const int open = row(bar.open), close = row(bar.close), left = x - int(w * 0.5);
            painter.setPen(rising ? rise : fall);
            painter.drawLine(x, open, x, row(bar.low));
            painter.drawLine(x, close, x, row(bar.high));
            if (rising) {
                painter.drawRect(left, close, body, open - close);
            } else {
                painter.fillRect(left, open, body, close - open, fall.color());
                painter.drawRect(left, open, body, close - open);
            }
        }
        if (pendingX >= 0)
            painter.drawLine(pendingX, top, pendingX, bottom);
        painter.setPen(QPen(QColor(0x3060c0)));
        for (const auto &line : m_lines) {
            const int shift = static_cast<int>(m_bars.size() - line.size());
            for (int r = 1; r < m_visible; ++r) {
                const int index = first() + r - shift;
                if (index < 1)
                    continue;
                painter.drawLine(int(0.5 * step + double(width()) * (r - 1) / m_visible), row(line[index - 1].value),
                                 int(0.5 * step + double(width()) * r / m_visible), row(line[index].value));
            }
        }
    }

private:
    int first() const { return static_cast<int>(m_bars.size()) - m_visible; }
    const std::vector<corePointCandle> &m_bars;
    std::vector<std::vector<ValuePoint>> m_lines;
    int m_visible;
    float m_high = -FLT_MAX, m_low = FLT_MAX;
};

class FloorContender : public Contender {
public:
    explicit FloorContender(FloorWidget *widget) : m_widget(widget) {
        widget->resize(1280, 720);
        showExposed(*widget);
    }
    void frame() override { m_widget->repaint(); }

private:
    std::unique_ptr<FloorWidget> m_widget;
};

} // namespace

std::unique_ptr<Contender> makeFloor(const std::vector<corePointCandle> &bars, int visible,
                                     const std::vector<std::vector<ValuePoint>> &lines) {
    return std::make_unique<FloorContender>(new FloorWidget(bars, visible, lines));
}
