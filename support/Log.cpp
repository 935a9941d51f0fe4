#include "support/Log.h"
#include "module/HostMessages.h"
#include "module/Module.h"

#include <algorithm>

namespace {

coreLogMsgLevel levelOf(eLogMsgType kind) {
    switch (kind) {
    case eLogCritical:
        return logCritical;
    case eLogError:
        return logError;
    case eLogWarning:
        return logWarning;
    case eLogMessage:
        return logMessage;
    default:
        return logTrace;
    }
}

} // namespace

Log::Log() : m_text(new unsigned short[firstCapacity]) {
    m_text[0] = 0;
}

Log::~Log() = default;

// A log of the host has no file of its own.
void Log::Create(const QString &, eLogMsgType, unsigned int) {}

void Log::Create(char *name, HostFunction hostFunction, void *hostHandle, eLogMsgType) {
    Create(QString::fromLocal8Bit(name), hostFunction, hostHandle);
}

void Log::Create(const QString &name, HostFunction hostFunction, void *hostHandle) {
    m_name.reset(new unsigned short[name.size() + 1]);
    std::copy_n(name.utf16(), name.size() + 1, m_name.get());
    m_hostFunction = hostFunction;
    m_hostHandle = hostHandle;
    m_hostFunction(m_hostHandle, ToHost::LogWriter, toWord(&m_writeLine), 0);
}

void Log::ShowLogInfo(coreLogMsgType type, coreLogMsgLevel level, const QString &text) {
    if (type == logMsgSystem || type == logMsgModule)
        *this << type << level << text << eLogEndLine;
}

// Room for `count` more characters; the place where they go.
unsigned short *Log::extend(int count) {
    const int length = m_length + count;
    if (!m_text || length > m_capacity) {
        const int capacity = std::max(m_capacity + count + 1, 2 * m_capacity);
        std::unique_ptr<unsigned short[]> text(new unsigned short[capacity]);
        if (m_text)
            std::copy_n(m_text.get(), m_length, text.get());
        m_text = std::move(text);
        m_capacity = capacity;
    }
    unsigned short *end = m_text.get() + m_length - 1;
    end[count] = 0;
    m_length = length;
    return end;
}

// The host may log through the module from inside its writer: the line in its hands must stay.
int Log::SendMessage() {
    std::unique_ptr<unsigned short[]> text = std::move(m_text);
    const int capacity = m_capacity;
    m_length = 1;
    int result = 1;
    if (m_writeLine) {
        const coreLogRecord record{m_name.get(), static_cast<Word>(m_type), static_cast<Word>(m_level),
                                   text.get()};
        result = m_writeLine(&record);
    }
    if (!m_text) {
        m_text = std::move(text);
        m_capacity = capacity;
        m_text[0] = 0;
        m_length = 1;
    }
    return result;
}

Log &Log::operator<<(coreLogMsgType type) {
    m_type = type;
    return *this;
}

Log &Log::operator<<(coreLogMsgLevel level) {
    m_level = level;
    return *this;
}

Log &Log::operator<<(eLogMsgType control) {
    if (control == eLogEndLine)
        SendMessage();
    else if (control >= eLogTrace && control < eLogEndLine)
        m_level = levelOf(control);
    return *this;
}

Log &Log::operator<<(QChar character) {
    *extend(1) = character.unicode();
    return *this;
}

Log &Log::operator<<(char character) {
    return *this << QChar(QLatin1Char(character));
}

Log &Log::operator<<(short value) {
    return *this << QString::number(value, 10);
}

Log &Log::operator<<(unsigned short value) {
    return *this << QString::number(value, 10);
}

Log &Log::operator<<(int value) {
    return *this << QString::number(value, 10);
}

Log &Log::operator<<(unsigned int value) {
    return *this << QString::number(value, 10);
}

Log &Log::operator<<(long value) {
    return *this << QString::number(value, 10);
}

Log &Log::operator<<(unsigned long value) {
    return *this << QString::number(value, 10);
}

Log &Log::operator<<(float value) {
    return *this << QString::number(static_cast<double>(value));
}

Log &Log::operator<<(double value) {
    return *this << QString::number(value);
}

Log &Log::operator<<(const char *text) {
    const int count = text ? static_cast<int>(std::strlen(text)) : 0;
    unsigned short *target = count ? extend(count) : nullptr;
    for (int i = 0; i < count; ++i)
        target[i] = static_cast<unsigned char>(text[i]);
    return *this;
}

Log &Log::operator<<(const QString &text) {
    if (!text.isEmpty())
        std::copy_n(text.utf16(), text.size(), extend(text.size()));
    return *this;
}

Log *LogHelper::GetLog() {
    CModule *module = GetModule();
    return module ? module->GetLog() : nullptr;
}

void LogHelper::Create(const QString &name, eLogMsgType minimum, unsigned int) {
    if (Log *log = GetLog())
        log->Create(name, minimum, 3072);
}

void LogHelper::Create(char *name, HostFunction hostFunction, void *hostHandle, eLogMsgType minimum) {
    if (Log *log = GetLog())
        log->Create(name, hostFunction, hostHandle, minimum);
}

void LogHelper::Create(const QString &name, HostFunction hostFunction, void *hostHandle) {
    if (Log *log = GetLog())
        log->Create(name, hostFunction, hostHandle);
}

void LogHelper::ShowLogInfo(coreLogMsgType type, coreLogMsgLevel level, const QString &text) {
    if (Log *log = GetLog())
        log->ShowLogInfo(type, level, text);
}

void logLine(coreLogMsgType type, coreLogMsgLevel level, const char *text, const char *tag) {
    if (Log *log = LogHelper::GetLog())
        *log << type << level << text << tag << eLogEndLine;
}

void logLine(coreLogMsgType type, coreLogMsgLevel level, const QString &text, const char *tag) {
    if (Log *log = LogHelper::GetLog())
        *log << type << level << text << tag << eLogEndLine;
}

// The number at the start of `text`, in every locale. Each of `decimalPoints` in it becomes a point.
double my::atof(char *text, const char *decimalPoints) {
    if (!text)
        return 0;
    for (char *c = text; *c; ++c)
        if (decimalPoints && std::strchr(decimalPoints, *c))
            *c = '.';
    const QString number = QString::fromLatin1(text).trimmed();
    for (int length = number.size(); length > 0; --length) {
        bool ok = false;
        const double value = QStringView(number).left(length).toString().toDouble(&ok);
        if (ok)
            return value;
    }
    return 0;
}
