#pragma once
#include <QMetaProperty>
#include <QPointer>
#include <QVariant>
#include <QWidget>
#include <functional>
#include <vector>

namespace desk {

// The window of an item whose editor the page's owner builds. Nothing is known of that editor but what Qt
// tells of every control: the property that its user changes.
class HostedRoom : public QWidget {
    Q_OBJECT

public:
    HostedRoom(std::function<void()> changed, QWidget *parent);
    void keep(); // the values of now are those that restore() brings back
    void restore();

protected:
    bool eventFilter(QObject *object, QEvent *event) override;
    void childEvent(QChildEvent *event) override;

private slots:
    void valueChanged();

private:
    struct Control {
        QPointer<QWidget> widget;
        QMetaProperty property;
        QVariant kept;
    };
    void watch(QWidget *widget);

    std::function<void()> m_changed;
    std::vector<Control> m_controls;
    bool m_userActs = false; // what changes meanwhile is the user's doing, not the owner's
};

} // namespace desk
