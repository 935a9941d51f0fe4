#include "module/TranslateManager.h"

#include "module/HostMessages.h"
#include "module/Module.h"

#include <QCoreApplication>

int CTranslateManager::InsertTranslate(const char *context, const char *id, const char *text) {
    coreTranslateText record = zeroRecord<coreTranslateText>();
    fillField(record.context, context);
    fillField(record.id, id);
    fillField(record.text, text);
    return GetModule()->SendCore(ToHost::InsertText, &record, 0, -1);
}

int CTranslateManager::InsertTranslate(const char *id, const char *text) {
    return InsertTranslate(m_context.toLatin1().constData(), id, text);
}

QString CTranslateManager::Translate(const char *id, const char *comment) const {
    return QCoreApplication::translate(m_context.toLatin1().constData(), id, comment);
}
