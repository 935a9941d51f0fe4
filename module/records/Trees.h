#pragma once
// Host trees: nodes, parameters, and trees as bytes.
#include "module/records/Words.h"

#pragma pack(push, 1)

struct coreSzNode {
    Word root;
    Word node;
};
VELMAR_RECORD(coreSzNode, 8);
VELMAR_FIELD(coreSzNode, root, 0);
VELMAR_FIELD(coreSzNode, node, 4);

struct coreSzOpenTree {
    unsigned short path[255];
    Word root; ///< out; 0 when it could not be opened
};
VELMAR_RECORD(coreSzOpenTree, 514);
VELMAR_FIELD(coreSzOpenTree, path, 0);
VELMAR_FIELD(coreSzOpenTree, root, 510);

struct coreSzNodeRequest {
    Word root;
    Word parent; ///< 0 is the top of the tree
    Word flag; ///< 0 find or create, 1 always one more child of that name
    char name[255];
    Word node; ///< out; 0 is a failure
};
VELMAR_RECORD(coreSzNodeRequest, 271);
VELMAR_FIELD(coreSzNodeRequest, root, 0);
VELMAR_FIELD(coreSzNodeRequest, parent, 4);
VELMAR_FIELD(coreSzNodeRequest, flag, 8);
VELMAR_FIELD(coreSzNodeRequest, name, 12);
VELMAR_FIELD(coreSzNodeRequest, node, 267);

/// The value of a parameter: inline, or an address in the first bytes.
union coreSzValue {
    unsigned short text[255];
    unsigned short *pointer;
};
VELMAR_RECORD(coreSzValue, 510);

struct coreSzParam {
    char name[255];
    coreSzValue value;
    Word capacity; ///< in UTF-16 units
    Word isInline; ///< 1 inline, 0 pointer
    Word kind; ///< 0 attribute, 1 child node
    Word handle;
};
VELMAR_RECORD(coreSzParam, 781);
VELMAR_FIELD(coreSzParam, name, 0);
VELMAR_FIELD(coreSzParam, value, 255);
VELMAR_FIELD(coreSzParam, capacity, 765);
VELMAR_FIELD(coreSzParam, isInline, 769);
VELMAR_FIELD(coreSzParam, kind, 773);
VELMAR_FIELD(coreSzParam, handle, 777);

struct coreSzParamList {
    Word count;
    coreSzParam *params;
};
VELMAR_RECORD(coreSzParamList, 8);
VELMAR_FIELD(coreSzParamList, count, 0);
VELMAR_FIELD(coreSzParamList, params, 4);

/// Lengths in UTF-16 units, without terminator.
struct coreSzLengthList {
    Word count;
    Word *lengths;
};
VELMAR_RECORD(coreSzLengthList, 8);
VELMAR_FIELD(coreSzLengthList, count, 0);
VELMAR_FIELD(coreSzLengthList, lengths, 4);

struct coreCopyBuffer {
    Word size;
    void *data;
    Word root;
};
VELMAR_RECORD(coreCopyBuffer, 12);
VELMAR_FIELD(coreCopyBuffer, size, 0);
VELMAR_FIELD(coreCopyBuffer, data, 4);
VELMAR_FIELD(coreCopyBuffer, root, 8);

/// An object and the node its state goes into or comes from.
struct coreStateNode {
    Word handle;
    coreSzNode node;
};
VELMAR_RECORD(coreStateNode, 12);
VELMAR_FIELD(coreStateNode, handle, 0);
VELMAR_FIELD(coreStateNode, node, 4);

/// The same as templates and the tester write it.
struct coreStateNodeExtended {
    Word handle;
    coreSzNode node;
    Word reserved;
};
VELMAR_RECORD(coreStateNodeExtended, 16);
VELMAR_FIELD(coreStateNodeExtended, handle, 0);
VELMAR_FIELD(coreStateNodeExtended, node, 4);
VELMAR_FIELD(coreStateNodeExtended, reserved, 12);

struct coreStCopyPasteData {
    Word root;
    Word node;
    Word reserved;
    Word mode;
};
VELMAR_RECORD(coreStCopyPasteData, 16);
VELMAR_FIELD(coreStCopyPasteData, root, 0);
VELMAR_FIELD(coreStCopyPasteData, node, 4);
VELMAR_FIELD(coreStCopyPasteData, reserved, 8);
VELMAR_FIELD(coreStCopyPasteData, mode, 12);

#pragma pack(pop)
