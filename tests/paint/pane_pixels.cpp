// What a pane shows over its series, pixel for pixel: the prompt, the titles and the label of the last price
// are painted a second time, from their own numbers, and compared.
#include "tests/support/WindowView.h"

#include "chart/GraphArea.h"
#include "chart/GraphLayer.h"
#include "chart/GraphWidget.h"
#include "objects/Indicator.h"

#include <QDialog>
#include <QFontMetrics>
#include <QPainter>
#include <QPixmap>
#include <cmath>
#include <functional>
#include <gtest/gtest.h>

namespace {

constexpr QRgb grid = 0xFFECE9D8;
constexpr QRgb fontColor = 0xFF7C7B68;
constexpr QRgb rise = 0xFF00A000;
constexpr QRgb fall = 0xFFC00000;
constexpr int start = 1388534400;
constexpr int hour = 3600;

QFont titleFont() {
    return QFont("Arial", 7);
}

QFont scaleFont() {
    return QFont("Arial", 8);
}

struct PanePixels : testing::Test {
    FakeHost host;
    Chart chart = host.createChart(QSize(900, 600));

    PROPERTY *item(int row) { return host.pages.begin()->second->groups[0].items[row]; }
    void setFlag(int row, bool on) { static_cast<propertyBoolean *>(item(row)->value)->value = on; }
    void apply() {
        PROPERTY_CHANGE change{host.moduleInterface(), chart.handle, host.pages.begin()->second};
        host.send(ToModule::PageChanged, &change);
    }
    void placeTitles(int place) {
        static_cast<propertyList *>(item(7)->value)->selected = place;
        apply();
    }
    /// A series that is not to be seen, without grid: only what stands over the layers is left of the pane.
    FakeObject *addHidden(Word drawKind, const QString &symbol, char letter = 'I', int length = 60) {
        setFlag(10, false);
        setFlag(11, false);
        apply();
        host.setDrawKind(drawKind);
        FakeObject *object = host.addInstrument(chart, symbol, letter, length);
        if (object)
            hide(object);
        return object;
    }
    void hide(FakeObject *object) {
        for (auto &output : object->outputs) {
            output->header()->typeShow.firstColor = rise & 0xFFFFFF;
            output->header()->typeShow.secondColor = fall & 0xFFFFFF;
            output->header()->typeShow.weightPen = 0;
        }
        host.update(object, 2);
        host.tick();
    }
    int left() const { return chart.handle->m_nLeftScaleWidth; }
    int right() const { return 900 - chart.handle->m_nRightScaleWidth; } // the pane ends one column further

    /// The pane as it must be: white, its top strip, and what `paint` adds.
    QImage expected(const std::function<void(QPainter &)> &paint) {
        QPixmap sheet(900, 600);
        sheet.fill(Qt::white);
        QPainter painter(&sheet);
        painter.setRenderHint(QPainter::Qt4CompatiblePainting);
        paint(painter);
        painter.setClipping(false);
        painter.fillRect(0, 0, 900, 2, QColor(grid));
        painter.end();
        return sheet.toImage();
    }
    void compare(const QRect &part, const QImage &wanted) {
        const WindowView view(host, chart);
        int differing = 0;
        QPoint first;
        for (int y = part.top(); y <= part.bottom(); ++y) {
            for (int x = part.left(); x <= part.right(); ++x) {
                if (view.pixel(x, y) == (wanted.pixel(x, y) | 0xFF000000))
                    continue;
                if (differing++ == 0)
                    first = QPoint(x, y);
            }
        }
        EXPECT_EQ(differing, 0) << "from column " << first.x() << ", row " << first.y();
    }
    /// The part of the pane between its scales, of the height of `rows` titles.
    QRect titles(int rows) const {
        const int height = QFontMetrics(titleFont()).height();
        return QRect(QPoint(left(), 2), QPoint(right() - 3, rows * height + 2));
    }

    /// A title whose text rectangle starts at x, y.
    static void title(QPainter &painter, int x, int y, const QString &text, bool twoColors) {
        const QFontMetrics metrics(titleFont());
        const int width = metrics.horizontalAdvance(text) + 3;
        const int height = metrics.height();
        painter.setFont(titleFont());
        painter.setClipRect(x, y, width, height);
        painter.setPen(QColor(fall));
        painter.drawText(x + 3, y + height - 2, text);
        if (!twoColors)
            return;
        painter.setClipRect(x, y, width, height / 2);
        painter.setPen(QColor(rise));
        painter.drawText(x + 3, y + height - 2, text);
    }
    static int titleWidth(const QString &text) { return QFontMetrics(titleFont()).horizontalAdvance(text); }
    static int titleHeight() { return QFontMetrics(titleFont()).height(); }

