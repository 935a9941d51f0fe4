#include "chart/PaneLayout.h"

float splitterShare(float wanted, float above, float below) {
    float share = wanted >= minPaneShare ? wanted : minPaneShare; // also for what is no number
    const float largest = above + below - minPaneShare;
    if (share > largest)
        share = largest;
    return share;
}

QRect paneRect(const QRect &chart, int width, int top, float share) {
    const int rows = static_cast<int>((chart.bottom() - chart.top() + 1) * share + 0.5);
    return QRect(QPoint(chart.left(), top), QPoint(chart.left() + width, top + rows - 1));
}

QRect sharedPaneRect(int width, int height, int scrollBarHeight, int timeScaleHeight) {
    return QRect(QPoint(0, 0), QPoint(width - 1, height - scrollBarHeight - timeScaleHeight - 1));
}
