#pragma once
// Calculated objects: making them, naming them, and what they tell about themselves.
#include "module/records/Arrays.h"
#include "module/records/Trees.h"

class CRGraphWidget;

#pragma pack(push, 1)

/// A chart window of this module, as the host knows it.
struct coreChartWindow {
    Word interfaceHandle;
    CRGraphWidget *widget;
};
VELMAR_RECORD(coreChartWindow, 8);
VELMAR_FIELD(coreChartWindow, interfaceHandle, 0);
VELMAR_FIELD(coreChartWindow, widget, 4);

struct coreDemandsIndicator {
    Word parameter; ///< interface handle of the maker, or the caller's parameter
    coreNameInstrument sNameInstrument;
    void *handle; ///< out; 0 is a refusal
    Word flag;
    Word reserved;
    Word nSzNumber;
    coreSzNode node;
    Word nodeReserved;
};
VELMAR_RECORD(coreDemandsIndicator, 806);
VELMAR_FIELD(coreDemandsIndicator, parameter, 0);
VELMAR_FIELD(coreDemandsIndicator, sNameInstrument, 4);
VELMAR_FIELD(coreDemandsIndicator, handle, 778);
VELMAR_FIELD(coreDemandsIndicator, flag, 782);
VELMAR_FIELD(coreDemandsIndicator, reserved, 786);
VELMAR_FIELD(coreDemandsIndicator, nSzNumber, 790);
VELMAR_FIELD(coreDemandsIndicator, node, 794);
VELMAR_FIELD(coreDemandsIndicator, nodeReserved, 802);

struct coreIndicatorIdentity {
    CORE_OBJECT_SYSTEM sInterfaceObject;
    coreNameInterface sNameInterface;
    coreNameInstrument sNameInstrument;
    Word nSzNumber;
    Word m_nLevelDpa; ///< 0 for an object without a source
};
VELMAR_RECORD(coreIndicatorIdentity, 1555);
VELMAR_FIELD(coreIndicatorIdentity, sInterfaceObject, 0);
VELMAR_FIELD(coreIndicatorIdentity, sNameInterface, 8);
VELMAR_FIELD(coreIndicatorIdentity, sNameInstrument, 773);
VELMAR_FIELD(coreIndicatorIdentity, nSzNumber, 1547);
VELMAR_FIELD(coreIndicatorIdentity, m_nLevelDpa, 1551);

enum coreUpdateKind : int { coreUpdatePoints = 0, coreUpdateArrays = 1, coreUpdateDisplay = 2 };

struct coreCoreUpdateDpaData {
    coreNameInstrument identity;
    void *owner;
    Word reserved;
    CRGraphWidget *widget;
    int updateKind;
};
VELMAR_RECORD(coreCoreUpdateDpaData, 790);
VELMAR_FIELD(coreCoreUpdateDpaData, identity, 0);
VELMAR_FIELD(coreCoreUpdateDpaData, owner, 774);
VELMAR_FIELD(coreCoreUpdateDpaData, reserved, 778);
VELMAR_FIELD(coreCoreUpdateDpaData, widget, 782);
VELMAR_FIELD(coreCoreUpdateDpaData, updateKind, 786);

/// The outputs of an object have changed.
struct coreRebuildDpa {
    void *handle;
    Word reserved;
    int count;
    mvDataPointArray **arrays;
};
VELMAR_RECORD(coreRebuildDpa, 16);
VELMAR_FIELD(coreRebuildDpa, handle, 0);
VELMAR_FIELD(coreRebuildDpa, reserved, 4);
VELMAR_FIELD(coreRebuildDpa, count, 8);
VELMAR_FIELD(coreRebuildDpa, arrays, 12);

struct coreRenameDpa {
    void *handle;
    coreNameInstrument identity;
};
VELMAR_RECORD(coreRenameDpa, 778);
VELMAR_FIELD(coreRenameDpa, handle, 0);
VELMAR_FIELD(coreRenameDpa, identity, 4);

