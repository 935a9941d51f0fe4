#include "host/core/Trace.h"
#include "host/core/Host.h"
#include "host/core/MessageNames.h"
#include <QCoreApplication>
#include <cstdio>

namespace desk {

QString Trace::open(const QString &fileName) {
    m_file.close();
    m_file.setFileName(fileName);
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text))
        return QCoreApplication::translate("desk", "The trace file %1 cannot be written: %2.")
            .arg(fileName, m_file.errorString());
    m_clock.start();
    return QString();
}

QString Trace::targetName(Handle target) const {
    if (target == m_host.coreHandle())
        return QStringLiteral("core");
    if (const InterfaceEntry *entry = m_host.interfaces().find(target)) {
        QString name = QString::fromLatin1(entry->kind);
        if (!entry->object.isEmpty())
            name += QLatin1Char('/') + QString::fromLatin1(entry->object);
        return name;
    }
    return QStringLiteral("0x%1").arg(target, 0, 16);
}

void Trace::write(const QString &text) {
    const QString stamp = QString::number(double(m_clock.nsecsElapsed()) / 1e6, 'f', 3).rightJustified(11);
    m_file.write((stamp + QString(2 + 2 * m_depth, QLatin1Char(' ')) + text + QLatin1Char('\n')).toUtf8());
    // A crash of either side must not swallow the message that led to it.
    if (m_file.flush())
        return;
    std::fprintf(stderr, "%s\n",
                 qPrintable(QCoreApplication::translate("desk", "The trace %1 ends here: %2.")
                                .arg(m_file.fileName(), m_file.errorString())));
    m_file.close();
}

Trace::Scope::Scope(Trace &trace, Direction direction, Handle target, unsigned message, int wParam,
                    int lParam)
    : m_trace(trace), m_direction(direction), m_message(message), m_wParam(wParam), m_lParam(lParam) {
    if (!trace.isOpen())
        return;
    const MessageText *text = direction == Trace::ToHost ? messageToHost(message) : messageToModule(message);
    QString line = direction == Trace::ToHost ? QStringLiteral("module -> %1: ").arg(trace.targetName(target))
                                              : QStringLiteral("host -> module: ");
    line += QString::number(message) + QLatin1Char(' ') + QLatin1String(text ? text->name : "unknown");
    const QString decoded = text && text->decode ? text->decode(wParam, lParam, false) : QString();
    if (!decoded.isEmpty())
        line += QStringLiteral(" {%1}").arg(decoded);
    else
        line += QStringLiteral(" (0x%1, 0x%2)").arg(unsigned(wParam), 0, 16).arg(unsigned(lParam), 0, 16);
    trace.write(line);
    ++trace.m_depth;
}

Trace::Scope::~Scope() {
    if (m_trace.isOpen() && m_trace.m_depth > 0)
        --m_trace.m_depth;
}

void Trace::Scope::end(int result, bool known) const {
    if (!m_trace.isOpen())
        return;
    const MessageText *text =
        m_direction == Trace::ToHost ? messageToHost(m_message) : messageToModule(m_message);
    QString line = QStringLiteral("= %1").arg(result);
    if (!known)
        line += QStringLiteral(" (not answered)");
    else if (text && text->decode) {
        const QString decoded = text->decode(m_wParam, m_lParam, true);
        if (!decoded.isEmpty())
            line += QStringLiteral(" {%1}").arg(decoded);
    }
    m_trace.write(line);
}

} // namespace desk
