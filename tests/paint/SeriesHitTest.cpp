// Which points of the plot hit a series, pixel by pixel, against shapes that are worked out here once more.
#include "tests/paint/LayerView.h"

#include <QHelpEvent>
#include <algorithm>

namespace {

constexpr int start = 1388534400;
constexpr int hour = 3600;
constexpr int tolerance = 5;

// A segment whose far end lies one pixel past `b` in both directions.
bool onLine(QPoint a, QPoint b, QPoint p) {
    const int x1 = a.x(), y1 = a.y(), x2 = b.x() + 1, y2 = b.y() + 1;
    const auto between = [](int v, int from, int to) {
        return (v >= from - tolerance && v <= to + tolerance) ||
               (v >= to - tolerance && v <= from + tolerance);
    };
    if (!between(p.x(), x1, x2))
        return false;
    if (y1 == y2)
        return std::abs(y2 - p.y()) < tolerance;
    if (!between(p.y(), y1, y2))
        return false;
    const double dx = x1 - x2, dy = y1 - y2;
    const int row = static_cast<int>(dy * (p.x() - x2) / dx + y2 + 0.5);
    return std::fabs(dx * (p.y() - row) / std::sqrt(dx * dx + dy * dy)) < tolerance;
}

bool inRect(int left, int top, int right, int bottom, QPoint p) {
    return p.x() >= std::min(left, right) && p.x() <= std::max(left, right) &&
           p.y() >= std::min(top, bottom) && p.y() <= std::max(top, bottom);
}

// What a test of hits knows of the picture: where positions and values are, and the data behind them.
struct Plot {
    LayerView view;
    CRPrimitive *series;

