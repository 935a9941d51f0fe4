#include "host/quotes/Replay.h"
#include "host/quotes/FileImport.h"
#include "host/quotes/FormFinder.h"
#include "host/quotes/LineReader.h"
#include "host/quotes/QuoteBook.h"
#include <QFileInfo>
#include <algorithm>

namespace desk {

namespace {

constexpr int roundMs = 40;
constexpr int longestWaitMs = 2000; // of the player's time, over a weekend or another gap
constexpr int sampleLines = 2000;

} // namespace

Replay::Replay(QuoteBook &book, QObject *parent) : QObject(parent), m_book(book) {
    m_timer.setInterval(roundMs);
    connect(&m_timer, &QTimer::timeout, this, &Replay::play);
}

Replay::~Replay() = default;

QString Replay::open(const QuoteFile &file) {
    const QFileInfo info(file.path);
    const auto refusal = [&file](const QString &reason) {
        return QStringLiteral("%1 cannot be played: %2.").arg(file.path, reason);
    };
    if (!info.exists())
        return refusal(QStringLiteral("there is no such file"));
    if (!info.isFile())
        return refusal(info.isDir() ? QStringLiteral("it is a folder")
                                    : QStringLiteral("it is no ordinary file"));
    m_file.setFileName(file.path);
    if (!m_file.open(QIODevice::ReadOnly))
        return refusal(QStringLiteral("it cannot be read (%1)").arg(m_file.errorString()));
    QByteArrayList lines;
    LineReader sample(m_file);
    Piece line;
    while (lines.size() < sampleLines && sample.next(line)) {
        if (sample.isBinary()) {
            if (lines.isEmpty())
                return refusal(QStringLiteral("it is binary data, no text"));
            break;
        }
        if (!isIdleLine(line) && !sample.isCut())
            lines << QByteArray(line.begin, line.size());
    }
    const QString reason = findForm(file, lines, m_form);
    if (!reason.isEmpty())
        return refusal(reason);
    if (m_form.newestFirst)
        return refusal(QStringLiteral("its newest quote comes first"));
    m_file.seek(0);
    m_reader = std::make_unique<LineReader>(m_file);
    m_parser = std::make_unique<LineParser>(m_form);
    m_header = m_form.header;
    if (!readOn())
        return refusal(QStringLiteral("none of its lines is a quote"));
    m_time = m_queue.front().timeMs;
    SymbolHistory &history = m_book.addSymbol({m_form.symbol, m_form.digits, false});
    history.endAt(qint32(m_time / 1000));
    m_book.tellHistoryChanged(m_form.symbol);
    emit m_book.told(Level::Message, QStringLiteral("%1: %2.").arg(info.fileName(), m_form.describe()));
    return QString();
}

bool Replay::readOn() {
    Piece line;
    QuoteLine quote;
    while (m_reader->next(line)) {
        if (isIdleLine(line))
            continue;
        if (m_header) {
            m_header = false;
            continue;
        }
        m_parser->setLastTime(m_lastMs);
        const bool good =
            !m_reader->isCut() && !m_reader->isBinary() && m_parser->parse(line, quote).isEmpty();
        if (!good || quote.timeMs < m_lastMs || (!m_form.ticks && quote.timeMs == m_lastMs)) {
            ++m_skipped;
            continue;
        }
        m_lastMs = quote.timeMs;
        if (m_form.ticks) {
            m_queue.push_back(quote.tick);
            return true;
        }
        const Bar &bid = quote.bar;
        const Bar &ask = m_form.hasAskBars() ? quote.ask : quote.bar;
        const bool rising = bid.close >= bid.open;
        const qint64 step = std::max<qint64>(1, qint64(m_form.barSeconds) * 1000 / 4);
        const float volume = bid.volume / 4;
        m_queue.push_back({quote.timeMs, bid.open, ask.open, volume});
        m_queue.push_back(
            {quote.timeMs + step, rising ? bid.low : bid.high, rising ? ask.low : ask.high, volume});
        m_queue.push_back(
            {quote.timeMs + 2 * step, rising ? bid.high : bid.low, rising ? ask.high : ask.low, volume});
        m_queue.push_back({quote.timeMs + 4 * step - 1, bid.close, ask.close, volume});
        return true;
    }
    return false;
}

void Replay::start(double speed) {
    m_speed = speed;
    m_clock.start();
    m_timer.start();
}

bool Replay::advance(qint64 ms) {
    m_time += ms;
    for (;;) {
        if (m_queue.empty() && !readOn()) {
            m_timer.stop();
            emit m_book.told(Level::Message,
                             QStringLiteral("The replay of %1 has ended after %2 quotes; %3 lines were "
                                            "skipped.")
                                 .arg(QFileInfo(m_file.fileName()).fileName())
                                 .arg(m_quotes)
                                 .arg(m_skipped));
            emit ended();
            return false;
        }
        const Tick tick = m_queue.front();
        if (tick.timeMs > m_time) {
            // Nobody waits for the end of a weekend.
            const qint64 longest = qint64(longestWaitMs * std::max(1e-6, m_speed));
            m_time = std::max(m_time, tick.timeMs - longest);
            return true;
        }
        m_queue.pop_front();
        if (m_book.quote(m_form.symbol, tick))
            ++m_quotes;
    }
}

void Replay::play() {
    const double ms = double(m_clock.restart()) * m_speed + m_share;
    const qint64 whole = qint64(ms);
    m_share = ms - double(whole);
    advance(whole);
}

} // namespace desk
