// A user's gestures in the real desk: mouse and keys, and what they do to the charts.
#include "host/core/Journal.h"
#include "host/core/TextService.h"
#include "host/pages/PageView.h"
#include "host/pages/PropertyDock.h"
#include "host/quotes/QuoteBook.h"
#include "host/window/InformationPanel.h"
#include "host/window/LogPanel.h"
#include "host/window/SymbolPanel.h"
#include "module/HostMessages.h"
#include "module/HostRecords.h"
#include "tests/desk/DeskFixture.h"
#include <QCheckBox>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QSlider>
#include <QTabBar>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QTreeView>

using namespace desk;
using desk::test::DeskTest;

namespace {

TEST_F(DeskTest, AFirstStartShowsFourLivingCharts) {
    start(options());
    ASSERT_EQ(deck().panes().size(), 4u);
    settle();
    QStringList captions;
    for (const ChartPane *pane : deck().panes()) {
        captions << pane->shortCaption();
        ASSERT_TRUE(pane->chart());
        EXPECT_EQ(pane->chart()->size(), pane->chart()->parentWidget()->parentWidget()->size());
        EXPECT_FALSE(session().host().subscriptions().objects(pane->window()).empty());
        // Candles are there: more colours than those of the frame and its texts on white.
        const QImage picture = pane->chart()->grab().toImage();
        EXPECT_LT(countPixels(picture, Qt::white), picture.width() * picture.height() * 0.98);
    }
    EXPECT_TRUE(captions.at(0).startsWith("EUR/USD")) << captions.join(" | ").toStdString();
    EXPECT_TRUE(captions.at(3).startsWith("USD/CHF")) << captions.join(" | ").toStdString();
    EXPECT_TRUE(QTest::qWaitFor([this] { return countTraced("3009 update data") > 0; }, 5000));
}

TEST_F(DeskTest, ADoubleClickOnASymbolAddsItToTheActiveChart) {
    start(options());
    settle();
    ChartPane *pane = deck().active();
    const std::size_t before = session().host().subscriptions().objects(pane->window()).size();
    QTreeView *list = child<QTreeView>("symbolView");
    window().symbols().select("USD/JPY");
    const QPoint place = list->visualRect(list->currentIndex()).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    EXPECT_EQ(countTraced("5007 add instruments {window"), 5);
    EXPECT_EQ(session().host().subscriptions().objects(pane->window()).size(), before + 1);
    EXPECT_TRUE(pane->caption().contains("USD/JPY")) << pane->caption().toStdString();
}

TEST_F(DeskTest, TheMenuOfASymbolOpensItInAChartOfItsOwn) {
    start(options());
    QTreeView *list = child<QTreeView>("symbolView");
    window().symbols().select("USD/JPY");
    QContextMenuEvent event(QContextMenuEvent::Mouse, list->visualRect(list->currentIndex()).center());
    QApplication::sendEvent(list->viewport(), &event);
    QMenu *menu = child<QMenu>("symbolMenu");
    ASSERT_TRUE(menu);
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    QTest::qWait(20);
    ASSERT_EQ(deck().panes().size(), 5u);
    EXPECT_TRUE(deck().active()->shortCaption().startsWith("USD/JPY"));
}

TEST_F(DeskTest, TheFilterOfTheListFindsASymbolByKeys) {
    start(options());
    QTreeView *list = child<QTreeView>("symbolView");
    QLineEdit *filter = list->parentWidget()->findChild<QLineEdit *>();
    ASSERT_TRUE(filter);
    QTest::keyClicks(filter, "jpy");
    EXPECT_EQ(list->model()->rowCount(), 1);
    const int before = countTraced("5007 add instruments {window");
    QTest::keyClick(filter, Qt::Key_Return);
    EXPECT_EQ(countTraced("5007 add instruments {window"), before + 1);
}

TEST_F(DeskTest, ASymbolAddedTwiceLivesOnWhenOneOfThemIsDeleted) {
    startWithOneChart();
    QTimer user; // takes the layer that the chart offers
    QObject::connect(&user, &QTimer::timeout, [] {
        if (QWidget *modal = QApplication::activeModalWidget())
            QTest::keyClick(modal, Qt::Key_Return);
    });
    user.start(50);
    emit window().symbols().addWanted("EUR/USD");
    user.stop();
    ASSERT_EQ(deck().active()->caption().count("EUR/USD"), 2) << deck().active()->caption().toStdString();
    // Down one column, which crosses a candle somewhere.
    for (int y = 10; y < chart()->height() - 60 && countTraced("3092 ") == 0; y += 3)
        QTest::mouseClick(chart(), Qt::LeftButton, Qt::NoModifier, QPoint(chart()->width() / 3, y));
    ASSERT_GT(countTraced("3092 "), 0);
    QTest::keyClick(chart(), Qt::Key_Delete);
    EXPECT_EQ(deck().active()->caption().count("EUR/USD"), 1) << deck().active()->caption().toStdString();
    const int updates = countTraced("3009 update data");
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    ASSERT_TRUE(session().book().quote("EUR/USD", {now, 1.2f, 1.2002f, 1}));
    EXPECT_TRUE(QTest::qWaitFor([&] { return countTraced("3009 update data") > updates; }, 3000));
}

TEST_F(DeskTest, ATimeframeButtonChangesThePeriodOfTheChart) {
    startWithOneChart();
    ASSERT_TRUE(instrument());
    EXPECT_TRUE(window().action("period_H1")->isChecked());
    click(buttonOf("periodBar", "period_D1"));
    QTest::qWait(20);
    EXPECT_EQ(instrument()->identity().m_periods.period, 'D');
    EXPECT_EQ(+instrument()->identity().m_periods.lenPeriod, 1);
    EXPECT_TRUE(window().action("period_D1")->isChecked());
    EXPECT_FALSE(window().action("period_H1")->isChecked());
    EXPECT_EQ(+instrument()->outputs().front()->count, 13); // 300 hours of 24 a day
    EXPECT_TRUE(traced().contains("3518 panel state"));
}

TEST_F(DeskTest, TheCaptionTellsTheLastPriceOnceAChangedPeriodIsShown) {
    startWithOneChart();
    const QString before = deck().active()->caption();
    click(buttonOf("periodBar", "period_M5"));
    settle();
    click(buttonOf("periodBar", "period_H1"));
    QTest::qWait(3500);
    EXPECT_EQ(deck().active()->caption().toStdString(), before.toStdString());
    EXPECT_TRUE(before.contains('(')) << before.toStdString();
}

TEST_F(DeskTest, AnEmptyChartHasACaptionAtOnce) {
    start(options());
    const ChartPane *pane = window().newChart();
    ASSERT_TRUE(pane);
    EXPECT_TRUE(pane->caption().contains("Chart window")) << pane->caption().toStdString();
}

TEST_F(DeskTest, APriceButtonConvertsEveryChart) {
    start(options());
    settle();
    click(buttonOf("periodBar", "type_Ask"));
    QTest::qWait(20);
    for (const ChartPane *pane : deck().panes()) {
        for (const Handle handle : session().host().subscriptions().objects(pane->window()))
            EXPECT_EQ(fieldText(session().host().objects().find(handle)->identity().m_szType), "Ask");
    }
    EXPECT_LT(traced().indexOf("3546 need to convert"), traced().indexOf("3545 convert to type"));
    EXPECT_TRUE(window().action("type_Ask")->isChecked());
}

TEST_F(DeskTest, ZoomButtonsAndSliderChangeTheVisiblePositions) {
    startWithOneChart();
    QSlider *slider = child<QSlider>("zoomSlider");
    ASSERT_LT(slider->minimum(), -60);
    const int before = slider->value();
    EXPECT_LT(before, 0);
    click(child<QToolButton>("zoomIn"));
    const int closer = slider->value();
    EXPECT_GT(closer, before);
    click(child<QToolButton>("zoomOut"));
    EXPECT_LT(slider->value(), closer);
    slider->setSliderDown(true);
    slider->setValue(-200);
    slider->setSliderDown(false);
    EXPECT_TRUE(traced().contains("3552 zoom change {8,"));
    EXPECT_TRUE(traced().contains("3552 zoom change {0, -200}"));
    click(child<QToolButton>("zoomIn"));
    EXPECT_GT(slider->value(), -200);
}

TEST_F(DeskTest, EveryChartOpensWithTheWantedNumberOfPositions) {
    Options wanted = options();
    for (const QString &name : {QStringLiteral("EURUSD"), QStringLiteral("GBPUSD")})
        wanted.quoteFiles.push_back(
            QuoteFile::fromArgument(desk::test::writeBars(folder(), name + ".csv", 300) + '=' + name));
    wanted.bars = 120;
    start(wanted);
    QTest::qWait(3000);
    EXPECT_EQ(countTraced("3552 zoom change {0, -120}"), 2);
    EXPECT_EQ(deck().active(), deck().panes().front());
    EXPECT_EQ(child<QSlider>("zoomSlider")->value(), -120);
}

TEST_F(DeskTest, MorePositionsThanThereAreShowThemAll) {
    Options wanted = options();
    const QString file = desk::test::writeBars(folder(), "bars.csv", 300);
    wanted.quoteFiles.push_back(QuoteFile::fromArgument(file + "=EUR/USD"));
    wanted.bars = 100000;
    start(wanted);
    QTest::qWait(3000);
    const QSlider *slider = child<QSlider>("zoomSlider");
    EXPECT_EQ(slider->value(), slider->minimum());
    EXPECT_TRUE(traced().contains(QStringLiteral("3552 zoom change {0, %1}").arg(slider->minimum())));
}

TEST_F(DeskTest, TheLastCandleButtonTogglesWithItsState) {
    startWithOneChart();
    QToolButton *button = child<QToolButton>("lastCandle");
    const bool before = button->isChecked();
    const QImage picture = chart()->grab().toImage();
    click(button);
    EXPECT_NE(button->isChecked(), before);
    EXPECT_TRUE(traced().contains("3553 last candle"));
    EXPECT_NE(chart()->grab().toImage(), picture);
}

TEST_F(DeskTest, ChartsCanStandInTabsAndComeForwardByKeyAndMouse) {
    start(options());
    QTest::keyClick(&window(), Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(deck().mode(), ChartDeck::Tabs);
    const auto visible = [this] {
        int count = 0;
        for (const ChartPane *pane : deck().panes())
            count += pane->isVisible() ? 1 : 0;
        return count;
    };
    EXPECT_EQ(visible(), 1);
    ChartPane *first = deck().active();
    QTabBar *tabs = child<QTabBar>("chartTabs");
    ASSERT_EQ(tabs->count(), 4);
    QTest::mouseClick(tabs, Qt::LeftButton, Qt::NoModifier, tabs->tabRect(2).center());
    EXPECT_EQ(deck().active(), deck().panes()[2]);
    EXPECT_FALSE(first->isVisible());
    QTest::keyClick(&window(), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(deck().active(), deck().panes()[3]);
    QTest::keyClick(&window(), Qt::Key_1, Qt::ControlModifier);
    EXPECT_EQ(visible(), 4);
}

TEST_F(DeskTest, APressInAChartMakesItTheActiveOne) {
    start(options());
    settle();
    QWidget *other = deck().panes()[2]->chart();
    QTest::mouseClick(other, Qt::LeftButton, Qt::NoModifier, other->rect().center());
    EXPECT_EQ(deck().active(), deck().panes()[2]);
    const Handle window = deck().panes()[2]->window();
    EXPECT_TRUE(traced().contains(QStringLiteral("5009 take focus {handle 0x%1}").arg(window, 0, 16)));
}

TEST_F(DeskTest, ABorderBetweenTilesMovesWithTheMouse) {
    start(options());
    const QRect left = deck().panes()[0]->geometry();
    const QPoint border(left.right() + 3, left.center().y());
    QTest::mousePress(&deck(), Qt::LeftButton, Qt::NoModifier, border);
    move(&deck(), border + QPoint(80, 0), Qt::LeftButton);
    QTest::mouseRelease(&deck(), Qt::LeftButton, Qt::NoModifier, border + QPoint(80, 0));
    EXPECT_NEAR(deck().panes()[0]->width(), left.width() + 80, 4);
    EXPECT_EQ(deck().panes()[0]->chart()->width(), deck().panes()[0]->chart()->parentWidget()->width());
}

TEST_F(DeskTest, AChangedPageGoesBackToTheChart) {
    startWithOneChart();
    window().properties().raiseDock();
    deck().active()->takeFocus();
    PropertyDock &dock = window().properties();
    ASSERT_EQ(dock.key().owner, PageKey::Module);
    const Page page = dock.view().page();
    const PageItem *grid = nullptr;
    for (const PageItem &item : page.groups.at(0).items) {
        if (item.name == "Horizontal grid")
            grid = &item;
    }
    ASSERT_TRUE(grid);
    const QImage before = chart()->grab().toImage();
    auto *box = qobject_cast<QCheckBox *>(dock.view().editor(grid->group, grid->index));
    ASSERT_TRUE(box);
    QPushButton *apply = child<QPushButton>("applyPage");
    EXPECT_FALSE(apply->isEnabled());
    QTest::keyClick(box, Qt::Key_Space);
    EXPECT_TRUE(apply->isEnabled());
    click(apply);
    EXPECT_TRUE(traced().contains("10054 page changed {owner"));
    EXPECT_FALSE(apply->isEnabled());
    EXPECT_NE(chart()->grab().toImage(), before);
    // The chart tells the new value when its page is shown again.
    deck().active()->takeFocus();
    EXPECT_EQ(dock.view().page().find(grid->group, grid->index)->value.toBool(), !grid->value.toBool());
}

TEST_F(DeskTest, APageGetsMostOfTheRoomBesideTheInformationBox) {
    startWithOneChart();
    click(child<QToolButton>("informationBox"));
    QTest::qWait(50);
    window().properties().raiseDock();
    QTest::qWait(50);
    const int page = window().properties().height(), information = window().information().height();
    EXPECT_GT(page, 2 * information) << "page " << page << ", information " << information;
    EXPECT_GT(information, 60);
}

TEST_F(DeskTest, AHostedWidgetOfAPageStandsInItsRoom) {
    startWithOneChart();
    window().properties().raiseDock();
    deck().active()->takeFocus();
    PropertyDock &dock = window().properties();
    int rooms = 0;
    for (const PageGroup &group : dock.view().page().groups) {
        for (const PageItem &item : group.items) {
            if (item.kind != PageItem::Widget)
                continue;
            ++rooms;
            QWidget *room = dock.view().editor(item.group, item.index);
            EXPECT_EQ(room, QWidget::find(dock.view().windowId(item.group, item.index)));
            EXPECT_FALSE(room->findChildren<QWidget *>().isEmpty()) << item.name.toStdString();
        }
    }
    EXPECT_EQ(rooms, 1);
}

// What the user does in a hosted widget is a change like any other.
TEST_F(DeskTest, AHostedWidgetIsAppliedAndTakenBack) {
    startWithOneChart();
    window().properties().raiseDock();
    deck().active()->takeFocus();
    QTest::qWait(20);
    const auto hosted = [this] {
        QWidget *room = window().properties().view().editor(1, 2);
        return room ? room->findChild<QCheckBox *>() : nullptr;
    };
    QPushButton *apply = child<QPushButton>("applyPage");
    ASSERT_TRUE(hosted());
    ASSERT_TRUE(hosted()->isChecked());
    QTest::keyClick(hosted(), Qt::Key_Space);
    EXPECT_TRUE(apply->isEnabled());
    click(child<QPushButton>("resetPage"));
    EXPECT_TRUE(hosted()->isChecked());
    EXPECT_FALSE(apply->isEnabled());
    QTest::keyClick(hosted(), Qt::Key_Space);
    click(apply);
    EXPECT_FALSE(apply->isEnabled());
    deck().active()->takeFocus(); // the page is shown again, in a new room
    ASSERT_TRUE(hosted());
    EXPECT_FALSE(hosted()->isChecked());
    QTest::qWait(20);
    hosted()->setChecked(true); // the chart's own doing
    EXPECT_FALSE(apply->isEnabled());
}

TEST_F(DeskTest, TheLanguageMenuTurnsEveryTextOfTheDesk) {
    startWithOneChart();
    const int texts = countTraced("3019 insert text");
    window().action("language_Chinese (Simplified)")->trigger();
    QTest::qWait(20);
    EXPECT_EQ(window().symbols().windowTitle(), QString::fromUtf8("品种"));
    EXPECT_TRUE(traced().contains("3115 global parameters {group 1 change 1}"));
    EXPECT_EQ(countTraced("3019 insert text"), 2 * texts);
    EXPECT_EQ(QCoreApplication::translate("CTranslateGraphic", "C0049Ok"), QString::fromUtf8("确定"));
    EXPECT_TRUE(window().action("language_Chinese (Simplified)")->isChecked());
    window().action("language_English")->trigger();
    QTest::qWait(20);
    EXPECT_EQ(window().symbols().windowTitle(), "Symbols");
}

TEST_F(DeskTest, TheInformationBoxTellsWhatIsUnderTheMouse) {
    startWithOneChart();
    click(child<QToolButton>("informationBox"));
    ASSERT_TRUE(window().information().isVisible());
    QTest::qWait(50);
    // Down one column, which crosses a candle somewhere.
    QString text;
    for (int y = 10; y < chart()->height() - 60 && !text.contains("CLOSE"); y += 3) {
        move(chart(), QPoint(chart()->width() / 3, y));
        text = window().information().text();
    }
    EXPECT_TRUE(text.contains("EUR/USD") && text.contains("OPEN=1.")) << text.toStdString();
    EXPECT_TRUE(text.contains("2024 ")) << text.toStdString(); // the time under the mouse
    click(child<QToolButton>("informationBox"));
    EXPECT_FALSE(window().information().isVisible());
}

TEST_F(DeskTest, TheCrossCursorFollowsTheMouse) {
    startWithOneChart();
    const QImage plain = chart()->grab().toImage();
    click(child<QToolButton>("crossCursor"));
    EXPECT_TRUE(traced().contains("3555 show cross cursor {set mode 1}"));
    move(chart(), QPoint(chart()->width() / 3, chart()->height() / 3));
    QTest::qWait(20);
    EXPECT_NE(chart()->grab().toImage(), plain);
}

TEST_F(DeskTest, AClosedChartLeavesNothingBehind) {
    start(options());
    ChartPane *pane = deck().panes()[1];
    const Handle closed = pane->window();
    click(pane->findChild<QToolButton *>("closePane"));
    QTest::qWait(20);
    EXPECT_EQ(deck().panes().size(), 3u);
    EXPECT_FALSE(deck().find(closed));
    EXPECT_TRUE(session().host().subscriptions().objects(closed).empty());
    EXPECT_TRUE(traced().contains("3150 window goes away"));
    QTest::qWait(1300); // ticks and quotes go on
    while (deck().active())
        deck().closeChart(deck().active());
    EXPECT_TRUE(deck().panes().empty());
    QTest::qWait(20);
    EXPECT_FALSE(window().action("period_M5")->isEnabled());
    // A symbol opens the next chart.
    emit window().symbols().addWanted("EUR/USD");
    EXPECT_EQ(deck().panes().size(), 1u);
}

TEST_F(DeskTest, GameAndCompetitionModeAreEventsThatExcludeEachOther) {
    startWithOneChart();
    window().action("modeGame")->trigger();
    EXPECT_TRUE(traced().contains("3114 event {\"Velmar Game Mode\" code 1001"));
    window().action("modeCompetition")->trigger();
    EXPECT_TRUE(traced().contains("3114 event {\"Velmar Competition Mode\" code 2001"));
    EXPECT_FALSE(window().action("modeGame")->isChecked());
    window().action("modeCompetition")->trigger();
    EXPECT_TRUE(traced().contains("3114 event {\"Velmar Competition Mode\" code 2002"));
}

TEST_F(DeskTest, TheLogDockShowsWhatItsLevelLetsThrough) {
    startWithOneChart();
    window().log().show();
    EXPECT_TRUE(traced().contains("3205 log writer"));
    EXPECT_FALSE(window().log().text().contains("timerEvent"));
    QComboBox *level = window().log().levelBox();
    level->setFocus();
    QTest::keyClick(level, Qt::Key_Home);
    QTest::qWait(1300);
    EXPECT_TRUE(window().log().text().contains("timerEvent start"));
    QTest::keyClick(level, Qt::Key_End);
    EXPECT_FALSE(window().log().text().contains("timerEvent"));
}

TEST_F(DeskTest, TheAboutBoxShowsTheModulesOwnCard) {
    startWithOneChart();
    window().action("helpAbout")->trigger();
    QMessageBox *box = child<QMessageBox>("aboutBox");
    ASSERT_TRUE(box);
    EXPECT_TRUE(box->informativeText().contains("Velmar.Graph module 2.1.12"));
    EXPECT_TRUE(box->informativeText().contains("Chart analysis"));
    QTest::keyClick(box, Qt::Key_Escape);
}

TEST_F(DeskTest, TheEndKeepsTheOrderThatTheModuleExpects) {
    start(options());
    window().close();
    const QString text = traced();
    EXPECT_EQ(text.count("host -> module: 5004"), 4);
    const int lastDelete = text.lastIndexOf("host -> module: 5004");
    const int closes = text.indexOf("host -> module: 3081");
    const int stop = text.indexOf("host -> module: 3005");
    EXPECT_LT(lastDelete, closes);
    EXPECT_LT(closes, stop);
    EXPECT_FALSE(session().host().isLoaded());
}

TEST_F(DeskTest, NoMessageOfARunIsLeftUnanswered) {
    start(options());
    settle();
    move(chart(), chart()->rect().center());
    window().close();
    QStringList lost;
    const QStringList lines = traced().split('\n');
    for (int i = 1; i < lines.size(); ++i) {
        if (lines[i].contains("(not answered)"))
            lost << lines[i - 1].trimmed();
    }
    EXPECT_TRUE(lost.isEmpty()) << lost.join("\n").toStdString();
}

TEST_F(DeskTest, ALookIsKeptForTheNextStart) {
    start(options());
    window().action("language_Chinese (Simplified)")->trigger();
    window().close();
    start(options());
    EXPECT_EQ(session().texts().language(), "Chinese (Simplified)");
}

TEST_F(DeskTest, AnUnknownSymbolIsOneSentence) {
    Options wanted = options();
    wanted.symbol = "ABC/XYZ";
    Session session(wanted);
    const QString sentence = session.start();
    EXPECT_TRUE(sentence.contains("ABC/XYZ") && sentence.contains("EUR/USD")) << sentence.toStdString();
}

} // namespace
