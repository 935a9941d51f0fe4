// The group "Time scale" of a window's page, and the editor that the module builds in the host's window.
#include "tests/boundary/InputDriver.h"

#include <QCheckBox>
#include <QSpinBox>
#include <QToolButton>
#include <gtest/gtest.h>

namespace {

class TimeScalePage : public testing::Test {
protected:
    void SetUp() override {
        host.setHistory("EURUSD", makeBars(500));
        chart = host.createChart();
        host.addInstrument(chart, "EURUSD");
        host.tick();
        host.settle();
        bar = scrollBarOf(chart);
        page = host.pages.empty() ? nullptr : host.pages.begin()->second;
        ASSERT_NE(page, nullptr);
        ASSERT_EQ(page->groups[1].count, 3u);
        container = QWidget::find(static_cast<propertyWidget *>(item(2)->value)->windowId);
        ASSERT_NE(container, nullptr);
        editor = childOfClass(container, "CMvAutoscrollProperty");
        ASSERT_NE(editor, nullptr);
        box = editor->findChild<QCheckBox *>();
        number = editor->findChild<QSpinBox *>();
    }
    PROPERTY *item(int index) const { return page->groups[1].items[index]; }
    int apply() {
        PROPERTY_CHANGE change{host.moduleInterface(), chart.handle, page};
        return host.send(10054u, &change);
    }
    QToolButton *lockButton() const {
        for (QWidget *widget : childrenOfClass(chart.widget, "QToolButton")) {
            auto *button = static_cast<QToolButton *>(widget);
            if (button->toolTip() == "Auto scroll")
                return button;
        }
        return nullptr;
    }

    FakeHost host;
    Chart chart;
    QScrollBar *bar = nullptr;
    PROPERTY_PAGE *page = nullptr;
    QWidget *container = nullptr;
    QWidget *editor = nullptr;
    QCheckBox *box = nullptr;
    QSpinBox *number = nullptr;
};

} // namespace

TEST_F(TimeScalePage, HasThreeRows) {
    EXPECT_EQ(fieldText(page->groups[1].name), "Time scale");
    EXPECT_EQ(item(0)->type, PropertyTypeColor);
    EXPECT_EQ(fieldText(item(0)->name), "Background color");
    EXPECT_EQ(fieldText(item(0)->description), "Sets backcolor of  time scale");
    EXPECT_EQ(item(1)->type, PropertyTypeColor);
    EXPECT_EQ(fieldText(item(1)->name), "Grid color");
    EXPECT_EQ(fieldText(item(1)->description), "Sets grid color of time scale");
    EXPECT_EQ(item(2)->type, PropertyTypeWidget);
    EXPECT_EQ(static_cast<propertyWidget *>(item(2)->value)->width, 201);
    EXPECT_EQ(static_cast<propertyWidget *>(item(2)->value)->height, 70);
}

TEST_F(TimeScalePage, TheEditorShowsAutoScroll) {
    EXPECT_EQ(box->text(), "Auto scroll");
    EXPECT_EQ(box->toolTip(), "Last candle auto scroll from right scale");
    EXPECT_TRUE(box->isChecked());
    EXPECT_EQ(number->value(), 3);
    EXPECT_EQ(number->minimum(), 0);
    EXPECT_EQ(number->maximum(), 1000);
    EXPECT_EQ(container->maximumHeight(), QWIDGETSIZE_MAX);
}

TEST_F(TimeScalePage, TheButtonKeepsTheEditorInStep) {
    lockButton()->click();
    EXPECT_FALSE(box->isChecked());
    lockButton()->click();
    EXPECT_TRUE(box->isChecked());
}

TEST_F(TimeScalePage, TheEditorIsTakenWithThePage) {
    const QImage locked = lockButton()->icon().pixmap(16).toImage();
    box->setChecked(false);
    EXPECT_EQ(apply(), 0);
    EXPECT_NE(lockButton()->icon().pixmap(16).toImage(), locked);
    bar->setValue(100);
    EXPECT_EQ(bar->value(), 100);
    box->setChecked(true);
    number->setValue(10);
    apply();
    EXPECT_EQ(lockButton()->icon().pixmap(16).toImage(), locked);
    EXPECT_EQ(bar->value(), 510); // ten free positions behind the last candle
}

TEST_F(TimeScalePage, ColoursReachTheStrip) {
    static_cast<propertyColor *>(item(0)->value)->rgb = 0xFF102030;
    static_cast<propertyColor *>(item(1)->value)->rgb = 0xFFA00010;
    apply();
    const QImage picture = host.grab(chart);
    const int bottom = picture.height() - bar->height() - 1;
    EXPECT_EQ(picture.pixel(2, bottom - 2), 0xFF102030u);
    EXPECT_EQ(picture.pixel(2, bottom - 26 / 2 + 1), 0xFFA00010u);
}

TEST_F(TimeScalePage, AHostThatClearsItsWindow) {
    delete editor;
    lockButton()->click();
    EXPECT_EQ(apply(), 0);
    host.send(5009u, chart.handle); // the page is shown anew, in a new window
    container = QWidget::find(static_cast<propertyWidget *>(item(2)->value)->windowId);
    ASSERT_NE(container, nullptr);
    EXPECT_NE(childOfClass(container, "CMvAutoscrollProperty"), nullptr);
}
