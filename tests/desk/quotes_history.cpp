// The store, and bars put together from finer ones.
#include "host/quotes/BarBuilder.h"
#include "host/quotes/QuoteBook.h"
#include "quotes_folder.h"
#include <QElapsedTimer>
#include <random>

using namespace desk;

namespace {

const Period m1{'I', 1};
const Period h1{'I', 60};
const Period d1{'D', 1};

QByteArray barLine(qint32 time, double price) {
    return QDateTime::fromSecsSinceEpoch(time, Qt::UTC)
               .toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"))
               .toLatin1() +
           QStringLiteral(",%1,%2,%3,%4,1\n")
               .arg(price, 0, 'f', 5)
               .arg(price + 0.0005, 0, 'f', 5)
               .arg(price - 0.0005, 0, 'f', 5)
               .arg(price + 0.0001, 0, 'f', 5)
               .toLatin1();
}

// Bars of `step` seconds from Monday 2012-01-30 on, Friday 22:00 to Sunday 22:00 left out.
QByteArray weeksOfBars(int weeks, int step) {
    QByteArray content;
    const qint32 start = utc("2012-01-29 22:00:00");
    for (int week = 0; week < weeks; ++week) {
        for (qint32 second = 0; second < 5 * 86400; second += step)
            content += barLine(start + week * 7 * 86400 + second, 1.3 + 0.01 * ((second / step) % 100) / 100);
    }
    return content;
}

bool same(const Bar &a, const Bar &b) {
    return a.time == b.time && a.open == b.open && a.high == b.high && a.low == b.low && a.close == b.close &&
           a.volume == b.volume;
}

// ---- store ----

TEST(QuoteStoreFile, KeepsQuotesBetweenStarts) {
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("deep/in/quotes.db"));
    QuoteFolder quotes;
    QuoteFile file;
    file.path = quotes.write("EURUSD.csv", weeksOfBars(1, 3600));
    std::vector<Bar> before;
    {
        QuoteStore store;
        ASSERT_EQ(store.open(path), QString());
        ASSERT_FALSE(FileImport(store).run(file).refused);
        before = SymbolHistory(store, {QStringLiteral("EUR/USD")}).bars(Side::Bid, h1, {});
    }
    ASSERT_EQ(before.size(), 120u);
    QuoteStore store;
    ASSERT_EQ(store.open(path), QString());
    ASSERT_EQ(store.symbols().size(), 1u);
    const std::vector<Bar> after = SymbolHistory(store, {QStringLiteral("EUR/USD")}).bars(Side::Bid, h1, {});
    ASSERT_EQ(after.size(), before.size());
    for (size_t i = 0; i < after.size(); ++i)
        EXPECT_TRUE(same(after[i], before[i])) << i;
    const ImportReport again = FileImport(store).run(file);
    EXPECT_TRUE(again.unchanged);
    EXPECT_EQ(again.points, 120);
}

TEST(QuoteStoreFile, ChangedFileReplacesItsOldQuotes) {
    QuoteFolder quotes;
    quotes.import("EURUSD.csv", weeksOfBars(2, 3600));
    EXPECT_EQ(quotes.bars("EUR/USD", Side::Bid, h1).size(), 240u);
    const ImportReport report = quotes.import("EURUSD.csv", weeksOfBars(1, 3600));
    EXPECT_FALSE(report.unchanged);
    EXPECT_EQ(quotes.bars("EUR/USD", Side::Bid, h1).size(), 120u);
    EXPECT_EQ(quotes.store.files().size(), 1u);
}

