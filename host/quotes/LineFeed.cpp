#include "host/quotes/LineFeed.h"
#include "host/quotes/FeedLine.h"
#include "host/quotes/FileForm.h"
#include "host/quotes/QuoteBook.h"
#include "host/quotes/SymbolNames.h"
#include <QSocketNotifier>
#include <QTcpSocket>
#include <cerrno>
#include <cstring>
#include <unistd.h>

namespace desk {

namespace {

constexpr int longestLine = 1024;
constexpr int mostReported = 10;
constexpr int connectMs = 3000;
constexpr int reconnectMs = 5000;
constexpr int silenceMs = 30000;
constexpr size_t readAtOnce = 65536;

} // namespace

LineFeed::LineFeed(QuoteBook &book, QObject *parent) : QObject(parent), m_book(book) {
    m_reconnect.setInterval(reconnectMs);
    m_silence.setInterval(silenceMs);
    connect(&m_reconnect, &QTimer::timeout, this, &LineFeed::reconnect);
    connect(&m_silence, &QTimer::timeout, this, &LineFeed::lookForSilence);
}

LineFeed::~LineFeed() = default;

QString LineFeed::open(const QString &place) {
    if (place == QLatin1String("-"))
        return openDescriptor(STDIN_FILENO, QStringLiteral("on standard input"));
    const int colon = place.lastIndexOf(QLatin1Char(':'));
    bool isNumber = false;
    const uint port = place.mid(colon + 1).toUInt(&isNumber);
    if (colon < 1 || !isNumber || port == 0 || port > 65535)
        return QStringLiteral("\"%1\" is no place of a feed: give \"-\" or HOST:PORT.").arg(place);
    m_host = place.left(colon);
    m_port = quint16(port);
    m_name = QStringLiteral("from ") + place;
    m_socket = std::make_unique<QTcpSocket>();
    m_socket->connectToHost(m_host, m_port);
    if (!m_socket->waitForConnected(connectMs)) {
        const QString reason = m_socket->errorString();
        m_socket.reset();
        return QStringLiteral("No feed answers at %1: %2.").arg(place, reason);
    }
    connect(m_socket.get(), &QTcpSocket::readyRead, this, &LineFeed::readSocket);
    connect(m_socket.get(), &QTcpSocket::connected, this, [this] {
        m_reconnect.stop();
        m_broken = false;
        emit m_book.told(Level::Message, QStringLiteral("The feed %1 is back.").arg(m_name));
    });
    connect(m_socket.get(), &QTcpSocket::disconnected, this, [this] {
        readSocket();
        m_broken = true;
        end(QStringLiteral("has broken off"));
        m_reconnect.start();
    });
    m_silence.start();
    readSocket();
    return QString();
}

QString LineFeed::openDescriptor(int descriptor, const QString &name) {
    m_name = name;
    m_descriptor = descriptor;
    m_notifier = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &LineFeed::readDescriptor);
    m_silence.start();
    return QString();
}

void LineFeed::readDescriptor() {
    char bytes[readAtOnce];
    const ssize_t size = ::read(m_descriptor, bytes, sizeof bytes);
    if (size > 0)
        return take(bytes, qint64(size));
    if (size < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    m_notifier->setEnabled(false);
    end(size == 0 ? QStringLiteral("has ended") : QStringLiteral("has broken off"));
}

void LineFeed::readSocket() {
    const QByteArray bytes = m_socket->readAll();
    if (!bytes.isEmpty())
        take(bytes.constData(), bytes.size());
}

void LineFeed::reconnect() {
    if (m_socket->state() == QAbstractSocket::UnconnectedState)
        m_socket->connectToHost(m_host, m_port);
}

void LineFeed::end(const QString &how) {
    if (!m_rest.isEmpty()) {
        const QByteArray last = m_rest;
        m_rest.clear();
        takeLine({last.constData(), last.constData() + last.size()});
    }
    m_silence.stop();
    m_book.storeKeptQuotes();
    emit m_book.told(Level::Warning, QStringLiteral("The feed %1 %2 after %3 quotes; %4 lines were skipped.")
                                         .arg(m_name, how)
                                         .arg(m_quotes)
                                         .arg(m_skipped));
    emit ended();
}

void LineFeed::lookForSilence() {
    const bool silent = m_quotes == m_quotesBefore;
    if (silent && !m_silent && !m_broken)
        emit m_book.told(Level::Warning, QStringLiteral("The feed %1 has sent no quote for %2 seconds.")
                                             .arg(m_name)
                                             .arg(silenceMs / 1000));
    m_silent = silent;
    m_quotesBefore = m_quotes;
}

void LineFeed::take(const char *bytes, qint64 size) {
    if (m_broken || !m_silence.isActive())
        m_silence.start();
    const char *end = bytes + size;
    while (bytes != end) {
        const void *found = std::memchr(bytes, '\n', size_t(end - bytes));
        const char *stop = found ? static_cast<const char *>(found) : end;
        if (!m_overlong)
            m_rest.append(bytes, int(stop - bytes));
        if (m_rest.size() > longestLine) {
            m_rest.truncate(longestLine);
            m_overlong = true;
        }
        if (!found)
            return;
        const QByteArray line = m_rest;
        const bool overlong = m_overlong;
        m_rest.clear();
        m_overlong = false;
        bytes = stop + 1;
        if (overlong) {
            ++m_lines;
            skip(QStringLiteral("it is longer than %1 bytes").arg(longestLine));
        } else {
            takeLine({line.constData(), line.constData() + line.size()});
        }
    }
}

void LineFeed::takeLine(Piece line) {
    ++m_lines;
    if (!line.isEmpty() && line.end[-1] == '\r')
        --line.end;
    if (isIdleLine(line))
        return;
    QString symbol;
    Tick tick;
    int digits = 0;
    const QString reason = parseFeedLine(line, m_clock, symbol, tick, digits);
    if (!reason.isEmpty())
        return skip(reason);
    if (!m_book.history(symbol)) {
        m_book.addSymbol({symbol, isCurrencyPair(symbol) ? usualDigits(symbol) : digits, false});
        emit m_book.told(Level::Message, QStringLiteral("The feed %1 brings %2.").arg(m_name, symbol));
    }
    m_book.keepQuotes(symbol);
    if (!m_book.quote(symbol, tick))
        return skip(QStringLiteral("the time of %1 goes back").arg(symbol));
    ++m_quotes;
}

void LineFeed::skip(const QString &reason) {
    ++m_skipped;
    if (m_skipped <= mostReported)
        emit m_book.told(
            Level::Warning,
            QStringLiteral("Line %1 of the feed %2 is skipped: %3.").arg(m_lines).arg(m_name, reason));
    if (m_skipped == mostReported)
        emit m_book.told(
            Level::Warning,
            QStringLiteral("Further lines of the feed %1 are skipped without a word.").arg(m_name));
}

} // namespace desk
