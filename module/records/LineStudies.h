#pragma once
// The line-study engine: control points, shapes, and the lists of studies on arrays.
#include "module/records/Arrays.h"

#pragma pack(push, 1)

/// A control point.
struct lsPointShape {
    Word kind; ///< 0 ordinary, 1 set, 2 end of the list
    int time;
    int index;
    float value;
    Word position; ///< 0 within the data, 1 beyond the last candle
};
VELMAR_RECORD(lsPointShape, 20);
VELMAR_FIELD(lsPointShape, kind, 0);
VELMAR_FIELD(lsPointShape, time, 4);
VELMAR_FIELD(lsPointShape, index, 8);
VELMAR_FIELD(lsPointShape, value, 12);
VELMAR_FIELD(lsPointShape, position, 16);

struct lsTitle {
    char text[1024];
    Word position;
    Word alignment;
};
VELMAR_RECORD(lsTitle, 1032);
VELMAR_FIELD(lsTitle, text, 0);
VELMAR_FIELD(lsTitle, position, 1024);
VELMAR_FIELD(lsTitle, alignment, 1028);

struct lsShape {
    Word visible;
    Word kind; ///< 0 line, 1 or 2 text or picture, 3 horizontal, 4 vertical, 5 arc
    char name[255];
    lsTitle titleFirst;
    lsTitle title;
    lsTitle lineText;
    Word reserved1;
    Word color;
    Word penStyle;
    Word penWidth;
    Word reserved2;
    void *data; ///< allocated by the module at the size told by lsSizeOutShape
};
VELMAR_RECORD(lsShape, 3383);
VELMAR_FIELD(lsShape, visible, 0);
VELMAR_FIELD(lsShape, kind, 4);
VELMAR_FIELD(lsShape, name, 8);
VELMAR_FIELD(lsShape, titleFirst, 263);
VELMAR_FIELD(lsShape, title, 1295);
VELMAR_FIELD(lsShape, lineText, 2327);
VELMAR_FIELD(lsShape, reserved1, 3359);
VELMAR_FIELD(lsShape, color, 3363);
VELMAR_FIELD(lsShape, penStyle, 3367);
VELMAR_FIELD(lsShape, penWidth, 3371);
VELMAR_FIELD(lsShape, reserved2, 3375);
VELMAR_FIELD(lsShape, data, 3379);

struct lsControlPointsShapes {
    int inputCount;
    lsPointShape *inputPoints;
    int outputCount;
    lsPointShape *outputPoints;
    int shapeCount;
    lsShape *shapes;
    Word status; ///< 1 is complete
    Word deleteFlag; ///< 1 asks for the study to be removed
};
VELMAR_RECORD(lsControlPointsShapes, 32);
VELMAR_FIELD(lsControlPointsShapes, inputCount, 0);
VELMAR_FIELD(lsControlPointsShapes, inputPoints, 4);
VELMAR_FIELD(lsControlPointsShapes, outputCount, 8);
VELMAR_FIELD(lsControlPointsShapes, outputPoints, 12);
VELMAR_FIELD(lsControlPointsShapes, shapeCount, 16);
VELMAR_FIELD(lsControlPointsShapes, shapes, 20);
VELMAR_FIELD(lsControlPointsShapes, status, 24);
VELMAR_FIELD(lsControlPointsShapes, deleteFlag, 28);

struct lsSizeOutShape {
    int count;
    int *sizes; ///< in bytes, one for each shape
};
VELMAR_RECORD(lsSizeOutShape, 8);
VELMAR_FIELD(lsSizeOutShape, count, 0);
VELMAR_FIELD(lsSizeOutShape, sizes, 4);

// ---- data blocks of the shapes ----

struct lsShapeLine {
    lsPointShape first;
    lsPointShape second;
    Word extendLeft;
    Word extendRight;
};
VELMAR_RECORD(lsShapeLine, 48);
VELMAR_FIELD(lsShapeLine, first, 0);
VELMAR_FIELD(lsShapeLine, second, 20);
VELMAR_FIELD(lsShapeLine, extendLeft, 40);
VELMAR_FIELD(lsShapeLine, extendRight, 44);

struct lsShapeHorizontal {
    float value;
};
VELMAR_RECORD(lsShapeHorizontal, 4);
VELMAR_FIELD(lsShapeHorizontal, value, 0);

struct lsShapeVertical {
    int index;
    int time;
    Word extendToAllAreas;
    Word position;
};
VELMAR_RECORD(lsShapeVertical, 16);
VELMAR_FIELD(lsShapeVertical, index, 0);
VELMAR_FIELD(lsShapeVertical, time, 4);
VELMAR_FIELD(lsShapeVertical, extendToAllAreas, 8);
VELMAR_FIELD(lsShapeVertical, position, 12);

