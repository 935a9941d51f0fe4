#pragma once
// A series by itself, painted on a picture.
#include "chart/Primitive.h"
#include "chart/PrimitivePainters.h"
#include "tests/support/Series.h"

#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

const QRect plot(30, 10, 601, 300);
constexpr QRgb background = 0xFFFFFFFF;

inline QImage canvas() {
    QImage image(700, 340, QImage::Format_ARGB32_Premultiplied);
    image.fill(background);
    return image;
}

inline bool isInk(const QImage &image, int x, int y) {
    return image.pixel(x, y) != background;
}

inline void prepare(QPainter &painter) {
    painter.setRenderHint(QPainter::Qt4CompatiblePainting);
}

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

inline QImage painted(const View &view, const std::vector<Series *> &series) {
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

inline testing::AssertionResult samePixels(const QImage &actual, const QImage &expected) {
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

inline int inkCount(const QImage &image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += isInk(image, x, y);
    return count;
}

inline std::vector<Value> closesOf(const std::vector<Bar> &bars) {
    std::vector<Value> values;
    for (const Bar &bar : bars)
        values.push_back({bar.time, bar.close});
    return values;
}

inline std::vector<corePointMark> marksOf(const std::vector<Bar> &bars) {
    std::vector<corePointMark> marks;
    for (std::size_t i = 0; i < bars.size(); ++i) {
        const int color = static_cast<int>(0x102030 * (i % 5));
        marks.push_back({bars[i].time, bars[i].high, bars[i].low, static_cast<unsigned char>(i % 4), color});
    }
    return marks;
}

inline std::unique_ptr<Series> makeSeries(PRIMITIVE_TYPES type, const Look &look, int count,
                                          QRgb line = 0xFFC00000, QRgb rise = 0xFF008000) {
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