    int dataAt(int position) const {
        return position < 0 || position >= static_cast<int>(series->m_pos.size())
                   ? -1
                   : series->m_pos[static_cast<std::size_t>(position)];
    }
    int positionAt(int x, double rounding) const {
        const QRect &rect = view.layer->m_rect;
        const float step = static_cast<float>(rect.width()) / static_cast<float>(view.points());
        return static_cast<int>((x - rect.left() - 0.5 * step) * view.points() / rect.width() + rounding) +
               view.firstPos();
    }
};

// The data index that a point hits, or -1.
int lineHit(const Plot &plot, QPoint p, double (CRMDataLine::*value)(int) const) {
    const int from = plot.positionAt(p.x(), 1.0);
    int next = std::max(from, 0), previous = from - 1;
    while (next < static_cast<int>(plot.series->m_pos.size()) && plot.dataAt(next) < 0)
        ++next;
    while (previous >= 0 && plot.dataAt(previous) < 0)
        --previous;
    if (plot.dataAt(next) < 0 || plot.dataAt(previous) < 0)
        return -1;
    const auto place = [&](int position) {
        return QPoint(plot.view.x(position), plot.view.y((plot.series->*value)(plot.dataAt(position))));
    };
    if (!onLine(place(previous), place(next), p))
        return -1;
    const bool later = place(next).x() - p.x() < p.x() - place(previous).x();
    return plot.dataAt(later ? next : previous);
}

int candleHit(const Plot &plot, QPoint p) {
    const int position = plot.positionAt(p.x(), 0.5);
    const int index = plot.dataAt(position);
    if (index < 0)
        return -1;
    const int x = plot.view.x(position);
    const double half = 0.5 * 0.9 * plot.view.step();
    const CRPrimitive &data = *plot.series;
    const bool hit =
        inRect(static_cast<int>(x - half), plot.view.y(data.GetOpen(index)), static_cast<int>(x + half),
               plot.view.y(data.GetClose(index)), p) ||
        onLine(QPoint(x, plot.view.y(data.GetHigh(index))), QPoint(x, plot.view.y(data.GetLow(index))), p);
    return hit ? index : -1;
}

int barHit(const Plot &plot, QPoint p) {
    const int position = plot.positionAt(p.x(), 0.5);
    const int index = plot.dataAt(position);
    if (index < 0)
        return -1;
    const int x = plot.view.x(position), tick = static_cast<int>(0.5 * plot.view.step());
    const CRPrimitive &data = *plot.series;
    const int open = plot.view.y(data.GetOpen(index)), close = plot.view.y(data.GetClose(index));
    const bool hit =
        onLine(QPoint(x, plot.view.y(data.GetHigh(index))), QPoint(x, plot.view.y(data.GetLow(index))), p) ||
        onLine(QPoint(x - tick, open), QPoint(x, open), p) ||
        onLine(QPoint(x, close), QPoint(x + tick, close), p);
    return hit ? index : -1;
}

int dotHit(const Plot &plot, QPoint p) {
    const int position = plot.positionAt(p.x(), 0.5);
    const int index = plot.dataAt(position);
    if (index < 0)
        return -1;
    const int size = static_cast<int>(0.5 + plot.view.step() * 0.5);
    const int radius = static_cast<int>(plot.view.step() * 0.25);
    const int left = plot.view.x(position) - radius;
    const int top = plot.view.y(plot.series->GetClose(index)) - radius;
    return inRect(left, top, left + size - 1, top + size - 1, p) ? index : -1;
}

int histogramHit(const Plot &plot, QPoint p) {
    const int position = plot.positionAt(p.x(), 0.5);
    const int index = plot.dataAt(position);
    if (index < 0)
        return -1;
    const int base = std::min(plot.view.y(plot.series->GetArray()->typeShow.borderValue),
                              plot.view.layer->m_rect.bottom());
    const int x = plot.view.x(position);
    return onLine(QPoint(x, plot.view.y(plot.series->GetValue(index))), QPoint(x, base), p) ? index : -1;
}

std::vector<Bar> hills(int count) {
    std::vector<Bar> bars;
    for (int i = 0; i < count; ++i) {
        const float open = 1.30f + 0.01f * static_cast<float>(i * 7 % 5 - 2);
        const float close = 1.30f + 0.01f * static_cast<float>((i + 1) * 7 % 5 - 2);
        bars.push_back(
            {start + i * hour, open, std::max(open, close) + 0.01f, std::min(open, close) - 0.01f, close, 1});
    }
    return bars;
}

// Asks the window for a tool tip at every point of a part of the plot.
template <class Expected>
void compare(SeriesChart &test, const Plot &plot, const QRect &part, Expected expected) {
    int hits = 0, wrong = 0;
    QPoint first;
    for (int y = part.top(); y <= part.bottom(); y += 2) {
        for (int x = part.left(); x <= part.right(); ++x) {
            const QPoint point(x, y);
            QHelpEvent event(QEvent::ToolTip, point, test.chart.widget->mapToGlobal(point));
            QCoreApplication::sendEvent(test.chart.widget, &event);
            const int index = expected(plot, point);
            hits += index >= 0;
            if (plot.series->m_nHoverIndex != index && wrong++ == 0)
                first = point;
        }
    }
    EXPECT_EQ(wrong, 0) << first.x() << ',' << first.y() << " of " << part.width() * part.height() / 2;
    EXPECT_GT(hits, 15);
    EXPECT_LT(hits, part.width() * part.height() / 2 - 50);
}

QRect partOf(const LayerView &view) {
    const QRect plot = view.layer->m_rect;
    return QRect(view.x(3), plot.top() + 20, view.x(6) - view.x(3), plot.height() - 40);
}

struct HitKind {
    const char *what;
    Word drawKind;
    int points; // on the plot, of 700 columns
    int (*expected)(const Plot &plot, QPoint point);
};

class SeriesHits : public testing::TestWithParam<HitKind> {};

TEST_P(SeriesHits, AtEveryPoint) {
    SeriesChart test(hills(200), GetParam().drawKind);
    test.showFrom(0, GetParam().points);
    test.grab();
    const Plot plot{test.view(), test.series()};
    compare(test, plot, partOf(plot.view), GetParam().expected);
}

int closeLineHit(const Plot &plot, QPoint point) {
    return lineHit(plot, point, &CRMDataLine::GetClose);
}

INSTANTIATE_TEST_SUITE_P(OfEachKind, SeriesHits,
                         testing::Values(HitKind{"candles", 1, 20, candleHit},
                                         HitKind{"candles", 1, 150, candleHit},
                                         HitKind{"bars", 2, 20, barHit}, HitKind{"bars", 2, 97, barHit},
                                         HitKind{"line", 3, 20, closeLineHit},
                                         HitKind{"line", 3, 57, closeLineHit},
                                         HitKind{"line", 3, 190, closeLineHit},
                                         HitKind{"dots", 7, 20, dotHit}, HitKind{"dots", 7, 71, dotHit}));

TEST(SeriesHits, AHistogramFromItsValueToTheBorderLine) {
    SeriesChart test(hills(60));
    test.addOutputs({FakeOutput{"Out", 4, 1, 3, [](const std::vector<float> &, int i) {
                                    return static_cast<float>(i * 7 % 5 - 2);
                                }}});
    test.showFrom(0, 20);
    test.grab();
    const Plot plot{test.view(1), test.view(1).series()};
    ASSERT_EQ(plot.series->m_type, PT_HISTOGRAM);
    compare(test, plot, partOf(plot.view), histogramHit);
}

TEST(SeriesHits, ALineOverPlacesWithoutAPointOfItsOwn) {
    SeriesChart test(hills(60));
    std::vector<Bar> coarse;
    for (int i = 0; i < 20; ++i) {
        const float value = i % 2 ? 1.31f : 1.29f;
        coarse.push_back({start + i * 3 * hour, value, value, value, value, 1});
    }
    test.host.setHistory("GBPUSD", coarse);
    test.host.setDrawKind(3);
    test.host.onDialog([](QDialog *dialog) { dialog->accept(); });
    test.host.addInstrument(test.chart, "GBPUSD", 'I', 180);
    test.host.tick();
    test.showFrom(0, 20);
    test.grab();
    CRPrimitive *line = test.chart.handle->m_indicators.back()->m_primitives.front();
    ASSERT_EQ(line->m_type, PT_CLOSE_LINE);
    ASSERT_EQ(line->m_pos.at(4), -1);
    LayerView view = test.view();
    view.layer = line->m_pLayer;
    const Plot plot{view, line};
    compare(test, plot, partOf(plot.view), closeLineHit);
}

} // namespace
