// The plot of a pane pixel for pixel: each way of drawing a series is painted a second time, from the points
// that the host has alone, in windows of a few and of many pixels a position.
#include "tests/support/WindowView.h"

#include <QDialog>
#include <QFontMetrics>
#include <QPainter>
#include <QPixmap>
#include <QScrollBar>
#include <QSlider>
#include <QTreeWidget>
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <optional>

namespace {

constexpr QRgb rise = 0xFF00A000;
constexpr QRgb fall = 0xFFC00000;
constexpr int start = 1388534400;
constexpr int hour = 3600;
constexpr int freePositions = 30;

enum Way { line, closeDots, histogram, closeLine, tickLine, candle, bar, wideCandle, marks, dots };

struct Point {
    int time;
    float open, high, low, close; // a series of values has its value in each of them
    int sign = 0;
};

/// The numbers of a pane's plot: where positions and values are.
struct Plot {
    QRect rect;
    int first = 0, count = 0;
    float min = 0, scale = 0, step = 0;

    int x(int r) const {
        return static_cast<int>(rect.left() + 0.5 * step + static_cast<double>((rect.width() * r) / count));
    }
    int left(int r) const { return rect.left() + rect.width() * r / count; }
    int y(double value) const {
        return rect.bottom() + 1 - static_cast<int>((static_cast<float>(value) - min) * scale + 0.5);
    }
};

/// Draws a series in plain steps.
class Sketch {
public:
    Sketch(QPainter &painter, const Plot &plot, Way way, int width,
           const std::vector<std::optional<Point>> &places)
        : m_painter(painter), m_plot(plot), m_way(way), m_places(places), m_line(QColor(fall), width),
          m_rise(QColor(rise), width) {}

