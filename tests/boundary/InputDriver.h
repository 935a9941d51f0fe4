#pragma once
// A user's hands on a chart window: keys, and a mouse that presses, moves and lets go.
#include "tests/support/FakeHost.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>

inline QScrollBar *scrollBarOf(const Chart &chart) {
    return static_cast<QScrollBar *>(childOfClass(chart.widget, "CTimeScrollBar"));
}

inline void pressKey(const Chart &chart, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers);
    QCoreApplication::sendEvent(chart.widget, &event);
}

/// Calls that a handler of input makes, and no frame: what is being painted cannot be taken away.
inline bool isInputCall(unsigned message) {
    for (const unsigned number :
         {3048u, 3092u, 3500u, 3501u, 3550u, 3551u, 3552u, 3555u, 5008u, 5033u, 10041u, 10057u}) {
        if (message == number)
            return true;
    }
    return false;
}

class Mouse {
public:
    explicit Mouse(const Chart &chart) : m_chart(chart) {}

    void press(QPoint point, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers keys = Qt::NoModifier) {
        m_buttons |= button;
        send(QEvent::MouseButtonPress, point, button, keys);
    }
    void move(QPoint point, Qt::KeyboardModifiers keys = Qt::NoModifier) {
        send(QEvent::MouseMove, point, Qt::NoButton, keys);
    }
    void release(QPoint point, Qt::MouseButton button = Qt::LeftButton,
                 Qt::KeyboardModifiers keys = Qt::NoModifier) {
        m_buttons &= ~button;
        send(QEvent::MouseButtonRelease, point, button, keys);
    }
    void click(QPoint point, Qt::KeyboardModifiers keys = Qt::NoModifier) {
        press(point, Qt::LeftButton, keys);
        release(point, Qt::LeftButton, keys);
    }
    void doubleClick(QPoint point) {
        click(point);
        send(QEvent::MouseButtonDblClick, point, Qt::LeftButton, Qt::NoModifier);
        release(point);
    }
    void drag(QPoint from, QPoint to) {
        press(from);
        move(to);
        release(to);
    }
    void leave() {
        QEvent event(QEvent::Leave);
        if (m_chart.widget)
            QCoreApplication::sendEvent(m_chart.widget, &event);
    }
    void wheel(int delta, Qt::KeyboardModifiers keys = Qt::NoModifier) {
        const QPointF at(100, 100);
        QWheelEvent event(at, m_chart.widget->mapToGlobal(at.toPoint()), QPoint(), QPoint(0, delta),
                          Qt::NoButton, keys, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(m_chart.widget, &event);
    }

private:
    void send(QEvent::Type type, QPoint point, Qt::MouseButton button, Qt::KeyboardModifiers keys) {
        if (!m_chart.widget)
            return;
        QCursor::setPos(m_chart.widget->mapToGlobal(point));
        QMouseEvent event(type, point, m_chart.widget->mapToGlobal(point), button, m_buttons, keys);
        QCoreApplication::sendEvent(m_chart.widget, &event);
    }

    Chart m_chart;
    Qt::MouseButtons m_buttons;
};
