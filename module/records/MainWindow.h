#pragma once
// What the main window and the status bar exchange with a chart.
#include "module/records/Words.h"

#pragma pack(push, 1)

struct mwiStateLsButton {
    Word armed;
    char name[255];
    Word interfaceHandle; ///< 0: the module's own look-up
    unsigned char reserved;
};
VELMAR_RECORD(mwiStateLsButton, 264);
VELMAR_FIELD(mwiStateLsButton, armed, 0);
VELMAR_FIELD(mwiStateLsButton, name, 4);
VELMAR_FIELD(mwiStateLsButton, interfaceHandle, 259);
VELMAR_FIELD(mwiStateLsButton, reserved, 263);

struct mwiDealingRequest {
    Word message;
    Word size;
    void *record;
};
VELMAR_RECORD(mwiDealingRequest, 12);
VELMAR_FIELD(mwiDealingRequest, message, 0);
VELMAR_FIELD(mwiDealingRequest, size, 4);
VELMAR_FIELD(mwiDealingRequest, record, 8);

struct mwiPanelState {
    int kind;
    int item;
};
VELMAR_RECORD(mwiPanelState, 8);
VELMAR_FIELD(mwiPanelState, kind, 0);
VELMAR_FIELD(mwiPanelState, item, 4);

struct mwiConvert {
    Word needed;
    Word type; ///< 0 "Middle", 1 "Bid", 3 no conversion
};
VELMAR_RECORD(mwiConvert, 8);
VELMAR_FIELD(mwiConvert, needed, 0);
VELMAR_FIELD(mwiConvert, type, 4);

/// An answer list with room for at least one more answer.
struct mwiConvertList {
    Word count;
    mwiConvert answers[1];
};
VELMAR_RECORD(mwiConvertList, 12);
VELMAR_FIELD(mwiConvertList, count, 0);
VELMAR_FIELD(mwiConvertList, answers, 4);

/// The host's number format. Groups: 1 a comma, else a space. Decimals: 1 a comma, else a point.
struct mwiSeparators {
    Word groupSeparator;
    Word decimalPoint;
};
VELMAR_RECORD(mwiSeparators, 8);
VELMAR_FIELD(mwiSeparators, groupSeparator, 0);
VELMAR_FIELD(mwiSeparators, decimalPoint, 4);

struct mwiLocatorMessageItem {
    unsigned short text[1024];
    Word color;
    Word fontSize;
};
VELMAR_RECORD(mwiLocatorMessageItem, 2056);
VELMAR_FIELD(mwiLocatorMessageItem, text, 0);
VELMAR_FIELD(mwiLocatorMessageItem, color, 2048);
VELMAR_FIELD(mwiLocatorMessageItem, fontSize, 2052);

struct mwiLocatorMessage {
    int count;
    mwiLocatorMessageItem *items;
    Word background;
};
VELMAR_RECORD(mwiLocatorMessage, 12);
VELMAR_FIELD(mwiLocatorMessage, count, 0);
VELMAR_FIELD(mwiLocatorMessage, items, 4);
VELMAR_FIELD(mwiLocatorMessage, background, 8);

using mwiLocatorFunction = void (*)(const mwiLocatorMessage *);

/// A pane of the status bar; windowId is the answer, the id of a QLabel.
struct mwiStatusPane {
    Word coreHandle;
    void *statusObject;
    Word windowId;
    Word kind;
    Word paneId;
    Word width;
};
VELMAR_RECORD(mwiStatusPane, 24);
VELMAR_FIELD(mwiStatusPane, coreHandle, 0);
VELMAR_FIELD(mwiStatusPane, statusObject, 4);
VELMAR_FIELD(mwiStatusPane, windowId, 8);
VELMAR_FIELD(mwiStatusPane, kind, 12);
VELMAR_FIELD(mwiStatusPane, paneId, 16);
VELMAR_FIELD(mwiStatusPane, width, 20);

#pragma pack(pop)
