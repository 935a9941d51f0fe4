#pragma once
// Accounts, positions, orders and the day-off table of the dealing side.
#include "module/records/MainWindow.h"

#pragma pack(push, 1)

struct mvdDealAccount {
    Word interfaceHandle;
    Word account;
    char name[32];
    char balance[260];
};
VELMAR_RECORD(mvdDealAccount, 300);
VELMAR_FIELD(mvdDealAccount, interfaceHandle, 0);
VELMAR_FIELD(mvdDealAccount, account, 4);
VELMAR_FIELD(mvdDealAccount, name, 8);
VELMAR_FIELD(mvdDealAccount, balance, 40);

struct mvdPosition {
    Word account;
    Word handle;
    char symbol[17];
    unsigned char digits;
    unsigned char reserved1;
    char displaySymbol[24];
    float volume; ///< positive bought, negative sold
    float price;
    char reserved2[4];
};
VELMAR_RECORD(mvdPosition, 63);
VELMAR_FIELD(mvdPosition, account, 0);
VELMAR_FIELD(mvdPosition, handle, 4);
VELMAR_FIELD(mvdPosition, symbol, 8);
VELMAR_FIELD(mvdPosition, digits, 25);
VELMAR_FIELD(mvdPosition, reserved1, 26);
VELMAR_FIELD(mvdPosition, displaySymbol, 27);
VELMAR_FIELD(mvdPosition, volume, 51);
VELMAR_FIELD(mvdPosition, price, 55);
VELMAR_FIELD(mvdPosition, reserved2, 59);

struct mvdOrder {
    Word account;
    Word handle;
    Word id;
    char symbol[17];
    unsigned char digits;
    unsigned char reserved1;
    char displaySymbol[24];
    float volume;
    float price;
    unsigned char reserved2;
    unsigned char status; ///< 1 active, 2 done, 3 cancelled, 4 standby
    char reserved3[4];
    Word firstLink;
    Word secondLink;
    unsigned char kind; ///< with bit value 2 cleared: 1 limit, else stop
    char reserved4[4];
};
VELMAR_RECORD(mvdOrder, 82);
VELMAR_FIELD(mvdOrder, account, 0);
VELMAR_FIELD(mvdOrder, handle, 4);
VELMAR_FIELD(mvdOrder, id, 8);
VELMAR_FIELD(mvdOrder, symbol, 12);
VELMAR_FIELD(mvdOrder, digits, 29);
VELMAR_FIELD(mvdOrder, reserved1, 30);
VELMAR_FIELD(mvdOrder, displaySymbol, 31);
VELMAR_FIELD(mvdOrder, volume, 55);
VELMAR_FIELD(mvdOrder, price, 59);
VELMAR_FIELD(mvdOrder, reserved2, 63);
VELMAR_FIELD(mvdOrder, status, 64);
VELMAR_FIELD(mvdOrder, reserved3, 65);
VELMAR_FIELD(mvdOrder, firstLink, 69);
VELMAR_FIELD(mvdOrder, secondLink, 73);
VELMAR_FIELD(mvdOrder, kind, 77);
VELMAR_FIELD(mvdOrder, reserved4, 78);

struct mvdChangePos {
    Word account;
    Word positionId;
    char symbol[20];
    Word command; ///< 0 change, 1 delete
    Word reserved;
};
VELMAR_RECORD(mvdChangePos, 36);
VELMAR_FIELD(mvdChangePos, account, 0);
VELMAR_FIELD(mvdChangePos, positionId, 4);
VELMAR_FIELD(mvdChangePos, symbol, 8);
VELMAR_FIELD(mvdChangePos, command, 28);
VELMAR_FIELD(mvdChangePos, reserved, 32);

struct mvdChangeOrder {
    Word account;
    Word orderId;
    char symbol[20];
    Word command; ///< 1 change, 2 delete
    float price;
    Word reserved;
};
VELMAR_RECORD(mvdChangeOrder, 40);
VELMAR_FIELD(mvdChangeOrder, account, 0);
VELMAR_FIELD(mvdChangeOrder, orderId, 4);
VELMAR_FIELD(mvdChangeOrder, symbol, 8);
VELMAR_FIELD(mvdChangeOrder, command, 28);
VELMAR_FIELD(mvdChangeOrder, price, 32);
VELMAR_FIELD(mvdChangeOrder, reserved, 36);

struct mvdAccountProperty {
    mwiSeparators separators;
    Word showInLots;
    double lotSize;
};
VELMAR_RECORD(mvdAccountProperty, 20);
VELMAR_FIELD(mvdAccountProperty, separators, 0);
VELMAR_FIELD(mvdAccountProperty, showInLots, 8);
VELMAR_FIELD(mvdAccountProperty, lotSize, 12);

/// {count, buffer}, the list form of the dealing family.
struct mvdList {
    int count;
    void *records;
};
VELMAR_RECORD(mvdList, 8);
VELMAR_FIELD(mvdList, count, 0);
VELMAR_FIELD(mvdList, records, 4);

struct mvdDayOff {
    char symbol[19];
    Word dayOff;
    char reserved[8];
};
VELMAR_RECORD(mvdDayOff, 31);
VELMAR_FIELD(mvdDayOff, symbol, 0);
VELMAR_FIELD(mvdDayOff, dayOff, 19);
VELMAR_FIELD(mvdDayOff, reserved, 23);

#pragma pack(pop)
