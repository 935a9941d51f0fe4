#pragma once
#include "host/core/Front.h"
#include <QDateTime>
#include <QObject>
#include <deque>

namespace desk {

struct JournalLine {
    QDateTime time;
    Level level = Level::Message;
    QString source; // who wrote it: "Desk" or a log name of the module
    QString text;
};

// The log of the run: lines of the desk and of the module, the newest kept in memory up to a limit.
// Lines below the threshold are dropped at once: the module writes level 0 on every timer tick and frame.
class Journal : public QObject {
    Q_OBJECT

public:
    explicit Journal(QObject *parent = nullptr) : QObject(parent) {}
    void add(Level level, const QString &source, const QString &text);
    bool accepts(Level level) const { return int(level) >= int(m_threshold); }
    Level threshold() const { return m_threshold; }
    void setThreshold(Level level) { m_threshold = level; }
    const std::deque<JournalLine> &lines() const { return m_lines; }
    // Lines of Warning and above also go to standard error when there is no window to read them in.
    void setEcho(bool on) { m_echo = on; }

signals:
    void added(const desk::JournalLine &line);

private:
    std::deque<JournalLine> m_lines;
    Level m_threshold = Level::Message;
    bool m_echo = false;
};

QString levelName(Level level);

} // namespace desk