/// Joins two lines of an object; line numbers count from 1.
struct coreIndicatorLinks {
    Word opaque;
    Word fill; ///< 0 vertical strokes between the lines, 1 filled area
    int firstLine;
    int secondLine;
    Word colorMode; ///< 0 first line's, 1 second line's, 2 that of the higher line
};
VELMAR_RECORD(coreIndicatorLinks, 20);
VELMAR_FIELD(coreIndicatorLinks, opaque, 0);
VELMAR_FIELD(coreIndicatorLinks, fill, 4);
VELMAR_FIELD(coreIndicatorLinks, firstLine, 8);
VELMAR_FIELD(coreIndicatorLinks, secondLine, 12);
VELMAR_FIELD(coreIndicatorLinks, colorMode, 16);

struct coreListIndicatorLinks {
    int count;
    coreIndicatorLinks *links;
};
VELMAR_RECORD(coreListIndicatorLinks, 8);
VELMAR_FIELD(coreListIndicatorLinks, count, 0);
VELMAR_FIELD(coreListIndicatorLinks, links, 4);

constexpr int maxHorizontLevels = 64;

struct coreHorizontLine {
    int line; ///< counts from 1
    int count;
    Word color;
    float levels[maxHorizontLevels];
};
VELMAR_RECORD(coreHorizontLine, 268);
VELMAR_FIELD(coreHorizontLine, line, 0);
VELMAR_FIELD(coreHorizontLine, count, 4);
VELMAR_FIELD(coreHorizontLine, color, 8);
VELMAR_FIELD(coreHorizontLine, levels, 12);

struct coreBoundLine {
    Word line; ///< counts from 1
    mvDataPointArray *array; ///< out
};
VELMAR_RECORD(coreBoundLine, 8);
VELMAR_FIELD(coreBoundLine, line, 0);
VELMAR_FIELD(coreBoundLine, array, 4);

/// The chain of an object's sources: handles as words, ended by zero, in `buffer`. With a null buffer
/// the host puts the nearest source's handle there.
struct coreFullPathHandle {
    char *buffer;
    Word size;
};
VELMAR_RECORD(coreFullPathHandle, 8);
VELMAR_FIELD(coreFullPathHandle, buffer, 0);
VELMAR_FIELD(coreFullPathHandle, size, 4);

struct coreAlertRequest {
    coreNameInstrument identity;
    unsigned char reserved[2];
};
VELMAR_RECORD(coreAlertRequest, 776);
VELMAR_FIELD(coreAlertRequest, identity, 0);
VELMAR_FIELD(coreAlertRequest, reserved, 774);

/// One entry of the catalogue of indicators.
struct INDICATOR_DESCRIPTION {
    unsigned short displayName[255];
    coreNameInstrument name; ///< the internal name stands in the symbol
    Word category;
};
VELMAR_RECORD(INDICATOR_DESCRIPTION, 1288);
VELMAR_FIELD(INDICATOR_DESCRIPTION, displayName, 0);
VELMAR_FIELD(INDICATOR_DESCRIPTION, name, 510);
VELMAR_FIELD(INDICATOR_DESCRIPTION, category, 1284);

struct coreIndicatorCatalogue {
    int count;
    INDICATOR_DESCRIPTION *descriptions;
};
VELMAR_RECORD(coreIndicatorCatalogue, 8);
VELMAR_FIELD(coreIndicatorCatalogue, count, 0);
VELMAR_FIELD(coreIndicatorCatalogue, descriptions, 4);

/// A symbol of a dealing report.
struct coreReportSymbol {
    unsigned short symbol[255];
    Word reserved;
};
VELMAR_RECORD(coreReportSymbol, 514);
VELMAR_FIELD(coreReportSymbol, symbol, 0);
VELMAR_FIELD(coreReportSymbol, reserved, 510);

struct coreReportSymbolList {
    int count;
    coreReportSymbol *symbols;
};
VELMAR_RECORD(coreReportSymbolList, 8);
VELMAR_FIELD(coreReportSymbolList, count, 0);
VELMAR_FIELD(coreReportSymbolList, symbols, 4);

#pragma pack(pop)