    void paint(int axisSize) {
        const int begin = m_way == wideCandle ? -500 : 0;
        for (int r = begin; r < m_plot.count + 500; ++r) {
            const std::optional<Point> point = at(r);
            if (!point)
                continue;
            switch (m_way) {
            case line:
            case closeLine:
            case tickLine:
                segment(r, *point);
                break;
            case closeDots:
            case dots:
                dot(r, *point);
                break;
            case histogram:
                column(r, *point);
                break;
            case candle:
            case bar:
                prices(r, *point);
                break;
            case wideCandle:
                box(r, *point, axisSize);
                break;
            case marks:
                mark(r, *point);
                break;
            }
        }
        flush();
    }

private:
    std::optional<Point> at(int r) const {
        const int position = m_plot.first + r;
        return position < 0 || position >= static_cast<int>(m_places.size())
                   ? std::nullopt
                   : m_places[static_cast<std::size_t>(position)];
    }
    void stroke(const QPen &pen, int x1, int y1, int x2, int y2) {
        m_painter.setPen(pen);
        m_painter.drawLine(x1, y1, x2, y2);
    }
    void flush() {
        if (m_top)
            stroke(m_line, m_x, *m_top, m_x, m_bottom);
        m_top.reset();
    }
    void widen(int x, int top, int bottom) {
        m_bottom = m_top ? std::max(m_bottom, bottom) : bottom;
        m_top = m_top ? std::min(*m_top, top) : top;
        m_x = x;
    }
    void segment(int r, const Point &point) {
        int before = r - 1;
        while (m_plot.first + before >= 0 && !at(before))
            --before;
        const int x = m_plot.x(r), y = m_plot.y(point.close);
        if (m_plot.first + before < 0)
            return;
        const int x2 = m_plot.x(before), y2 = m_plot.y(at(before)->close);
        if (x == x2) {
            widen(x, std::min(y, y2), std::max(y, y2));
        } else if (m_top) {
            const int top = *m_top;
            flush();
            stroke(m_line, x, y, x2, top);
            stroke(m_line, x, y, x2, m_bottom);
        } else {
            stroke(m_line, x, y, x2, y2);
        }
    }
    void dot(int r, const Point &point) {
        const int d = static_cast<int>(0.5 + m_plot.step * 0.5), half = static_cast<int>(m_plot.step * 0.25);
        const int x = m_plot.x(r), y = m_plot.y(point.close);
        m_painter.setPen(m_line);
        m_painter.setBrush(QBrush(QColor(fall)));
        if (d == 0 || half == 0)
            m_painter.drawPoint(x, y);
        else
            m_painter.drawEllipse(QRect(x - half, y - half, d, d));
        m_painter.setBrush(Qt::NoBrush);
    }
    void column(int r, const Point &point) { // on the value 0; of values in whole points
        const int x = m_plot.x(r), y = m_plot.y(std::round(point.close * 1e5) / 1e5);
        const int base = std::min(m_plot.y(0), m_plot.rect.bottom());
        const int cap = m_line.width() > 1 ? m_line.width() / 2 : 0;
        const int top = std::min(y, base) + cap, bottom = std::max(y, base) - cap;
        if (y != base && top <= bottom)
            stroke(m_line, x, top, x, bottom);
    }
    void prices(int r, const Point &point) {
        const double w = 0.9 * m_plot.step;
        const int x = m_plot.x(r);
        const int open = m_plot.y(point.open), high = m_plot.y(point.high);
        const int low = m_plot.y(point.low), close = m_plot.y(point.close);
        if (m_way == candle ? w <= 1 : m_plot.step < 1) {
            if (m_top && m_x != x)
                flush();
            widen(x, high, low);
            return;
        }
        const bool rising = point.open <= point.close;
        const QPen &pen = rising ? m_rise : m_line;
        if (m_way == bar) {
            const int tick = static_cast<int>(0.5 * m_plot.step);
            stroke(pen, x, high, x, low + 1);
            stroke(pen, x - tick, open, x, open);
            stroke(pen, x, close, x + tick, close);
            return;
        }
        const int d = w >= 3.1 ? 1 : 0;
        const int body = static_cast<int>(w - d), half = static_cast<int>(w * 0.5);
        stroke(pen, x, open, x, low);
        stroke(pen, x, close, x, high);
        if (rising) {
            m_painter.drawRect(x - half, close, body, open - close);
        } else if (open == close) {
            m_painter.drawLine(x - half, open, x + half, open);
        } else {
            m_painter.fillRect(x - half, open, body, close - open, QColor(fall));
            m_painter.drawRect(x - half, open, body, close - open);
        }
    }
    void box(int r, const Point &point, int axisSize) {
        int next = r + 1;
        const int end = static_cast<int>(m_places.size()) - m_plot.first;
        while (next < end && !at(next))
            ++next;
        if (next >= end)
            next = axisSize - freePositions - m_plot.first;
        const int x1 = m_plot.left(r), x2 = m_plot.left(next);
        const int open = m_plot.y(point.open), close = m_plot.y(point.close);
        const int high = m_plot.y(point.high), low = m_plot.y(point.low);
        if (x1 == x2) {
            if (m_top && m_x != x1)
                flush();
            widen(x1, high, low);
            return;
        }
        flush();
        const bool rising = point.open <= point.close;
        m_painter.setPen(rising ? m_rise : m_line);
        if (open == close)
            m_painter.drawLine(x1, open, x2, open);
        else
            m_painter.fillRect(
                QRect(QPoint(x1, std::min(open, close)), QPoint(x2 - 1, std::max(open, close))),
                QColor(rising ? ::rise : fall));
        m_painter.drawRect(x1, high, x2 - x1, low - high);
    }
    void mark(int r, const Point &point) {
        const double p = m_plot.step;
        const int x = m_plot.x(r), half = static_cast<int>(0.5 * p);
        const int high = std::min(m_plot.y(point.high), m_plot.y(point.low));
        const int low = std::max(m_plot.y(point.high), m_plot.y(point.low));
        if (point.sign == 1 || point.sign == 3) {
            stroke(m_line, x - half, static_cast<int>(p / 5 + high - p), x, static_cast<int>(high - p));
            stroke(m_line, x + half, static_cast<int>(p / 5 + high - p), x - 1, static_cast<int>(high - p));
        }
        if (point.sign == 2 || point.sign == 3) {
            stroke(m_rise, x - half, static_cast<int>(low + p - p / 5), x, static_cast<int>(low + p));
            stroke(m_rise, x + half, static_cast<int>(low + p - p / 5), x - 1, static_cast<int>(low + p));
        }
    }

    QPainter &m_painter;
    const Plot &m_plot;
    Way m_way;
    const std::vector<std::optional<Point>> &m_places;
    QPen m_line, m_rise;
    std::optional<int> m_top; // of the strokes that share a column, until they are drawn
    int m_bottom = 0, m_x = 0;
};

struct PlotCase {
    Way way;
    double pixels; // a position
    int width;     // of the pen
    bool gaps;     // every third position only
};

std::ostream &operator<<(std::ostream &out, const PlotCase &row) {
    return out << "way " << row.way << ", " << row.pixels << " px, pen " << row.width
               << (row.gaps ? ", gaps" : "");
}

struct PlotPixels : testing::Test, testing::WithParamInterface<PlotCase> {
    static constexpr int pointCount = 1500;
    FakeHost host;
    Chart chart = host.createChart(QSize(900, 500));
    std::vector<Point> points;
    std::vector<int> axis;

