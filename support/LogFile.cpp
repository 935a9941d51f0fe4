#include "module/HostMessages.h"
#include "support/Log.h"

#include <QDateTime>
#include <QTextStream>

namespace {

const char *labelOf(eLogMsgType kind) {
    switch (kind) {
    case eLogCritical:
        return "CRITICAL";
    case eLogError:
        return "ERROR   ";
    case eLogWarning:
        return "WARNING ";
    case eLogMessage:
        return "MESSAGE ";
    default:
        return "        ";
    }
}

} // namespace

void CLogFile::Create(const QString &fileName, eLogMsgType minimum, unsigned int maxSizeKb) {
    m_fileName = fileName;
    m_minLevel = minimum;
    m_maxSizeKb = maxSizeKb;
    m_hostMode = false;
    if (mustRecreate())
        recreate();
}

void CLogFile::Create(char *name, HostFunction hostFunction, void *hostHandle, eLogMsgType minimum) {
    m_minLevel = minimum;
    Create(QString::fromLocal8Bit(name), hostFunction, hostHandle);
}

void CLogFile::Create(const QString &name, HostFunction hostFunction, void *hostHandle) {
    m_name = name;
    m_hostFunction = hostFunction;
    m_hostHandle = hostHandle;
    m_hostMode = true;
}

void CLogFile::ShowLogInfo(coreLogMsgType type, coreLogMsgLevel level, const QString &text) {
    if (type == logMsgSystem || type == logMsgModule)
        *this << type << level << text << eLogEndLine;
}

bool CLogFile::mustRecreate() const {
    return QFile::exists(m_fileName) && QFile(m_fileName).size() >= static_cast<qint64>(m_maxSizeKb) * 1024;
}

// Keeps the present file as the one old generation. A backup that cannot be written leaves the log alone.
void CLogFile::recreate() {
    QFile log(m_fileName);
    QFile backup(m_fileName + QLatin1String(".bak"));
    if (!log.open(QIODevice::ReadOnly) || !backup.open(QIODevice::WriteOnly))
        return;
    {
        QTextStream from(&log);
        QTextStream to(&backup);
        to << from.readAll();
    }
    log.close();
    backup.close();
    log.remove();
}

// The classes of a message make no difference in a file.
CLogFile &CLogFile::operator<<(coreLogMsgType) {
    return *this;
}

CLogFile &CLogFile::operator<<(coreLogMsgLevel level) {
    switch (level) {
    case logCritical:
        m_kind = eLogCritical;
        break;
    case logError:
        m_kind = eLogError;
        break;
    case logWarning:
        m_kind = eLogWarning;
        break;
    default:
        m_kind = eLogMessage;
        break;
    }
    return *this;
}

CLogFile &CLogFile::operator<<(eLogMsgType kind) {
    if (kind != eLogEndLine) {
        m_kind = kind;
        return *this;
    }
    if (m_minLevel >= m_kind)
        writeLine();
    m_kind = eLogCritical;
    m_line.clear();
    return *this;
}

void CLogFile::writeLine() {
    const QString line = QDateTime::currentDateTime().toTimeSpec(Qt::UTC).toString("dd/MM/yy hh:mm:ss") +
                         '\t' + QLatin1String(labelOf(m_kind)) + '\t' + m_line + "\r\n";
    if (m_hostMode) {
        if (m_hostFunction)
            m_hostFunction(m_hostHandle, ToHost::LogFileLine, toWord(line.utf16()), 0);
        return;
    }
    if (mustRecreate())
        recreate();
    m_file.setFileName(m_fileName);
    if (m_file.open(QIODevice::WriteOnly | QIODevice::Append)) {
        m_file.write(line.toLocal8Bit());
        m_file.close();
    }
}

CLogFile &CLogFile::operator<<(QChar character) {
    m_line += character;
    return *this;
}

CLogFile &CLogFile::operator<<(char character) {
    m_line += QLatin1Char(character);
    return *this;
}

CLogFile &CLogFile::operator<<(short value) {
    return *this << QString::number(value, 10);
}

CLogFile &CLogFile::operator<<(unsigned short value) {
    return *this << QString::number(value, 10);
}

CLogFile &CLogFile::operator<<(int value) {
    return *this << QString::number(value, 10);
}

CLogFile &CLogFile::operator<<(unsigned int value) {
    return *this << QString::number(value, 10);
}

CLogFile &CLogFile::operator<<(long value) {
    return *this << QString::number(value, 10);
}

CLogFile &CLogFile::operator<<(unsigned long value) {
    return *this << QString::number(value, 10);
}

CLogFile &CLogFile::operator<<(float value) {
    return *this << QString::number(static_cast<double>(value));
}

CLogFile &CLogFile::operator<<(double value) {
    return *this << QString::number(value);
}

CLogFile &CLogFile::operator<<(const char *text) {
    m_line += QLatin1String(text);
    return *this;
}

CLogFile &CLogFile::operator<<(const QString &text) {
    m_line += text;
    return *this;
}
