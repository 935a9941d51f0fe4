#pragma once
// The frame that every module of the host has: the road to the host, and the small services that
// every class reaches through the one module object.
#include "module/HostRecords.h"
#include "support/Fonts.h"

#include <QString>
#include <map>
#include <memory>
#include <string>

class CTranslateManager;
class Log;
class QDateTime;

namespace Velmar {
class DateTime;
}

/// One word of a message: a number, or the address of a record.
struct MessageWord {
    MessageWord(int number) : value(number) {}
    MessageWord(unsigned number) : value(static_cast<int>(number)) {}
    MessageWord(const void *address) : value(toWord(address)) {}
    int value;
};

class CModule {
public:
    CModule(const char *name, unsigned int number1, unsigned int number2, unsigned int number3,
            const std::string &logName, const QString &translateContext);
    CModule(const CModule &) = delete;
    CModule &operator=(const CModule &) = delete;
    virtual ~CModule();

    virtual void InitializeWrap(HostFunction send, HostFunction second, void *coreHandle,
                                void *componentHandle);
    virtual int GetModuleInfoWrap(MODULE_INFO *info) const;
    virtual int ReceiveMessageWrap(void *sender, unsigned int message, int wParam, int lParam);

    // ---- messages: the only places that call the host ----
    int Send(void *target, unsigned int message, MessageWord wParam, MessageWord lParam,
             int neutral = 0) const;
    int SendCore(unsigned int message, MessageWord wParam, MessageWord lParam, int neutral = 0) const;
    bool HasHost() const { return m_sendMessage != nullptr; }

    // ---- names, log, texts, fonts, dates ----
    const std::string &GetModuleName() const { return m_logName; }
    const std::string &GetModuleNameForLog() const { return m_logName; }
    Log *GetLog() { return m_log.get(); }
    const Log *GetLog() const { return m_log.get(); }
    CTranslateManager *GetTranslateManager() const { return m_translateManager.get(); }
    int InsertTranslate(const char *context, const char *id, const char *text);
    QString tr(const char *id, const char *comment = nullptr) const;
    QString tr(const QString &id, const QString &comment) const;
    font::Manager *getFontManager() const { return m_fontManager.get(); }
    QString getFont(font::elementCode code) const;
    int getFontSize(int size) const;
    Velmar::DateTime *GetDateTime() const { return m_dateTime.get(); }
    void SetTimeTz();
    void initFonts();

    // ---- interfaces and named events ----
    void *getInterface(const QString &a, const QString &b, const QString &c);
    Word CreateEvent(const QString &name);
    int EmitEvent(const QString &name, MVEvent &event);
    void SubscribeEvent(const QString &name);
    void UnSubscribeEvent();

    MODULE_INFO m_info;
    HostFunction m_sendMessage = nullptr;
    HostFunction m_hostFunction2 = nullptr; // kept, never called
    void *m_coreHandle = nullptr;
    void *m_componentHandle = nullptr;
    void *m_interfaceHandle = nullptr;

private:
    // Freed from the last to the first.
    std::unique_ptr<Log> m_log;
    std::unique_ptr<font::Manager> m_fontManager;
    std::string m_logName;
    std::unique_ptr<Velmar::DateTime> m_dateTime;
    std::unique_ptr<CTranslateManager> m_translateManager;
    std::map<QString, Word> m_events;
};

CModule *GetModule();

/// The module as its own class, which the caller must know.
template <class T>
T *GetModule() {
    return static_cast<T *>(GetModule());
}
