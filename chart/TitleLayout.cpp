#include "chart/TitleLayout.h"

QRect TitleAnchors::Place(int width, int height) const {
    switch (m_alignment) {
    case titlesRight:
        return QRect(m_right + 1 - width - 6, m_y, width, height);
    case titlesTop:
        return QRect(m_x, m_y, width, height);
    default:
        return QRect(m_left + 3, m_y, width, height);
    }
}

QRect TitleAnchors::PlaceRemark(const QRect &title, int width) const {
    const int x = m_alignment == titlesRight ? title.left() - width - 10 : title.left() + title.width();
    return QRect(x, title.top(), width, title.height());
}

void TitleAnchors::Advance(int width, int height, int remarkWidth) {
    if (m_alignment == titlesTop)
        m_x += width + remarkWidth;
    else
        m_y += height;
}

QString cutCaption(const QString &caption) {
    return caption.size() > 254 ? caption.left(251) + QLatin1String("...") : caption;
}

QString titleValue(double value, int decimals) {
    return QString::asprintf(" (%.*f) ", decimals, value);
}
