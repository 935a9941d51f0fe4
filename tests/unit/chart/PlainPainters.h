#pragma once
// Series as the description of each draw type has them, with a call of QPainter for every stroke.
#include "support/Numbers.h"
#include "tests/unit/chart/PaintedSeries.h"

class Plain {
public:
    Plain(QPainter &painter, const View &view, Series &series)
        : m_painter(painter), m_view(view), m_map(view.mapping()), m_p(series.primitive) {
        m_line = m_p.m_linePen;
        m_rise = m_p.m_risePen;
        m_column = m_line;
        if (m_p.IsSelected()) {
            const Qt::PenStyle style = view.phase == 0 ? Qt::DashDotDotLine : Qt::DotLine;
            m_line.setStyle(style);
            m_rise.setStyle(style);
            m_column = QPen(QColor(0xFF, 0xC7, 0x8F), m_p.m_nPenWidth);
        }
    }
    virtual ~Plain() = default;
    void column(int r) {
        const int index = m_p.GetPos(m_view.firstPos + r);
        if (index >= 0)
            paint(r, m_map.CenterX(r), index);
    }
    virtual void paint(int r, int x, int index) = 0;
    virtual void finish() {}
    virtual bool merges(int) const { return false; } // gathers pixel columns of candles or bars
    virtual void otherMerges() {}                    // another array does so in the same column

protected:
    int row(double value) const { return m_map.Y(static_cast<float>(value)); }
    void stroke(const QPen &pen, int x1, int y1, int x2, int y2) {
        m_painter.setPen(pen);
        m_painter.drawLine(x1, y1, x2, y2);
    }
    QPainter &m_painter;
    View m_view;
    LayerMapping m_map;
    CRPrimitive &m_p;
    QPen m_line, m_rise, m_column;
    bool m_pending = false;
    int m_pendingX = 0, m_top = 0, m_bottom = 0;
};

class PlainCandle : public Plain {
public:
    using Plain::Plain;
    void flush() {
        if (m_pending)
            stroke(m_column, m_pendingX, m_top, m_pendingX, m_bottom);
        m_pending = false;
    }
    void finish() override { flush(); }
    bool isMerged() const {
        return m_p.m_type == PT_CANDLE ? 0.9 * m_map.candleStep <= 1 : m_map.candleStep < 1;
    }
    bool merges(int r) const override { return isMerged() && m_p.GetPos(m_view.firstPos + r) >= 0; }
    void otherMerges() override { flush(); }
    void paint(int, int x, int index) override {
        const double w = 0.9 * m_map.candleStep;
        const int d = w >= 3.1 ? 1 : 0;
        const int open = row(m_p.GetOpen(index)), high = row(m_p.GetHigh(index));
        const int low = row(m_p.GetLow(index)), close = row(m_p.GetClose(index));
        if (isMerged()) {
            if (m_pending && x != m_pendingX)
                flush();
            m_top = m_pending ? std::min(m_top, high) : high;
            m_bottom = m_pending ? std::max(m_bottom, low) : low;
            m_pendingX = x;
            m_pending = true;
            return;
        }
        const bool rising = m_p.GetOpen(index) <= m_p.GetClose(index);
        const QPen &pen = rising ? m_rise : m_line;
        if (m_p.m_type == PT_BAR) {
            const int tick = static_cast<int>(0.5 * m_map.candleStep);
            stroke(pen, x, high, x, low + 1);
            stroke(pen, x - tick, open, x, open);
            stroke(pen, x, close, x + tick, close);
            return;
        }
        const int x0 = x - static_cast<int>(w * 0.5);
        const int body = static_cast<int>(w - d);
        stroke(pen, x, open, x, low);
        stroke(pen, x, close, x, high);
        m_painter.setPen(pen);
        m_painter.setBrush(Qt::NoBrush);
        if (rising) {
            m_painter.drawRect(x0, close, body, open - close);
        } else if (open == close) {
            m_painter.drawLine(x - static_cast<int>(w * 0.5), open, x + static_cast<int>(w * 0.5), open);
        } else {
            const QRect fill(QPoint(x0, open), QPoint(x0 + body - 1, close - 1));
            if (m_p.IsSelected())
                m_painter.fillRect(fill, QBrush(m_p.m_lineColor, Qt::Dense3Pattern));
            else
                m_painter.fillRect(fill, m_p.m_lineColor);
            m_painter.drawRect(x0, open, body, close - open);
        }
    }
};

class PlainLine : public Plain {
public:
    using Plain::Plain;
    double value(int index) const {
        return m_p.m_type == PT_CLOSE_LINE ? m_p.GetClose(index) : m_p.FirstValue(index);
    }
    void paint(int r, int x, int index) override {
        const int position = m_view.firstPos + r;
        int previous = position - 1;
        while (previous >= 0 && m_p.GetPos(previous) < 0)
            --previous;
        if (previous < 0)
            return;
        const int y = row(value(index));
        const int x2 = m_map.CenterX(previous - m_view.firstPos);
        const int y2 = row(value(m_p.GetPos(previous)));
        if (x == x2) {
            m_top = std::min({m_pending ? m_top : y, y, y2});
            m_bottom = std::max({m_pending ? m_bottom : y, y, y2});
            m_pendingX = x;
            m_pending = true;
        } else if (m_pending) {
            stroke(m_line, m_pendingX, m_top, m_pendingX, m_bottom);
            stroke(m_line, x, y, m_pendingX, m_top);
            stroke(m_line, x, y, m_pendingX, m_bottom);
            m_pending = false;
        } else if (m_p.m_nPenStyle != 0) {
            stroke(m_line, x, y, x2, y2);
        }
    }
    void finish() override {
        if (m_pending)
            stroke(m_line, m_pendingX, m_top, m_pendingX, m_bottom);
    }
};

