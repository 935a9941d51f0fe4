// The value scales pixel for pixel: labels, ticks, grid and border are painted a second time, from the prices
// alone, and compared.
#include "tests/support/WindowView.h"

#include "chart/GraphArea.h"
#include "chart/GraphLayer.h"
#include "chart/GraphWidget.h"
#include "objects/Indicator.h"

#include <QDialog>
#include <QFontMetrics>
#include <QPainter>
#include <QPixmap>
#include <QTreeWidget>
#include <cmath>
#include <gtest/gtest.h>

namespace {

constexpr QRgb gridColor = 0xFFECE9D8;
constexpr QRgb fontColor = 0xFF7C7B68;
constexpr int start = 1388534400;
constexpr int hour = 3600;

QFont scaleFont(int weight) {
    QFont font("Arial", 8);
    font.setWeight(weight);
    return font;
}

/// The numbers of one scale of a pane without the top strip, worked out from the prices alone.
struct Scale {
    Scale(float high, float low, int digits, int rows) : decimals(digits), height(rows) {
        tick = static_cast<float>(std::pow(10.0, -digits));
        max = high;
        min = low;
        if (max == min) {
            max = static_cast<float>(max + 10.0 * tick);
            min = static_cast<float>(min - 10.0 * tick);
        }
        max = static_cast<float>(max + (max - min) * 0.02);
        min = static_cast<float>(min - (max - min) * 0.02);
        const double factor = rows < 100 ? std::min(rows * 0.2 / 100 + 0.8, 1.0) : 1.0;
        pixels = static_cast<float>(factor * rows / (static_cast<double>(max) - min));
    }
    int y(double value) const {
        return height - static_cast<int>((static_cast<float>(value) - min) * pixels + 0.5);
    }
    std::vector<double> values() const {
        const double span = static_cast<double>(max) - min;
        const double lo = min + span * 0.02, hi = max - span * 0.02;
        const int n = height / (QFontMetrics(scaleFont(50)).height() + 5);
        const double raw = (hi - lo) / n;
        double step = tick;
        if (raw > tick) {
            const double p = std::pow(10.0, static_cast<int>(std::log10(raw)));
            step = raw > p ? (5 * p > raw ? 5 * p : 10 * p) : p;
        }
        const double first = (static_cast<int>(lo / step + (lo >= 0 ? 1.0 : -0.5)) - 1) * step;
        const double end = (static_cast<int>(hi / step - (hi >= 0 ? 1.0 : 2.0)) + 1) * step;
        std::vector<double> list;
        for (int i = 1; i <= static_cast<int>((end - first) / step + 0.2); ++i)
            list.push_back(first + i * step);
        return list;
    }
    bool isRound(double value) const {
        const double hundred = 100.0 * tick;
        const int m = static_cast<int>(std::fabs(value) / hundred + 0.5);
        return 0.9 * tick > std::fabs(hundred * m - std::fabs(value));
    }
    void paint(QPainter &painter, const QRect &plot, bool onRight, bool grid) const {
        for (double value : values()) {
            const int row = y(value);
            if (row >= height || row <= 0)
                continue;
            const bool round = isRound(value);
            const QFont font = scaleFont(round ? 75 : 50);
            const QString text = QString::asprintf("%0.*f", decimals, value);
            painter.setFont(font);
            painter.setPen(QColor(fontColor));
            painter.drawText(onRight ? plot.right() + 4
                                     : plot.left() - QFontMetrics(font).horizontalAdvance(text) - 4,
                             row + 4, text);
            painter.setPen(QPen(QColor(gridColor), round ? 2.0 : 1.0, Qt::DotLine));
            if (onRight) {
                painter.drawLine(plot.right() - 2, row, plot.right() + 4, row);
                if (grid)
                    painter.drawLine(plot.right() - 2, row, plot.left() - 3, row);
            } else {
                painter.drawLine(plot.left() - 3, row, plot.left() - 1, row);
            }
        }
        painter.setPen(QPen(QColor(gridColor), 1.0, Qt::DotLine));
        const int border = onRight ? plot.right() + 1 : plot.left() - 1;
        painter.drawLine(border, 0, border, height);
    }

    int decimals;
    int height;
    float tick, max, min, pixels;
};

struct ScaleCase {
    const char *what;
    int digits;
    float high, low;
    int windowHeight;
    bool grid;
};

struct ScalePixels : testing::Test, testing::WithParamInterface<ScaleCase> {
    FakeHost host;
    Chart chart;

