#pragma once
// Data arrays of the host and the points in them.
#include "module/records/Names.h"

enum DATA_POINT_TYPES : Word {
    DPT_BYTE = 0,
    DPT_SHORT = 1,
    DPT_LONG = 2,
    DPT_INT64 = 3,
    DPT_FLOAT = 4,
    DPT_DOUBLE = 5,
    DPT_NONE = 6
};

/// Qt pen styles; 0 hides the series.
enum eCoreTypeShowPen : Word {
    eCoreTypeShowPenNone = 0,
    eCoreTypeShowPenSolid = 1,
    eCoreTypeShowPenDash = 2,
    eCoreTypeShowPenDot = 3,
    eCoreTypeShowPenDashDot = 4,
    eCoreTypeShowPenDashDotDot = 5
};

#pragma pack(push, 1)

/// How the host suggests that a line be drawn.
struct coreTypeShow {
    Word firstColor; ///< rising candles
    Word secondColor; ///< lines and falling candles
    Word drawKind;
    eCoreTypeShowPen penType;
    Word reserved;
    int weightPen;
    int lineShowType;
    float borderValue;
    int scaleKind;
};
VELMAR_RECORD(coreTypeShow, 36);
VELMAR_FIELD(coreTypeShow, firstColor, 0);
VELMAR_FIELD(coreTypeShow, secondColor, 4);
VELMAR_FIELD(coreTypeShow, drawKind, 8);
VELMAR_FIELD(coreTypeShow, penType, 12);
VELMAR_FIELD(coreTypeShow, reserved, 16);
VELMAR_FIELD(coreTypeShow, weightPen, 20);
VELMAR_FIELD(coreTypeShow, lineShowType, 24);
VELMAR_FIELD(coreTypeShow, borderValue, 28);
VELMAR_FIELD(coreTypeShow, scaleKind, 32);

/// Words 1 and 3 name the value axis, word 2 is the rank of the series on it.
struct coreSystemCoord {
    Word axis;
    Word rank;
    Word axisPart;
};
VELMAR_RECORD(coreSystemCoord, 12);
VELMAR_FIELD(coreSystemCoord, axis, 0);
VELMAR_FIELD(coreSystemCoord, rank, 4);
VELMAR_FIELD(coreSystemCoord, axisPart, 8);

struct coreFieldDescriptor {
    DATA_POINT_TYPES type;
    char name[255];
};
VELMAR_RECORD(coreFieldDescriptor, 259);
VELMAR_FIELD(coreFieldDescriptor, type, 0);
VELMAR_FIELD(coreFieldDescriptor, name, 4);

/// The public face of a host array. The header stays where it is, the data may move.
struct mvDataPointArray {
    coreNameInstrument identity;
    void *owner; ///< handle of the object that computes the array
    coreTypeShow typeShow;
    coreFieldDescriptor *fields;
    int fieldCount;
    int precision;
    coreSystemCoord coord;
    Word recordSize;
    unsigned char *data;
    int count;
};
VELMAR_RECORD(mvDataPointArray, 850);
VELMAR_FIELD(mvDataPointArray, identity, 0);
VELMAR_FIELD(mvDataPointArray, owner, 774);
VELMAR_FIELD(mvDataPointArray, typeShow, 778);
VELMAR_FIELD(mvDataPointArray, fields, 814);
VELMAR_FIELD(mvDataPointArray, fieldCount, 818);
VELMAR_FIELD(mvDataPointArray, precision, 822);
VELMAR_FIELD(mvDataPointArray, coord, 826);
VELMAR_FIELD(mvDataPointArray, recordSize, 838);
VELMAR_FIELD(mvDataPointArray, data, 842);
VELMAR_FIELD(mvDataPointArray, count, 846);

/// A list of arrays: room going in, number coming out.
struct coreListCreateData {
    int count;
    mvDataPointArray **arrays;
};
VELMAR_RECORD(coreListCreateData, 8);
VELMAR_FIELD(coreListCreateData, count, 0);
VELMAR_FIELD(coreListCreateData, arrays, 4);

// ---- points, by what is drawn from them ----

