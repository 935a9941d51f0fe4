#pragma once
#include <QString>

/// Hands default texts to the host and looks texts up in their context.
class CTranslateManager {
public:
    explicit CTranslateManager(const QString &context) : m_context(context) {}

    const QString &GetContextName() const { return m_context; }
    int InsertTranslate(const char *context, const char *id, const char *text);
    int InsertTranslate(const char *id, const char *text);
    QString Translate(const char *id, const char *comment) const;

private:
    QString m_context;
};