    /// A chart of two bars that are not to be seen; only their range is.
    FakeObject *show(const ScaleCase &row) {
        chart = host.createChart(QSize(900, row.windowHeight));
        chart.handle->m_bVerticalGrid = false;
        chart.handle->m_bHorizontalGrid = row.grid;
        host.setPrecision(row.digits);
        host.setHistory("EUR", {{start, row.low, row.high, row.low, row.low, 1},
                                {start + hour, row.low, row.high, row.low, row.low, 1}});
        FakeObject *object = host.addInstrument(chart, "EUR");
        if (object) {
            object->array().header()->typeShow.weightPen = 0;
            host.update(object, 2);
            host.tick();
        }
        return object;
    }
    static int width(const ScaleCase &row) {
        const QString text = QString::asprintf("%0.*f", row.digits, static_cast<double>(row.high));
        const QRect rect = QFontMetrics(scaleFont(75)).boundingRect(QRect(), 0, text);
        return rect.right() - rect.left() + 11;
    }
    /// The columns from..to of the pane below its top strip.
    void compare(int from, int to, int rows, const QImage &wanted) {
        const WindowView view(host, chart);
        int differing = 0;
        QPoint first;
        for (int y = 30; y < rows; ++y) // below the titles
            for (int x = from; x <= to; ++x)
                if (view.pixel(x, y) != (wanted.pixel(x, y) | 0xFF000000) && differing++ == 0)
                    first = QPoint(x, y);
        EXPECT_EQ(differing, 0) << "from column " << first.x() << ", row " << first.y();
    }
    static QImage sheet(int height, const std::function<void(QPainter &)> &paint) {
        QPixmap pixmap(900, height);
        pixmap.fill(Qt::white);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Qt4CompatiblePainting);
        paint(painter);
        painter.end();
        return pixmap.toImage();
    }
};

TEST_P(ScalePixels, OnBothSidesOfThePlot) {
    const ScaleCase &row = GetParam();
    ASSERT_TRUE(show(row)) << row.what;
    const int rows = WindowView(host, chart).chartHeight();
    const int scaleWidth = width(row);
    const QRect plot(QPoint(scaleWidth, 0), QPoint(900 - scaleWidth, rows - 1));
    const Scale scale(row.high, row.low, row.digits, rows);
    ASSERT_GE(scale.values().size(), 2u) << row.what;
    compare(0, 899, rows, sheet(row.windowHeight, [&](QPainter &painter) {
                painter.setClipRect(0, 0, 901, rows);
                scale.paint(painter, plot, true, row.grid);
                scale.paint(painter, plot, false, row.grid);
            }));
}

INSTANTIATE_TEST_SUITE_P(OfRanges, ScalePixels,
                         testing::Values(ScaleCase{"five digits", 5, 1.32f, 1.28f, 600, true},
                                         ScaleCase{"without a grid", 5, 1.32f, 1.28f, 600, false},
                                         ScaleCase{"a step of one tick", 4, 1.3020f, 1.3000f, 600, true},
                                         ScaleCase{"equal values", 5, 1.3f, 1.3f, 600, true},
                                         ScaleCase{"two digits, hundreds", 2, 1480.5f, 1210.25f, 600, true},
                                         ScaleCase{"no digits, millions", 0, 2500000.0f, -1200000.0f, 600,
                                                   true},
                                         ScaleCase{"on both sides of zero", 3, 0.8f, -0.9f, 500, true},
                                         ScaleCase{"below zero", 2, -5.5f, -80.25f, 500, true},
                                         ScaleCase{"a low pane", 0, 2900.0f, 990.0f, 136, true}));

TEST_F(ScalePixels, SecondLayerHasItsOwnLabelsOnTheLeft) {
    const ScaleCase row{"two layers", 5, 1.32f, 1.28f, 600, true};
    ASSERT_TRUE(show(row));
    FakeIndicator kind;
    kind.name = kind.displayName = "Far";
    kind.inputs = 0;
    kind.outputs.push_back({"Out", 4, 0, 1, [](const std::vector<float> &, int) { return 0.0f; }});
    host.addIndicatorKind(kind);
    host.onDialog([](QDialog *dialog) { // the last row is a new layer
        auto *tree = dialog->findChild<QTreeWidget *>();
        tree->setCurrentItem(tree->topLevelItem(tree->topLevelItemCount() - 1));
        dialog->accept();
    });
    host.addIndicator(chart, "Far");
    FakeObject *far = host.lastObject();
    far->array().setValues({{start, 30.0f}, {start + hour, -20.0f}});
    far->array().header()->precision = 1;
    far->array().header()->typeShow.weightPen = 0;
    host.update(far, 1);
    host.tick();
    ASSERT_EQ(chart.handle->m_areas[0]->m_layers.size(), 2u);
    const int rows = WindowView(host, chart).chartHeight();
    const int scaleWidth = width(row); // the wider of both
    const QRect plot(QPoint(scaleWidth, 0), QPoint(900 - scaleWidth, rows - 1));
    compare(0, 899, rows, sheet(row.windowHeight, [&](QPainter &painter) {
                Scale(1.32f, 1.28f, 5, rows).paint(painter, plot, true, true);
                Scale(30.0f, -20.0f, 1, rows).paint(painter, plot, false, true);
            }));
}

} // namespace
