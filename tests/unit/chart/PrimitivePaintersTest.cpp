// The painters change pens, gather lines and fill cells where that is cheaper. Here each of them is held
// against plain calls of QPainter in the order of the columns: not one pixel may differ.
#include "chart/Primitive.h"
#include "chart/PrimitiveLink.h"
#include "chart/PrimitiveLinkPainter.h"
#include "chart/PrimitivePainters.h"
#include "support/Numbers.h"
#include "tests/support/Series.h"

#include <QImage>
#include <QPainter>
#include <cmath>
#include <gtest/gtest.h>

namespace {

const QRect plot(30, 10, 601, 300);
constexpr QRgb background = 0xFFFFFFFF;

// ---- Qt itself: shapes land where they always did ----

QImage canvas() {
    QImage image(700, 340, QImage::Format_ARGB32_Premultiplied);
    image.fill(background);
    return image;
}

bool isInk(const QImage &image, int x, int y) { return image.pixel(x, y) != background; }

void prepare(QPainter &painter) {
    painter.setRenderHint(QPainter::Qt4CompatiblePainting);
}

TEST(QtPainting, OutlineCoversOneMoreColumnAndRow) {
    QImage image = canvas();
    QPainter painter(&image);
    prepare(painter);
    painter.setPen(QPen(Qt::red, 1));
    painter.drawRect(10, 20, 5, 7);
    painter.end();
    for (int y = 18; y <= 30; ++y)
        for (int x = 8; x <= 18; ++x) {
            const bool onEdge = x >= 10 && x <= 15 && y >= 20 && y <= 27 && (x == 10 || x == 15 || y == 20 || y == 27);
            ASSERT_EQ(isInk(image, x, y), onEdge) << x << ',' << y;
        }
}

TEST(QtPainting, LinesIncludeBothEnds) {
    QImage image = canvas();
    QPainter painter(&image);
    prepare(painter);
    painter.setPen(QPen(Qt::red, 1));
    painter.drawLine(10, 20, 10, 25);
    painter.drawLine(20, 25, 20, 20);
    painter.drawLine(30, 20, 35, 20);
    painter.drawLine(40, 20, 44, 24);
    painter.drawLine(50, 20, 50, 20);
    painter.end();
    int inked = 0;
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 60; ++x)
            inked += isInk(image, x, y);
    EXPECT_EQ(inked, 6 + 6 + 6 + 5 + 1);
    for (const QPoint &end : {QPoint(10, 20), QPoint(10, 25), QPoint(20, 20), QPoint(20, 25), QPoint(30, 20),
                              QPoint(35, 20), QPoint(40, 20), QPoint(44, 24), QPoint(50, 20)})
        EXPECT_TRUE(isInk(image, end.x(), end.y())) << end.x() << ',' << end.y();
}

// ---- the series under test, and the plain reference ----

struct Look {
    int width = 1;
    Qt::PenStyle style = Qt::SolidLine;
    bool selected = false;
};

class Series {
public:
    Series(PRIMITIVE_TYPES type, const Look &look, QRgb line = 0xFFC00000, QRgb rise = 0xFF008000)
        : primitive(0, nullptr, 0) {
        m_type = type;
        m_look = look;
        m_line = line;
        m_rise = rise;
    }
    void candles(const std::vector<Bar> &bars) {
        array.setCandles(bars);
        take();
    }
    void values(const std::vector<Value> &points) {
        array.setValues(points);
        take();
    }
    void marks(const std::vector<corePointMark> &points) {
        array.setMarks(points);
        take();
    }
    // A point at every position, or at those that are named.
    void place(const std::vector<int> &positions = {}) {
        primitive.ClearPos();
        const int count = array.count();
        if (positions.empty()) {
            for (int i = 0; i < count; ++i)
                primitive.AddPos(i);
            return;
        }
        for (std::size_t i = 0; i < positions.size(); ++i) {
            while (primitive.GetPosSize() < positions[i])
                primitive.AddPos(-1);
            primitive.AddPos(static_cast<int>(i));
        }
    }

