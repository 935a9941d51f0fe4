// The report of the practice account's deals: its arithmetic, and its chart.
#include "host/dealing/DealReport.h"
#include "host/indicators/SourceView.h"
#include "host/quotes/QuoteBook.h"
#include "module/HostRecords.h"
#include "tests/desk/DeskFixture.h"
#include <QTimer>

using namespace desk;
using desk::test::DeskTest;

namespace {

// A series whose closes are given, an hour apart.
class Closes {
public:
    explicit Closes(const std::vector<float> &closes) : m_array(candleLayout()) {
        std::vector<corePointCandle> points;
        for (std::size_t i = 0; i < closes.size(); ++i)
            points.push_back({int(i) * 3600, closes[i], closes[i], closes[i], closes[i], 1});
        m_array.assign(points);
    }
    SourceView view() const { return SourceView(m_array.record()); }

private:
    PointArray<corePointCandle> m_array;
};

TEST(PracticeDeals, APositionTurnsWhereTheCloseCrossesItsAverage) {
    std::vector<float> closes(30, 1.0f);
    closes.insert(closes.end(), 5, 0.9f);
    closes.insert(closes.end(), 40, 1.1f);
    const std::vector<Deal> deals = practiceDeals(Closes(closes).view());
    ASSERT_EQ(deals.size(), 2u);
    EXPECT_EQ(deals[0].openBar, 19); // the first bar with an average
    EXPECT_EQ(deals[0].closeBar, 30);
    EXPECT_GT(deals[0].volume, 0);
    EXPECT_NEAR(deals[0].profit(), (0.9 - 1.0) * 10000, 0.01);
    EXPECT_EQ(deals[1].openBar, 30);
    EXPECT_EQ(deals[1].closeBar, 35);
    EXPECT_LT(deals[1].volume, 0);
    EXPECT_NEAR(deals[1].profit(), (1.1 - 0.9) * -10000, 0.01);
}

TEST(PracticeDeals, AShortSeriesHasNone) {
    EXPECT_TRUE(practiceDeals(SourceView()).empty());
    EXPECT_TRUE(practiceDeals(Closes(std::vector<float>(19, 1.0f)).view()).empty());
    EXPECT_TRUE(practiceDeals(Closes(std::vector<float>(200, 1.0f)).view()).empty());
}

TEST_F(DeskTest, AReportOpensInAChartOfItsOwn) {
    startWithOneChart();
    QTimer user;
    int dialogs = 0;
    QObject::connect(&user, &QTimer::timeout, [&dialogs] {
        if (QWidget *modal = QApplication::activeModalWidget()) {
            ++dialogs;
            QTest::keyClick(modal, Qt::Key_Return);
        }
    });
    user.start(50);
    window().action("accountReport")->trigger();
    user.stop();
    EXPECT_GE(dialogs, 1);
    ASSERT_EQ(deck().panes().size(), 2u);
    EXPECT_TRUE(traced().contains("12002 report symbols"));
    EXPECT_TRUE(traced().contains("\"Added dealing indicator\""));
    const Handle chart = deck().active()->window();
    int reports = 0;
    for (const Handle handle : session().host().subscriptions().objects(chart)) {
        const auto object = session().host().objects().find(handle);
        if (object->isInstrument())
            continue;
        ++reports;
        ASSERT_EQ(object->outputs().size(), 2u);
        EXPECT_GT(+object->outputs()[1]->count, 0);
        EXPECT_EQ(+object->outputs()[0]->owner, fromWord<void>(handle));
    }
    EXPECT_EQ(reports, 1);
}

TEST_F(DeskTest, AReportGoesOnWithItsSeries) {
    startWithOneChart();
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, [] {
        if (QWidget *modal = QApplication::activeModalWidget())
            QTest::keyClick(modal, Qt::Key_Return);
    });
    user.start(50);
    window().action("accountReport")->trigger();
    user.stop();
    std::shared_ptr<CalculatedObject> report;
    for (const Handle handle : session().host().subscriptions().objects(deck().active()->window())) {
        const auto object = session().host().objects().find(handle);
        if (!object->isInstrument())
            report = object;
    }
    ASSERT_TRUE(report);
    const int before = report->outputs()[1]->count;
    ASSERT_GT(before, 0);
    // Bars that fall far below their average, and then rise far above it, turn the position twice.
    const CalculatedObject *series = instrument();
    qint64 time = qint64(SourceView(series->outputs().front()).time(series->outputs().front()->count - 1)) * 1000;
    const QString handle = QStringLiteral("object 0x%1 window").arg(report->handle(), 0, 16);
    const int told = countTraced(handle);
    for (int bar = 0; bar < 40; ++bar) {
        time += 3600000;
        const float price = bar < 20 ? 1.0f : 1.3f;
        ASSERT_TRUE(session().book().quote("EUR/USD", {time, price, price + 0.0002f, 1}));
    }
    EXPECT_GT(+report->outputs()[1]->count, before);
    EXPECT_GT(countTraced(handle), told);
    EXPECT_EQ(+report->outputs()[0]->count, +report->outputs()[1]->count);
    // Another period of the series makes another report.
    QTest::qWait(50);
    const int hours = report->outputs()[1]->count;
    click(buttonOf("periodBar", "period_H3"));
    QTest::qWait(20);
    EXPECT_LT(+report->outputs()[1]->count, hours);
}

TEST_F(DeskTest, AReportThatIsLeftLeavesNoChart) {
    startWithOneChart();
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, [] {
        if (QWidget *modal = QApplication::activeModalWidget())
            QTest::keyClick(modal, Qt::Key_Escape);
    });
    user.start(50);
    window().action("accountReport")->trigger();
    user.stop();
    EXPECT_EQ(deck().panes().size(), 1u);
}

} // namespace
