#include "objects/ToolBar.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QCursor>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QSlider>
#include <gtest/gtest.h>
#include <memory>

namespace {

struct ToolBar : testing::Test {
    ToolBar() {
        strip.resize(600, 40);
        strip.show();
        bar = new CToolBar(&strip);
        bar->show();
    }
    /// Passes the time until a timer of the bar has surely fired.
    static void wait(int milliseconds) {
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < milliseconds)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    }
    void moveOver() {
        QMouseEvent event(QEvent::MouseMove, QPointF(2, 2), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        bar->mouseMoveEvent(&event);
    }
    void putMouse(bool over) {
        QCursor::setPos(strip.mapToGlobal(over ? QPoint(5, 3) : QPoint(5, 300)));
        QCoreApplication::processEvents();
    }

    QWidget strip;
    CToolBar *bar = nullptr;
};

TEST_F(ToolBar, ChildrenStandInARow) {
    CToolButton *first = bar->AddButton(QPixmap(), "First", nullptr, nullptr);
    bar->AddSeparator();
    CToolButton *second = bar->AddButton(QPixmap(), "Second", nullptr, nullptr);
    QComboBox *combo = bar->AddCombo();
    QSlider *slider = bar->AddSlider(1); // between first and separator
    EXPECT_EQ(bar->GetChildCount(), 5);
    EXPECT_EQ(first->x(), 0);
    EXPECT_GT(slider->x(), first->geometry().right());
    EXPECT_GT(second->x(), slider->geometry().right());
    EXPECT_GT(combo->x(), second->geometry().right());
    EXPECT_EQ(bar->width(), strip.width());
}

TEST_F(ToolBar, WhatDoesNotFitGoesIntoTheExtension) {
    std::vector<CToolButton *> buttons;
    for (int i = 0; i < 12; ++i)
        buttons.push_back(bar->AddButton(QPixmap(), QString("Button number %1").arg(i), nullptr, nullptr));
    strip.resize(300, 40);
    QCoreApplication::processEvents();
    int shown = 0;
    for (const CToolButton *button : buttons)
        shown += !button->isHidden();
    EXPECT_GT(shown, 0);
    EXPECT_LT(shown, 12);
    EXPECT_FALSE(bar->GetChild(11).fits);
    bar->OnBnClickedExtend();
    EXPECT_TRUE(buttons[11]->isVisible());
    EXPECT_NE(buttons[11]->parentWidget(), bar);
    strip.resize(3000, 40);
    QCoreApplication::processEvents();
    for (const CToolButton *button : buttons) {
        EXPECT_EQ(button->parentWidget(), bar);
        EXPECT_FALSE(button->isHidden());
    }
}

TEST_F(ToolBar, WidgetThatItsOwnerDeletesLeaves) {
    auto widget = std::make_unique<QWidget>();
    bar->AddWidget(widget.get());
    bar->AddButton(QPixmap(), "Last", nullptr, nullptr);
    widget.reset();
    ASSERT_EQ(bar->GetChildCount(), 1);
    bar->OnResize();
    EXPECT_EQ(bar->GetChild(0).widget->x(), 0);
}

TEST_F(ToolBar, DeletedChildIsGoneOrGivenBack) {
    auto *foreign = new QWidget;
    bar->AddWidget(foreign);
    const QPointer<CToolButton> own = bar->AddButton(QPixmap(), "Own", nullptr, nullptr);
    bar->DeleteChildWidget(1);
    EXPECT_FALSE(own);
    bar->DeleteChildWidget(foreign);
    EXPECT_EQ(foreign->parentWidget(), nullptr);
    EXPECT_EQ(bar->GetChildCount(), 0);
    bar->DeleteChildWidget(5);
    delete foreign;
}

TEST_F(ToolBar, AutoHideHidesAtOnceAndBack) {
    bar->SetAutoHide(1);
    EXPECT_TRUE(bar->isHidden());
    bar->SetAutoHide(0);
    EXPECT_FALSE(bar->isHidden());
    bar->SetAutoHide(1);
    bar->SetShowEnable(false);
    bar->SetAutoHide(0);
    EXPECT_TRUE(bar->isHidden());
}

TEST_F(ToolBar, BarUnderTheMouseShowsAndHidesByTime) {
    bar->AddButton(QPixmap(), "Button", nullptr, nullptr);
    bar->SetAutoHide(1);
    putMouse(true);
    ASSERT_TRUE(bar->IsMouseOver());
    moveOver();
    EXPECT_TRUE(bar->isHidden()); // not yet
    wait(450);
    EXPECT_FALSE(bar->isHidden());
    moveOver();
    putMouse(false);
    wait(1000);
    EXPECT_FALSE(bar->isHidden()); // a moment to come back
    wait(800);
    EXPECT_TRUE(bar->isHidden());
}

TEST_F(ToolBar, MouseBesideTheBarDoesNothing) {
    bar->SetAutoHide(1);
    putMouse(false);
    moveOver();
    wait(450);
    EXPECT_TRUE(bar->isHidden());
}

TEST_F(ToolBar, ButtonIsAsWideAsItsContent) {
    CToolButton button(QPixmap(16, 16), "Text", "Title", &strip);
    const int width = button.GetWidthByContent();
    EXPECT_GT(width, 16 + button.fontMetrics().horizontalAdvance("Text"));
    EXPECT_EQ(button.toolTip(), "Title");
    button.setTextButton("A longer text");
    EXPECT_GT(button.GetWidthByContent(), width);
    button.resizeWidthButton(0, 20);
    EXPECT_EQ(button.size(), QSize(button.GetWidthByContent(), 20));
    button.resizeWidthButton(33, 20);
    EXPECT_EQ(button.size(), QSize(33, 20));
}

TEST_F(ToolBar, ForegroundPaintsTheTexts) {
    bar->AddButton(QPixmap(), "Button", nullptr, nullptr);
    bar->SetBackground(QColor(0x102030));
    bar->SetForeground(QColor(0xFF0000));
    const QImage image = bar->grab().toImage();
    EXPECT_EQ(image.pixel(image.width() - 1, image.height() - 1) | 0xFF000000, 0xFF102030u);
    int red = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < 100; ++x)
            red += qRed(image.pixel(x, y)) > 150;
    }
    EXPECT_GT(red, 20);
}

} // namespace
