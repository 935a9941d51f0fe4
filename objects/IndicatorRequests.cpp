#include "objects/Indicator.h"

#include "chart/GraphLayer.h"
#include "chart/GraphWidget.h"
#include "module/HostCalls.h"

#include <QPointer>
#include <algorithm>
#include <set>

// A call of the host can take the window or this object away. Behind one, only the window's list is asked
// whether this object is still there; no member is touched before.

// The levels of one line are replaced; a record that names no line of ours changes nothing.
void CRIndicator::SetHLines(const coreHorizontLine &lines) {
    CRPrimitive *primitive = FindByLineIndex(lines.line);
    if (!primitive)
        return;
    primitive->m_levelColor = QColor(static_cast<QRgb>(lines.color));
    primitive->m_levels.clear();
    const int count = std::min(lines.count, maxHorizontLevels);
    for (int i = 0; i < count; ++i)
        primitive->AddHLine(lines.levels[i]);
}

void CRIndicator::RequestHLines() {
    QPointer<CRGraphWidget> window(m_widget);
    const coreHorizontLine lines = HostCalls::horizontalLevels(m_handle);
    if (window && window->HasIndicator(this))
        SetHLines(lines);
}

void CRIndicator::SetLinks(const coreListIndicatorLinks &links) {
    m_links.clear();
    if (links.links && links.count > 0)
        m_links.assign(links.links, links.links + links.count);
    for (CRPrimitive *primitive : m_primitives)
        if (CRGraphLayer *layer = shownLayer(primitive))
            layer->m_bPrimitivesDirty = true;
}

void CRIndicator::RequestLinks() {
    QPointer<CRGraphWidget> window(m_widget);
    void *const handle = m_handle;
    const int count = HostCalls::linkCount(handle);
    if (!window || !window->HasIndicator(this))
        return;
    std::vector<coreIndicatorLinks> links = HostCalls::links(handle, count);
    if (window && window->HasIndicator(this))
        SetLinks({static_cast<int>(links.size()), links.data()});
}

// Joins only lines that are shown on this layer.
void CRIndicator::GetPrimitiveLinks(const CRGraphLayer *layer, std::vector<CPrimitiveLink> *out) const {
    const auto here = [layer](const CRPrimitive *primitive) {
        return primitive && primitive->m_pLayer == layer;
    };
    if (std::count_if(m_primitives.begin(), m_primitives.end(), here) < 2)
        return;
    for (const coreIndicatorLinks &link : m_links) {
        CRPrimitive *first = FindByLineIndex(link.firstLine);
        CRPrimitive *second = FindByLineIndex(link.secondLine);
        if (here(first) && here(second) && first->m_bVisible && second->m_bVisible)
            out->emplace_back(m_widget, first, second, static_cast<int>(link.fill),
                              static_cast<int>(link.colorMode));
    }
}

// New data of the host, by the kind of the update.
void CRIndicator::UpdateData(coreCoreUpdateDpaData *data) {
    if (m_primitives.empty() || IsInvisible() || !m_widget || !m_handle)
        return;
    m_updateKind = data->updateKind;
    const int kind = m_updateKind;
    if (kind != coreUpdatePoints && kind != coreUpdateArrays && kind != coreUpdateDisplay)
        return;
    QPointer<CRGraphWidget> window(m_widget);
    // A refresh can ask the host for names, and the host can come back here.
    for (int i = 0; i < GetPrimitiveCount(); ++i) {
        CRPrimitive *primitive = m_primitives[static_cast<std::size_t>(i)];
        if (kind == coreUpdatePoints)
            primitive->CRMDataLine::Update(primitive->GetArray());
        else if (kind == coreUpdateArrays)
            primitive->CRMDataLine::Create(primitive->GetArray());
        primitive->SyncInternalData();
        if (!window || !window->HasIndicator(this))
            return;
    }
    RequestLinks();
    if (window && window->HasIndicator(this))
        RequestHLines();
}

// The lines of the list change places among themselves, any other one keeps its place.
void CRIndicator::SortPrimitives(const coreListCreateData &list) {
    std::set<QString> names;
    for (int place = 0; list.arrays && place < list.count; ++place)
        if (const mvDataPointArray *array = list.arrays[place])
            names.insert(fieldText(array->identity.m_szNameSymbol));
    std::vector<std::size_t> places;
    std::vector<CRPrimitive *> listed;
    for (std::size_t place = 0; place < m_primitives.size(); ++place) {
        CRPrimitive *primitive = m_primitives[place];
        if (!primitive->GetArray() || names.count(lineName(primitive)) == 0)
            continue;
        places.push_back(place);
        listed.push_back(primitive);
    }
    std::stable_sort(listed.begin(), listed.end(), SortByOrder(list));
    for (std::size_t i = 0; i < listed.size(); ++i)
        m_primitives[places[i]] = listed[i];
}

// Whether line studies of a disappearing series can go to another one of the same period and pane.
bool CRIndicator::NeedRebindPrimitiveLS(CRPrimitive *primitive) const {
    if (!primitive || primitive->m_lineStudies.empty() || primitive->m_bRebindLS || !m_widget)
        return false;
    std::vector<CRPrimitive *> similar;
    return m_widget->FindSimilarPrimitives(primitive, &similar) > 0;
}
