#pragma once
// Names of services, objects and series.
#include "module/records/Words.h"

#pragma pack(push, 1)

/// The module's card, copied to the host as it stands.
struct MODULE_INFO {
    char name[255];
    char description[255];
    char reserved1[769];
    Word number3;
    Word number2;
    Word number1;
    Word kind;
    char translateContext[20];
    Word category;
    char reserved2[996];
};
VELMAR_RECORD(MODULE_INFO, 2315);
VELMAR_FIELD(MODULE_INFO, name, 0);
VELMAR_FIELD(MODULE_INFO, description, 255);
VELMAR_FIELD(MODULE_INFO, reserved1, 510);
VELMAR_FIELD(MODULE_INFO, number3, 1279);
VELMAR_FIELD(MODULE_INFO, number2, 1283);
VELMAR_FIELD(MODULE_INFO, number1, 1287);
VELMAR_FIELD(MODULE_INFO, kind, 1291);
VELMAR_FIELD(MODULE_INFO, translateContext, 1295);
VELMAR_FIELD(MODULE_INFO, category, 1315);
VELMAR_FIELD(MODULE_INFO, reserved2, 1319);

/// A host service by name: kind, provider, object.
struct coreNameInterface {
    char nameIntreface[255];
    char nameProvider[255];
    char nameObject[255];
};
VELMAR_RECORD(coreNameInterface, 765);
VELMAR_FIELD(coreNameInterface, nameIntreface, 0);
VELMAR_FIELD(coreNameInterface, nameProvider, 255);
VELMAR_FIELD(coreNameInterface, nameObject, 510);

/// The same as a request. Finding: mode is the room in handles, result their address.
/// Registering: mode is the component handle, result the module going in and its handle coming out.
struct coreNameInterfaceRequest {
    coreNameInterface names;
    Word mode;
    Word result;
};
VELMAR_RECORD(coreNameInterfaceRequest, 773);
VELMAR_FIELD(coreNameInterfaceRequest, names, 0);
VELMAR_FIELD(coreNameInterfaceRequest, mode, 765);
VELMAR_FIELD(coreNameInterfaceRequest, result, 769);

struct CORE_OBJECT_SYSTEM {
    Word m_if;
    Word m_object;
};
VELMAR_RECORD(CORE_OBJECT_SYSTEM, 8);
VELMAR_FIELD(CORE_OBJECT_SYSTEM, m_if, 0);
VELMAR_FIELD(CORE_OBJECT_SYSTEM, m_object, 4);

struct namePeriod {
    char period; ///< "I" intraday, "D", "W", "M", "Y"
    int lenPeriod; ///< in units; "I" counts minutes, 0 of them is ticks
    int startTime;
};
VELMAR_RECORD(namePeriod, 9);
VELMAR_FIELD(namePeriod, period, 0);
VELMAR_FIELD(namePeriod, lenPeriod, 1);
VELMAR_FIELD(namePeriod, startTime, 5);

/// One data series: symbol, data type ("Bid", "Ask", "Middle"), period.
struct coreNameInstrument {
    unsigned short m_szNameSymbol[255];
    char m_szType[255];
    namePeriod m_periods;
};
VELMAR_RECORD(coreNameInstrument, 774);
VELMAR_FIELD(coreNameInstrument, m_szNameSymbol, 0);
VELMAR_FIELD(coreNameInstrument, m_szType, 510);
VELMAR_FIELD(coreNameInstrument, m_periods, 765);

/// A text of unknown character size.
struct coreUncStringType {
    Word length; ///< in characters
    unsigned char characterSize; ///< in bytes; 2 for UTF-16
    void *data;
};
VELMAR_RECORD(coreUncStringType, 9);
VELMAR_FIELD(coreUncStringType, length, 0);
VELMAR_FIELD(coreUncStringType, characterSize, 4);
VELMAR_FIELD(coreUncStringType, data, 5);

/// The display names of one series.
struct coreDisplayNames {
    unsigned short symbol[255];
    unsigned short name[255];
    unsigned short suffix[255];
    unsigned short alias[255];
};
VELMAR_RECORD(coreDisplayNames, 2040);
VELMAR_FIELD(coreDisplayNames, symbol, 0);
VELMAR_FIELD(coreDisplayNames, name, 510);
VELMAR_FIELD(coreDisplayNames, suffix, 1020);
VELMAR_FIELD(coreDisplayNames, alias, 1530);

#pragma pack(pop)
