#pragma once
// What the tests of a chart window see of it: pixels by their place in the window.
#include "tests/support/FakeHost.h"

#include <QtTest>

/// The picture of a chart window, and where its parts stand by the look of the pixels.
class WindowView {
public:
    WindowView(FakeHost &host, const Chart &chart) : m_host(host), m_chart(chart) { refresh(); }

    void refresh() { m_image = m_host.grab(m_chart); }
    const QImage &image() const { return m_image; }
    int width() const { return m_image.width(); }
    int height() const { return m_image.height(); }
    QRgb pixel(int x, int y) const { return m_image.pixel(x, y) | 0xFF000000; }

    int scrollBarHeight() const { return childOfClass(m_chart.widget, "CTimeScrollBar")->height(); }
    int chartHeight() const { return height() - scrollBarHeight() - timeStripHeight; }

    /// The first rows of the panes: two rows in the colour of the grid across the window.
    std::vector<int> paneTops(QRgb grid = 0xFFECE9D8) const {
        std::vector<int> tops;
        for (int y = 0; y + 1 < chartHeight(); ++y) {
            if (isRow(y, grid) && isRow(y + 1, grid)) {
                tops.push_back(y);
                ++y;
            }
        }
        return tops;
    }

    bool isRow(int y, QRgb color) const {
        for (int x = 0; x < width() - 14; x += 7) {
            if (pixel(x, y) != color)
                return false;
        }
        return true;
    }

    template <class Test>
    int countWhere(const QRect &rect, Test test) const {
        int found = 0;
        for (int y = rect.top(); y <= rect.bottom(); ++y) {
            for (int x = rect.left(); x <= rect.right(); ++x)
                found += m_image.valid(x, y) && test(pixel(x, y));
        }
        return found;
    }

    /// What holds all pixels of a kind inside a rectangle; empty without any.
    template <class Test>
    QRect extentWhere(const QRect &rect, Test test) const {
        QRect extent;
        for (int y = rect.top(); y <= rect.bottom(); ++y) {
            for (int x = rect.left(); x <= rect.right(); ++x) {
                if (m_image.valid(x, y) && test(pixel(x, y)))
                    extent |= QRect(x, y, 1, 1);
            }
        }
        return extent;
    }

    int countColor(const QRect &rect, QRgb color) const {
        return countWhere(rect, [color](QRgb pixel) { return pixel == color; });
    }
    QRect extentOf(const QRect &rect, QRgb color) const {
        return extentWhere(rect, [color](QRgb pixel) { return pixel == color; });
    }

    // Smoothed text has few pixels of its very colour.
    static bool reddish(QRgb pixel) {
        return qRed(pixel) - qGreen(pixel) > 50 && qRed(pixel) - qBlue(pixel) > 50;
    }
    static bool greenish(QRgb pixel) {
        return qGreen(pixel) - qRed(pixel) > 50 && qGreen(pixel) - qBlue(pixel) > 50;
    }
    static bool bluish(QRgb pixel) {
        return qBlue(pixel) - qRed(pixel) > 50 && qBlue(pixel) - qGreen(pixel) > 50;
    }

    static constexpr int timeStripHeight = 26; // 8 points * 2 + 10

private:
    FakeHost &m_host;
    Chart m_chart;
    QImage m_image;
};

inline void press(const Chart &chart, const QPoint &point) {
    QTest::mousePress(chart.widget, Qt::LeftButton, Qt::NoModifier, point);
}

inline void release(const Chart &chart, const QPoint &point) {
    QTest::mouseRelease(chart.widget, Qt::LeftButton, Qt::NoModifier, point);
}

/// A move with the left button held down.
inline void drag(const Chart &chart, const QPoint &point) {
    QMouseEvent event(QEvent::MouseMove, point, chart.widget->mapToGlobal(point), Qt::NoButton,
                      Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(chart.widget, &event);
}

inline void clickAt(const Chart &chart, const QPoint &point) {
    press(chart, point);
    release(chart, point);
}