TEST(QuoteStoreFile, TouchedFileIsNotReadAgain) {
    QuoteFolder quotes;
    QuoteFile file;
    file.path = quotes.write("EURUSD.csv", weeksOfBars(1, 3600));
    quotes.import(file);
    QFile touched(file.path);
    ASSERT_TRUE(touched.open(QIODevice::ReadWrite));
    ASSERT_TRUE(
        touched.setFileTime(QDateTime::currentDateTime().addDays(-2), QFileDevice::FileModificationTime));
    touched.close();
    EXPECT_TRUE(quotes.import(file).unchanged);
    file.clock = Clock::fromText(QStringLiteral("+01:00"));
    EXPECT_FALSE(quotes.import(file).unchanged) << "another clock makes other quotes";
}

TEST(QuoteStoreFile, StoreThatIsNoneIsToldAndReplacedByMemory) {
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("quotes.db"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(8192, 'x'));
    file.close();
    QuoteStore store;
    const QString reason = store.open(path);
    EXPECT_TRUE(reason.contains(path)) << reason.toStdString();
    EXPECT_TRUE(store.isOpen());
    EXPECT_TRUE(store.saveSymbol({QStringLiteral("EUR/USD")}));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), QByteArray(8192, 'x')) << "what was there stays";
}

TEST(QuoteStoreFile, ImportIsQuick) {
    QuoteFolder quotes;
    QuoteFile file;
    file.path = quotes.write("EURUSD.csv", weeksOfBars(28, 60));
    QElapsedTimer clock;
    clock.start();
    const ImportReport report = quotes.import(file);
    const double seconds = double(clock.nsecsElapsed()) / 1e9;
    EXPECT_EQ(report.points, 28 * 5 * 1440);
#ifdef VELMAR_SANITIZED
    const double wanted = 10000;
#else
    const double wanted = 200000;
#endif
    EXPECT_GT(double(report.points) / seconds, wanted) << "lines a second";
    clock.restart();
    EXPECT_TRUE(quotes.import(file).unchanged);
    EXPECT_LT(clock.elapsed(), 50);
}

// ---- periods ----

TEST(QuotePeriod, NamesBothWays) {
    for (const char *name : {"tick", "M1", "M5", "M10", "H1", "H3", "D1", "W1", "MN1", "Y1"}) {
        const std::optional<Period> period = Period::fromName(QString::fromLatin1(name));
        ASSERT_TRUE(period) << name;
        EXPECT_EQ(period->name(), QString::fromLatin1(name));
    }
    EXPECT_EQ(*Period::fromName(QStringLiteral("h3")), (Period{'I', 180}));
    EXPECT_EQ(*Period::fromName(QStringLiteral("MN1")), (Period{'M', 1}));
    for (const char *name : {"", "M", "M0", "X5", "5", "M99999", "H-1"})
        EXPECT_FALSE(Period::fromName(QString::fromLatin1(name))) << name;
    EXPECT_EQ((Period{'D', 0}).normalised(), d1);
    EXPECT_EQ((Period{'I', 0}).normalised(), (Period{'I', 0}));
    EXPECT_FALSE((Period{'X', 1}).isValid());
    EXPECT_FALSE((Period{'D', -1}).isValid());
}

struct CutCase {
    Period period;
    const char *time;
    const char *start;
    const char *next;
};

