#pragma once

#include <QImage>
#include <QSize>

// The last finished frame without what follows the mouse. A mouse move that changes only the overlay is
// painted from it; everything that could change the frame marks it stale.
class FrameCache {
public:
    void Invalidate() { m_current = false; }
    bool IsCurrent(const QSize &size, qreal ratio) const;
    bool IsEmpty() const { return m_picture.isNull(); }
    // The picture that the next frame goes into, of the format of the screen; current from here on.
    QImage &Begin(const QSize &size, qreal ratio);
    const QImage &Picture() const { return m_picture; }
    void Release(); // gives the memory back

private:
    QImage m_picture;
    bool m_current = false;
};
