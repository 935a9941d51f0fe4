#pragma once

#include "chart/Primitive.h"
#include "support/Fonts.h"

#include <QPointer>
#include <QRect>
#include <QRgb>
#include <QWidget>
#include <vector>

class CMvAutoscrollProperty;
class CRGraphLayer;
class CRGraphWidget;
class QPainter;
class QPoint;
struct mwiLocatorMessageItem;

// The one time axis of a chart window: the times of all positions, and the strip that prints them.
class CRTimeScale {
public:
    explicit CRTimeScale(CRGraphWidget *widget);
    ~CRTimeScale();
    CRTimeScale(const CRTimeScale &) = delete;
    CRTimeScale &operator=(const CRTimeScale &) = delete;

    // ---- axis (chart/TimeScale.cpp); positions from 0, times in seconds ----
    void AddTime(long timeSec) { m_times.push_back(timeSec); }
    void DelTime(int position);
    void Clear();
    int GetTimeCount() const { return static_cast<int>(m_times.size()); }
    long GetPosTime(int position) const; // -1 outside the list
    long GetPointTime(const QPoint &point) const;
    long GetVirtualPosTime(int position, eDateType type) const;
    long GetVirtualPointTime(const QPoint &point, eDateType type) const;
    int GetTimePos(long timeSec, eDateType type = DT_UNKNOWN) const;
    int GetVirtualTimePos(long timeSec, eDateType type, int count) const;
    bool ChangeAutoScrollStatus();

    // ---- paint (chart/TimeScalePaint.cpp) ----
    void Draw(QPainter &painter);
    int height() const { return m_nHeight; }
    void DrawLocator(QPainter &painter, const QRect &rect, int &x) const;
    void FormLocatorMessage(std::vector<mwiLocatorMessageItem> *items, const QPoint &cursor) const;

    // ---- property group ----
    void CreatePropertyPage();
    void UpdatePropertyPage();
    void ApplyPropertyPage();
    void ShowAutoScrollWidget(); // builds the hosted widget inside the host's window

    CRGraphWidget *m_pWidget = nullptr;
    int m_nHeight = 23;
    QRgb m_backgroundColor;
    QRgb m_gridColor;
    QRgb m_fontColor;
    CMvGraphFont m_font;
    QRect m_rect;
    int m_nPropertyGroup = -1;
    int m_nBackgroundItem = -1;
    int m_nGridItem = -1;
    int m_nAutoScrollItem = -1;
    QPointer<QWidget> m_pAutoScrollWidget; // a CMvAutoscrollProperty; lives in the host's window
    bool m_bAutoScroll = true;
    int m_nAutoScrollPositions = 0;
    std::vector<long> m_times;
    std::vector<long> m_freeTimes; // emptied together with m_times
    std::vector<long> m_markTimes;

private:
    int PointPos(const QPoint &point, const CRGraphLayer *layer) const;
    void DrawRows(QPainter &painter, const CRGraphLayer *layer, const QRect &span);
    CMvAutoscrollProperty *AutoScrollWidget() const;
    void SetAutoScrollState(bool on, int positions);
};
