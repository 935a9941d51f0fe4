#pragma once
// Named events, texts, languages, folders, and the functions a host hands over.
#include "module/records/Words.h"

class QDateTime;

#pragma pack(push, 1)

struct MVEvent {
    Word interfaceHandle; ///< the receiver's
    void *subscriber; ///< the pointer given at subscription
    Word eventId;
    Word reserved1;
    char name[255];
    char reserved2[259];
    Word code;
    int size;
    void *data;
};
VELMAR_RECORD(MVEvent, 542);
VELMAR_FIELD(MVEvent, interfaceHandle, 0);
VELMAR_FIELD(MVEvent, subscriber, 4);
VELMAR_FIELD(MVEvent, eventId, 8);
VELMAR_FIELD(MVEvent, reserved1, 12);
VELMAR_FIELD(MVEvent, name, 16);
VELMAR_FIELD(MVEvent, reserved2, 271);
VELMAR_FIELD(MVEvent, code, 530);
VELMAR_FIELD(MVEvent, size, 534);
VELMAR_FIELD(MVEvent, data, 538);

struct coreEventSubscription {
    char name[255];
    Word id;
    Word interfaceHandle;
    void *subscriber;
    int filter;
};
VELMAR_RECORD(coreEventSubscription, 271);
VELMAR_FIELD(coreEventSubscription, name, 0);
VELMAR_FIELD(coreEventSubscription, id, 255);
VELMAR_FIELD(coreEventSubscription, interfaceHandle, 259);
VELMAR_FIELD(coreEventSubscription, subscriber, 263);
VELMAR_FIELD(coreEventSubscription, filter, 267);

struct coreEventCreation {
    char name[255];
    Word id; ///< filled by the host
};
VELMAR_RECORD(coreEventCreation, 259);
VELMAR_FIELD(coreEventCreation, name, 0);
VELMAR_FIELD(coreEventCreation, id, 255);

struct coreSubscriber {
    Word interfaceHandle;
    void *subscriber;
};
VELMAR_RECORD(coreSubscriber, 8);
VELMAR_FIELD(coreSubscriber, interfaceHandle, 0);
VELMAR_FIELD(coreSubscriber, subscriber, 4);

struct coreTranslateText {
    char context[1024];
    char id[1024];
    char text[1024];
};
VELMAR_RECORD(coreTranslateText, 3072);
VELMAR_FIELD(coreTranslateText, context, 0);
VELMAR_FIELD(coreTranslateText, id, 1024);
VELMAR_FIELD(coreTranslateText, text, 2048);

struct coreLanguage {
    char name[765];
    Word current;
};
VELMAR_RECORD(coreLanguage, 769);
VELMAR_FIELD(coreLanguage, name, 0);
VELMAR_FIELD(coreLanguage, current, 765);

struct coreLanguageList {
    int count;
    coreLanguage *languages;
};
VELMAR_RECORD(coreLanguageList, 8);
VELMAR_FIELD(coreLanguageList, count, 0);
VELMAR_FIELD(coreLanguageList, languages, 4);

struct coreGlobalParameters {
    int group;
    int change;
};
VELMAR_RECORD(coreGlobalParameters, 8);
VELMAR_FIELD(coreGlobalParameters, group, 0);
VELMAR_FIELD(coreGlobalParameters, change, 4);

struct coreFolderPath {
    Word folder;
    unsigned short path[1024];
};
VELMAR_RECORD(coreFolderPath, 2052);
VELMAR_FIELD(coreFolderPath, folder, 0);
VELMAR_FIELD(coreFolderPath, path, 4);

struct coreLogRecord {
    const unsigned short *name;
    Word type;
    Word level;
    const unsigned short *text;
};
VELMAR_RECORD(coreLogRecord, 16);
VELMAR_FIELD(coreLogRecord, name, 0);
VELMAR_FIELD(coreLogRecord, type, 4);
VELMAR_FIELD(coreLogRecord, level, 8);
VELMAR_FIELD(coreLogRecord, text, 12);

using coreLogWriter = int (*)(const coreLogRecord *);
using coreDateTimeFormatter = void (*)(const QDateTime &, const QString &format, QString &result);
using coreTimeFormatter = void (*)(long time, const QString &format, bool flag, QString &result);

struct coreDateFormatters {
    coreDateTimeFormatter dateTime;
    coreTimeFormatter time;
};
VELMAR_RECORD(coreDateFormatters, 8);
VELMAR_FIELD(coreDateFormatters, dateTime, 0);
VELMAR_FIELD(coreDateFormatters, time, 4);

#pragma pack(pop)
