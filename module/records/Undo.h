#pragma once
// Undo steps, which the host keeps and the module fills.
#include "module/records/Words.h"

class CRGraphWidget;

#pragma pack(push, 1)

struct coreUndoObject {
    Word interfaceHandle;
    Word handle;
    Word token;
};
VELMAR_RECORD(coreUndoObject, 12);
VELMAR_FIELD(coreUndoObject, interfaceHandle, 0);
VELMAR_FIELD(coreUndoObject, handle, 4);
VELMAR_FIELD(coreUndoObject, token, 8);

struct coreUndoHead {
    char reserved[8];
    unsigned short title[255];
    Word component;
    CRGraphWidget *widget;
    Word undoId; ///< this and the rest are filled by the host
    Word root;
    Word objectCount;
    coreUndoObject *objects;
};
VELMAR_RECORD(coreUndoHead, 542);
VELMAR_FIELD(coreUndoHead, reserved, 0);
VELMAR_FIELD(coreUndoHead, title, 8);
VELMAR_FIELD(coreUndoHead, component, 518);
VELMAR_FIELD(coreUndoHead, widget, 522);
VELMAR_FIELD(coreUndoHead, undoId, 526);
VELMAR_FIELD(coreUndoHead, root, 530);
VELMAR_FIELD(coreUndoHead, objectCount, 534);
VELMAR_FIELD(coreUndoHead, objects, 538);

struct coreUndoStart {
    Word undoId;
    Word root;
    Word component;
    CRGraphWidget *widget;
    Word objectCount;
    coreUndoObject *objects;
};
VELMAR_RECORD(coreUndoStart, 24);
VELMAR_FIELD(coreUndoStart, undoId, 0);
VELMAR_FIELD(coreUndoStart, root, 4);
VELMAR_FIELD(coreUndoStart, component, 8);
VELMAR_FIELD(coreUndoStart, widget, 12);
VELMAR_FIELD(coreUndoStart, objectCount, 16);
VELMAR_FIELD(coreUndoStart, objects, 20);

struct coreUndoResult {
    char reserved[510];
    Word undoId;
    Word component;
    CRGraphWidget *widget;
};
VELMAR_RECORD(coreUndoResult, 522);
VELMAR_FIELD(coreUndoResult, reserved, 0);
VELMAR_FIELD(coreUndoResult, undoId, 510);
VELMAR_FIELD(coreUndoResult, component, 514);
VELMAR_FIELD(coreUndoResult, widget, 518);

struct coreUndoRefresh {
    Word undoId;
    Word oldInterface;
    Word oldHandle;
    Word newInterface;
    Word newHandle;
    Word nodeIndex;
};
VELMAR_RECORD(coreUndoRefresh, 24);
VELMAR_FIELD(coreUndoRefresh, undoId, 0);
VELMAR_FIELD(coreUndoRefresh, oldInterface, 4);
VELMAR_FIELD(coreUndoRefresh, oldHandle, 8);
VELMAR_FIELD(coreUndoRefresh, newInterface, 12);
VELMAR_FIELD(coreUndoRefresh, newHandle, 16);
VELMAR_FIELD(coreUndoRefresh, nodeIndex, 20);

/// A user's action, told to the host in words. All zero: the desktop changed.
struct coreUndoMilestone {
    unsigned char reserved[4];
    char text[255];
};
VELMAR_RECORD(coreUndoMilestone, 259);
VELMAR_FIELD(coreUndoMilestone, reserved, 0);
VELMAR_FIELD(coreUndoMilestone, text, 4);

#pragma pack(pop)
