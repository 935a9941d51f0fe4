#pragma once

#include "data/DataLine.h"

#include <QColor>
#include <QObject>
#include <QPen>
#include <QString>
#include <cfloat>
#include <vector>

class CRGraphArea;
class CRGraphLayer;
class CRGraphWidget;
class CRIndicator;
class CRLineStudy;

// How a series is drawn.
enum PRIMITIVE_TYPES : int {
    PT_LINE = 0,
    PT_CLOSE_DOTS = 1,
    PT_HISTOGRAM = 2,
    PT_CLOSE_LINE = 3,
    PT_TICK_LINE = 4,
    PT_CANDLE = 5,
    PT_BAR = 6,
    PT_WIDE_CANDLE = 7,
    PT_MARKS = 8,
    PT_DOTS = 9,
    PT_PATTERN = 10
};

// Unit of a time step.
enum eDateType {
    DT_UNKNOWN = 0,
    DT_TICK = 1,
    DT_MINUTE = 2,
    DT_DAY = 3,
    DT_WEEK = 4,
    DT_MONTH = 5,
    DT_YEAR = 6
};

// One drawn series: a host array, its look, and the data index of every position of the time scale.
class CRPrimitive : public QObject, public CRMDataLine {
    Q_OBJECT

public:
    CRPrimitive(int index, CRGraphLayer *layer, int lineIndex);
    CRPrimitive(const CRPrimitive &other);
    ~CRPrimitive() override;

    // ---- positions (chart/Primitive.cpp) ----
    int GetPos(int position) const { // data index, -1 where the series has no point
        return position < 0 || position >= static_cast<int>(m_pos.size()) ? -1 : m_pos[position];
    }
    int GetPosSize() const { return static_cast<int>(m_pos.size()); }
    bool IsPosEmpty() const { return m_pos.empty(); }
    void AddPos(int dataIndex) { m_pos.push_back(dataIndex); }
    void ClearPos() { m_pos.clear(); }
    int GetLastSignedTimePos() const;
    int GetNearestLowPosition(int position) const;
    int GetNearestHiPosition(int position) const;
    int NextSignedPos(int from) const;     // first position with a point from there upward, -1 for none
    int PreviousSignedPos(int from) const; // and downward

    // ---- time (chart/PrimitiveTime.cpp); times in seconds ----
    int GetTimeStep() const;
    eDateType GetTimeInterval(int &count) const;
    int GetTimeNearestIndex(long timeSec) const;
    int GetTimeIndex(long timeSec) const;
    int GetTimeVirtualIndex(long timeSec) const;
    long GetIndexVirtualTime(int index) const;
    int GetIndexDiffByTime(long a, long b) const;
    int GetIndexDiffByIndex(int a, int b) const;

    // ---- values ----
    float GetMaxOnInterval(long first, long last) const; // data indices, inclusive
    float GetMinOnInterval(long first, long last) const;
    double TitleValue(int dataIndex, bool *has) const; // the value field of the draw type
    double FirstValue(int dataIndex) const;            // the value behind the time
    bool IsTickSeries() const;                         // period "I" of length 0
    bool IsInstrumentType() const;                     // 1, 3, 5, 6, 7
    bool IsCandleLike() const { return IsInstrumentType(); }

    // ---- identity and names ----
    int GetIndex() const;        // place in the layer's list, 0 when absent
    int GetIndicatorPos() const; // place in the indicator
    int GetLineIndex() const { return m_nLineIndex; }
    CRGraphArea *GetArea() const;
    CRGraphWidget *GetWidget() const;
    bool NameIs(const unsigned short *name) const;
    QString GetAlias() const { return m_alias; }
    QString GetMenuItemName();
    void SyncInternalData();
    void SyncExNameData();
    void RequestExNames(); // the symbol goes to the host, four texts come back
    void CreatePrimitive(mvDataPointArray *array);
    QString ExName(int which) const; // 0 symbol, 1 name, 2 suffix, 3 alias
    int GetViewSize(DATA_POINT_TYPES type) const;

    // ---- selection ----
    void SetSelected(bool on);
    bool IsSelected() const { return m_bSelected != 0; }

    // ---- levels and studies ----
    void AddHLine(float value) { m_levels.push_back(value); }
    void AddLineStudy(CRLineStudy *study, int index);
    void DeleteLineStudy(int index);
    void DeleteLineStudy(const CRLineStudy *study);
    void DeleteLineStudyFromList(int index);
    void SafeDeleteLS();

    int m_nLineIndex = 0; // line of the host object, from 0
    CRGraphLayer *m_pLayer = nullptr;
    int m_nIndex = 0;
    QString m_name;
    PRIMITIVE_TYPES m_type = PT_LINE;
    int m_nNextPos = 0;
    float m_fPoint = -FLT_MAX; // smallest step of the values
    unsigned short m_exName[4][255]{};
    QString m_fullName;
    QString m_alias;
    CRIndicator *m_pIndicator = nullptr;
    std::vector<int> m_pos;
    int m_bSelected = 0;
    int m_bVisible = 1;
    void *m_hDpa = nullptr;
    QColor m_lineColor;
    QColor m_riseColor;
    int m_nPenWidth = 1;
    int m_nPenStyle = 1;
    QColor m_levelColor;
    int m_nHoverIndex = 0;
    int m_nHoverTime = 0;
    QPen m_linePen;
    QPen m_risePen;
    std::vector<float> m_levels;
    bool m_bColumnPending = false;
    int m_nColumnTop = 0;
    int m_nColumnBottom = 0;
    int m_nColumnX = 0;
    std::vector<CRLineStudy *> m_lineStudies;
    bool m_bRebindLS = false;
    bool m_sysTester = false;
    int m_nOrder = 0;

public slots:
    void OnSelect();
    void OnSelectChange();
    void OnChangeSelected();
    void OnShowProperty();
    void OnDeletePrimitive();
    void OnChangeLayer();

private:
    void TakeLook(); // colours, pen and point size of the array
    int LowerBound(long timeSec) const;
    const std::vector<long> *Axis(int position) const;
    int PosOfIndex(const std::vector<long> &axis, int index) const;
};

// Orders primitives by the place of their arrays in a host list.
class SortByOrder {
public:
    explicit SortByOrder(const coreListCreateData &list);
    bool operator()(const CRPrimitive *a, const CRPrimitive *b) const;

private:
    std::map<QString, int> m_places;
};
