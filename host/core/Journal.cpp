#include "host/core/Journal.h"
#include <QCoreApplication>
#include <cstdio>

namespace desk {

namespace {

constexpr std::size_t mostLines = 5000;

} // namespace

void Journal::add(Level level, const QString &source, const QString &text) {
    if (!accepts(level))
        return;
    m_lines.push_back({QDateTime::currentDateTimeUtc(), level, source, text.trimmed()});
    if (m_lines.size() > mostLines)
        m_lines.pop_front();
    const JournalLine line = m_lines.back();
    if (m_echo && int(level) >= int(Level::Warning))
        std::fprintf(stderr, "%s\n", qPrintable(line.text));
    emit added(line);
}

QString levelName(Level level) {
    switch (level) {
    case Level::Trace:
        return QCoreApplication::translate("desk", "Trace");
    case Level::Message:
        return QCoreApplication::translate("desk", "Message");
    case Level::Warning:
        return QCoreApplication::translate("desk", "Warning");
    case Level::Error:
        return QCoreApplication::translate("desk", "Error");
    case Level::Critical:
        return QCoreApplication::translate("desk", "Critical");
    }
    return QCoreApplication::translate("desk", "Level %1").arg(int(level));
}

} // namespace desk
