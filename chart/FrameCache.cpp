#include "chart/FrameCache.h"

bool FrameCache::IsCurrent(const QSize &size, qreal ratio) const {
    return m_current && m_picture.size() == size * ratio && m_picture.devicePixelRatio() == ratio;
}

QImage &FrameCache::Begin(const QSize &size, qreal ratio) {
    // The format of the screen's own surface: text and XOR drawings come out pixel for pixel the same.
    if (m_picture.size() != size * ratio)
        m_picture = QImage(size * ratio, QImage::Format_RGB32);
    m_picture.setDevicePixelRatio(ratio);
    m_current = true;
    return m_picture;
}

void FrameCache::Release() {
    m_picture = QImage();
    m_current = false;
}