    FakeArray array;
    CRPrimitive primitive;

private:
    void take() {
        array.header()->identity = makeName("EURUSD", "Bid", makePeriod('I', 60));
        primitive.CreatePrimitive(array.header());
        primitive.m_type = m_type;
        primitive.m_nPenWidth = m_look.width;
        primitive.m_nPenStyle = m_look.style;
        primitive.m_lineColor = QColor(m_line);
        primitive.m_riseColor = QColor(m_rise);
        primitive.m_linePen = QPen(primitive.m_lineColor, m_look.width, m_look.style);
        primitive.m_risePen = QPen(primitive.m_riseColor, m_look.width, m_look.style);
        primitive.SetSelected(m_look.selected);
    }
    PRIMITIVE_TYPES m_type;
    Look m_look;
    QRgb m_line, m_rise;
};

struct View {
    int firstPos = 0;
    int points = 60;
    float min = 1.27f;
    float max = 1.33f;
    int phase = 0;
    bool manualTest = false;

    LayerMapping mapping() const {
        LayerMapping m;
        m.rect = plot;
        m.firstPos = firstPos;
        m.screenPoints = points;
        m.candleStep = static_cast<float>(plot.width()) / points;
        m.min = min;
        m.yScale = plot.height() / (max - min);
        return m;
    }
};

QImage painted(const View &view, const std::vector<Series *> &series) {
    QImage image = canvas();
    QPainter painter(&image);
    prepare(painter);
    painter.setClipRect(plot);
    PaintPass pass(painter, view.mapping());
    pass.lastColumn = view.points;
    pass.blinkPhase = view.phase;
    pass.manualTest = view.manualTest;
    pass.timeCount = 100000;
    std::vector<std::unique_ptr<PrimitivePainter>> painters;
    for (Series *one : series)
        if (auto made = PrimitivePainter::Create(pass, one->primitive))
            painters.push_back(std::move(made));
    const bool wide = series.front()->primitive.m_type == PT_WIDE_CANDLE;
    paintColumns(pass.mapping, painters, wide ? -500 : 0, view.points + 500);
    pass.ink.Flush();
    pass.ink.Forget();
    return image;
}