class PlainPoint : public Plain {
public:
    using Plain::Plain;
    void paint(int, int x, int index) override {
        const double step = m_map.candleStep;
        const int y = row(m_p.m_type == PT_CLOSE_DOTS ? m_p.GetClose(index) : m_p.FirstValue(index));
        m_painter.setPen(m_line);
        const int d = static_cast<int>(0.5 + step * 0.5), r = static_cast<int>(step * 0.25);
        if (d == 0 || r == 0) {
            m_painter.drawPoint(x, y);
            return;
        }
        m_painter.setBrush(QBrush(m_p.m_lineColor, m_p.IsSelected() ? Qt::Dense3Pattern : Qt::SolidPattern));
        m_painter.drawEllipse(x - r, y - r, d, d);
        m_painter.setBrush(Qt::NoBrush);
    }
};

class PlainHistogram : public Plain {
public:
    using Plain::Plain;
    void paint(int, int x, int index) override {
        int y = row(roundFloat(m_p.FirstValue(index), m_p.GetArray()->precision));
        int base = std::min(row(m_p.GetArray()->typeShow.borderValue), plot.bottom());
        if (y == base)
            return;
        const int cap = m_p.m_nPenWidth > 1 ? m_p.m_nPenWidth / 2 : 0;
        const int top = std::min(y, base) + cap, bottom = std::max(y, base) - cap;
        if (top <= bottom)
            stroke(m_line, x, y < base ? top : bottom, x, y < base ? bottom : top);
    }
};

class PlainMarks : public Plain {
public:
    using Plain::Plain;
    void paint(int, int x, int index) override {
        corePointMark point;
        std::memcpy(&point, m_p.GetDataPoint(index), sizeof point);
        const double p = m_map.candleStep;
        const int a = row(point.high), b = row(point.low);
        const QPen highlight(QColor(0xFF, 0xC7, 0x8F), m_p.m_nPenWidth + 2);
        const QPen own(QColor(static_cast<QRgb>(point.color)), m_p.m_nPenWidth, m_p.m_linePen.style());
        if (m_p.GetArray()->typeShow.lineShowType == 4)
            stroke(m_p.IsSelected() ? highlight : own, x, a, x, b);
        if (m_p.IsSelected() && point.sign == 3)
            return;
        const int half = static_cast<int>(0.5 * p);
        if (point.sign == 1 || point.sign == 3) {
            const int y = std::min(a, b);
            const QPen pen = m_p.IsSelected() ? highlight : m_line;
            stroke(pen, x - half, static_cast<int>(p / 5 + y - p), x, static_cast<int>(y - p));
            stroke(pen, x + half, static_cast<int>(p / 5 + y - p), x - 1, static_cast<int>(y - p));
        }
        if (point.sign == 2 || point.sign == 3) {
            const int y = std::max(a, b);
            const QPen pen = m_p.IsSelected() ? highlight : m_rise;
            stroke(pen, x - half, static_cast<int>(y + p - p / 5), x, static_cast<int>(y + p));
            stroke(pen, x + half, static_cast<int>(y + p - p / 5), x - 1, static_cast<int>(y + p));
        }
    }
};

inline std::unique_ptr<Plain> makePlain(QPainter &painter, const View &view, Series &series) {
    switch (series.primitive.m_type) {
    case PT_CANDLE:
    case PT_BAR:
        return std::make_unique<PlainCandle>(painter, view, series);
    case PT_HISTOGRAM:
        return std::make_unique<PlainHistogram>(painter, view, series);
    case PT_MARKS:
        return std::make_unique<PlainMarks>(painter, view, series);
    case PT_DOTS:
    case PT_CLOSE_DOTS:
        return std::make_unique<PlainPoint>(painter, view, series);
    default:
        return std::make_unique<PlainLine>(painter, view, series);
    }
}

inline QImage reference(const View &view, const std::vector<Series *> &series) {
    QImage image = canvas();
    QPainter painter(&image);
    prepare(painter);
    painter.setClipRect(plot);
    std::vector<std::unique_ptr<Plain>> plains;
    for (Series *one : series)
        plains.push_back(makePlain(painter, view, *one));
    for (int r = 0; r < view.points + 500; ++r)
        for (auto &plain : plains) {
            if (plain->merges(r))
                for (auto &other : plains)
                    if (other != plain)
                        other->otherMerges();
            plain->column(r);
        }
    for (auto &plain : plains)
        plain->finish();
    return image;
}
