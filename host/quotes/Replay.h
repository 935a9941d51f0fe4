#pragma once
#include "host/quotes/FileForm.h"
#include "host/quotes/LineParser.h"
#include <QElapsedTimer>
#include <QFile>
#include <QObject>
#include <QTimer>
#include <deque>
#include <memory>

namespace desk {

class LineReader;
class QuoteBook;

// Plays the quotes of a file as if they came in now, at a speed of one's own. A bar plays as four quotes: its
// open, its low and high in the order that its direction suggests, its close.
class Replay : public QObject {
    Q_OBJECT

public:
    explicit Replay(QuoteBook &book, QObject *parent = nullptr);
    ~Replay() override;

    // The answer is empty, or a sentence that says why the file cannot be played. History of the symbol at or
    // behind the file's first quote is hidden from here on.
    QString open(const QuoteFile &file);
    const QString &symbol() const { return m_form.symbol; }
    // At which a chart follows it well: its bars' own, a minute for ticks.
    Period period() const { return m_form.ticks ? Period{'I', 1} : m_form.period; }
    void start(double speed);
    // Plays what this many milliseconds of the file's time bring; false at the end of the file.
    bool advance(qint64 ms);
    qint64 time() const { return m_time; }
    qint64 quotes() const { return m_quotes; }

signals:
    void ended();

private:
    bool readOn(); // puts the next line's quotes in the queue
    void play();

    QuoteBook &m_book;
    QFile m_file;
    FileForm m_form;
    std::unique_ptr<LineReader> m_reader;
    std::unique_ptr<LineParser> m_parser;
    bool m_header = false;
    std::deque<Tick> m_queue;
    qint64 m_time = 0; // of the file
    qint64 m_lastMs = -1;
    qint64 m_quotes = 0;
    qint64 m_skipped = 0;
    double m_speed = 1;
    double m_share = 0; // of a millisecond, left over from the last round
    QTimer m_timer;
    QElapsedTimer m_clock;
};

} // namespace desk