TEST(QuotePeriod, BarsBeginWhereTheyBelong) {
    const CutCase cases[] = {
        {m1, "2012-02-01 10:07:59", "2012-02-01 10:07:00", "2012-02-01 10:08:00"},
        {{'I', 5}, "2012-02-01 10:07:59", "2012-02-01 10:05:00", "2012-02-01 10:10:00"},
        {{'I', 180}, "2012-02-01 10:07:59", "2012-02-01 09:00:00", "2012-02-01 12:00:00"},
        {{'I', 7}, "2012-02-01 23:58:00", "2012-02-01 23:55:00", "2012-02-02 00:00:00"},
        {m1, "2012-02-03 23:59:30", "2012-02-03 23:59:00", "2012-02-06 00:00:00"},
        {d1, "2012-02-01 10:07:59", "2012-02-01 00:00:00", "2012-02-02 00:00:00"},
        {d1, "2012-02-03 21:00:00", "2012-02-03 00:00:00", "2012-02-06 00:00:00"}, // Friday
        {d1, "2012-02-04 00:30:00", "2012-02-03 00:00:00", "2012-02-06 00:00:00"}, // Saturday
        {d1, "2012-02-05 22:30:00", "2012-02-06 00:00:00", "2012-02-07 00:00:00"}, // Sunday
        {{'W', 1}, "2012-02-01 10:00:00", "2012-01-30 00:00:00", "2012-02-06 00:00:00"},
        {{'W', 1}, "2012-02-05 23:00:00", "2012-02-06 00:00:00", "2012-02-13 00:00:00"},
        {{'M', 1}, "2012-02-29 23:59:59", "2012-02-01 00:00:00", "2012-03-01 00:00:00"},
        {{'M', 1}, "2012-12-31 12:00:00", "2012-12-01 00:00:00", "2013-01-01 00:00:00"},
        {{'M', 3}, "2012-05-05 12:00:00", "2012-04-01 00:00:00", "2012-07-01 00:00:00"},
        {{'M', 1}, "2012-09-30 23:00:00", "2012-10-01 00:00:00", "2012-11-01 00:00:00"}, // a Sunday evening
        {{'Y', 1}, "2012-12-31 23:59:59", "2012-01-01 00:00:00", "2013-01-01 00:00:00"},
        {{'Y', 1}, "1968-06-01 00:00:00", "1968-01-01 00:00:00", "1969-01-01 00:00:00"},
    };
    for (const CutCase &cut : cases) {
        const BarCutter cutter(cut.period);
        EXPECT_EQ(cutter.start(utc(cut.time)), utc(cut.start))
            << cut.period.name().toStdString() << " of " << cut.time;
        EXPECT_EQ(cutter.next(utc(cut.time)), utc(cut.next))
            << cut.period.name().toStdString() << " of " << cut.time;
    }
    EXPECT_EQ(BarCutter(d1, true).start(utc("2012-02-05 22:30:00")), utc("2012-02-05 00:00:00"));
}

TEST(QuotePeriod, FirstMomentIsTheEarliestOfItsBar) {
    for (const Period period : {m1, h1, d1, Period{'W', 1}, Period{'M', 1}, Period{'Y', 1}}) {
        const BarCutter cutter(period);
        for (qint32 time = utc("2012-01-01 03:00:00"); time < utc("2013-02-01 00:00:00");
             time += 6 * 3600 + 7) {
            const qint32 start = cutter.start(time);
            const qint32 first = cutter.firstMoment(start);
            EXPECT_EQ(cutter.start(first), start);
            EXPECT_LT(cutter.start(first - 1), start);
        }
    }
}

TEST(QuoteHistory, FinerBarsBuildTheCoarserAndWeekendsMakeNone) {
    QuoteFolder quotes;
    quotes.import("EURUSD.csv", weeksOfBars(3, 60));
    const std::vector<Bar> minutes = quotes.bars("EUR/USD", Side::Bid, m1);
    ASSERT_EQ(minutes.size(), 3u * 5 * 1440);
    const std::vector<Bar> days = quotes.bars("EUR/USD", Side::Bid, d1);
    ASSERT_EQ(days.size(), 15u);
    for (const Bar &day : days) {
        const int weekday = QDateTime::fromSecsSinceEpoch(day.time, Qt::UTC).date().dayOfWeek();
        EXPECT_LE(weekday, 5);
    }
    EXPECT_EQ(days.front().time, utc("2012-01-30 00:00:00"));
    EXPECT_EQ(days.front().open, minutes.front().open);
    EXPECT_EQ(days.front().volume, 1560.f) << "Monday has the two hours of its Sunday";
    EXPECT_EQ(days[4].volume, 1320.f) << "Friday ends at 22:00";
    const std::vector<Bar> weeks = quotes.bars("EUR/USD", Side::Bid, {'W', 1});
    ASSERT_EQ(weeks.size(), 3u);
    EXPECT_EQ(weeks[1].volume, 7200.f);
    float high = 0;
    for (size_t i = 0; i < 7200; ++i)
        high = std::max(high, minutes[i].high);
    EXPECT_EQ(weeks[0].high, high);
}

