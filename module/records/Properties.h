#pragma once
// Property pages: items, groups, pages, and the value record of each item type.
#include "module/records/Names.h"

#pragma pack(push, 1)

enum PropertyType : Word {
    PropertyTypeInt = 0,
    PropertyTypeDouble = 1,
    PropertyTypeString = 2,
    PropertyTypeColor = 3,
    PropertyTypeFont = 4,
    PropertyTypeList = 5,
    PropertyTypeDateTime = 6,
    PropertyTypeBoolean = 7,
    PropertyTypeWidget = 8
};

struct PROPERTY {
    Word type;
    unsigned short name[255];
    unsigned short description[1024];
    void *value;
    Word reserved1;
    Word group;
    Word index;
    unsigned char readOnly;
    unsigned char reserved2[3];
};
VELMAR_RECORD(PROPERTY, 2582);
VELMAR_FIELD(PROPERTY, type, 0);
VELMAR_FIELD(PROPERTY, name, 4);
VELMAR_FIELD(PROPERTY, description, 514);
VELMAR_FIELD(PROPERTY, value, 2562);
VELMAR_FIELD(PROPERTY, reserved1, 2566);
VELMAR_FIELD(PROPERTY, group, 2570);
VELMAR_FIELD(PROPERTY, index, 2574);
VELMAR_FIELD(PROPERTY, readOnly, 2578);
VELMAR_FIELD(PROPERTY, reserved2, 2579);

/// The item array of a group.
using LIST_PROPERTY = PROPERTY *;

struct PROPERTY_GROUP {
    unsigned short name[255];
    Word reserved;
    Word index;
    Word count;
    LIST_PROPERTY *items;
    Word created; ///< 1
};
VELMAR_RECORD(PROPERTY_GROUP, 530);
VELMAR_FIELD(PROPERTY_GROUP, name, 0);
VELMAR_FIELD(PROPERTY_GROUP, reserved, 510);
VELMAR_FIELD(PROPERTY_GROUP, index, 514);
VELMAR_FIELD(PROPERTY_GROUP, count, 518);
VELMAR_FIELD(PROPERTY_GROUP, items, 522);
VELMAR_FIELD(PROPERTY_GROUP, created, 526);

struct PROPERTY_PAGE {
    unsigned short title[255];
    unsigned short firstText[1024];
    Word pageId;
    CORE_OBJECT_SYSTEM system;
    unsigned short secondText[1024];
    Word groupCount;
    PROPERTY_GROUP *groups;
};
VELMAR_RECORD(PROPERTY_PAGE, 4626);
VELMAR_FIELD(PROPERTY_PAGE, title, 0);
VELMAR_FIELD(PROPERTY_PAGE, firstText, 510);
VELMAR_FIELD(PROPERTY_PAGE, pageId, 2558);
VELMAR_FIELD(PROPERTY_PAGE, system, 2562);
VELMAR_FIELD(PROPERTY_PAGE, secondText, 2570);
VELMAR_FIELD(PROPERTY_PAGE, groupCount, 4618);
VELMAR_FIELD(PROPERTY_PAGE, groups, 4622);

/// The user changed a page. A closing page has no data.
struct PROPERTY_CHANGE {
    Word interfaceHandle;
    void *owner;
    PROPERTY_PAGE *page;
};
VELMAR_RECORD(PROPERTY_CHANGE, 12);
VELMAR_FIELD(PROPERTY_CHANGE, interfaceHandle, 0);
VELMAR_FIELD(PROPERTY_CHANGE, owner, 4);
VELMAR_FIELD(PROPERTY_CHANGE, page, 8);

// ---- value records ----

struct propertyInt {
    int value;
    int minimum;
    int maximum;
};
VELMAR_RECORD(propertyInt, 12);
VELMAR_FIELD(propertyInt, value, 0);
VELMAR_FIELD(propertyInt, minimum, 4);
VELMAR_FIELD(propertyInt, maximum, 8);

struct propertyDouble {
    double value;
    double step;
    double minimum;
    double maximum;
    int digits;
};
VELMAR_RECORD(propertyDouble, 36);
VELMAR_FIELD(propertyDouble, value, 0);
VELMAR_FIELD(propertyDouble, step, 8);
VELMAR_FIELD(propertyDouble, minimum, 16);
VELMAR_FIELD(propertyDouble, maximum, 24);
VELMAR_FIELD(propertyDouble, digits, 32);

struct propertyString {
    unsigned short text[1024];
};
VELMAR_RECORD(propertyString, 2048);
VELMAR_FIELD(propertyString, text, 0);

struct propertyColor {
    Word rgb;
};
VELMAR_RECORD(propertyColor, 4);
VELMAR_FIELD(propertyColor, rgb, 0);

struct propertyFont {
    unsigned short family[1024];
    int pointSize;
    int weight;
    int italic;
};
VELMAR_RECORD(propertyFont, 2060);
VELMAR_FIELD(propertyFont, family, 0);
VELMAR_FIELD(propertyFont, pointSize, 2048);
VELMAR_FIELD(propertyFont, weight, 2052);
VELMAR_FIELD(propertyFont, italic, 2056);

struct propertyListEntry {
    unsigned short text[255];
};
VELMAR_RECORD(propertyListEntry, 510);
VELMAR_FIELD(propertyListEntry, text, 0);

struct propertyList {
    int count;
    int selected;
    propertyListEntry *entries;
};
VELMAR_RECORD(propertyList, 12);
VELMAR_FIELD(propertyList, count, 0);
VELMAR_FIELD(propertyList, selected, 4);
VELMAR_FIELD(propertyList, entries, 8);

struct propertyDateTime {
    Word time;
};
VELMAR_RECORD(propertyDateTime, 4);
VELMAR_FIELD(propertyDateTime, time, 0);

struct propertyBoolean {
    unsigned char value;
};
VELMAR_RECORD(propertyBoolean, 1);
VELMAR_FIELD(propertyBoolean, value, 0);

struct propertyWidget {
    Word windowId; ///< set by the host
    int width;
    int height;
};
VELMAR_RECORD(propertyWidget, 12);
VELMAR_FIELD(propertyWidget, windowId, 0);
VELMAR_FIELD(propertyWidget, width, 4);
VELMAR_FIELD(propertyWidget, height, 8);

#pragma pack(pop)
