#include "dialogs/SelectPrimitiveWidget.h"
#include "module/HostMessages.h"
#include "tests/unit/dialogs/TestChart.h"

#include <QComboBox>
#include <QLabel>
#include <QTest>
#include <gtest/gtest.h>

namespace {

// The picker as the chart opens it, over three series.
class SelectPrimitiveTest : public testing::Test {
protected:
    SelectPrimitiveTest() {
        first = chart.addSeries(chart.layer(), "EUR/USD", true, fromWord<void>(Word(100)));
        second = chart.addSeries(chart.layer(), "GBP/USD", true, fromWord<void>(Word(101)));
        third = chart.addSeries(chart.layer(), "MA", false, fromWord<void>(Word(102)));
    }
    CSelectPrimitiveWidget *open(const coreNameInstrument *preset = nullptr) {
        chart->SelectPrimitive("title", "MA", nullptr, QString(), preset);
        return chart->SourcePicker();
    }
    template <class T>
    static T *button(CSelectPrimitiveWidget *picker) {
        return picker->findChild<T *>();
    }

    TestChart chart;
    CRPrimitive *first, *second, *third;
};

TEST_F(SelectPrimitiveTest, ListsEverySeriesAndPresetsOne) {
    CSelectPrimitiveWidget *picker = open();
    ASSERT_NE(picker, nullptr);
    EXPECT_EQ(picker->windowTitle(), "title");
    EXPECT_EQ(picker->Combo()->count(), 3);
    EXPECT_EQ(picker->Combo()->itemText(0), "EUR/USD");
    EXPECT_EQ(picker->GetCurrentPrimitive(), first);
    picker->FillListBox(&second->GetArray()->identity);
    EXPECT_EQ(picker->Combo()->count(), 3);
    EXPECT_EQ(picker->GetCurrentPrimitive(), second);
    auto other = second->GetArray()->identity;
    other.m_periods.lenPeriod = 5;
    picker->FillListBox(&other);
    EXPECT_EQ(picker->GetCurrentPrimitive(), first);
}

TEST_F(SelectPrimitiveTest, ASeriesUnderTheMouseIsShown) {
    CSelectPrimitiveWidget *picker = open();
    picker->SelectPrimitiveInCombo(third);
    EXPECT_EQ(picker->GetCurrentPrimitive(), third);
    picker->SelectPrimitiveInCombo(nullptr);
    EXPECT_EQ(picker->GetCurrentPrimitive(), third);
    picker->Combo()->setCurrentIndex(1);
    EXPECT_EQ(picker->GetCurrentPrimitive(), second);
}

TEST_F(SelectPrimitiveTest, SignsOfTheTesterGoByTheirNames) {
    first->m_sysTester = true;
    first->m_name = "Close short";
    EXPECT_EQ(open()->Combo()->itemText(0), "Close short");
}

TEST_F(SelectPrimitiveTest, EscapeAndClosingCancel) {
    QTest::keyClick(open(), Qt::Key_Escape);
    EXPECT_EQ(chart->SourcePicker(), nullptr);
    QTest::keyClick(button<gui::ButtonCancel>(open()), Qt::Key_Return);
    EXPECT_EQ(chart->SourcePicker(), nullptr);
    QTest::keyClick(button<gui::ButtonCancel>(open()), Qt::Key_Enter);
    EXPECT_EQ(chart->SourcePicker(), nullptr);
    button<gui::ButtonCancel>(open())->click();
    EXPECT_EQ(chart->SourcePicker(), nullptr);
    open()->close();
    EXPECT_EQ(chart->SourcePicker(), nullptr);
}

// Whoever ends the picker as a plain dialog ends the choice with it.
TEST_F(SelectPrimitiveTest, AcceptAndRejectAnswerToo) {
    open()->accept();
    EXPECT_EQ(chart->SourcePicker(), nullptr);
    open()->reject();
    EXPECT_EQ(chart->SourcePicker(), nullptr);
}

TEST_F(SelectPrimitiveTest, ReturnAndEnterTakeTheChoice) {
    for (Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        QTest::keyClick(open(), key);
        EXPECT_EQ(chart->SourcePicker(), nullptr);
    }
}

TEST_F(SelectPrimitiveTest, HelpOpensThePageOfTheHost) {
    UnitHost host;
    host.attach();
    QString page;
    host.answers[ToHost::OpenHelp] = [&page](int wParam, int) {
        page = readText(fromWord<const Unit16>(wParam), 1024);
        return 0;
    };
    CSelectPrimitiveWidget *picker = open();
    QTest::keyClick(button<gui::ButtonHelp>(picker), Qt::Key_Return);
    EXPECT_EQ(page, "gr_win1.htm");
    page.clear();
    button<gui::ButtonHelp>(picker)->click();
    EXPECT_EQ(page, "gr_win1.htm");
    EXPECT_EQ(chart->SourcePicker(), picker);
    QTest::keyClick(picker, Qt::Key_Escape);
}

TEST_F(SelectPrimitiveTest, AnEmptyChartHasNoCurrentSeries) {
    TestChart empty;
    empty->SelectPrimitive("title", "MA", nullptr, QString(), nullptr);
    EXPECT_EQ(empty->SourcePicker()->GetCurrentPrimitive(), nullptr);
    EXPECT_EQ(empty->SourcePicker()->Combo()->count(), 0);
    empty->SourcePicker()->close();
}

TEST_F(SelectPrimitiveTest, ItPaintsItsFrame) {
    CSelectPrimitiveWidget *picker = open();
    const QImage image = picker->grab().toImage();
    const QRgb frame = picker->palette().color(QPalette::Mid).rgb();
    const int right = image.width() - 1;
    const int bottom = image.height() - 1;
    for (const QPoint &point : {QPoint(0, bottom / 2), QPoint(right, bottom / 2), QPoint(right / 2, 0),
                                QPoint(right / 2, bottom), QPoint(0, 0), QPoint(right, bottom)})
        EXPECT_EQ(image.pixelColor(point).rgb(), frame) << point.x() << "," << point.y();
    EXPECT_NE(image.pixelColor(1, 1).rgb(), frame);
}

} // namespace