// One series as the description of its draw type has it, with a call of QPainter for every stroke.
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
        } else {
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

std::unique_ptr<Plain> makePlain(QPainter &painter, const View &view, Series &series) {
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

QImage reference(const View &view, const std::vector<Series *> &series) {
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

testing::AssertionResult samePixels(const QImage &actual, const QImage &expected) {
    int different = 0;
    QString first;
    for (int y = 0; y < actual.height(); ++y)
        for (int x = 0; x < actual.width(); ++x)
            if (actual.pixel(x, y) != expected.pixel(x, y) && different++ == 0)
                first = QString("%1,%2: %3 instead of %4")
                            .arg(x)
                            .arg(y)
                            .arg(actual.pixel(x, y), 0, 16)
                            .arg(expected.pixel(x, y), 0, 16);
    if (different == 0)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << different << " pixels, first at " << first.toStdString();
}

int inkCount(const QImage &image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += isInk(image, x, y);
    return count;
}

std::vector<Value> closesOf(const std::vector<Bar> &bars) {
    std::vector<Value> values;
    for (const Bar &bar : bars)
        values.push_back({bar.time, bar.close});
    return values;
}

std::vector<corePointMark> marksOf(const std::vector<Bar> &bars) {
    std::vector<corePointMark> marks;
    for (std::size_t i = 0; i < bars.size(); ++i) {
        const int color = static_cast<int>(0x102030 * (i % 5));
        marks.push_back({bars[i].time, bars[i].high, bars[i].low, static_cast<unsigned char>(i % 4), color});
    }
    return marks;
}

std::unique_ptr<Series> makeSeries(PRIMITIVE_TYPES type, const Look &look, int count, QRgb line = 0xFFC00000,
                                   QRgb rise = 0xFF008000) {
    auto series = std::make_unique<Series>(type, look, line, rise);
    const std::vector<Bar> bars = makeBars(count);
    series->array.header()->typeShow.borderValue = 1.3f;
    series->array.header()->typeShow.lineShowType = type == PT_MARKS ? 4 : 0;
    if (type == PT_MARKS)
        series->marks(marksOf(bars));
    else if (type == PT_LINE || type == PT_HISTOGRAM || type == PT_DOTS || type == PT_TICK_LINE)
        series->values(closesOf(bars));
    else
        series->candles(bars);
    series->place();
    return series;
}

// ---- one series ----

struct PaintCase {
    PRIMITIVE_TYPES type;
    int points;
    Look look;
    int phase;
};

class OneSeries : public testing::TestWithParam<PaintCase> {};

TEST_P(OneSeries, LandsOnThePixelsOfPlainCalls) {
    View view;
    view.points = GetParam().points;
    view.firstPos = 700;
    view.phase = GetParam().phase;
    const auto series = makeSeries(GetParam().type, GetParam().look, 700 + GetParam().points + 600);
    const QImage actual = painted(view, {series.get()});
    EXPECT_TRUE(samePixels(actual, reference(view, {series.get()})));
    EXPECT_GT(inkCount(actual), 50);
}

std::vector<PaintCase> paintCases() {
    std::vector<PaintCase> cases;
    const Look looks[] = {{1, Qt::SolidLine, false}, {3, Qt::SolidLine, false}, {1, Qt::DashLine, false},
                          {1, Qt::SolidLine, true},  {2, Qt::SolidLine, true}};
    for (int type = PT_LINE; type <= PT_DOTS; ++type) {
        if (type == PT_WIDE_CANDLE)
            continue;
        for (int points : {10, 60, 171, 177, 250, 400, 530, 600, 1100, 5000})
            for (const Look &look : looks)
                cases.push_back({static_cast<PRIMITIVE_TYPES>(type), points, look, points % 2});
    }
    return cases;
}

INSTANTIATE_TEST_SUITE_P(Painters, OneSeries, testing::ValuesIn(paintCases()));

// ---- several series ----

class SeveralSeries : public testing::TestWithParam<int> {};

TEST_P(SeveralSeries, AdvanceTogetherColumnByColumn) {
    View view;
    view.points = GetParam();
    view.firstPos = 40;
    const int count = 40 + GetParam() + 20;
    const auto candles = makeSeries(PT_CANDLE, {}, count);
    const auto wideLine = makeSeries(PT_LINE, {5, Qt::SolidLine, false}, count, 0xFF0000C0);
    const auto bars = makeSeries(PT_BAR, {}, count, 0xFFFF8000, 0xFF00C0C0);
    const auto histogram = makeSeries(PT_HISTOGRAM, {}, count, 0xFF808080);
    const auto thin = makeSeries(PT_CLOSE_LINE, {}, count, 0xFFC000C0);
    const auto dots = makeSeries(PT_DOTS, {}, count, 0xFF404000);
    const std::vector<Series *> all{candles.get(), wideLine.get(), bars.get(), histogram.get(), thin.get(), dots.get()};
    EXPECT_TRUE(samePixels(painted(view, all), reference(view, all)));
    const std::vector<Series *> reversed(all.rbegin(), all.rend());
    EXPECT_TRUE(samePixels(painted(view, reversed), reference(view, reversed)));
}

INSTANTIATE_TEST_SUITE_P(Painters, SeveralSeries, testing::Values(20, 60, 200, 500, 2000));

// ---- gaps, ends, hidden series ----

TEST(Painters, LineGoesOverGapsAndEntersFromOutside) {
    const auto series = makeSeries(PT_LINE, {}, 8);
    series->place({3, 90, 110, 111, 140, 159, 300, 900});
    View view;
    view.firstPos = 100;
    view.points = 60; // to position 159
    const QImage actual = painted(view, {series.get()});
    EXPECT_TRUE(samePixels(actual, reference(view, {series.get()})));
    EXPECT_TRUE(isInk(actual, plot.left(), 0) || inkCount(actual.copy(plot.left(), 0, 1, 340)) > 0); // from 90
    EXPECT_GT(inkCount(actual.copy(plot.right(), 0, 1, 340)), 0);                                    // to 300
}

TEST(Painters, LineToAPointFiveHundredPlacesOutIsLost) {
    const auto series = makeSeries(PT_LINE, {}, 2);
    View view;
    view.points = 60;
    series->place({50, 559});
    EXPECT_GT(inkCount(painted(view, {series.get()})), 0);
    series->place({50, 560});
    EXPECT_EQ(inkCount(painted(view, {series.get()})), 0);
}

TEST(Painters, FirstPositionOfTheAxisHasNoSegment) {
    const auto series = makeSeries(PT_LINE, {}, 1);
    EXPECT_EQ(inkCount(painted(View(), {series.get()})), 0);
}

TEST(Painters, ASingleTickIsAPoint) {
    const auto series = makeSeries(PT_TICK_LINE, {}, 1);
    series->array.header()->identity.m_periods = makePeriod('I', 0);
    EXPECT_EQ(inkCount(painted(View(), {series.get()})), 1);
}

TEST(Painters, HiddenAndEmptySeriesPaintNothing) {
    for (int type = PT_LINE; type <= PT_PATTERN; ++type) {
        const auto series = makeSeries(static_cast<PRIMITIVE_TYPES>(type), {}, 70);
        series->primitive.m_nPenWidth = 0;
        EXPECT_EQ(inkCount(painted(View(), {series.get()})), 0) << type;
        series->primitive.m_nPenWidth = 1;
        series->primitive.m_nPenStyle = 0;
        EXPECT_EQ(inkCount(painted(View(), {series.get()})), 0) << type;
        series->primitive.m_nPenStyle = 1;
        series->primitive.ClearPos();
        EXPECT_EQ(inkCount(painted(View(), {series.get()})), 0) << type;
        series->place();
        series->array.header()->count = 0; // the host took its points away since the axis was built
        EXPECT_EQ(inkCount(painted(View(), {series.get()})), 0) << type;
        series->array.header()->count = 70;
    }
}

TEST(Painters, PatternPaintsNothing) {
    const auto series = makeSeries(PT_PATTERN, {}, 70);
    EXPECT_EQ(inkCount(painted(View(), {series.get()})), 0);
}

struct EdgeCase {
    PRIMITIVE_TYPES type;
    bool ends; // at the right edge, in a manual test
};

class ManualTest : public testing::TestWithParam<EdgeCase> {};

TEST_P(ManualTest, OutputsEndAtTheRightEdge) {
    View view;
    view.points = 20;
    const auto all = makeSeries(GetParam().type, {}, 40);
    const QImage plain = painted(view, {all.get()});
    view.manualTest = true;
    const QImage manual = painted(view, {all.get()});
    EXPECT_EQ(plain == manual, !GetParam().ends);
}

// Only a line reaches into the window from behind its edge; marks and dots of the next column are too far.
INSTANTIATE_TEST_SUITE_P(Painters, ManualTest,
                         testing::Values(EdgeCase{PT_LINE, true}, EdgeCase{PT_TICK_LINE, true},
                                         EdgeCase{PT_CLOSE_LINE, false}, EdgeCase{PT_CANDLE, false}));

// ---- meaning ----

TEST(Painters, CandleIsRiseColouredBetweenOpenAndClose) {
    Series series(PT_CANDLE, {});
    series.candles({{0, 1.29f, 1.32f, 1.28f, 1.31f, 1}, {60, 1.31f, 1.32f, 1.28f, 1.29f, 1}});
    series.place();
    View view;
    view.points = 10;
    const QImage image = painted(view, {&series});
    const LayerMapping map = view.mapping();
    const int half = static_cast<int>(0.9 * map.candleStep * 0.5);
    const int top = map.Y(1.31f), bottom = map.Y(1.29f);
    for (int y = map.Y(1.32f); y <= map.Y(1.28f); ++y) {
        const bool wick = y <= top || y >= bottom;
        EXPECT_EQ(isInk(image, map.CenterX(0), y), wick) << y; // hollow
        EXPECT_EQ(image.pixel(map.CenterX(1), y), 0xFFC00000u) << y;
        if (y >= top && y <= bottom) {
            EXPECT_EQ(image.pixel(map.CenterX(0) - half, y), 0xFF008000u) << y;
            EXPECT_EQ(image.pixel(map.CenterX(1) - half, y), 0xFFC00000u) << y;
        }
    }
    EXPECT_FALSE(isInk(image, map.CenterX(0), map.Y(1.32f) - 1));
    EXPECT_FALSE(isInk(image, map.CenterX(0), map.Y(1.28f) + 1));
}

TEST(Painters, EqualOpenAndCloseRises) {
    Series series(PT_CANDLE, {});
    series.candles({{0, 1.3f, 1.31f, 1.29f, 1.3f, 1}});
    series.place();
    View view;
    view.points = 10;
    const QImage image = painted(view, {&series});
    EXPECT_EQ(image.pixel(view.mapping().CenterX(0) - 5, view.mapping().Y(1.3f)), 0xFF008000u);
}

TEST(Painters, WideCandleReachesToTheNextPoint) {
    Series series(PT_WIDE_CANDLE, {});
    series.candles({{0, 1.29f, 1.32f, 1.28f, 1.31f, 1}, {60, 1.31f, 1.32f, 1.28f, 1.29f, 1}});
    series.place({2, 6});
    View view;
    view.points = 10;
    const LayerMapping map = view.mapping();
    const QImage image = painted(view, {&series});
    const int middle = map.Y(1.3f);
    for (int x = map.LeftX(2, false) + 1; x < map.LeftX(6, false); ++x)
        ASSERT_EQ(image.pixel(x, middle), 0xFF008000u) << x;
    for (int x = map.LeftX(6, false) + 1; x <= plot.right(); ++x) // to the last of the axis
        ASSERT_EQ(image.pixel(x, middle), 0xFFC00000u) << x;
    EXPECT_EQ(image.pixel(map.LeftX(4, false), map.Y(1.32f)), 0xFF008000u); // the outline around high and low
    EXPECT_EQ(image.pixel(map.LeftX(4, false), map.Y(1.28f)), 0xFF008000u);
    EXPECT_FALSE(isInk(image, map.LeftX(4, false), map.Y(1.315f)));
    EXPECT_FALSE(isInk(image, map.LeftX(2, false) - 1, middle));
}

TEST(Painters, SelectedWideCandleIsDenseAndHasNoOutline) {
    Series series(PT_WIDE_CANDLE, {1, Qt::SolidLine, true});
    series.candles({{0, 1.29f, 1.32f, 1.28f, 1.31f, 1}, {60, 1.31f, 1.32f, 1.28f, 1.29f, 1}});
    series.place({2, 6});
    View view;
    view.points = 10;
    const LayerMapping map = view.mapping();
    const QImage image = painted(view, {&series});
    const QRect body(QPoint(map.LeftX(2, false), map.Y(1.31f)), QPoint(map.LeftX(6, false) - 1, map.Y(1.29f)));
    const int inked = inkCount(image.copy(body));
    EXPECT_GT(inked, body.width() * body.height() / 2);
    EXPECT_LT(inked, body.width() * body.height());
    EXPECT_FALSE(isInk(image, map.LeftX(4, false), map.Y(1.32f)));
}

TEST(Painters, WideCandlesInOnePixelColumnBecomeOneStroke) {
    const auto series = makeSeries(PT_WIDE_CANDLE, {}, 3000);
    View view;
    view.points = 2400; // four to a pixel column
    const QImage image = painted(view, {series.get()});
    for (int x = plot.left() + 1; x < plot.right(); ++x)
        ASSERT_GT(inkCount(image.copy(x, 0, 1, 340)), 0) << x;
    series->primitive.SetSelected(true);
    const QImage selected = painted(view, {series.get()});
    int highlighted = 0;
    for (int y = plot.top(); y < plot.bottom(); ++y)
        highlighted += selected.pixel(300, y) == 0xFFFFC78Fu;
    EXPECT_GT(highlighted, 0);
}

TEST(Painters, EndlessAndImpossibleValuesDoNoHarm) {
    Series series(PT_CANDLE, {});
    const float endless = std::numeric_limits<float>::infinity();
    const float none = std::numeric_limits<float>::quiet_NaN();
    series.candles({{0, 1.3f, endless, -endless, 1.31f, 1}, {60, none, none, none, none, 1}, {120, 1e38f, 1e38f, -1e38f, 1.3f, 1}});
    for (int type : {PT_CLOSE_DOTS, PT_CLOSE_LINE, PT_CANDLE, PT_BAR, PT_WIDE_CANDLE}) {
        series.primitive.m_type = static_cast<PRIMITIVE_TYPES>(type);
        series.place();
        EXPECT_FALSE(painted(View(), {&series}).isNull());
    }
}

struct PenCase {
    int width, style, drawnWidth;
    Qt::PenStyle drawnStyle;
};

class SeriesPen : public testing::TestWithParam<PenCase> {};

TEST_P(SeriesPen, CanBeDrawnWhateverTheHostSays) {
    CRPrimitive primitive(0, nullptr, 0);
    primitive.m_nPenWidth = GetParam().width;
    primitive.m_nPenStyle = GetParam().style;
    const QPen pen = seriesPen(primitive, Qt::red, 2);
    EXPECT_EQ(pen.width(), GetParam().drawnWidth + 2);
    EXPECT_EQ(pen.style(), GetParam().drawnStyle);
    EXPECT_EQ(highlightPen(primitive, 0).style(), Qt::SolidLine);
}

INSTANTIATE_TEST_SUITE_P(Painters, SeriesPen,
                         testing::Values(PenCase{1, 1, 1, Qt::SolidLine}, PenCase{3, 5, 3, Qt::DashDotDotLine},
                                         PenCase{1, 0, 1, Qt::NoPen}, PenCase{-4, 6, 0, Qt::SolidLine},
                                         PenCase{2000000000, -1, 255, Qt::SolidLine},
                                         PenCase{1, 99, 1, Qt::SolidLine}));

// A frozen scale throws points far out; a wide dashed pen must neither hang nor lose its way.
TEST(Painters, LineToFarValuesKeepsItsDirection) {
    Series series(PT_LINE, {2, Qt::DotLine, false});
    series.values({{0, 1.3f}, {1, 1.3f + 40000}, {2, 1.3f}, {3, 1.3f - 40000}, {4, 1.3f}});
    series.place();
    View view;
    view.points = 10;
    const LayerMapping map = view.mapping();
    const QImage image = painted(view, {&series});
    const int above = inkCount(image.copy(map.CenterX(0) - 3, plot.top(), 7, map.Y(1.3f) - plot.top()));
    EXPECT_GT(above, 30); // straight up from the first point
    EXPECT_EQ(inkCount(image.copy(map.CenterX(0) + 10, plot.top(), 30, plot.height())), 0);
    EXPECT_GT(inkCount(image.copy(map.CenterX(2) - 3, plot.top(), 7, plot.height())), 60);
}

// ---- links ----

struct LinkView : View {
    LinkView() { points = 40; }
};

// Every quadrilateral by itself: the clip intersected with its region, and filled.
QImage plainLink(const View &view, const CPrimitiveLink &link) {
    QImage image = canvas();
    QPainter painter(&image);
    prepare(painter);
    const LayerMapping map = view.mapping();
    int previous = -1;
    for (int r = 0; r < view.points + 500; ++r) {
        const int position = view.firstPos + r;
        const int first = link.m_pFirst->GetPos(position), second = link.m_pSecond->GetPos(position);
        if (first < 0 || second < 0)
            continue;
        if (previous < 0)
            for (previous = position - 1; previous >= 0; --previous)
                if (link.m_pFirst->GetPos(previous) >= 0 && link.m_pSecond->GetPos(previous) >= 0)
                    break;
        const double a = link.m_pFirst->FirstValue(first), b = link.m_pSecond->FirstValue(second);
        const QColor color = link.m_nColorMode == 0   ? link.m_pFirst->m_lineColor
                             : link.m_nColorMode == 1 ? link.m_pSecond->m_lineColor
                             : link.m_nColorMode != 2 ? QColor()
                             : a > b                  ? link.m_pFirst->m_lineColor
                                                      : link.m_pSecond->m_lineColor;
        const int x = map.CenterX(r), ya = map.Y(static_cast<float>(a)), yb = map.Y(static_cast<float>(b));
        if (!link.m_nFill) {
            painter.setClipRect(plot);
            painter.setPen(QPen(color, 1));
            painter.drawLine(x, ya, x, yb);
        } else if (previous >= 0) {
            const int x2 = map.CenterX(previous - view.firstPos);
            const int ya2 = map.Y(static_cast<float>(link.m_pFirst->FirstValue(link.m_pFirst->GetPos(previous))));
            const int yb2 = map.Y(static_cast<float>(link.m_pSecond->FirstValue(link.m_pSecond->GetPos(previous))));
            const QRegion area(QPolygon({QPoint(x2, ya2), QPoint(x, ya), QPoint(x, yb), QPoint(x2, yb2)}));
            painter.setClipRegion(QRegion(plot).intersected(area));
            painter.fillRect(plot, color);
        }
        previous = position;
    }
    return image;
}

QImage paintedLink(const View &view, const CPrimitiveLink &link) {
    QImage image = canvas();
    QPainter painter(&image);
    prepare(painter);
    painter.setClipRect(plot);
    PaintPass pass(painter, view.mapping());
    paintLinks(pass, {link}, 0, view.points + 500);
    return image;
}

struct LinkCase {
    int points, fill, mode;
};

class Links : public testing::TestWithParam<LinkCase> {};

TEST_P(Links, JoinTwoSeries) {
    Series first(PT_LINE, {}, 0xFF4080C0), second(PT_LINE, {}, 0xFFC08040);
    std::vector<Value> a, b;
    std::vector<int> places;
    for (int i = 0; i < 900; ++i) {
        a.push_back({i, 1.3f + 0.02f * std::sin(i * 0.13f)});
        b.push_back({i, 1.3f + 0.015f * std::cos(i * 0.31f)});
        places.push_back(i + i / 7);
    }
    first.values(a);
    second.values(b);
    first.place(places);
    second.place();
    View view;
    view.points = GetParam().points;
    view.firstPos = 13;
    const CPrimitiveLink link(nullptr, &first.primitive, &second.primitive, GetParam().fill, GetParam().mode);
    const QImage actual = paintedLink(view, link);
    EXPECT_TRUE(samePixels(actual, plainLink(view, link)));
    EXPECT_GT(inkCount(actual), 100);
    first.primitive.m_nPenWidth = 0;
    EXPECT_EQ(inkCount(paintedLink(view, link)), 0);
}

INSTANTIATE_TEST_SUITE_P(Painters, Links,
                         testing::Values(LinkCase{20, 1, 0}, LinkCase{60, 1, 1}, LinkCase{60, 1, 2}, LinkCase{200, 1, 2},
                                         LinkCase{600, 1, 2}, LinkCase{60, 1, 7}, LinkCase{60, 0, 0}, LinkCase{60, 0, 2},
                                         LinkCase{600, 0, 1}));

TEST(PaintersLinks, WithoutOneOfTheSeriesNothingIsJoined) {
    const auto series = makeSeries(PT_LINE, {}, 70);
    EXPECT_EQ(inkCount(paintedLink(LinkView(), CPrimitiveLink(nullptr, &series->primitive, nullptr, 1, 0))), 0);
    EXPECT_EQ(inkCount(paintedLink(LinkView(), CPrimitiveLink(nullptr, nullptr, &series->primitive, 1, 0))), 0);
}

} // namespace
