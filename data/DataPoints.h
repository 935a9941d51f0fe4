#pragma once

// Plain values of one point of a series.
struct CDataPoint {
    unsigned int time = 0;
};

struct CPlotDataPoint : CDataPoint {
    unsigned int value = 0;
};

struct CPlotDataPointVolume : CPlotDataPoint {
    unsigned int volume = 0;
};

struct CDoublePlotDataPoint : CDataPoint {
    float value1 = 0;
    float value2 = 0;
};

#pragma pack(push, 1)
struct CFractalDataPoint : CDataPoint {
    float value1 = 0;
    float value2 = 0;
    unsigned char flag = 0;
    unsigned int number = 0;
};
#pragma pack(pop)

struct CCandleDataPoint : CDataPoint {
    float open = 0;
    float high = 0;
    float low = 0;
    float close = 0;
    float volume = 0;

    CCandleDataPoint() = default;
    CCandleDataPoint(const CCandleDataPoint &) = default;
    CCandleDataPoint &operator=(const CCandleDataPoint &other) {
        if (this == &other)
            return *this;
        time = 0;
        open = high = low = close = volume = 0;
        time = other.time;
        open = other.open;
        high = other.high;
        low = other.low;
        close = other.close;
        volume = other.volume;
        return *this;
    }
};

static_assert(sizeof(CPlotDataPoint) == 8, "CPlotDataPoint");
static_assert(sizeof(CPlotDataPointVolume) == 12, "CPlotDataPointVolume");
static_assert(sizeof(CDoublePlotDataPoint) == 12, "CDoublePlotDataPoint");
static_assert(sizeof(CFractalDataPoint) == 17, "CFractalDataPoint");
static_assert(sizeof(CCandleDataPoint) == 24, "CCandleDataPoint");
