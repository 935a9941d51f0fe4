#pragma once
#include "host/core/Handle.h"
#include <QElapsedTimer>
#include <QFile>
#include <QString>

namespace desk {

class Host;

// Writes every message of both directions as one readable line: time, depth, direction, target, number and
// name, decoded words and records; and, when it comes back, the result and the records as they were filled.
class Trace {
public:
    enum Direction { ToHost, ToModule };

    explicit Trace(Host &host) : m_host(host) {}
    // An empty answer, or a sentence that says why the file cannot be written.
    QString open(const QString &fileName);
    bool isOpen() const { return m_file.isOpen(); }
    // "core", "MAINWINDOW", "CANDLE/VELMAR", or the number of an unknown handle.
    QString targetName(Handle target) const;

    // One message under way; the lines between its two are what happened inside it.
    class Scope {
    public:
        Scope(Trace &trace, Direction direction, Handle target, unsigned message, int wParam, int lParam);
        ~Scope();
        Scope(const Scope &) = delete;
        Scope &operator=(const Scope &) = delete;
        void end(int result, bool known) const;

    private:
        Trace &m_trace;
        Direction m_direction;
        unsigned m_message;
        int m_wParam;
        int m_lParam;
    };

private:
    void write(const QString &text);

    Host &m_host;
    QFile m_file;
    QElapsedTimer m_clock;
    int m_depth = 0;
};

} // namespace desk
