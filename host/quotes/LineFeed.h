#pragma once
#include "host/quotes/Clock.h"
#include "host/quotes/TimeText.h"
#include <QByteArray>
#include <QObject>
#include <QTimer>
#include <memory>

class QSocketNotifier;
class QTcpSocket;

namespace desk {

class QuoteBook;

// A live feed of lines "SYMBOL,TIME,BID,ASK", from standard input or a socket. Lines that are no quotes are
// reported and skipped; when the feed ends, breaks or falls silent, one sentence says so.
class LineFeed : public QObject {
    Q_OBJECT

public:
    explicit LineFeed(QuoteBook &book, QObject *parent = nullptr);
    ~LineFeed() override;

    void setClock(const Clock &clock) { m_clock = clock; }
    // "-" or "HOST:PORT". The answer is empty, or a sentence that says why there is no feed.
    QString open(const QString &place);
    QString openDescriptor(int descriptor, const QString &name);
    // Bytes of the feed, in pieces of any size.
    void take(const char *bytes, qint64 size);

    qint64 quotes() const { return m_quotes; }
    qint64 skipped() const { return m_skipped; }

signals:
    void ended();

private:
    void readDescriptor();
    void readSocket();
    void takeLine(Piece line);
    void skip(const QString &reason);
    void end(const QString &how);
    void reconnect();
    void lookForSilence();

    QuoteBook &m_book;
    Clock m_clock;
    QString m_name;
    QByteArray m_rest; // the beginning of a line whose end has not come yet
    bool m_overlong = false;
    qint64 m_lines = 0;
    qint64 m_quotes = 0;
    qint64 m_skipped = 0;
    int m_descriptor = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::unique_ptr<QTcpSocket> m_socket;
    QString m_host;
    quint16 m_port = 0;
    QTimer m_reconnect;
    QTimer m_silence;
    qint64 m_quotesBefore = 0;
    bool m_silent = false;
    bool m_broken = false;
};

} // namespace desk