    static void prompt(QPainter &painter, const QRect &pane) {
        const QFontMetrics metrics(titleFont());
        const QString text("Add data source");
        const int w = metrics.horizontalAdvance(text);
        const int h = metrics.height();
        const int x = pane.left() + pane.width() / 2 - w / 2;
        const int y = pane.top() + pane.height() / 2;
        painter.setClipping(false);
        painter.fillRect(QRect(x - 15, y - 15, w + 20, h + 10), Qt::white);
        painter.setFont(titleFont());
        painter.setPen(QColor(fontColor));
        painter.drawText(QRect(x, y, w, h), Qt::AlignVCenter | Qt::AlignRight, text);
    }
};

TEST_F(PanePixels, Prompt) {
    const int height = WindowView(host, chart).chartHeight();
    compare(QRect(0, 0, 900, height),
            expected([&](QPainter &painter) { prompt(painter, QRect(0, 0, 901, height)); }));
}

TEST_F(PanePixels, PromptAndTitleOfASeriesWithoutPoints) {
    host.setHistory("EURUSD", {});
    ASSERT_TRUE(addHidden(1, "EURUSD"));
    const int height = WindowView(host, chart).chartHeight();
    compare(QRect(0, 0, 900, height), expected([&](QPainter &painter) {
                prompt(painter, QRect(0, 0, 901, height));
                title(painter, 3, 1, "EUR/USD 1 Hour Bid ", true);
            }));
}

// ---- titles ----

struct KindCase {
    Word drawKind;
    int length;
    const char *text;    // with titles at the sides
    const char *topText; // with titles at the top
    bool twoColors;
};

struct PaneTitle : PanePixels, testing::WithParamInterface<KindCase> {};

TEST_P(PaneTitle, StandsAtEachOfItsPlaces) {
    const KindCase &row = GetParam();
    host.setHistory("EURUSD",
                    {{start, 1.1f, 1.4f, 1.0f, 1.3f, 1}, {start + hour, 1.2f, 1.5f, 1.0f, 1.25f, 1}});
    host.setTickHistory("EURUSD", {{start, 1.1f, 1}, {start + 5, 1.125f, 1}});
    ASSERT_TRUE(addHidden(row.drawKind, "EURUSD", 'I', row.length));
    compare(titles(1),
            expected([&](QPainter &painter) { title(painter, left() + 3, 1, row.text, row.twoColors); }));
    placeTitles(1);
    compare(titles(1), expected([&](QPainter &painter) {
                title(painter, right() + 1 - titleWidth(row.text) - 6, 1, row.text, row.twoColors);
            }));
    placeTitles(2);
    compare(titles(1),
            expected([&](QPainter &painter) { title(painter, left(), 1, row.topText, row.twoColors); }));
    setFlag(9, false);
    placeTitles(0);
    compare(titles(1), expected([&](QPainter &painter) { title(painter, left() + 3, 1, row.text, false); }));
}

INSTANTIATE_TEST_SUITE_P(
    OfEachKind, PaneTitle,
    testing::Values(KindCase{1, 60, "EUR/USD 1 Hour Bid (1.25000) ", "EUR/USD 1 Hour Bid (1.25000) ", true},
                    KindCase{2, 30, "EUR/USD 30 Min Bid (1.25000) ", "EUR/USD 30 Min Bid (1.25000) ", true},
                    KindCase{3, 90, "EUR/USD 1 Hour Bid (1.25000) ", "EUR/USD 1 Hour Bid (1.25000) ", false},
                    KindCase{5, 180, "EUR/USD 3 Hour Bid (1.25000) ", "EUR/USD 3 Hour Bid (1.25000) ", true},
                    KindCase{7, 1, "EUR/USD 1 Min Bid (1.25000) ", "EUR/USD 1 Min Bid (1.25000) ", false},
                    KindCase{8, 60, "EURUSD (1.20000) ", "EURUSD", false}, // its first field is the open
                    KindCase{10, 60, "EURUSD (1.20000) ", "EURUSD", false},
                    KindCase{1, 0, "EURUSD (1.12500) ", "EURUSD", false})); // ticks

TEST_F(PanePixels, TitleOfMarksShowsTheirHighInTwoColours) {
    setFlag(10, false);
    setFlag(11, false);
    apply();
    FakeIndicator kind;
    kind.name = kind.displayName = "Fractals";
    kind.inputs = 0;
    kind.outputs.push_back({"Up", 6, 3, 0, nullptr});
    host.addIndicatorKind(kind);
    host.addIndicator(chart, "Fractals");
    FakeObject *object = host.lastObject();
    ASSERT_TRUE(object);
    object->array().setMarks({{start, 1.5f, 1.25f, 1, 0}, {start + hour, 1.625f, 1.375f, 2, 0}});
    object->array().header()->precision = 4;
    host.update(object, 1);
    hide(object);
    compare(titles(1),
            expected([&](QPainter &painter) { title(painter, left() + 3, 1, "Up (1.6250) ", true); }));
    placeTitles(2);
    compare(titles(1), expected([&](QPainter &painter) { title(painter, left(), 1, "Up", true); }));
}

TEST_F(PanePixels, TitlesStandUnderEachOtherOrInARow) {
    host.setHistory("EURUSD",
                    {{start, 1.1f, 1.4f, 1.0f, 1.3f, 1}, {start + hour, 1.2f, 1.5f, 1.0f, 1.25f, 1}});
    ASSERT_TRUE(addHidden(1, "EURUSD"));
    FakeIndicator kind;
    kind.name = kind.displayName = "Twin";
    kind.inputs = 0;
    for (const char *output : {"First", "Second"})
        kind.outputs.push_back({output, 4, 0, 1, [](const std::vector<float> &, int) { return 1.5f; }});
    host.addIndicatorKind(kind);
    host.onDialog([](QDialog *dialog) { dialog->accept(); });
    host.addIndicator(chart, "Twin");
    ASSERT_EQ(chart.handle->m_indicators.size(), 2u);
    hide(host.lastObject());
    const QString first("EUR/USD 1 Hour Bid (1.25000) ");
    const int height = titleHeight();
    const QString second("Twin (1.50000) "); // two lines of one object go by the object's name
    for (const int place : {0, 1, 2}) {
        placeTitles(place);
        compare(titles(2), expected([&](QPainter &painter) {
                    if (place == 2) {
                        title(painter, left(), 1, first, true);
                        title(painter, left() + titleWidth(first), 1, ", Twin", false);
                    } else if (place == 1) {
                        title(painter, right() + 1 - titleWidth(first) - 6, 1, first, true);
                        title(painter, right() + 1 - titleWidth(second) - 6, 1 + height, second, false);
                    } else {
                        title(painter, left() + 3, 1, first, true);
                        title(painter, left() + 3, 1 + height, second, false);
                    }
                }));
    }
}

TEST_F(PanePixels, NonTradingTimeIsToldInRed) {
    host.setHistory("EUR", {{start, 1.1f, 1.4f, 1.0f, 1.3f, 1}, {start + hour, 1.2f, 1.5f, 1.0f, 1.25f, 1}});
    ASSERT_TRUE(addHidden(1, "EUR"));
    mvdDayOff closed = zeroRecord<mvdDayOff>();
    fillField(closed.symbol, "EUR");
    closed.dayOff = 1;
    host.dayOff[77] = {closed};
    mvdDealAccount record = zeroRecord<mvdDealAccount>();
    record.interfaceHandle = host.interfaceOf("DEALING");
    record.account = 77;
    host.emitEvent("DealingEvent", EventCode::DayOffChanged, &record, sizeof record);
    const QString text("EUR 1 Hour Bid (1.25000) ");
    const QString remark("Non-trading time");
    const int width = titleWidth(remark);
    for (const int place : {0, 1, 2}) {
        placeTitles(place);
        const int x = place == 0 ? left() + 3 : place == 1 ? right() + 1 - titleWidth(text) - 6 : left();
        const int remarkX = place == 1 ? x - width - 10 : x + titleWidth(text);
        compare(titles(1), expected([&](QPainter &painter) {
                    title(painter, x, 1, text, true);
                    painter.setClipRect(remarkX, 1, width + 3, titleHeight());
                    painter.setPen(Qt::red);
                    painter.drawText(remarkX + 3, titleHeight() - 1, remark);
                }));
    }
}

// ---- last price ----

struct PaneLastPrice : PanePixels, testing::WithParamInterface<bool> {};

TEST_P(PaneLastPrice, HasItsLineAndItsLabel) {
    const bool onRight = GetParam();
    std::vector<Bar> bars;
    for (int i = 0; i < 20; ++i)
        bars.push_back({start + i * hour, 1.30f, 1.32f, 1.28f, 1.31f, 1});
    host.setHistory("EUR", bars);
    setFlag(13, onRight);
    setFlag(14, true);
    ASSERT_TRUE(addHidden(1, "EUR"));
    const CRGraphLayer *layer = chart.handle->m_areas[0]->m_layers[0];
    const WindowView view(host, chart);
    const int y =
        layer->m_rect.bottom() + 1 - static_cast<int>((1.31f - layer->m_min) * layer->m_yScale + 0.5);
    const int h = QFontMetrics(scaleFont()).height();
    const int width = onRight ? chart.handle->m_nRightScaleWidth : left();
    ASSERT_GT(width, 30);
    const int edge = onRight ? right() : 0;
    EXPECT_EQ(layer->m_rect.right(), onRight ? right() : 900);
    const QRect box(edge, y - h / 2 - 1, width, h + 2);
    const QImage wanted = expected([&](QPainter &painter) {
        painter.fillRect(box, QColor(fall));
        painter.setFont(scaleFont());
        painter.setPen(Qt::white);
        const QString text("1.31000");
        painter.drawText(onRight ? right() + 4
                                 : left() - QFontMetrics(scaleFont()).horizontalAdvance(text) - 4,
                         y + h / 2 - 2, text);
    });
    compare(box, wanted);
    for (int x = left(); x < (onRight ? right() : 900); ++x)
        ASSERT_EQ(view.pixel(x, y), fall) << x;
    for (int x = left() + 5; x < right() - 5; ++x) {
        ASSERT_EQ(view.pixel(x, y - 1), 0xFFFFFFFF) << x;
        ASSERT_EQ(view.pixel(x, y + 1), 0xFFFFFFFF) << x;
    }
}

INSTANTIATE_TEST_SUITE_P(OnBothScales, PaneLastPrice, testing::Bool());

// ---- switches ----

TEST_F(PanePixels, PictureOfTheSymbol) {
    ASSERT_TRUE(addHidden(1, "EUR"));
    const int height = WindowView(host, chart).chartHeight();
    const QRect plot(QPoint(left(), 0), QPoint(right(), height - 1));
    const QPixmap picture(":/usd.png"); // the one for symbols without their own
    ASSERT_FALSE(picture.isNull());
    const QRect part = QRect(QPoint(left(), 30), QPoint(right() - 6, height - 1));
    compare(part, expected([](QPainter &) {}));
    QTest::keyClick(chart.widget, '{');
    compare(part, expected([&](QPainter &painter) {
                painter.drawPixmap(plot.left() + (plot.width() - picture.width()) / 2,
                                   plot.top() + (plot.height() - picture.height()) / 2, picture);
            }));
    QTest::keyClick(chart.widget, '{');
    compare(part, expected([](QPainter &) {}));
}

TEST_F(PanePixels, BorderRunsAroundThePlot) {
    ASSERT_TRUE(addHidden(1, "EUR"));
    setFlag(5, true);
    apply();
    const WindowView view(host, chart);
    const int bottom = view.chartHeight();
    const QRgb black = 0xFF000000; // white over anything, by exclusive or
    for (int x = left() - 1; x <= right() + 2; ++x)
        ASSERT_EQ(view.pixel(x, 1), black) << x;
    for (int y = 1; y <= bottom; ++y) {
        ASSERT_EQ(view.pixel(left() - 1, y), black) << y;
        ASSERT_EQ(view.pixel(right() + 2, y), black) << y;
    }
    EXPECT_NE(view.pixel(left() - 2, 20), black);
    EXPECT_NE(view.pixel(right() + 3, 1), black);
    EXPECT_EQ(view.pixel(left() + 20, 0), grid);
}

// ---- game mode ----

TEST_F(PanePixels, Watermark) {
    host.emitEvent("Velmar Game Mode", 1001);
    const int height = WindowView(host, chart).chartHeight();
    compare(QRect(0, 0, 900, height), expected([&](QPainter &painter) {
                prompt(painter, QRect(0, 0, 901, height));
                const QString text("  Game Mode ");
                QFont font("Arial", 36);
                font.setWeight(75);
                const QFontMetrics metrics(font);
                painter.setClipRect(0, 0, 900, height);
                painter.setFont(font);
                painter.setPen(QColor(240, 240, 240));
                QTransform transform;
                transform.rotate(360 - std::atan((height * 0.5) / 901) * 180 / 3.1415926535);
                transform.scale(901.0 / metrics.horizontalAdvance(text),
                                static_cast<double>(height) / metrics.height());
                painter.setTransform(transform);
                painter.drawText(transform.inverted().map(QPointF(10, height - 1)), text);
                painter.resetTransform();
            }));
}

} // namespace
