#pragma once

#include "chart/Primitive.h"
#include "module/HostRecords.h"

#include <vector>

class CPrimitiveLink;
class CRGraphLayer;
class CRGraphWidget;

// The chart's record of one calculated object of the host: its handle, its lines, levels and links.
class CRIndicator {
public:
    CRIndicator(CRGraphWidget *widget, void *handle);
    CRIndicator(const CRIndicator &other);
    ~CRIndicator(); // destroys its primitives

    CRPrimitive *operator[](int index) const;
    CRPrimitive *AddPrimitive(CRGraphLayer *layer, int index, int lineIndex, PRIMITIVE_TYPES type);
    CRPrimitive *InsertPrimitive(CRPrimitive *source, int index, CRGraphLayer *layer);
    int DeletePrimitive(int index); // the number left, or -1
    int DeletePrimitive(const CRPrimitive *primitive);
    void RestorePrimitive(int index);
    CRPrimitive *RestorePrimitive(const unsigned short *name); // null: no such line

    CRPrimitive *FindByName(const QString &name) const;
    CRPrimitive *FindByLineIndex(int lineIndex) const; // from 1, as the host counts
    CRPrimitive *GetAnyVisible() const;
    bool IsSomeSelected() const;
    bool IsInvisible() const;
    bool HasSysTesterPrimitive() const;
    void *GetHandle() const { return m_handle; }
    int GetIndex() const; // place in the window's list
    int GetLineIndex(mvDataPointArray *array) const;
    int GetPrimitiveMask() const;
    bool Contain(const CRPrimitive *primitive);
    void Select(bool on);
    void SelectAll(bool on);
    void Reset();
    int GetPrimitiveCount() const { return static_cast<int>(m_primitives.size()); }

    void SetHLines(const coreHorizontLine &lines);
    void RequestHLines();
    void SetLinks(const coreListIndicatorLinks &links);
    void RequestLinks();
    void UpdateData(coreCoreUpdateDpaData *data);
    QString GetName() const;
    QString GetTitle();
    void GetPrimitiveLinks(const CRGraphLayer *layer, std::vector<CPrimitiveLink> *out) const;
    void SortPrimitives(const coreListCreateData &list);
    bool NeedRebindPrimitiveLS(CRPrimitive *primitive) const;

    CRGraphWidget *m_widget = nullptr;
    void *m_handle = nullptr;
    int m_updateKind = -1;
    std::vector<coreIndicatorLinks> m_links;
    std::vector<CRPrimitive *> m_primitives;
    int m_findPos = -1; // where Contain found its last primitive
    bool m_isInstrument = false;
    int m_sourceIndex = -1;

private:
    void Append(CRPrimitive *primitive, int index, CRGraphLayer *layer);
    QString TitleValueText(const CRPrimitive *primitive) const;
};

// The name of the line in the host's array; the last known one when the array is gone.
QString lineName(const CRPrimitive *primitive);

// Gives a series its array and the name of the line. The host is not asked for display names.
void bindLine(CRPrimitive *primitive, void *handle, mvDataPointArray *array);

// The layer a series stands on, null when the window has no such layer any more.
CRGraphLayer *shownLayer(const CRPrimitive *primitive);

// Takes a series out of the lists of the layer it stands on.
void leaveLayer(CRPrimitive *primitive);

// The value part of a title: " (1.2346) " for a step of 0.0001; empty for a step that gives no decimals.
QString titleValueText(double value, float step);

// Indicators whose first line is an instrument come first; those without lines last.
struct InstrFirst {
    bool operator()(const CRIndicator *a, const CRIndicator *b) const;
};

// Exactly one line of the primitive's indicator lies in the primitive's pane.
struct OnePrimitiveOnArea {
    static bool Check(const CRPrimitive *primitive);
};