TEST(QuoteHistory, WindowTakesTheNewestAndGrowsToTheLeft) {
    QuoteFolder quotes;
    quotes.import("EURUSD.csv", weeksOfBars(6, 60));
    const std::vector<Bar> all = quotes.bars("EUR/USD", Side::Bid, {'I', 5});
    for (const size_t count : {size_t(1), size_t(100), size_t(1000), size_t(5000)}) {
        const std::vector<Bar> window = quotes.bars("EUR/USD", Side::Bid, {'I', 5}, {count});
        ASSERT_EQ(window.size(), count);
        for (size_t i = 0; i < count; ++i)
            ASSERT_TRUE(same(window[i], all[all.size() - count + i])) << count << " " << i;
    }
    const std::vector<Bar> from =
        quotes.bars("EUR/USD", Side::Bid, {'I', 5}, {10, utc("2012-02-06 00:00:00")});
    ASSERT_FALSE(from.empty());
    EXPECT_EQ(from.front().time, utc("2012-02-06 00:00:00"));
}

TEST(QuoteHistory, CoarseBarsStandAndFinerOnesFillTheRest) {
    QuoteFolder quotes;
    quotes.import("EURUSD_D1.csv",
                  "Date,open,high,low,close\n2012-01-26,1.1,1.2,1.0,1.1\n2012-01-27,1.1,1.2,1.0,1.1\n"
                  "2012-01-30,1.1,1.2,1.0,1.15\n");
    quotes.import("EURUSD_M1.csv", weeksOfBars(1, 60));
    const std::vector<Bar> days = quotes.bars("EUR/USD", Side::Bid, d1);
    ASSERT_EQ(days.size(), 7u);
    EXPECT_EQ(days[2].close, 1.15f) << "the day of the file of days";
    EXPECT_GT(days[3].open, 1.29f) << "days put together from minutes";
}

TEST(QuoteHistory, TicksBuildBars) {
    QuoteFolder quotes;
    quotes.import("EURUSD_20140505.csv",
                  "0,1.3871,1.3873\n30000,1.3875,1.3876\n59999,1.3870,1.3872\n60000,1.3880,1.3882\n");
    const std::vector<Bar> bid = quotes.bars("EUR/USD", Side::Bid, m1);
    ASSERT_EQ(bid.size(), 2u);
    EXPECT_EQ(bid[0].open, 1.3871f);
    EXPECT_EQ(bid[0].high, 1.3875f);
    EXPECT_EQ(bid[0].low, 1.3870f);
    EXPECT_EQ(bid[0].close, 1.3870f);
    EXPECT_EQ(bid[0].volume, 3.f) << "without a volume the quotes are counted";
    EXPECT_EQ(quotes.bars("EUR/USD", Side::Ask, m1)[1].open, 1.3882f);
    EXPECT_EQ(quotes.bars("EUR/USD", Side::Bid, h1).size(), 1u);
}

TEST(QuoteHistory, SideWithoutQuotesTakesTheOthers) {
    QuoteFolder quotes;
    quotes.import("EURUSD.csv", weeksOfBars(1, 3600));
    EXPECT_EQ(quotes.bars("EUR/USD", Side::Ask, h1).size(), 120u);
    EXPECT_EQ(quotes.bars("EUR/USD", Side::Middle, h1).size(), 120u);
}