struct corePointCandle {
    int time;
    float open;
    float high;
    float low;
    float close;
    float volume;
};
VELMAR_RECORD(corePointCandle, 24);
VELMAR_FIELD(corePointCandle, time, 0);
VELMAR_FIELD(corePointCandle, open, 4);
VELMAR_FIELD(corePointCandle, high, 8);
VELMAR_FIELD(corePointCandle, low, 12);
VELMAR_FIELD(corePointCandle, close, 16);
VELMAR_FIELD(corePointCandle, volume, 20);

struct corePointValue {
    int time;
    float value;
};
VELMAR_RECORD(corePointValue, 8);
VELMAR_FIELD(corePointValue, time, 0);
VELMAR_FIELD(corePointValue, value, 4);

struct corePointTick {
    int time;
    float value;
    float volume;
};
VELMAR_RECORD(corePointTick, 12);
VELMAR_FIELD(corePointTick, time, 0);
VELMAR_FIELD(corePointTick, value, 4);
VELMAR_FIELD(corePointTick, volume, 8);

struct corePointMark {
    int time;
    float high;
    float low;
    unsigned char sign;
    int color;
};
VELMAR_RECORD(corePointMark, 17);
VELMAR_FIELD(corePointMark, time, 0);
VELMAR_FIELD(corePointMark, high, 4);
VELMAR_FIELD(corePointMark, low, 8);
VELMAR_FIELD(corePointMark, sign, 12);
VELMAR_FIELD(corePointMark, color, 13);

struct corePointSign {
    int time;
    float value;
    unsigned char sign;
};
VELMAR_RECORD(corePointSign, 9);
VELMAR_FIELD(corePointSign, time, 0);
VELMAR_FIELD(corePointSign, value, 4);
VELMAR_FIELD(corePointSign, sign, 8);

struct corePointPattern {
    int time;
    float value;
    std::uint64_t id;
    bool isReversal;
    int value1;
    int value2;
    double score1;
    double score2;
    double score3;
    double score4;
    double score5;
    double score6;
    int startTime;
    int endTime;
    double startPrice;
    double endPrice;
    int resistanceTime0;
    int resistanceTime1;
    int supportTime0;
    int supportTime1;
    double resistancePrice0;
    double resistancePrice1;
    double supportPrice0;
    double supportPrice1;
    double predictionPriceFrom;
    double predictionPriceTo;
    int predictionTimeFrom;
    int predictionTimeTo;
};
VELMAR_RECORD(corePointPattern, 169);
VELMAR_FIELD(corePointPattern, time, 0);
VELMAR_FIELD(corePointPattern, value, 4);
VELMAR_FIELD(corePointPattern, id, 8);
VELMAR_FIELD(corePointPattern, isReversal, 16);
VELMAR_FIELD(corePointPattern, value1, 17);
VELMAR_FIELD(corePointPattern, value2, 21);
VELMAR_FIELD(corePointPattern, score1, 25);
VELMAR_FIELD(corePointPattern, score2, 33);
VELMAR_FIELD(corePointPattern, score3, 41);
VELMAR_FIELD(corePointPattern, score4, 49);
VELMAR_FIELD(corePointPattern, score5, 57);
VELMAR_FIELD(corePointPattern, score6, 65);
VELMAR_FIELD(corePointPattern, startTime, 73);
VELMAR_FIELD(corePointPattern, endTime, 77);
VELMAR_FIELD(corePointPattern, startPrice, 81);
VELMAR_FIELD(corePointPattern, endPrice, 89);
VELMAR_FIELD(corePointPattern, resistanceTime0, 97);
VELMAR_FIELD(corePointPattern, resistanceTime1, 101);
VELMAR_FIELD(corePointPattern, supportTime0, 105);
VELMAR_FIELD(corePointPattern, supportTime1, 109);
VELMAR_FIELD(corePointPattern, resistancePrice0, 113);
VELMAR_FIELD(corePointPattern, resistancePrice1, 121);
VELMAR_FIELD(corePointPattern, supportPrice0, 129);
VELMAR_FIELD(corePointPattern, supportPrice1, 137);
VELMAR_FIELD(corePointPattern, predictionPriceFrom, 145);
VELMAR_FIELD(corePointPattern, predictionPriceTo, 153);
VELMAR_FIELD(corePointPattern, predictionTimeFrom, 161);
VELMAR_FIELD(corePointPattern, predictionTimeTo, 165);

#pragma pack(pop)
