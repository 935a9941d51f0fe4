// Feed, replay and the built-in market.
#include "host/quotes/FeedLine.h"
#include "host/quotes/LineFeed.h"
#include "host/quotes/Market.h"
#include "host/quotes/QuoteBook.h"
#include "host/quotes/Replay.h"
#include "quotes_folder.h"
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <unistd.h>

using namespace desk;

namespace {

const QString eurusd = QStringLiteral("EUR/USD");

// Every sentence that the book tells.
struct Told {
    explicit Told(QuoteBook &book) {
        QObject::connect(&book, &QuoteBook::told, &context,
                         [this](Level, const QString &sentence) { sentences << sentence; });
    }
    int count(const char *part) const { return sentences.filter(QString::fromLatin1(part)).size(); }
    QStringList sentences;
    QObject context;
};

void give(LineFeed &feed, const QByteArray &bytes) {
    feed.take(bytes.constData(), bytes.size());
}

TEST(QuoteFeed, LinesBecomeQuotes) {
    QuoteBook book;
    LineFeed feed(book);
    give(feed, "EUR/USD,2024-03-01 10:00:00.250,1.08010,1.08022\n");
    give(feed, "EURUSD,1709287201,1.08015,1.08027\nUSDJPY,1709287201500,150.123,150.14");
    EXPECT_EQ(feed.quotes(), 2);
    give(feed, "5\n"); // the rest of a line that came in two pieces
    EXPECT_EQ(feed.quotes(), 3);
    EXPECT_EQ(feed.skipped(), 0);
    const std::vector<Tick> ticks = book.history(eurusd)->ticks({10});
    ASSERT_EQ(ticks.size(), 2u);
    EXPECT_EQ(ticks[0].timeMs, qint64(utc("2024-03-01 10:00:00")) * 1000 + 250);
    EXPECT_EQ(ticks[1].timeSec(), utc("2024-03-01 10:00:01"));
    EXPECT_EQ(ticks[1].ask, 1.08027f);
    EXPECT_EQ(book.history(QStringLiteral("USD/JPY"))->info().digits, 3);
    EXPECT_EQ(book.history(QStringLiteral("USD/JPY"))->last()->ask, 150.145f);
}

TEST(QuoteFeed, GarbageIsReportedAndSkipped) {
    QuoteBook book;
    Told told(book);
    LineFeed feed(book);
    const QByteArrayList garbage = {"hello",
                                    "EUR/USD,1709287200,1.08",
                                    "EUR/USD,soon,1.08,1.09",
                                    "EUR/USD,1709287200,x,1.09",
                                    "EUR/USD,1709287200,-1.08,1.09",
                                    "EUR/USD,1709287200,nan,1.09",
                                    "E R,1709287200,1.08,1.09",
                                    ",1709287200,1.08,1.09",
                                    "EUR/USD,2024-03-01,1.08,1.09",
                                    QByteArray(5000, 'x')};
    for (const QByteArray &line : garbage)
        give(feed, line + "\r\n");
    EXPECT_EQ(feed.quotes(), 0);
    EXPECT_EQ(feed.skipped(), garbage.size());
    EXPECT_EQ(told.count("is skipped: "), garbage.size());
    EXPECT_TRUE(book.symbols().isEmpty()) << "garbage makes no symbol";
    give(feed,
         QByteArray("\n# comment\nEUR/USD,1709287200,1.08,1.09\nEUR/USD,1709287100,1.08,1.09\nmore\nmore\n"));
    EXPECT_EQ(feed.quotes(), 1);
    EXPECT_EQ(feed.skipped(), garbage.size() + 3);
    EXPECT_EQ(told.count("is skipped: "), 10) << "the first ones are enough";
}

TEST(QuoteFeed, EndOfTheInputIsOneSentence) {
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    QuoteBook book;
    Told told(book);
    LineFeed feed(book);
    QSignalSpy ended(&feed, &LineFeed::ended);
    ASSERT_EQ(feed.openDescriptor(ends[0], QStringLiteral("on standard input")), QString());
    const QByteArray lines("EUR/USD,1709287200,1.08,1.09\nEUR/USD,1709287201,1.08,1.09"); // no last newline
    ASSERT_EQ(::write(ends[1], lines.constData(), size_t(lines.size())), ssize_t(lines.size()));
    ::close(ends[1]);
    ASSERT_TRUE(ended.count() > 0 || ended.wait(2000));
    EXPECT_EQ(feed.quotes(), 2);
    EXPECT_EQ(told.count("The feed on standard input has ended after 2 quotes; 0 lines were skipped."), 1);
    ::close(ends[0]);
}

TEST(QuoteFeed, SocketBringsQuotesAndItsBreakIsTold) {
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    QuoteBook book;
    Told told(book);
    LineFeed feed(book);
    ASSERT_EQ(feed.open(QStringLiteral("127.0.0.1:%1").arg(server.serverPort())), QString());
    ASSERT_TRUE(server.waitForNewConnection(2000));
    QTcpSocket *peer = server.nextPendingConnection();
    peer->write("EUR/USD,1709287200,1.08,1.09\n");
    peer->flush();
    EXPECT_TRUE(QTest::qWaitFor([&feed] { return feed.quotes() == 1; }, 2000));
    QSignalSpy ended(&feed, &LineFeed::ended);
    peer->close();
    EXPECT_TRUE(ended.count() > 0 || ended.wait(2000));
    EXPECT_EQ(told.count("has broken off after 1 quotes"), 1);
}

TEST(QuoteFeed, PlaceThatIsNoneIsRefused) {
    QuoteBook book;
    for (const char *place : {"", "localhost", "localhost:", "localhost:x", ":7", "localhost:70000"}) {
        LineFeed feed(book);
        EXPECT_TRUE(feed.open(QString::fromLatin1(place)).contains(QStringLiteral("no place of a feed")))
            << place;
    }
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    const int port = server.serverPort();
    server.close();
    LineFeed feed(book);
    EXPECT_TRUE(
        feed.open(QStringLiteral("127.0.0.1:%1").arg(port)).contains(QStringLiteral("No feed answers")));
}

// ---- replay ----

TEST(QuoteReplay, TicksComeInTheirTime) {
    QuoteFolder folder;
    QuoteBook book;
    Told told(book);
    QuoteFile file;
    file.path = folder.write(
        "EURUSD_20140505.csv",
        "1000,1.3871,1.3873\n1500,1.3872,1.3874\n2500,1.3873,1.3875\nbroken\n9000,1.3874,1.3876\n");
    Replay replay(book);
    ASSERT_EQ(replay.open(file), QString());
    EXPECT_EQ(replay.symbol(), eurusd);
    EXPECT_TRUE(replay.advance(0));
    EXPECT_EQ(replay.quotes(), 1);
    EXPECT_TRUE(replay.advance(499));
    EXPECT_EQ(replay.quotes(), 1);
    EXPECT_TRUE(replay.advance(1));
    EXPECT_EQ(replay.quotes(), 2);
    EXPECT_TRUE(replay.advance(1000));
    EXPECT_EQ(replay.quotes(), 3);
    EXPECT_TRUE(replay.advance(0));
    EXPECT_TRUE(replay.advance(1999)) << "a gap lasts two seconds at most";
    EXPECT_EQ(replay.quotes(), 3);
    EXPECT_FALSE(replay.advance(5000)) << "the end";
    EXPECT_EQ(replay.quotes(), 4);
    EXPECT_EQ(told.count("has ended after 4 quotes; 1 lines were skipped."), 1);
}

TEST(QuoteReplay, BarsPlayAsTheirFourPricesAndMakeTheSameBars) {
    QuoteFolder folder;
    QuoteBook book;
    QuoteFile file;
    file.path = folder.write(
        "EURUSD.csv", "2012-02-01 00:00,1.30,1.35,1.29,1.31,8\n2012-02-01 00:05,1.31,1.32,1.28,1.29,4\n"
                      "2012-02-01 00:10,1.29,1.30,1.28,1.295,4\n");
    Replay replay(book);
    ASSERT_EQ(replay.open(file), QString());
    while (replay.advance(1000)) {
    }
    EXPECT_EQ(replay.quotes(), 12);
    const std::vector<Bar> bars = book.history(eurusd)->bars(Side::Bid, {'I', 5}, {100});
    ASSERT_EQ(bars.size(), 3u);
    EXPECT_EQ(bars[0].time, utc("2012-02-01 00:00:00"));
    EXPECT_EQ(bars[0].high, 1.35f);
    EXPECT_EQ(bars[1].low, 1.28f);
    EXPECT_EQ(bars[2].close, 1.295f);
    EXPECT_EQ(bars[0].volume, 8.f);
}

TEST(QuoteReplay, HistoryBehindItsStartIsHidden) {
    QuoteFolder folder;
    QuoteBook book;
    QuoteFile file;
    file.path = folder.write(
        "EURUSD.csv", "2012-02-01 00:00,1.30,1.35,1.29,1.31\n2012-02-01 00:01,1.31,1.32,1.28,1.29\n"
                      "2012-02-01 00:02,1.29,1.30,1.28,1.295\n2012-02-01 00:03,1.29,1.30,1.28,1.295\n");
    book.importFile(file);
    QuoteFile later;
    later.path = folder.write("EURUSD_later.csv",
                              "2012-02-01 00:02,1.50,1.55,1.49,1.51\n2012-02-01 00:03,1.51,1.52,1.48,1.49\n");
    Replay replay(book);
    ASSERT_EQ(replay.open(later), QString());
    EXPECT_EQ(book.history(eurusd)->bars(Side::Bid, {'I', 1}, {100}).size(), 2u);
    replay.advance(0);
    const std::vector<Bar> bars = book.history(eurusd)->bars(Side::Bid, {'I', 1}, {100});
    ASSERT_EQ(bars.size(), 3u);
    EXPECT_EQ(bars.back().open, 1.50f);
}

TEST(QuoteReplay, FileThatIsNoneIsRefused) {
    QuoteFolder folder;
    QuoteBook book;
    for (const QString &path :
         {folder.folder.filePath(QStringLiteral("none.csv")), folder.folder.path(),
          folder.write("prose.csv", "Dear reader, this\nis, not a file of quotes\n"),
          folder.write("binary.csv", QByteArray(100, '\0')), folder.write("empty.csv", "")}) {
        QuoteFile file;
        file.path = path;
        Replay replay(book);
        const QString reason = replay.open(file);
        EXPECT_TRUE(reason.startsWith(path + QStringLiteral(" cannot be played: "))) << reason.toStdString();
    }
    EXPECT_TRUE(book.symbols().isEmpty());
}

// ---- the built-in market ----

qint64 wednesday() {
    return qint64(utc("2024-03-06 14:00:00")) * 1000;
}

std::vector<Bar> marketBars(QuoteBook &book, const char *symbol, Period period) {
    return book.history(QString::fromLatin1(symbol))->bars(Side::Bid, period, {2000});
}

TEST(QuoteMarket, SameSeedAndTimeGiveTheSameQuotes) {
    std::vector<Bar> first;
    for (int run = 0; run < 2; ++run) {
        QuoteBook book;
        Market market(book, 5, [] { return wednesday(); });
        market.open();
        market.quoteUntil(wednesday() + 60000);
        const std::vector<Bar> bars = marketBars(book, "EUR/USD", {'I', 1});
        ASSERT_EQ(bars.size(), 2000u);
        if (run == 0)
            first = bars;
        for (size_t i = 0; i < bars.size(); ++i)
            ASSERT_EQ(bars[i].close, first[i].close) << i;
    }
    QuoteBook book;
    Market other(book, 6, [] { return wednesday(); });
    other.open();
    EXPECT_NE(marketBars(book, "EUR/USD", {'I', 1}).front().close, first.front().close);
}

TEST(QuoteMarket, FourPairsLiveAtEveryPeriod) {
    QuoteBook book;
    Market market(book, 1, [] { return wednesday(); });
    market.open();
    EXPECT_EQ(book.symbols(), (QStringList{eurusd, QStringLiteral("GBP/USD"), QStringLiteral("USD/CHF"),
                                           QStringLiteral("USD/JPY")}));
    for (const QString &symbol : book.symbols()) {
        const SymbolHistory &history = *book.history(symbol);
        EXPECT_EQ(history.info().digits, symbol.endsWith(QStringLiteral("JPY")) ? 3 : 5);
        for (const char *name : {"M1", "M5", "M10", "H1", "H3", "D1", "W1", "MN1"}) {
            const std::vector<Bar> bars =
                history.bars(Side::Bid, *Period::fromName(QString::fromLatin1(name)), {200});
            ASSERT_GE(bars.size(), 150u) << symbol.toStdString() << name;
            for (size_t i = 0; i < bars.size(); ++i) {
                EXPECT_GE(bars[i].high, std::max(bars[i].open, bars[i].close));
                EXPECT_LE(bars[i].low, std::min(bars[i].open, bars[i].close));
                EXPECT_GT(bars[i].low, 0);
                EXPECT_GT(bars[i].time, i > 0 ? bars[i - 1].time : 0);
            }
        }
        EXPECT_GT(history.ticks({100000}).size(), 100u);
        for (const Tick &tick : history.ticks({100000}))
            EXPECT_GT(tick.ask, tick.bid);
    }
}

TEST(QuoteMarket, GivesQuotesAsTimeGoesOn) {
    QuoteBook book;
    Market market(book, 1, [] { return wednesday(); });
    market.open();
    int quotes = 0;
    QObject::connect(&book, &QuoteBook::quoted, &book, [&quotes] { ++quotes; });
    market.quoteUntil(wednesday() + 60000);
    EXPECT_GT(quotes, 60);
    const int after = quotes;
    market.quoteUntil(wednesday() + 60000);
    EXPECT_EQ(quotes, after) << "no quote comes twice";
    EXPECT_GE(book.history(eurusd)->last()->timeMs, wednesday());
}

TEST(QuoteMarket, RestsAtWeekendsAndOpensWithTrade) {
    EXPECT_TRUE(Market::isOpen(wednesday()));
    EXPECT_FALSE(Market::isOpen(qint64(utc("2024-03-08 22:00:00")) * 1000));
    EXPECT_TRUE(Market::isOpen(qint64(utc("2024-03-08 21:59:59")) * 1000));
    EXPECT_FALSE(Market::isOpen(qint64(utc("2024-03-09 12:00:00")) * 1000));
    EXPECT_FALSE(Market::isOpen(qint64(utc("2024-03-10 21:59:00")) * 1000));
    EXPECT_TRUE(Market::isOpen(qint64(utc("2024-03-10 22:00:00")) * 1000));
    const qint64 saturday = qint64(utc("2024-03-09 12:00:00")) * 1000;
    QuoteBook book;
    Market market(book, 1, [saturday] { return saturday; });
    market.open();
    EXPECT_TRUE(Market::isOpen(market.time()));
    EXPECT_EQ((saturday - market.time()) % 86400000, 0);
    for (const Bar &bar : marketBars(book, "EUR/USD", {'I', 1}))
        EXPECT_TRUE(Market::isOpen(bar.time * 1000LL));
}

TEST(QuoteMarket, LeavesRealQuotesAlone) {
    QuoteFolder folder;
    QuoteBook book;
    QuoteFile file;
    file.path = folder.write("EURUSD.csv",
                             "2012-02-01 00:00,1.30,1.35,1.29,1.31\n2012-02-01 00:01,1.31,1.32,1.28,1.29\n");
    book.importFile(file);
    Market market(book, 1, [] { return wednesday(); });
    market.open();
    market.quoteUntil(wednesday() + 60000);
    EXPECT_EQ(marketBars(book, "EUR/USD", {'I', 1}).size(), 2u);
    EXPECT_EQ(book.symbols().size(), 4);
}

} // namespace
