#include "host/pages/HostedRoom.h"
#include <QChildEvent>
#include <QMetaMethod>
#include <QTimer>

namespace desk {

namespace {

bool isInput(QEvent::Type type) {
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::Wheel:
        return true;
    default:
        return false;
    }
}

} // namespace

HostedRoom::HostedRoom(std::function<void()> changed, QWidget *parent)
    : QWidget(parent), m_changed(std::move(changed)) {}

void HostedRoom::keep() {
    for (Control &control : m_controls) {
        if (control.widget)
            control.kept = control.property.read(control.widget);
    }
}

void HostedRoom::restore() {
    for (const Control &control : m_controls) {
        if (control.widget)
            control.property.write(control.widget, control.kept);
    }
}

// An editor that is shown has all its controls.
void HostedRoom::childEvent(QChildEvent *event) {
    QWidget::childEvent(event);
    if (!event->polished() || !event->child()->isWidgetType())
        return;
    auto *editor = static_cast<QWidget *>(event->child());
    watch(editor);
    for (QWidget *widget : editor->findChildren<QWidget *>())
        watch(widget);
}

void HostedRoom::watch(QWidget *widget) {
    for (const Control &control : m_controls) {
        if (control.widget == widget)
            return;
    }
    widget->installEventFilter(this);
    const QMetaProperty property = widget->metaObject()->userProperty();
    if (!property.hasNotifySignal())
        return;
    const int slot = metaObject()->indexOfSlot("valueChanged()");
    connect(widget, property.notifySignal(), this, metaObject()->method(slot));
    m_controls.push_back({widget, property, property.read(widget)});
}

bool HostedRoom::eventFilter(QObject *object, QEvent *event) {
    if (isInput(event->type()) && !m_userActs) {
        m_userActs = true;
        QTimer::singleShot(0, this, [this] { m_userActs = false; });
    }
    return QWidget::eventFilter(object, event);
}

void HostedRoom::valueChanged() {
    if (m_userActs)
        m_changed();
}

} // namespace desk
