#pragma once

#include <QEvent>

class CRPrimitive;

// Work on a chart window that a handler puts off until it has returned; posted to the window.
class CGraphEvent : public QEvent {
public:
    enum Kind {
        Refresh = 1001,        // paint anew
        DeleteArea = 1002,     // the pane of that index
        DeletePrimitive = 1003 // that series, if it still is on the chart
    };
    explicit CGraphEvent(Kind kind, int index = -1, CRPrimitive *primitive = nullptr)
        : QEvent(static_cast<QEvent::Type>(kind)), m_index(index), m_primitive(primitive) {}
    CGraphEvent(Kind kind, CRPrimitive *primitive) : CGraphEvent(kind, -1, primitive) {}

    int m_index;
    CRPrimitive *m_primitive;
};