    void SetUp() override {
        for (int row : {10, 11}) // the grids
            static_cast<propertyBoolean *>(host.pages.begin()->second->groups[0].items[row]->value)->value =
                0;
        PROPERTY_CHANGE change{host.moduleInterface(), chart.handle, host.pages.begin()->second};
        host.send(ToModule::PageChanged, &change);
    }
    QScrollBar *bar() { return qobject_cast<QScrollBar *>(childOfClass(chart.widget, "CTimeScrollBar")); }

    FakeObject *addOutput(Word drawKind, int style) {
        FakeIndicator kind;
        kind.name = kind.displayName = QString("Kind %1 %2").arg(drawKind).arg(style);
        kind.inputs = 0;
        kind.outputs.push_back(
            {"Out", drawKind, style, 0, [](const std::vector<float> &, int) { return 0.0f; }});
        host.addIndicatorKind(kind);
        host.onDialog([](QDialog *dialog) { // the layer that is there
            auto *tree = dialog->findChild<QTreeWidget *>();
            tree->setCurrentItem(tree->topLevelItem(0));
            dialog->accept();
        });
        host.addIndicator(chart, kind.name);
        FakeObject *object = host.lastObject();
        object->array().header()->identity.m_periods = makePeriod('I', 60);
        return object;
    }
    FakeObject *add(Way way) {
        const std::vector<Bar> bars = makeBars(pointCount, start, hour);
        std::vector<Value> values;
        std::vector<Tick> ticks;
        std::vector<corePointMark> signs;
        for (const Bar &one : bars) {
            const float value = way == histogram ? one.close - 1.3f : one.close;
            const auto sign = static_cast<unsigned char>(values.size() % 4);
            values.push_back({one.time, value});
            ticks.push_back({one.time, value, 1});
            signs.push_back({one.time, one.high, one.low, sign, 0});
            if (way == line || way == tickLine || way == histogram || way == dots)
                points.push_back({one.time, value, value, value, value});
            else
                points.push_back({one.time, one.open, one.high, one.low, one.close, sign});
        }
        FakeObject *object = nullptr;
        if (way == line || way == histogram || way == dots || way == marks) {
            object = way == marks  ? addOutput(6, 0)
                     : way == dots ? addOutput(8, 0)
                                   : addOutput(4, way == histogram ? 1 : 0);
            if (way == marks)
                object->array().setMarks(signs);
            else
                object->array().setValues(values);
            object->array().header()->typeShow.borderValue = 0;
            object->array().header()->precision = 5;
        } else {
            const Word kinds[] = {0, 7, 0, 3, 1, 1, 2, 5};
            host.setDrawKind(kinds[way]);
            host.setHistory("EUR", bars);
            host.setTickHistory("EUR", ticks);
            object = host.addInstrument(chart, "EUR", 'I', way == tickLine ? 0 : 60);
        }
        object->array().header()->typeShow.firstColor = rise & 0xFFFFFF;
        object->array().header()->typeShow.secondColor = fall & 0xFFFFFF;
        return object;
    }
    /// A series that shows nothing and has times between those of the other.
    void addTimesBetween() {
        FakeObject *object = addOutput(4, 0);
        std::vector<Value> values;
        for (int i = 0; i < pointCount * 3; ++i)
            values.push_back({start + i * hour / 3, 1.3f});
        object->array().setValues(values);
        object->array().header()->precision = 0;
        object->array().header()->typeShow.weightPen = 0;
        object->array().header()->typeShow.penType = eCoreTypeShowPenNone;
        host.update(object, 2);
    }
    int scaleWidth(Way way) const {
        QFont font("Arial", 8);
        font.setWeight(75);
        float highest = -FLT_MAX;
        for (const Point &point : points)
            highest = std::max(highest, way == closeLine || way == closeDots ? point.close : point.high);
        const QString text = QString::asprintf("%0.5f", static_cast<double>(highest));
        const QRect rect = QFontMetrics(font).boundingRect(QRect(), 0, text);
        return rect.right() - rect.left() + 11;
    }
    Plot plotOf(Way way, int firstPos, int count, int rows, int side) const {
        Plot plot;
        plot.rect = QRect(QPoint(side, 0), QPoint(900 - side, rows - 1));
        plot.first = firstPos;
        plot.count = count;
        plot.step = static_cast<float>(plot.rect.width()) / count;
        const auto indexAt = [this](int time) {
            const auto place = std::find_if(points.begin(), points.end(),
                                            [time](const Point &point) { return point.time >= time; });
            return place == points.end() ? pointCount - 1 : static_cast<int>(place - points.begin());
        };
        const auto last = std::min<std::size_t>(static_cast<std::size_t>(firstPos + count), axis.size()) - 1;
        float max = -FLT_MAX, min = FLT_MAX;
        for (int i = indexAt(axis[static_cast<std::size_t>(firstPos)]); i <= indexAt(axis[last]); ++i) {
            const Point &point = points[static_cast<std::size_t>(i)];
            const bool onClose = way == closeLine || way == closeDots;
            max = std::max(max, onClose ? point.close : point.high);
            min = std::min(min, onClose ? point.close : point.low);
        }
        for (const double share : {0.02, 0.1}) {
            if (share == 0.1 && way != marks)
                break;
            max = static_cast<float>(max + (max - min) * share);
            min = static_cast<float>(min - (max - min) * share);
        }
        plot.min = min;
        plot.scale = static_cast<float>(rows / (static_cast<double>(max) - min));
        return plot;
    }
};

TEST_P(PlotPixels, ShowThePointsOfTheHost) {
    const PlotCase &row = GetParam();
    FakeObject *object = add(row.way);
    ASSERT_TRUE(object);
    object->array().header()->typeShow.weightPen = row.width;
    host.update(object, 1); // new fields, too
    host.update(object, 2);
    if (row.gaps)
        addTimesBetween();
    host.tick();

    const int spread = row.gaps ? 3 : 1;
    for (int i = 0; i < pointCount * spread; ++i)
        axis.push_back(start + i * hour / spread);
    for (int i = 0; i < freePositions; ++i)
        axis.push_back(axis.back() + hour);
    std::vector<std::optional<Point>> places(pointCount * static_cast<std::size_t>(spread));
    for (std::size_t i = 0; i < points.size(); ++i)
        places[i * static_cast<std::size_t>(spread)] = points[i];

    const int rows = WindowView(host, chart).chartHeight();
    const int side = scaleWidth(row.way);
    const int count = static_cast<int>((901 - 2 * side) / row.pixels);
    host.slider->setRange(-static_cast<int>(axis.size()), 0);
    host.slider->setValue(-count);
    for (const int edge :
         {static_cast<int>(axis.size()) - 11, static_cast<int>(axis.size()) / 2 + count / 2}) {
        bar()->setValue(edge);
        ASSERT_EQ(bar()->pageStep(), count);
        ASSERT_EQ(bar()->value(), edge);
        const Plot plot = plotOf(row.way, edge - count, count, rows, side);
        QPixmap sheet(900, 500);
        sheet.fill(Qt::white);
        QPainter painter(&sheet);
        painter.setRenderHint(QPainter::Qt4CompatiblePainting);
        painter.setClipRect(plot.rect);
        Sketch(painter, plot, row.way, row.width, places).paint(static_cast<int>(axis.size()));
        painter.end();
        const QImage wanted = sheet.toImage();
        const WindowView view(host, chart);
        int differing = 0, inked = 0;
        QPoint first;
        for (int y = 40; y < rows; ++y)                                       // below the titles
            for (int x = plot.rect.left(); x <= plot.rect.right() - 5; ++x) { // the ticks of the scale
                inked += view.pixel(x, y) != 0xFFFFFFFF;
                if (view.pixel(x, y) != (wanted.pixel(x, y) | 0xFF000000) && differing++ == 0)
                    first = QPoint(x, y);
            }
        EXPECT_EQ(differing, 0) << "right edge " << edge << ", from column " << first.x() << ", row "
                                << first.y();
        EXPECT_GT(inked, 50);
    }
}

std::vector<PlotCase> cases() {
    std::vector<PlotCase> list;
    for (const Way way :
         {line, closeDots, histogram, closeLine, tickLine, candle, bar, wideCandle, marks, dots})
        for (const double pixels : {0.6, 1.0, 2.0, 3.0, 3.5, 7.0, 13.0}) {
            list.push_back({way, pixels, 1, false});
            list.push_back({way, pixels, 1, true});
            if (way != wideCandle)
                list.push_back({way, pixels, 3, false});
        }
    return list;
}

INSTANTIATE_TEST_SUITE_P(OfEachWay, PlotPixels, testing::ValuesIn(cases()));

} // namespace
