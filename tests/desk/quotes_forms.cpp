// Every form in which a file of quotes may be written.
#include "host/quotes/FormFinder.h"
#include "quotes_folder.h"

using namespace desk;

namespace {

struct FormCase {
    const char *name;
    const char *fileName;
    QByteArray content;
    const char *symbol;
    Period period; // ticks: tick
    int count;
    const char *firstTime;
    float firstOpen; // of ticks: the bid
    float lastClose; // of ticks: the ask
    int digits;
};

void PrintTo(const FormCase &form, std::ostream *out) {
    *out << form.name;
}

const Period m1{'I', 1};
const Period h1{'I', 60};
const Period d1{'D', 1};
const Period tick{'I', 0};

const FormCase formCases[] = {
    {"HeaderIsoTimesVolume", "EURUSD_H1.csv",
     ",Open,High,Low,Close,Volume\n2017-04-19 09:00:00,1.0716,1.0722,1.07083,1.07219,1413\n"
     "2017-04-19 10:00:00,1.07214,1.07296,1.07214,1.0726,1241\n2017-04-19 "
     "11:00:00,1.07256,1.07299,1.0717,1.07192,1025\n",
     "EUR/USD", h1, 3, "2017-04-19 09:00:00", 1.0716f, 1.07192f, 5},
    {"TimesWithZone", "GBPUSD_M1_bid.csv",
     "timestamp,open,high,low,close\n2012-02-01 02:00:00+02:00,1.57597,1.57606,1.57576,1.57576\n"
     "2012-02-01 02:01:00+02:00,1.57576,1.57583,1.57543,1.57543\n",
     "GBP/USD", m1, 2, "2012-02-01 00:00:00", 1.57597f, 1.57543f, 5},
    {"PointsDatesCrlf", "EURUSD_D1.csv",
     "Date,open,high,low,close,tick_volume\r\n2012-12-04,130583.99999999999,131073.0,130453.0,130935.0,"
     "55870\r\n"
     "2012-12-05,130934.0,131253.0,130596.0,130701.0,54075\r\n",
     "EUR/USD", d1, 2, "2012-12-04 00:00:00", 1.30584f, 1.30701f, 5},
    {"PointsOfTheYen", "USDJPY_D1.csv",
     "Date,open,high,low,close,tick_volume\r\n2012-12-04,82173.0,82206.0,81711.0,81888.0,72067\r\n"
     "2012-12-05,81890.0,82473.0,81789.0,82415.0,53785\r\n",
     "USD/JPY", d1, 2, "2012-12-04 00:00:00", 82.173f, 82.415f, 3},
    {"NoHeaderBidAskSizesNoLastNewline", "EURUSD_D1_bidask.csv",
     "20070102 00:00,1.32095,1.32957,1.32083,1.32736,0,1.32195,1.32972,1.32183,1.32751,0\n"
     "20070103 00:00,1.32736,1.32895,1.31461,1.31687,0,1.32751,1.3291,1.31476,1.31702,0",
     "EUR/USD", d1, 2, "2007-01-02 00:00:00", 1.32095f, 1.31687f, 5},
    {"TicksFromMidnight", "EURUSD_TICK_20140505.csv",
     "23668,1.38710,1.38726\r\n25634,1.38709,1.38727\r\n25634,1.38711,1.38726\r\n86399513,1.38741,1.38755",
     "EUR/USD", tick, 4, "2014-05-05 00:00:23", 1.38710f, 1.38755f, 5},
    {"SemicolonsNoHeader", "DAT_ASCII_EURUSD_M1_2012.csv",
     "20120201 000000;1.306600;1.306600;1.306560;1.306560;0\n20120201 "
     "000100;1.306570;1.306570;1.306470;1.306560;0\n"
     "20120201 000200;1.306520;1.306560;1.306520;1.306560;0\n",
     "EUR/USD", m1, 3, "2012-02-01 00:00:00", 1.3066f, 1.30656f, 5},
    {"TabsAngleHeaderDateAndTime",
     "GBPUSD_M5_history.txt",
     "<DATE>\t<TIME>\t<OPEN>\t<HIGH>\t<LOW>\t<CLOSE>\t<TICKVOL>\t<VOL>\t<SPREAD>\n"
     "2012.02.01\t00:00:00\t1.57597\t1.57606\t1.57576\t1.57576\t90\t0\t8\n"
     "2012.02.01\t00:05:00\t1.57576\t1.57583\t1.57543\t1.57543\t80\t0\t8\n",
     "GBP/USD",
     {'I', 5},
     2,
     "2012-02-01 00:00:00",
     1.57597f,
     1.57543f,
     5},
    {"DateAndTimeColumnsNoHeader", "EURUSD60.csv",
     "2012.02.01,00:00,1.3066,1.3070,1.3060,1.3065,900\n2012.02.01,01:00,1.3065,1.3080,1.3061,1.3070,800\n",
     "EUR/USD", h1, 2, "2012-02-01 00:00:00", 1.3066f, 1.3070f, 5},
    {"TickerColumns", "quotes.txt",
     "<TICKER>,<PER>,<DATE>,<TIME>,<OPEN>,<HIGH>,<LOW>,<CLOSE>,<VOL>\n"
     "EURUSD,60,20120201,000000,1.3066,1.3070,1.3060,1.3065,900\nEURUSD,60,20120201,010000,1.3065,1.3080,1."
     "3061,1.3070,800\n",
     "EUR/USD", h1, 2, "2012-02-01 00:00:00", 1.3066f, 1.3070f, 5},
    {"BlanksBetweenColumns", "AUDUSD.txt",
     "2012-02-01 00:00 1.0616 1.0622 1.0610 1.0620 12\n2012-02-01 00:01   1.0620 1.0625 1.0619 1.0621 15\n",
     "AUD/USD", m1, 2, "2012-02-01 00:00:00", 1.0616f, 1.0621f, 5},
    {"DayFirstDecimalCommas", "USDCHF_H1.csv",
     "Datum;Open;High;Low;Close\n13.02.2012 01:00;0,9130;0,9140;0,9125;0,9135\n13.02.2012 "
     "02:00;0,9135;0,9150;0,9130;0,9148\n",
     "USD/CHF", h1, 2, "2012-02-13 01:00:00", 0.9130f, 0.9148f, 5},
    {"MonthFirst", "USDCAD.csv",
     "Date,Open,High,Low,Close\n02/13/2012,0.9991,1.0010,0.9980,1.0002\n02/14/"
     "2012,1.0002,1.0030,0.9990,1.0020\n",
     "USD/CAD", d1, 2, "2012-02-13 00:00:00", 0.9991f, 1.0020f, 5},
    {"SlashesToldByOrder", "USDCAD.csv",
     "Date,Open,High,Low,Close\n01/02/2012,0.9991,1.0010,0.9980,1.0002\n02/02/"
     "2012,1.0002,1.0030,0.9990,1.0020\n"
     "03/02/2012,1.0020,1.0030,0.9990,1.0010\n06/02/2012,1.0010,1.0030,0.9990,1.0020\n01/03/"
     "2012,1.0020,1.0030,0.9990,1.0025\n",
     "USD/CAD", d1, 5, "2012-02-01 00:00:00", 0.9991f, 1.0025f, 5},
    {"EpochSeconds", "EURUSD.csv",
     "time,open,high,low,close\n1328054400,1.3066,1.3070,1.3060,1.3065\n1328058000,1.3065,1.3080,1.3061,1."
     "3070\n",
     "EUR/USD", h1, 2, "2012-02-01 00:00:00", 1.3066f, 1.3070f, 5},
    {"EpochMilliseconds", "EURUSD.csv", "1328054400250,1.3066,1.3067\n1328054401000,1.3065,1.3066\n",
     "EUR/USD", tick, 2, "2012-02-01 00:00:00", 1.3066f, 1.3066f, 5},
    {"QuotedFields", "EURUSD.csv",
     "\"Date\",\"Open\",\"High\",\"Low\",\"Close\"\n\"2012-02-01\",\"1.3066\",\"1.3070\",\"1.3060\",\"1."
     "3065\"\n"
     "\"2012-02-02\",\"1.3065\",\"1.3080\",\"1.3061\",\"1.3070\"\n",
     "EUR/USD", d1, 2, "2012-02-01 00:00:00", 1.3066f, 1.3070f, 5},
    {"QuotedLines", "EURUSD.csv",
     "\"Date,Open,High,Low,Close\"\n\"2012-02-01,1.3066,1.3070,1.3060,1.3065\"\n\"2012-02-02,1.3065,1.3080,1."
     "3061,1.3070\"\n",
     "EUR/USD", d1, 2, "2012-02-01 00:00:00", 1.3066f, 1.3070f, 5},
    {"NewestFirstMonthNames", "EURUSD history.csv",
     "\"Date\",\"Price\",\"Open\",\"High\",\"Low\",\"Vol.\",\"Change %\"\n"
     "\"Feb 03, 2012\",\"1.3158\",\"1.3143\",\"1.3205\",\"1.3065\",\"85.2K\",\"0.1%\"\n"
     "\"Feb 02, 2012\",\"1.3143\",\"1.3160\",\"1.3196\",\"1.3084\",\"80.2K\",\"-0.1%\"\n"
     "\"Feb 01, 2012\",\"1.3160\",\"1.3080\",\"1.3217\",\"1.3028\",\"80.2K\",\"0.6%\"\n",
     "EUR/USD", d1, 3, "2012-02-01 00:00:00", 1.3080f, 1.3158f, 5},
    {"AskBeforeBidByName", "EURUSD_ticks.csv",
     "Gmt time,Ask,Bid,AskVolume,BidVolume\n01.02.2012 00:00:00.350,1.30672,1.30665,1.5,2.25\n"
     "01.02.2012 00:00:01.100,1.30671,1.30664,1.5,2.25\n",
     "EUR/USD", tick, 2, "2012-02-01 00:00:00", 1.30665f, 1.30671f, 5},
    {"SymbolInTheLines", "ticks.csv",
     "EUR/USD,20120201 00:00:00.123,1.30665,1.30672\nEUR/USD,20120201 00:00:01.001,1.30664,1.30671\n",
     "EUR/USD", tick, 2, "2012-02-01 00:00:00", 1.30665f, 1.30671f, 5},
    {"PartsOfASecondWithoutColons", "DAT_EURUSD_T_201405.csv",
     "20140505 070000123,1.387100,1.387260,0\n20140505 070001223,1.387110,1.387260,0\n", "EUR/USD", tick, 2,
     "2014-05-05 07:00:00", 1.3871f, 1.38726f, 5},
    {"HalvesOfTheDay", "EURUSD.csv",
     "Time,Open,High,Low,Close\n2/1/2012 11:00:00 AM,1.3066,1.3070,1.3060,1.3065\n2/1/2012 12:00:00 "
     "PM,1.3065,1.3080,1.3061,1.3070\n"
     "2/1/2012 1:00:00 PM,1.3070,1.3080,1.3061,1.3075\n",
     "EUR/USD", h1, 3, "2012-02-01 11:00:00", 1.3066f, 1.3075f, 5},
    {"OtherSymbolFewDigits", "DAX_D1.csv",
     "Date,Open,High,Low,Close\n2012-02-01,6458.9,6617.5,6450.1,6616.6\n2012-02-02,6630.2,6680.0,6610.5,6655."
     "6\n",
     "DAX", d1, 2, "2012-02-01 00:00:00", 6458.9f, 6655.6f, 1},
    {"OneBarNamedByTheFile", "EURUSD_H1.csv", "2012-02-01 05:00,1.3066,1.3070,1.3060,1.3065\n", "EUR/USD", h1,
     1, "2012-02-01 05:00:00", 1.3066f, 1.3065f, 5},
    {"SecondsPutTogetherToMinutes", "EURUSD_10s.csv",
     "2012-02-01 00:00:00,1.3066,1.3070,1.3060,1.3065\n2012-02-01 00:00:10,1.3065,1.3080,1.3061,1.3070\n"
     "2012-02-01 00:00:20,1.3070,1.3075,1.3061,1.3071\n2012-02-01 00:01:00,1.3071,1.3075,1.3061,1.3074\n",
     "EUR/USD", m1, 4, "2012-02-01 00:00:00", 1.3066f, 1.3074f, 5},
    {"ByteOrderMarkAndComment", "EURUSD.csv",
     "\xef\xbb\xbf# sample\n2012-02-01 00:00,1.3066,1.3070,1.3060,1.3065\n\n2012-02-01 "
     "00:01,1.3065,1.3080,1.3061,1.3070\n",
     "EUR/USD", m1, 2, "2012-02-01 00:00:00", 1.3066f, 1.3070f, 5},
    {"CarriageReturnsOnly", "EURUSD.csv",
     "2012-02-01 00:00,1.3066,1.3070,1.3060,1.3065\r2012-02-01 00:01,1.3065,1.3080,1.3061,1.3070\r",
     "EUR/USD", m1, 2, "2012-02-01 00:00:00", 1.3066f, 1.3070f, 5},
    {"OnePrice", "EURUSD.csv", "2012-02-01 00:00:01,1.3066,3\n2012-02-01 00:00:02,1.3067,1\n", "EUR/USD",
     tick, 2, "2012-02-01 00:00:01", 1.3066f, 1.3067f, 5},
};

class QuoteForms : public testing::TestWithParam<FormCase> {};

TEST_P(QuoteForms, IsRead) {
    const FormCase &form = GetParam();
    QuoteFolder quotes;
    const ImportReport report = quotes.import(form.fileName, form.content);
    ASSERT_FALSE(report.refused) << report.summary.toStdString();
    EXPECT_EQ(report.symbol.toStdString(), form.symbol);
    EXPECT_EQ(report.points, form.count) << report.reasons.join(QLatin1Char('\n')).toStdString();
    EXPECT_EQ(report.leftOut, 0);
    EXPECT_FALSE(report.form.contains(QLatin1Char('\n')));
    const std::optional<SymbolInfo> symbol = quotes.store.symbol(report.symbol);
    ASSERT_TRUE(symbol);
    EXPECT_EQ(symbol->digits, form.digits);
    if (form.period.isTick()) {
        const std::vector<Tick> ticks = quotes.ticks(form.symbol);
        ASSERT_EQ(ticks.size(), size_t(form.count));
        EXPECT_EQ(ticks.front().timeSec(), utc(form.firstTime));
        EXPECT_EQ(ticks.front().bid, form.firstOpen);
        EXPECT_EQ(ticks.back().ask, form.lastClose);
        return;
    }
    const std::vector<StoredSeries> series = quotes.series(form.symbol);
    ASSERT_FALSE(series.empty());
    EXPECT_EQ(series.front().period, form.period);
    const std::vector<Bar> bars = quotes.bars(form.symbol, series.front().side, form.period);
    ASSERT_FALSE(bars.empty());
    EXPECT_EQ(bars.front().time, utc(form.firstTime));
    EXPECT_EQ(bars.front().open, form.firstOpen);
    EXPECT_EQ(bars.back().close, form.lastClose);
}

INSTANTIATE_TEST_SUITE_P(All, QuoteForms, testing::ValuesIn(formCases),
                         [](const auto &info) { return std::string(info.param.name); });

TEST(QuoteForm, WideTextIsRead) {
    QByteArray wide("\xff\xfe");
    for (const char c : QByteArray("2012-02-01 00:00,1.3066,1.3070,1.3060,1.3065\r\n2012-02-01 "
                                   "00:01,1.3065,1.3080,1.3061,1.3070\r\n"))
        wide.append(c).append('\0');
    QuoteFolder quotes;
    const ImportReport report = quotes.import("EURUSD.csv", wide);
    EXPECT_FALSE(report.refused) << report.summary.toStdString();
    EXPECT_EQ(report.points, 2);
}

TEST(QuoteForm, SideComesFromTheFileName) {
    QuoteFolder quotes;
    const QByteArray lines(
        "2012-02-01 00:00,1.3066,1.3070,1.3060,1.3065\n2012-02-01 00:01,1.3065,1.3080,1.3061,1.3070\n");
    quotes.import("EURUSD_ask.csv", lines);
    ASSERT_EQ(quotes.series("EUR/USD").size(), 1u);
    EXPECT_EQ(quotes.series("EUR/USD").front().side, Side::Ask);
}

TEST(QuoteForm, BidAndAskBarsOfOneLineBecomeTwoSeries) {
    QuoteFolder quotes;
    quotes.import("EURUSD.csv",
                  "20070102 00:00,1.32095,1.32957,1.32083,1.32736,7,1.32195,1.32972,1.32183,1.32751,0\n"
                  "20070103 00:00,1.32736,1.32895,1.31461,1.31687,8,1.32751,1.3291,1.31476,1.31702,0\n");
    const std::vector<Bar> ask = quotes.bars("EUR/USD", Side::Ask, d1);
    ASSERT_EQ(ask.size(), 2u);
    EXPECT_EQ(ask[0].open, 1.32195f);
    EXPECT_EQ(ask[1].close, 1.31702f);
    const std::vector<Bar> middle = quotes.bars("EUR/USD", Side::Middle, d1);
    ASSERT_EQ(middle.size(), 2u);
    EXPECT_NEAR(middle[0].open, 1.32145, 1e-6);
    EXPECT_EQ(middle[0].volume, 7.f);
}

TEST(QuoteForm, OptionsGoBeforeWhatIsFoundOut) {
    QuoteFolder quotes;
    QuoteFile file;
    file.path = quotes.write("ticks.csv", "3600000,1.38710,1.38726\n3600500,1.38709,1.38727\n");
    file.symbol = QStringLiteral("GBPUSD");
    EXPECT_TRUE(quotes.import(file).refused) << "a count from midnight needs a day";
    file.date = QDate(2014, 5, 5);
    file.clock = Clock::fromText(QStringLiteral("+02:00"));
    file.digits = 4;
    const ImportReport report = quotes.import(file);
    ASSERT_FALSE(report.refused) << report.summary.toStdString();
    EXPECT_EQ(report.symbol, QStringLiteral("GBP/USD"));
    EXPECT_EQ(quotes.ticks("GBP/USD").front().timeSec(), utc("2014-05-04 23:00:00"));
    EXPECT_EQ(quotes.store.symbol(report.symbol)->digits, 4);
    EXPECT_TRUE(report.form.contains(QStringLiteral("UTC+02:00")));
}

TEST(QuoteForm, ArgumentNamesFileAndSymbol) {
    EXPECT_EQ(QuoteFile::fromArgument(QStringLiteral("/nowhere/a=b.csv=EURUSD")).symbol,
              QStringLiteral("EUR/USD"));
    EXPECT_EQ(QuoteFile::fromArgument(QStringLiteral("/nowhere/a=b.csv=EURUSD")).path,
              QStringLiteral("/nowhere/a=b.csv"));
    EXPECT_EQ(QuoteFile::fromArgument(QStringLiteral("/nowhere/a.csv")).symbol, QString());
}

// Real files, when a folder of them is at hand.
TEST(QuoteForm, RealFilesAreReadWithoutALoss) {
    const QDir folder(qEnvironmentVariable("VELMAR_SAMPLE_QUOTES"));
    if (qEnvironmentVariable("VELMAR_SAMPLE_QUOTES").isEmpty() || !folder.exists())
        GTEST_SKIP() << "VELMAR_SAMPLE_QUOTES names no folder";
    QuoteFolder quotes;
    for (const QString &name : folder.entryList({QStringLiteral("*.csv")}, QDir::Files)) {
        QuoteFile file;
        file.path = folder.filePath(name);
        const ImportReport report = quotes.import(file);
        EXPECT_FALSE(report.refused) << report.summary.toStdString();
        EXPECT_EQ(report.leftOut, 0) << name.toStdString() << ": "
                                     << report.reasons.join(QLatin1Char('\n')).toStdString();
        EXPECT_EQ(report.points, report.lines);
    }
}

// ---- clocks ----

TEST(QuoteClock, OffsetsAndSummerTime) {
    const Clock fixed = *Clock::fromText(QStringLiteral("+02:00"));
    EXPECT_EQ(fixed.toUtc(utc("2012-07-01 12:00:00")), utc("2012-07-01 10:00:00"));
    const Clock europe = *Clock::fromText(QStringLiteral("+02:00/eu"));
    EXPECT_EQ(europe.toUtc(utc("2012-01-10 12:00:00")), utc("2012-01-10 10:00:00"));
    EXPECT_EQ(europe.toUtc(utc("2012-07-01 12:00:00")), utc("2012-07-01 09:00:00"));
    const Clock america = *Clock::fromText(QStringLiteral("+02:00/us"));
    // Between the two continents' switches: 2012-03-11 and 2012-03-25.
    EXPECT_EQ(america.toUtc(utc("2012-03-15 12:00:00")), utc("2012-03-15 09:00:00"));
    EXPECT_EQ(europe.toUtc(utc("2012-03-15 12:00:00")), utc("2012-03-15 10:00:00"));
    EXPECT_FALSE(Clock::fromText(QStringLiteral("teatime")));
    EXPECT_FALSE(Clock::fromText(QStringLiteral("+25:00")));
}

TEST(QuoteClock, ReadingThatComesTwiceInAutumnGoesOnAscending) {
    QuoteFolder quotes;
    QuoteFile file;
    file.clock = Clock::fromText(QStringLiteral("+01:00/eu"));
    file.path = quotes.write("EURUSD.csv",
                             "2012-10-28 01:30,1.30,1.31,1.29,1.30\n2012-10-28 02:00,1.30,1.31,1.29,1.30\n"
                             "2012-10-28 02:30,1.30,1.31,1.29,1.30\n2012-10-28 02:00,1.30,1.31,1.29,1.30\n"
                             "2012-10-28 02:30,1.30,1.31,1.29,1.30\n2012-10-28 03:00,1.30,1.31,1.29,1.30\n");
    const ImportReport report = quotes.import(file);
    EXPECT_EQ(report.leftOut, 0) << report.reasons.join(QLatin1Char('\n')).toStdString();
    const std::vector<Bar> bars = quotes.bars("EUR/USD", Side::Bid, {'I', 30});
    ASSERT_EQ(bars.size(), 6u);
    for (size_t i = 1; i < bars.size(); ++i)
        EXPECT_EQ(bars[i].time - bars[i - 1].time, 1800);
    EXPECT_EQ(bars.front().time, utc("2012-10-27 23:30:00"));
}

TEST(QuoteClock, DaysKeepTheirDateUnderAnyClock) {
    QuoteFolder quotes;
    QuoteFile file;
    file.clock = Clock::fromText(QStringLiteral("+02:00/eu"));
    file.path = quotes.write(
        "EURUSD.csv",
        "Date,open,high,low,close\n2012-07-02,1.30,1.31,1.29,1.30\n2012-07-03,1.30,1.31,1.29,1.30\n");
    quotes.import(file);
    EXPECT_EQ(quotes.bars("EUR/USD", Side::Bid, d1).front().time, utc("2012-07-02 00:00:00"));
}

} // namespace
