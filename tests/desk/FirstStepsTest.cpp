// What a newcomer meets: what can be found, what is told when a wish cannot be met, and what stays for the
// next start.
#include "host/core/Journal.h"
#include "host/pages/PageView.h"
#include "host/pages/PropertyDock.h"
#include "host/window/IndicatorPanel.h"
#include "host/window/InformationPanel.h"
#include "host/window/SymbolPanel.h"
#include "host/window/Theme.h"
#include "module/HostMessages.h"
#include "module/HostRecords.h"
#include "tests/desk/DeskFixture.h"
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSlider>
#include <QTextBrowser>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>

using namespace desk;
using desk::test::DeskTest;

namespace {

class FirstSteps : public DeskTest {
protected:
    QString told() { return child<QLabel>("statusMessage")->text(); }
    // A second symbol, with daily bars only.
    QString writeDays(const QString &name) {
        QFile file(folder().path() + '/' + name);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("time,open,high,low,close\n");
        for (int day = 1; day < 20; ++day)
            file.write(QStringLiteral("2024-01-%1,1.1,1.2,1.0,1.15\n").arg(day, 2, 10, QLatin1Char('0')).toLatin1());
        return file.fileName();
    }
    // Two symbols: one by the hour, one by the day.
    void startWithTwoSymbols() {
        Options wanted = options();
        wanted.quoteFiles.push_back(
            QuoteFile::fromArgument(desk::test::writeBars(folder(), "bars.csv", 300) + "=EUR/USD"));
        wanted.quoteFiles.push_back(QuoteFile::fromArgument(writeDays("days.csv") + "=USD/JPY"));
        wanted.symbol = "EUR/USD";
        start(wanted);
        settle();
    }
    void add(const QString &indicator) {
        for (const IndicatorEntry &entry : window().indicators().entries()) {
            if (entry.internalName == indicator)
                window().addIndicator(*deck().active(), entry);
        }
    }
    // Another value that a row of a page may have.
    static QVariant change(const PageItem &item) {
        switch (item.kind) {
        case PageItem::Colour:
            return QColor(0x40 + 40 * item.index, 0x80, 0xc0); // no two rows alike
        case PageItem::Font:
            return QFont(QStringLiteral("DejaVu Sans"), 13, QFont::Bold);
        case PageItem::Boolean:
            return !item.value.toBool();
        case PageItem::List:
            return item.value.toInt() == 0 ? 1 : 0;
        default:
            return item.value.toInt() + 7;
        }
    }
    // Answers every dialog with a key while it lives.
    struct User {
        explicit User(Qt::Key key) {
            QObject::connect(&timer, &QTimer::timeout, [key] {
                if (QWidget *modal = QApplication::activeModalWidget())
                    QTest::keyClick(modal, key);
            });
            timer.start(50);
        }
        QTimer timer;
    };
};

TEST_F(FirstSteps, ACaptionThatFindsNoRoomEndsWithDots) {
    startWithOneChart();
    window().resize(640, 500);
    QTest::qWait(30);
    deck().active()->setCaption("EUR/USD 1 Hour Bid (1.1), MA (14, Simple) (1.1), Bollinger (1.1), Ichimoku (1.1)");
    const QLabel *title = deck().active()->findChild<QLabel *>("chartTitle");
    ASSERT_TRUE(title);
    EXPECT_TRUE(title->text().endsWith(QChar(0x2026))) << title->text().toStdString();
    EXPECT_LE(title->fontMetrics().horizontalAdvance(title->text()), title->width());
    EXPECT_EQ(title->toolTip(), deck().active()->shortCaption());
    const int narrow = title->text().size();
    window().resize(1200, 500);
    QTest::qWait(30);
    EXPECT_GT(title->text().size(), narrow);
}

TEST_F(FirstSteps, AnEmptyChartCannotBeZoomed) {
    startWithOneChart();
    for (const char *name : {"zoomIn", "zoomOut"})
        EXPECT_TRUE(child<QToolButton>(name)->isEnabled()) << name;
    EXPECT_TRUE(child<QSlider>("zoomSlider")->isEnabled());
    ChartPane *full = deck().active();
    window().newChart();
    QTest::qWait(30);
    for (const char *name : {"zoomIn", "zoomOut"})
        EXPECT_FALSE(child<QToolButton>(name)->isEnabled()) << name;
    EXPECT_FALSE(child<QSlider>("zoomSlider")->isEnabled());
    deck().activate(full);
    QTest::qWait(30);
    EXPECT_TRUE(child<QToolButton>("zoomIn")->isEnabled());
    EXPECT_TRUE(child<QSlider>("zoomSlider")->isEnabled());
}

TEST(Theme, AnInkThatCannotBeReadOnItsPaperIsMadeReadable) {
    EXPECT_EQ(theme::readable(QColor(0xc9, 0x33, 0x3a), Qt::white), QColor(0xc9, 0x33, 0x3a));
    const QColor pale(0xb5, 0xdc, 0xbd);
    const QColor onWhite = theme::readable(pale, Qt::white);
    EXPECT_LT(onWhite.lightness(), pale.lightness() - 40);
    EXPECT_NEAR(onWhite.hslHue(), pale.hslHue(), 4);
    EXPECT_EQ(theme::readable(pale, Qt::black), pale);
    EXPECT_GT(theme::readable(QColor(0, 0, 40), Qt::black).lightness(), 60);
    EXPECT_LT(theme::readable(Qt::white, Qt::white).lightness(), 160);
}

TEST_F(FirstSteps, PaleLinesCanBeReadInTheInformationBox) {
    startWithOneChart();
    window().information().showLines({{"VALUE=1.2", QColor(0xb5, 0xdc, 0xbd), 8}}, Qt::white);
    EXPECT_FALSE(child<QLabel>("informationText")->text().contains("#b5dcbd"));
    window().information().showLines({{"VALUE=1.2", QColor(0xc9, 0x33, 0x3a), 8}}, Qt::white);
    EXPECT_TRUE(child<QLabel>("informationText")->text().contains("#c9333a"));
}

TEST_F(FirstSteps, AnIndicatorIsFoundByItsShortNameAndAddedWithEnter) {
    startWithOneChart();
    QTreeWidget *list = window().indicators().view();
    QLineEdit *filter = list->parentWidget()->findChild<QLineEdit *>();
    ASSERT_TRUE(filter);
    QTest::keyClicks(filter, "rsi");
    QStringList shown;
    for (int i = 0; i < list->topLevelItemCount(); ++i) {
        for (int j = 0; j < list->topLevelItem(i)->childCount(); ++j) {
            if (!list->topLevelItem(i)->isHidden() && !list->topLevelItem(i)->child(j)->isHidden())
                shown << list->topLevelItem(i)->child(j)->text(0);
        }
    }
    EXPECT_EQ(shown, QStringList{"Relative Strength Index"});
    const User user(Qt::Key_Return);
    QTest::keyClick(filter, Qt::Key_Return);
    EXPECT_TRUE(deck().active()->caption().contains("RSI")) << deck().active()->caption().toStdString();
}

TEST_F(FirstSteps, AFileThatCannotBeReadIsToldInABox) {
    startWithOneChart();
    QFile file(folder().path() + "/nonsense.csv");
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("foo;bar\nx;y\n");
    file.close();
    window().openQuoteFile(file.fileName());
    const QMessageBox *box = child<QMessageBox>("refusedFile");
    ASSERT_TRUE(box);
    EXPECT_TRUE(box->text().contains("nonsense.csv is not imported")) << box->text().toStdString();
    EXPECT_EQ(told(), box->text());
    EXPECT_EQ(child<QLabel>("statusMessage")->property("level").toString(), "error");
    EXPECT_EQ(deck().panes().size(), 1u);
    window().tell(Level::Message, "All is well.");
    EXPECT_EQ(child<QLabel>("statusMessage")->property("level").toString(), "");
}

TEST_F(FirstSteps, AnIndicatorWithoutASourceIsToldWhy) {
    startWithOneChart();
    window().newChart();
    add("MA");
    EXPECT_TRUE(told().contains("add a symbol to the chart first")) << told().toStdString();
}

TEST_F(FirstSteps, AnIndicatorOnTicksIsToldWhy) {
    Options wanted = options();
    wanted.period = Period{'I', 0};
    start(wanted);
    settle();
    add("MA");
    EXPECT_TRUE(told().contains("ticks")) << told().toStdString();
    EXPECT_FALSE(deck().active()->caption().contains("MA"));
}

TEST_F(FirstSteps, ASymbolIsAddedByThePeriodThatItHasQuotesOf) {
    startWithTwoSymbols();
    const Handle chart = deck().active()->window();
    emit window().symbols().addWanted("USD/JPY");
    EXPECT_TRUE(told().contains("USD/JPY has no quotes finer than 1 day")) << told().toStdString();
    int days = 0;
    for (const Handle handle : session().host().subscriptions().objects(chart)) {
        const auto object = session().host().objects().find(handle);
        if (object->period().period == 'D' && object->outputs().front()->count > 0)
            ++days;
    }
    EXPECT_EQ(days, 1);
    emit window().symbols().openWanted("USD/JPY");
    ASSERT_EQ(deck().panes().size(), 2u);
    EXPECT_EQ(instrument()->period().period, 'D');
}

TEST_F(FirstSteps, ATimeframeOfSeveralSymbolsAsksForAPane) {
    startWithTwoSymbols();
    emit window().symbols().addWanted("USD/JPY");
    window().action("period_H3")->trigger();
    EXPECT_TRUE(told().contains("click the pane")) << told().toStdString();
    QTest::mouseClick(chart(), Qt::LeftButton, Qt::NoModifier, QPoint(chart()->width() / 2, 30));
    window().tell(Level::Message, QString());
    window().action("period_H3")->trigger();
    EXPECT_EQ(told(), "");
    EXPECT_EQ(+instrument()->identity().m_periods.lenPeriod, 180);
}

TEST_F(FirstSteps, APairThatTheChartsMenuMissesIsNamed) {
    startWithOneChart();
    window().addInstrument(*deck().active(), "CHF", Side::Bid, Period{'I', 60});
    EXPECT_TRUE(told().contains("CHF against the dollar")) << told().toStdString();
}

TEST_F(FirstSteps, WithoutAChartThereIsNothingToClose) {
    startWithOneChart();
    QTest::qWait(30);
    EXPECT_TRUE(window().action("viewCloseChart")->isEnabled());
    deck().closeChart(deck().active());
    QTest::qWait(30);
    EXPECT_FALSE(window().action("viewCloseChart")->isEnabled());
    EXPECT_FALSE(window().action("viewNextChart")->isEnabled());
}

TEST_F(FirstSteps, TheGuideOpensFromTheMenuAndWhereAChartAsksForHelp) {
    startWithOneChart();
    window().action("helpGuide")->trigger();
    QTextBrowser *guide = child<QTextBrowser>("guideText");
    ASSERT_TRUE(guide);
    EXPECT_TRUE(guide->isVisible());
    EXPECT_TRUE(guide->toPlainText().contains("Moving in time"));
    guide->window()->close();
    EXPECT_FALSE(guide->isVisible());
    window().openHelp("gr_win1.htm");
    EXPECT_TRUE(guide->isVisible());
}

TEST_F(FirstSteps, EveryRowOfTheChartsPageActs) {
    startWithOneChart();
    const User user(Qt::Key_Return);
    add("MACD");
    settle();
    window().properties().raiseDock();
    deck().active()->takeFocus();
    PropertyDock &dock = window().properties();
    ASSERT_EQ(dock.key().owner, PageKey::Module);
    // Rows that say how the chart acts later; what they set is on the page when it is shown again.
    const QStringList quiet{"Show all areas in information box", "Auto-adjust with trade", "Auto-adjust with candles",
                            "Manual test mode", "Save as default"};
    int rows = 0;
    const Page page = dock.view().page();
    for (const PageGroup &group : page.groups) {
        for (const PageItem &item : group.items) {
            if (item.kind == PageItem::Widget)
                continue;
            ++rows;
            const QImage before = chart()->grab().toImage();
            const QVariant changed = change(item);
            dock.view().setItemValue(item.group, item.index, changed);
            dock.view().setChanged(true);
            click(child<QPushButton>("applyPage"));
            QTest::qWait(30);
                    if (quiet.contains(item.name)) {
                deck().active()->takeFocus();
                const bool kept = dock.view().page().find(item.group, item.index)->value == changed;
                EXPECT_NE(kept, item.name == "Save as default") << item.name.toStdString();
            } else {
                const auto differs = [&] { return chart()->grab().toImage() != before; };
                EXPECT_TRUE(QTest::qWaitFor(differs, 3000)) << item.name.toStdString();
            }
        }
    }
    EXPECT_EQ(rows, 21);
}

TEST_F(FirstSteps, TabsAreStillTabsAtTheNextStart) {
    startWithOneChart();
    window().action("viewTabs")->trigger();
    window().close();
    start(options());
    EXPECT_EQ(deck().mode(), ChartDeck::Tabs);
    EXPECT_TRUE(window().action("viewTabs")->isChecked());
}

} // namespace
