#pragma once

#include "bench/Bars.h"

#include <QSlider>
#include <QWidget>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

// The smallest host that can show charts: it answers from memory and counts its calls.
class BenchHost {
public:
    static BenchHost &instance();

    // A shown chart window of 1280 x 720 with one candle series of `bars`; the caller deletes it.
    struct Chart {
        std::unique_ptr<QWidget> frame;
        QWidget *inner = nullptr;
        QWidget *window = nullptr;
        void *object = nullptr;
        ~Chart();
    };
    std::unique_ptr<Chart> makeChart(const std::vector<corePointCandle> &bars, int visible);
    // `pick` answers the source picker when one is open.
    void addAverage(Chart &chart, const std::vector<ValuePoint> &points, const std::function<void()> &pick);
    int seriesCount() const { return m_subscriptions; } // on the chart

    int send(unsigned message, int wParam, int lParam); // to the module
    void quote(Chart &chart, int kind);                 // 3009
    void appendBar(Chart &chart);
    void tick();                                        // one second of the module's timer
    void setCross(bool on);
    void setVisible(int positions);
    long calls() const { return m_calls; }

private:
    BenchHost();
    ~BenchHost();
    static int receive(void *target, unsigned message, int wParam, int lParam);
    int answer(void *target, unsigned message, int wParam, int lParam);
    void create(coreDemandsIndicator *record);

    struct Series {
        mvDataPointArray array;
        std::vector<coreFieldDescriptor> fields;
        std::vector<corePointCandle> bars;
        std::vector<ValuePoint> values;
        bool isBase = false;
    };
    std::map<Word, std::unique_ptr<Series>> m_series;
    const std::vector<corePointCandle> *m_nextBars = nullptr;
    const std::vector<ValuePoint> *m_nextValues = nullptr;
    int m_lastHandle = 0x5000;
    Word m_cross = 0;
    QSlider m_slider;
    long m_calls = 0;
    int m_subscriptions = 0;
    class Texts;
    std::unique_ptr<Texts> m_texts;
    int (*m_receiveMessage)(void *, unsigned, int, int) = nullptr;
};