TEST(QuoteHistory, MarketOfSevenDaysKeepsItsWeekend) {
    QByteArray content;
    for (int day = 0; day < 28; ++day)
        content += barLine(utc("2012-01-30 00:00:00") + day * 86400, 1.3);
    QuoteFolder quotes;
    quotes.import("COIN.csv", content);
    EXPECT_TRUE(quotes.store.symbol(QStringLiteral("COIN"))->tradesAtWeekends);
    EXPECT_EQ(quotes.bars("COIN", Side::Bid, d1).size(), 28u);
}

// Quotes one by one and all at once make the same bars.
TEST(QuoteHistory, LiveQuotesEqualBatch) {
    std::mt19937 random(7);
    for (const Period period : {m1, Period{'I', 5}, h1, d1, Period{'W', 1}}) {
        QuoteBook book;
        book.addSymbol({QStringLiteral("EUR/USD")});
        BarBuilder direct(period, false);
        qint64 ms = qint64(utc("2012-02-02 20:00:00")) * 1000;
        float price = 1.3f;
        for (int i = 0; i < 3000; ++i) {
            ms += random() % 120000;
            price += (float(random() % 201) - 100) * 1e-5f;
            const Tick tick{ms, price, price + 0.0002f, 1};
            ASSERT_TRUE(book.quote(QStringLiteral("EUR/USD"), tick));
            direct.add(tick.timeSec(), tick.bid, 1);
        }
        const std::vector<Bar> live =
            book.history(QStringLiteral("EUR/USD"))->bars(Side::Bid, period, {100000});
        ASSERT_EQ(live.size(), direct.bars().size()) << period.name().toStdString();
        for (size_t i = 0; i < live.size(); ++i)
            EXPECT_TRUE(same(live[i], direct.bars()[i])) << period.name().toStdString() << " " << i;
    }
}

TEST(QuoteBookTest, RefusesWhatIsNoQuote) {
    QuoteBook book;
    book.addSymbol({QStringLiteral("EUR/USD")});
    const QString symbol = QStringLiteral("EURUSD");
    EXPECT_TRUE(book.quote(symbol, {1000000, 1.3f, 1.31f, 0}));
    EXPECT_FALSE(book.quote(symbol, {999999, 1.3f, 1.31f, 0})) << "back in time";
    EXPECT_FALSE(book.quote(symbol, {1000001, -1.3f, 1.31f, 0}));
    EXPECT_FALSE(book.quote(symbol, {1000001, 1.3f, std::numeric_limits<float>::quiet_NaN(), 0}));
    EXPECT_FALSE(book.quote(QStringLiteral("XYZ"), {1000001, 1.3f, 1.31f, 0})) << "unknown symbol";
    EXPECT_EQ(book.history(symbol)->last()->bid, 1.3f);
}

TEST(QuoteBookTest, KeptQuotesAreThereAtTheNextStart) {
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("quotes.db"));
    for (int start = 0; start < 2; ++start) {
        QuoteBook book;
        book.openStore(path);
        book.addSymbol({QStringLiteral("EUR/USD")});
        book.keepQuotes(QStringLiteral("EUR/USD"));
        for (int i = 0; i < 50; ++i)
            ASSERT_TRUE(book.quote(QStringLiteral("EUR/USD"), {(start * 3600 + i) * 1000LL, 1.3f, 1.31f, 0}));
        if (start == 0) {
            const size_t before = book.history(QStringLiteral("EUR/USD"))->ticks({1000}).size();
            book.storeKeptQuotes();
            EXPECT_EQ(book.history(QStringLiteral("EUR/USD"))->ticks({1000}).size(), before);
        }
    }
    QuoteBook book;
    book.openStore(path);
    ASSERT_TRUE(book.history(QStringLiteral("EUR/USD")));
    EXPECT_EQ(book.history(QStringLiteral("EUR/USD"))->ticks({1000}).size(), 100u);
    EXPECT_EQ(book.history(QStringLiteral("EUR/USD"))->bars(Side::Bid, m1, {})[0].volume, 50.f);
    EXPECT_EQ(book.store().files().size(), 1u);
}

} // namespace
