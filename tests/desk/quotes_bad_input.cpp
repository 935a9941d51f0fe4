// Broken lines, and files that are none.
#include "quotes_folder.h"
#include <QElapsedTimer>
#include <unistd.h>

using namespace desk;

namespace {

const char goodBefore[] = "time,open,high,low,close\n2012-02-01 00:00,1.30,1.31,1.29,1.305\n2012-02-01 "
                          "00:01,1.30,1.31,1.29,1.305\n";
const char goodAfter[] = "\n2012-02-01 00:03,1.30,1.31,1.29,1.305\n2012-02-01 00:04,1.30,1.31,1.29,1.305\n";

struct BrokenCase {
    const char *name;
    const char *line;
    const char *reason;
};

void PrintTo(const BrokenCase &broken, std::ostream *out) {
    *out << broken.name;
}

const BrokenCase brokenCases[] = {
    {"TooFewColumns", "2012-02-01 00:02,1.30,1.31", "3 columns instead of 5"},
    {"TooManyColumns", "2012-02-01 00:02,1.30,1.31,1.29,1.305,7", "6 columns instead of 5"},
    {"WordForANumber", "2012-02-01 00:02,1.30,high,1.29,1.305", "high \"high\" is no number"},
    {"EmptyPrice", "2012-02-01 00:02,1.30,,1.29,1.305", "high \"\" is no number"},
    {"NumberWithATail", "2012-02-01 00:02,1.30,1.31x,1.29,1.305", "high \"1.31x\" is no number"},
    {"NoNumber", "2012-02-01 00:02,NaN,1.31,1.29,1.305", "open \"NaN\" is no number"},
    {"Infinity", "2012-02-01 00:02,inf,1.31,1.29,1.305", "open \"inf\" is no number"},
    {"NegativePrice", "2012-02-01 00:02,-1.30,1.31,1.29,1.305", "open -1.30 is not above zero"},
    {"ZeroPrice", "2012-02-01 00:02,1.30,1.31,0,1.305", "low 0 is not above zero"},
    {"HighBelowLow", "2012-02-01 00:02,1.30,1.29,1.31,1.305", "high 1.29 is below low 1.31"},
    {"CloseAboveHigh", "2012-02-01 00:02,1.30,1.31,1.29,1.35", "is outside of high"},
    {"TimeGoesBack", "2012-02-01 00:00,1.30,1.31,1.29,1.305", "its time goes back"},
    {"SameTime", "2012-02-01 00:01,1.30,1.31,1.29,1.305", "a second bar of the same time"},
    {"NoTime", "yesterday,1.30,1.31,1.29,1.305", "\"yesterday\" is no time"},
    {"NoSuchDay", "2012-02-30 00:02,1.30,1.31,1.29,1.305", "is no time"},
    {"TimeRunsAhead", "2031-02-01 00:02,1.30,1.31,1.29,1.305", "its time runs ahead of the lines behind it"},
};

class BrokenLines : public testing::TestWithParam<BrokenCase> {};

TEST_P(BrokenLines, IsLeftOutAndReported) {
    QuoteFolder quotes;
    const ImportReport report =
        quotes.import("EURUSD.csv", QByteArray(goodBefore) + GetParam().line + goodAfter);
    EXPECT_FALSE(report.refused);
    EXPECT_EQ(report.points, 4);
    EXPECT_EQ(report.leftOut, 1);
    ASSERT_EQ(report.reasons.size(), 1);
    const std::string reason = report.reasons.front().toStdString();
    EXPECT_EQ(reason.find("EURUSD.csv:4: "), 0u) << reason;
    EXPECT_NE(reason.find(GetParam().reason), std::string::npos) << reason;
    EXPECT_TRUE(report.summary.endsWith(QStringLiteral("1 lines left out."))) << report.summary.toStdString();
    const std::vector<Bar> bars = quotes.bars("EUR/USD", Side::Bid, {'I', 1});
    ASSERT_EQ(bars.size(), 4u);
    EXPECT_EQ(bars[2].time, utc("2012-02-01 00:03:00"));
}

INSTANTIATE_TEST_SUITE_P(All, BrokenLines, testing::ValuesIn(brokenCases),
                         [](const auto &info) { return std::string(info.param.name); });

TEST(BadQuotes, TickTwiceIsADuplicateAndTwoInAMillisecondAreNot) {
    QuoteFolder quotes;
    const ImportReport report =
        quotes.import("EURUSD_20140505.csv", "1000,1.3871,1.3873\n1000,1.3871,1.3873\n1000,1.3872,1.3873\n"
                                             "900,1.3872,1.3873\n2000,1.3872,1.3874\n");
    EXPECT_EQ(report.points, 3);
    EXPECT_EQ(report.leftOut, 2);
    ASSERT_EQ(report.reasons.size(), 2);
    EXPECT_TRUE(report.reasons[0].contains(QStringLiteral(":2: a duplicate")));
    EXPECT_TRUE(report.reasons[1].contains(QStringLiteral(":4: its time goes back")));
}

TEST(BadQuotes, OnlyTheFirstReasonsArePrintedAndAllAreCounted) {
    QByteArray content(goodBefore);
    for (int i = 0; i < 500; ++i)
        content += "garbage\n";
    content += goodAfter + 1;
    QuoteFolder quotes;
    const ImportReport report = quotes.import("EURUSD.csv", content);
    EXPECT_EQ(report.leftOut, 500);
    EXPECT_EQ(report.reasons.size(), ImportReport::mostReasons);
    EXPECT_EQ(report.points, 4);
}

TEST(BadQuotes, EndlessLineIsLeftOut) {
    QuoteFolder quotes;
    const ImportReport report =
        quotes.import("EURUSD.csv", QByteArray(goodBefore) + QByteArray(5 << 20, 'x') + goodAfter);
    EXPECT_EQ(report.points, 4);
    EXPECT_EQ(report.leftOut, 1);
    EXPECT_TRUE(report.reasons.value(0).contains(QStringLiteral("longer than")));
}

struct RefusedCase {
    const char *name;
    QByteArray content;
    const char *reason;
};

class RefusedFiles : public testing::TestWithParam<RefusedCase> {};

TEST_P(RefusedFiles, SaysWhyInOneSentence) {
    QuoteFolder quotes;
    const ImportReport report = quotes.import("EURUSD.csv", GetParam().content);
    EXPECT_TRUE(report.refused);
    EXPECT_TRUE(report.summary.contains(QString::fromLatin1(GetParam().reason)))
        << report.summary.toStdString();
    EXPECT_FALSE(report.summary.contains(QLatin1Char('\n')));
    EXPECT_TRUE(quotes.series("EUR/USD").empty());
    EXPECT_TRUE(quotes.store.files().empty());
}

INSTANTIATE_TEST_SUITE_P(
    All, RefusedFiles,
    testing::Values(RefusedCase{"Empty", "", "it is empty"},
                    RefusedCase{"OnlyAHeader", "time,open,high,low,close\n", "no line of quotes"},
                    RefusedCase{"Prose", "Dear reader, this\nis, not a file of quotes\n", "not imported"},
                    RefusedCase{"Binary",
                                QByteArray("\x7f"
                                           "ELF\0\0\0\1",
                                           8),
                                "binary data"},
                    RefusedCase{"BinaryLater", QByteArray(goodBefore) + QByteArray(5000000, '\0'),
                                "binary data after line"},
                    RefusedCase{"NoUsableLine",
                                "time,open,high,low,close\n2012-02-01 00:00,1.30,1.20,1.29,1.305\n2012-02-01 "
                                "00:01,1.30,1.20,1.29,1.305\n",
                                "none of its 2 lines is a quote"}),
    [](const auto &info) { return std::string(info.param.name); });

TEST(BadQuotes, MissingFileAndFolderAreRefused) {
    QuoteFolder quotes;
    QuoteFile file;
    file.path = quotes.folder.filePath(QStringLiteral("nowhere.csv"));
    EXPECT_TRUE(quotes.import(file).summary.contains(QStringLiteral("there is no such file")));
    file.path = quotes.folder.path();
    EXPECT_TRUE(quotes.import(file).summary.contains(QStringLiteral("it is a folder")));
    file.path = QStringLiteral("/dev/zero");
    EXPECT_TRUE(quotes.import(file).summary.contains(QStringLiteral("no ordinary file")));
}

TEST(BadQuotes, FourGigabytesOfNothingAreRefusedAtOnce) {
    QuoteFolder quotes;
    QuoteFile file;
    file.path = quotes.write("EURUSD.csv", goodBefore);
    if (::truncate64(QFile::encodeName(file.path).constData(), 4LL << 30) != 0)
        GTEST_SKIP() << "the file system keeps no sparse files";
    QElapsedTimer clock;
    clock.start();
    const ImportReport report = quotes.import(file);
    EXPECT_TRUE(report.refused);
    EXPECT_TRUE(report.summary.contains(QStringLiteral("binary data")));
    EXPECT_LT(clock.elapsed(), 2000);
}

TEST(BadQuotes, RefusedFileLeavesWhatWasThere) {
    QuoteFolder quotes;
    quotes.import("EURUSD.csv", QByteArray(goodBefore) + (goodAfter + 1));
    const ImportReport report = quotes.import("EURUSD.csv", "now, something\nelse, entirely\n");
    EXPECT_TRUE(report.refused);
    EXPECT_EQ(quotes.bars("EUR/USD", Side::Bid, {'I', 1}).size(), 4u);
}

TEST(BadQuotes, StoppedImportLeavesWhatWasThere) {
    QuoteFolder quotes;
    QByteArray content("time,open,high,low,close\n");
    for (int i = 0; i < 60000; ++i)
        content += QDateTime::fromSecsSinceEpoch(1328054400 + i * 60, Qt::UTC)
                       .toString(QStringLiteral("yyyy-MM-dd hh:mm"))
                       .toLatin1() +
                   ",1.30,1.31,1.29,1.305\n";
    QuoteFile file;
    file.path = quotes.write("EURUSD.csv", content);
    int calls = 0;
    const ImportReport report = FileImport(quotes.store, [&calls](int) { return ++calls < 2; }).run(file);
    EXPECT_TRUE(report.refused);
    EXPECT_TRUE(quotes.series("EUR/USD").empty());
}

} // namespace