struct lsShapeArc {
    float radius; ///< in percent of the distance of the output points 0 and 1
    Word direction;
};
VELMAR_RECORD(lsShapeArc, 8);
VELMAR_FIELD(lsShapeArc, radius, 0);
VELMAR_FIELD(lsShapeArc, direction, 4);

struct lsShapeText {
    lsPointShape point;
    unsigned short text[1024];
    char fontName[1024];
    Word fontSize;
    unsigned char bold;
    unsigned char italic;
    unsigned char underline;
    unsigned char strikeOut;
    Word showSymbol;
};
VELMAR_RECORD(lsShapeText, 3104);
VELMAR_FIELD(lsShapeText, point, 0);
VELMAR_FIELD(lsShapeText, text, 20);
VELMAR_FIELD(lsShapeText, fontName, 2068);
VELMAR_FIELD(lsShapeText, fontSize, 3092);
VELMAR_FIELD(lsShapeText, bold, 3096);
VELMAR_FIELD(lsShapeText, italic, 3097);
VELMAR_FIELD(lsShapeText, underline, 3098);
VELMAR_FIELD(lsShapeText, strikeOut, 3099);
VELMAR_FIELD(lsShapeText, showSymbol, 3100);

// ---- requests ----

struct lsCreateObject {
    char name[255];
    mvDataPointArray *array;
    Word handle; ///< this and the next two are the answer
    Word controlPointCount;
    Word shapeCount;
    Word areaId;
};
VELMAR_RECORD(lsCreateObject, 275);
VELMAR_FIELD(lsCreateObject, name, 0);
VELMAR_FIELD(lsCreateObject, array, 255);
VELMAR_FIELD(lsCreateObject, handle, 259);
VELMAR_FIELD(lsCreateObject, controlPointCount, 263);
VELMAR_FIELD(lsCreateObject, shapeCount, 267);
VELMAR_FIELD(lsCreateObject, areaId, 271);

struct lsRebind {
    mvDataPointArray *array;
    lsControlPointsShapes *points;
};
VELMAR_RECORD(lsRebind, 8);
VELMAR_FIELD(lsRebind, array, 0);
VELMAR_FIELD(lsRebind, points, 4);

struct lsObjectNames {
    char tool[255];
    unsigned short name[512];
};
VELMAR_RECORD(lsObjectNames, 1279);
VELMAR_FIELD(lsObjectNames, tool, 0);
VELMAR_FIELD(lsObjectNames, name, 255);

struct lsFocus {
    Word object;
    unsigned char selected;
    Word value;
};
VELMAR_RECORD(lsFocus, 9);
VELMAR_FIELD(lsFocus, object, 0);
VELMAR_FIELD(lsFocus, selected, 4);
VELMAR_FIELD(lsFocus, value, 5);

/// Old base point and new: the study moves by the difference.
struct coreLsShift {
    Word count;
    lsPointShape *points;
};
VELMAR_RECORD(coreLsShift, 8);
VELMAR_FIELD(coreLsShift, count, 0);
VELMAR_FIELD(coreLsShift, points, 4);

struct coreLsAttach {
    mvDataPointArray *array;
    void *interfaceHandle;
    void *object;
};
VELMAR_RECORD(coreLsAttach, 12);
VELMAR_FIELD(coreLsAttach, array, 0);
VELMAR_FIELD(coreLsAttach, interfaceHandle, 4);
VELMAR_FIELD(coreLsAttach, object, 8);

struct coreLsCountForDpa {
    mvDataPointArray *array;
    Word reserved;
    Word count;
};
VELMAR_RECORD(coreLsCountForDpa, 12);
VELMAR_FIELD(coreLsCountForDpa, array, 0);
VELMAR_FIELD(coreLsCountForDpa, reserved, 4);
VELMAR_FIELD(coreLsCountForDpa, count, 8);

struct coreLsListForDpa {
    mvDataPointArray *array;
    Word reserved;
    Word count;
    CORE_OBJECT_SYSTEM *list; ///< interface and study of each entry
};
VELMAR_RECORD(coreLsListForDpa, 16);
VELMAR_FIELD(coreLsListForDpa, array, 0);
VELMAR_FIELD(coreLsListForDpa, reserved, 4);
VELMAR_FIELD(coreLsListForDpa, count, 8);
VELMAR_FIELD(coreLsListForDpa, list, 12);

/// The engine changed a study on its own.
struct coreUpdateLsData {
    mvDataPointArray *array;
    void *handle;
    int shapeCount;
    int controlPointCount;
};
VELMAR_RECORD(coreUpdateLsData, 16);
VELMAR_FIELD(coreUpdateLsData, array, 0);
VELMAR_FIELD(coreUpdateLsData, handle, 4);
VELMAR_FIELD(coreUpdateLsData, shapeCount, 8);
VELMAR_FIELD(coreUpdateLsData, controlPointCount, 12);

#pragma pack(pop)
