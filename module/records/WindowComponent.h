#pragma once
// Chart windows as components of the host's window, and what is dragged onto them.
#include "module/records/Arrays.h"

class CRGraphWidget;

#pragma pack(push, 1)

struct mvwcCreateData {
    Word parent; ///< window id
    Word toolBarParent; ///< window id
    CRGraphWidget *widget; ///< out
    Word kind; ///< 1 is a strategy tester chart
};
VELMAR_RECORD(mvwcCreateData, 16);
VELMAR_FIELD(mvwcCreateData, parent, 0);
VELMAR_FIELD(mvwcCreateData, toolBarParent, 4);
VELMAR_FIELD(mvwcCreateData, widget, 8);
VELMAR_FIELD(mvwcCreateData, kind, 12);

constexpr Word mvwcTemplateItem = 5;

struct mvwcDpaItem {
    void *handle;
    unsigned short shortName[255];
    coreNameInstrument instrument; ///< the symbol of a template is its full path
    Word kind;
    int parameter;
};
VELMAR_RECORD(mvwcDpaItem, 1296);
VELMAR_FIELD(mvwcDpaItem, handle, 0);
VELMAR_FIELD(mvwcDpaItem, shortName, 4);
VELMAR_FIELD(mvwcDpaItem, instrument, 514);
VELMAR_FIELD(mvwcDpaItem, kind, 1288);
VELMAR_FIELD(mvwcDpaItem, parameter, 1292);

struct mvwcDpaList {
    int count;
    mvwcDpaItem *items;
};
VELMAR_RECORD(mvwcDpaList, 8);
VELMAR_FIELD(mvwcDpaList, count, 0);
VELMAR_FIELD(mvwcDpaList, items, 4);

struct mvwcGetOwnerForObj {
    Word reserved;
    void *object; ///< the object in question, or a chart window
    Word interfaceHandle; ///< out
    CRGraphWidget *widget; ///< out
};
VELMAR_RECORD(mvwcGetOwnerForObj, 16);
VELMAR_FIELD(mvwcGetOwnerForObj, reserved, 0);
VELMAR_FIELD(mvwcGetOwnerForObj, object, 4);
VELMAR_FIELD(mvwcGetOwnerForObj, interfaceHandle, 8);
VELMAR_FIELD(mvwcGetOwnerForObj, widget, 12);

struct mvwcSelectObj {
    Word interfaceHandle;
    Word object;
    unsigned char result;
};
VELMAR_RECORD(mvwcSelectObj, 9);
VELMAR_FIELD(mvwcSelectObj, interfaceHandle, 0);
VELMAR_FIELD(mvwcSelectObj, object, 4);
VELMAR_FIELD(mvwcSelectObj, result, 8);

/// Name and icon in 8 bits. The room behind `icon` is not told.
struct mvwcNameDataComponent {
    char name[500];
    char end;
    unsigned char reserved[3];
    void *icon;
    Word iconSize; ///< out
};
VELMAR_RECORD(mvwcNameDataComponent, 512);
VELMAR_FIELD(mvwcNameDataComponent, name, 0);
VELMAR_FIELD(mvwcNameDataComponent, end, 500);
VELMAR_FIELD(mvwcNameDataComponent, reserved, 501);
VELMAR_FIELD(mvwcNameDataComponent, icon, 504);
VELMAR_FIELD(mvwcNameDataComponent, iconSize, 508);

/// The same in 16 bits.
struct mvwcUNameDataComponent {
    unsigned short name[500];
    Word end;
    void *icon;
    int iconSize; ///< room going in, size coming out
};
VELMAR_RECORD(mvwcUNameDataComponent, 1012);
VELMAR_FIELD(mvwcUNameDataComponent, name, 0);
VELMAR_FIELD(mvwcUNameDataComponent, end, 1000);
VELMAR_FIELD(mvwcUNameDataComponent, icon, 1004);
VELMAR_FIELD(mvwcUNameDataComponent, iconSize, 1008);

struct stEventLine {
    int time;
};
VELMAR_RECORD(stEventLine, 4);
VELMAR_FIELD(stEventLine, time, 0);

struct stDealLine {
    int openTime;
    float openValue;
    int closeTime;
    float closeValue;
};
VELMAR_RECORD(stDealLine, 16);
VELMAR_FIELD(stDealLine, openTime, 0);
VELMAR_FIELD(stDealLine, openValue, 4);
VELMAR_FIELD(stDealLine, closeTime, 8);
VELMAR_FIELD(stDealLine, closeValue, 12);

// ---- drag and drop ----

using mvDropEntry = mvwcDpaItem;
using mvDropList = mvwcDpaList;

struct mvDNDStruct {
    char type[255]; ///< "kalto/primitive", compared over 16 bytes
    unsigned char done;
    mvDataPointArray *dpa;
};
VELMAR_RECORD(mvDNDStruct, 260);
VELMAR_FIELD(mvDNDStruct, type, 0);
VELMAR_FIELD(mvDNDStruct, done, 255);
VELMAR_FIELD(mvDNDStruct, dpa, 256);

/// Followed by `count` mvDNDStruct.
struct mvDragHeader {
    Word target; ///< the handle that message 5014 goes to
    CRGraphWidget *source;
    int count;
};
VELMAR_RECORD(mvDragHeader, 12);
VELMAR_FIELD(mvDragHeader, target, 0);
VELMAR_FIELD(mvDragHeader, source, 4);
VELMAR_FIELD(mvDragHeader, count, 8);

#pragma pack(pop)
