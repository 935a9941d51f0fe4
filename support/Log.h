#pragma once
#include "module/HostRecords.h"
#include <QChar>
#include <QFile>
#include <QString>
#include <memory>

// Class of a message: 0 and 1 are in use.
enum coreLogMsgType : int { logMsgSystem = 0, logMsgModule = 1 };

// Severity, as the host's log filters it.
enum coreLogMsgLevel : int { logTrace = 0, logMessage = 2, logWarning = 3, logError = 4, logCritical = 5 };

// Control values of the stream: the first five set a kind, the last ends the line.
enum eLogMsgType : int {
    eLogTrace = 0,
    eLogCritical = 1,
    eLogError = 2,
    eLogWarning = 3,
    eLogMessage = 4,
    eLogEndLine = 5
};

// The stream of log lines: type, level, text items, tag, end of line.
class BaseLog {
public:
    virtual ~BaseLog() = default;
    virtual void Create(const QString &name, eLogMsgType minimum, unsigned int maxSizeKb) = 0;
    virtual void Create(char *name, HostFunction hostFunction, void *hostHandle,
                        eLogMsgType minimum = eLogCritical) = 0;
    virtual void Create(const QString &name, HostFunction hostFunction, void *hostHandle) = 0;
    virtual void ShowLogInfo(coreLogMsgType type, coreLogMsgLevel level, const QString &text) = 0;
    virtual BaseLog &operator<<(coreLogMsgType type) = 0;
    virtual BaseLog &operator<<(coreLogMsgLevel level) = 0;
    virtual BaseLog &operator<<(eLogMsgType control) = 0;
    virtual BaseLog &operator<<(QChar character) = 0;
    virtual BaseLog &operator<<(char character) = 0;
    virtual BaseLog &operator<<(short value) = 0;
    virtual BaseLog &operator<<(unsigned short value) = 0;
    virtual BaseLog &operator<<(int value) = 0;
    virtual BaseLog &operator<<(unsigned int value) = 0;
    virtual BaseLog &operator<<(long value) = 0;
    virtual BaseLog &operator<<(unsigned long value) = 0;
    virtual BaseLog &operator<<(float value) = 0;
    virtual BaseLog &operator<<(double value) = 0;
    virtual BaseLog &operator<<(const char *text) = 0;
    virtual BaseLog &operator<<(const QString &text) = 0;
};

// The log of the module: collects one line and hands it to the host's log writer.
class Log : public BaseLog {
public:
    Log();
    ~Log() override;
    Log(const Log &) = delete;
    Log &operator=(const Log &) = delete;

    void Create(const QString &name, eLogMsgType minimum, unsigned int maxSizeKb) override;
    void Create(char *name, HostFunction hostFunction, void *hostHandle,
                eLogMsgType minimum = eLogCritical) override;
    void Create(const QString &name, HostFunction hostFunction, void *hostHandle) override;
    void ShowLogInfo(coreLogMsgType type, coreLogMsgLevel level, const QString &text) override;
    Log &operator<<(coreLogMsgType type) override;
    Log &operator<<(coreLogMsgLevel level) override;
    Log &operator<<(eLogMsgType control) override;
    Log &operator<<(QChar character) override;
    Log &operator<<(char character) override;
    Log &operator<<(short value) override;
    Log &operator<<(unsigned short value) override;
    Log &operator<<(int value) override;
    Log &operator<<(unsigned int value) override;
    Log &operator<<(long value) override;
    Log &operator<<(unsigned long value) override;
    Log &operator<<(float value) override;
    Log &operator<<(double value) override;
    Log &operator<<(const char *text) override;
    Log &operator<<(const QString &text) override;

    coreLogMsgType type() const { return m_type; }
    coreLogMsgLevel level() const { return m_level; }

private:
    static constexpr int firstCapacity = 32;

    int SendMessage();
    unsigned short *extend(int count);

    HostFunction m_hostFunction = nullptr;
    void *m_hostHandle = nullptr;
    std::unique_ptr<unsigned short[]> m_name;
    coreLogMsgType m_type = logMsgModule;
    coreLogMsgLevel m_level = logWarning;
    std::unique_ptr<unsigned short[]> m_text;
    int m_length = 1; // characters with the terminator
    int m_capacity = firstCapacity;
    coreLogWriter m_writeLine = nullptr;
};

// The same stream into a file of its own, with one old generation, or line by line to the host.
class CLogFile : public BaseLog {
public:
    CLogFile() = default;
    CLogFile(const CLogFile &) = delete;
    CLogFile &operator=(const CLogFile &) = delete;

    void Create(const QString &fileName, eLogMsgType minimum, unsigned int maxSizeKb) override;
    void Create(char *name, HostFunction hostFunction, void *hostHandle,
                eLogMsgType minimum = eLogCritical) override;
    void Create(const QString &name, HostFunction hostFunction, void *hostHandle) override;
    void ShowLogInfo(coreLogMsgType type, coreLogMsgLevel level, const QString &text) override;
    CLogFile &operator<<(coreLogMsgType type) override;
    CLogFile &operator<<(coreLogMsgLevel level) override;
    CLogFile &operator<<(eLogMsgType kind) override;
    CLogFile &operator<<(QChar character) override;
    CLogFile &operator<<(char character) override;
    CLogFile &operator<<(short value) override;
    CLogFile &operator<<(unsigned short value) override;
    CLogFile &operator<<(int value) override;
    CLogFile &operator<<(unsigned int value) override;
    CLogFile &operator<<(long value) override;
    CLogFile &operator<<(unsigned long value) override;
    CLogFile &operator<<(float value) override;
    CLogFile &operator<<(double value) override;
    CLogFile &operator<<(const char *text) override;
    CLogFile &operator<<(const QString &text) override;

    bool mustRecreate() const;
    void recreate();

private:
    void writeLine();

    eLogMsgType m_minLevel = eLogCritical;
    eLogMsgType m_kind = eLogCritical;
    QFile m_file;
    QString m_fileName;
    QString m_line;
    unsigned int m_maxSizeKb = 3072;
    bool m_hostMode = false;
    HostFunction m_hostFunction = nullptr;
    void *m_hostHandle = nullptr;
    QString m_name;
};

// Reaches the module's log; every operation does nothing without one.
class LogHelper {
public:
    static Log *GetLog();
    static void Create(const QString &name, eLogMsgType minimum, unsigned int maxSizeKb);
    static void Create(char *name, HostFunction hostFunction, void *hostHandle,
                       eLogMsgType minimum = eLogCritical);
    static void Create(const QString &name, HostFunction hostFunction, void *hostHandle);
    static void ShowLogInfo(coreLogMsgType type, coreLogMsgLevel level, const QString &text);
};

// The usual chains in one call. `tag` is "|File|line"; null leaves it out.
void logLine(coreLogMsgType type, coreLogMsgLevel level, const char *text, const char *tag);
void logLine(coreLogMsgType type, coreLogMsgLevel level, const QString &text, const char *tag);
inline void trace(const char *text, const char *tag) {
    logLine(logMsgModule, logTrace, text, tag);
}
inline void trace(const QString &text, const char *tag) {
    logLine(logMsgModule, logTrace, text, tag);
}

namespace my {
double atof(char *text, const char *decimalPoints);
}
