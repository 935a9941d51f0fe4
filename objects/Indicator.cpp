#include "objects/Indicator.h"

#include "chart/GraphArea.h"
#include "chart/GraphLayer.h"
#include "chart/GraphWidget.h"
#include "module/HostCalls.h"
#include "objects/DrawTypes.h"

#include <QPointer>
#include <QScopeGuard>
#include <algorithm>
#include <new>

namespace {

constexpr float startPoint = 0.0001f;

void markLayer(const CRPrimitive *primitive) {
    if (CRGraphLayer *layer = shownLayer(primitive))
        layer->m_bPrimitivesDirty = true;
}

} // namespace

CRGraphLayer *shownLayer(const CRPrimitive *primitive) {
    const CRIndicator *indicator = primitive->m_pIndicator;
    if (!indicator || !indicator->m_widget || !primitive->m_pLayer)
        return nullptr;
    for (CRGraphArea *area : indicator->m_widget->m_areas)
        for (CRGraphLayer *layer : area->m_layers)
            if (layer == primitive->m_pLayer)
                return layer;
    return nullptr;
}

QString lineName(const CRPrimitive *primitive) {
    if (!primitive)
        return QString();
    const mvDataPointArray *array = primitive->GetArray();
    return array ? fieldText(array->identity.m_szNameSymbol) : primitive->AttachedName();
}

void bindLine(CRPrimitive *primitive, void *handle, mvDataPointArray *array) {
    primitive->m_hDpa = handle;
    primitive->CRMDataLine::Create(array);
    fillText(primitive->m_exName[0], 255, lineName(primitive));
}

void leaveLayer(CRPrimitive *primitive) {
    CRGraphLayer *layer = shownLayer(primitive);
    if (!layer)
        return;
    auto &list = layer->m_primitives;
    list.erase(std::remove(list.begin(), list.end(), primitive), list.end());
    auto &links = layer->m_links;
    links.erase(std::remove_if(links.begin(), links.end(),
                               [primitive](const CPrimitiveLink &link) {
                                   return link.m_pFirst == primitive || link.m_pSecond == primitive;
                               }),
                links.end());
    layer->m_bPrimitivesDirty = true;
}

// The host says what kind of object the handle is; the call can come back into this window.
CRIndicator::CRIndicator(CRGraphWidget *widget, void *handle)
    : m_widget(widget), m_handle(handle), m_isInstrument(HostCalls::nearestSource(handle) == nullptr) {}

CRIndicator::CRIndicator(const CRIndicator &other)
    : m_widget(other.m_widget), m_handle(other.m_handle), m_updateKind(other.m_updateKind),
      m_links(other.m_links), m_isInstrument(other.m_isInstrument), m_sourceIndex(other.m_sourceIndex) {
    for (const CRPrimitive *primitive : other.m_primitives)
        Append(new CRPrimitive(*primitive), static_cast<int>(m_primitives.size()), primitive->m_pLayer);
}

CRIndicator::~CRIndicator() {
    while (!m_primitives.empty()) {
        CRPrimitive *primitive = m_primitives.back();
        leaveLayer(primitive);
        m_primitives.pop_back();
        delete primitive;
    }
}

CRPrimitive *CRIndicator::operator[](int index) const {
    return index < 0 || index >= GetPrimitiveCount() ? nullptr
                                                     : m_primitives[static_cast<std::size_t>(index)];
}

void CRIndicator::Append(CRPrimitive *primitive, int index, CRGraphLayer *layer) {
    const int place = index < 0 || index > GetPrimitiveCount() ? GetPrimitiveCount() : index;
    primitive->m_pIndicator = this;
    primitive->m_pLayer = layer;
    m_primitives.insert(m_primitives.begin() + place, primitive);
    if (!layer)
        return;
    layer->m_primitives.push_back(primitive);
    layer->m_bPrimitivesDirty = true;
}

// Null when there is no memory for a further series.
CRPrimitive *CRIndicator::AddPrimitive(CRGraphLayer *layer, int index, int lineIndex, PRIMITIVE_TYPES type) {
    CRPrimitive *primitive = nullptr;
    try {
        primitive = new CRPrimitive(index, layer, lineIndex);
    } catch (const std::bad_alloc &) {
        return nullptr;
    }
    primitive->m_fPoint = startPoint;
    primitive->m_type = type;
    primitive->m_lineColor = QColor(Qt::black);
    primitive->m_riseColor = QColor(Qt::blue);
    Append(primitive, GetPrimitiveCount(), layer);
    return primitive;
}

// Puts a copy of `source` at a place of the list; its handle is the owner of its array.
CRPrimitive *CRIndicator::InsertPrimitive(CRPrimitive *source, int index, CRGraphLayer *layer) {
    if (!source)
        return nullptr;
    auto *primitive = new CRPrimitive(*source);
    Append(primitive, index, layer);
    if (const mvDataPointArray *array = primitive->GetArray())
        primitive->m_hDpa = array->owner;
    return primitive;
}

int CRIndicator::DeletePrimitive(int index) {
    CRPrimitive *primitive = (*this)[index];
    if (!primitive)
        return -1;
    primitive->m_bVisible = 0;
    leaveLayer(primitive);
    m_primitives.erase(m_primitives.begin() + index);
    const int left = GetPrimitiveCount();
    // The caption goes to the host, which may take the window down or throw: nothing of ours is used after it.
    QPointer<CRPrimitive> doomed(primitive);
    const auto end = qScopeGuard([&doomed] { delete doomed.data(); });
    QPointer<CRGraphWidget> window(m_widget);
    if (window)
        window->UpdateTitle();
    if (window)
        window->ChangeDesktop();
    return left;
}

int CRIndicator::DeletePrimitive(const CRPrimitive *primitive) {
    return Contain(primitive) ? DeletePrimitive(m_findPos) : -1;
}

void CRIndicator::RestorePrimitive(int index) {
    if (CRPrimitive *primitive = (*this)[index]) {
        primitive->m_bVisible = 1;
        markLayer(primitive);
    }
}

CRPrimitive *CRIndicator::RestorePrimitive(const unsigned short *name) {
    CRPrimitive *primitive = FindByName(readText(name, 255));
    if (primitive) {
        primitive->m_bVisible = 1;
        markLayer(primitive);
    }
    return primitive;
}

CRPrimitive *CRIndicator::FindByName(const QString &name) const {
    for (CRPrimitive *primitive : m_primitives)
        if (lineName(primitive) == name)
            return primitive;
    return nullptr;
}

CRPrimitive *CRIndicator::FindByLineIndex(int lineIndex) const {
    for (CRPrimitive *primitive : m_primitives)
        if (primitive->GetLineIndex() + 1 == lineIndex)
            return primitive;
    return nullptr;
}

CRPrimitive *CRIndicator::GetAnyVisible() const {
    for (CRPrimitive *primitive : m_primitives)
        if (primitive->m_bVisible)
            return primitive;
    return nullptr;
}

// A hidden line may have kept its mark from before: it does not count.
bool CRIndicator::IsSomeSelected() const {
    return std::any_of(m_primitives.begin(), m_primitives.end(), [](const CRPrimitive *primitive) {
        return primitive->m_bVisible && primitive->IsSelected();
    });
}

bool CRIndicator::IsInvisible() const {
    return !GetAnyVisible();
}

bool CRIndicator::HasSysTesterPrimitive() const {
    return std::any_of(m_primitives.begin(), m_primitives.end(),
                       [](const CRPrimitive *primitive) { return primitive->m_sysTester; });
}

int CRIndicator::GetIndex() const {
    if (!m_widget)
        return -1;
    const auto &list = m_widget->m_indicators;
    const auto place = std::find(list.begin(), list.end(), this);
    return place == list.end() ? -1 : static_cast<int>(place - list.begin());
}

// The line, counted from 1, that is drawn from this array; 0 for none.
int CRIndicator::GetLineIndex(mvDataPointArray *array) const {
    for (const CRPrimitive *primitive : m_primitives)
        if (array && primitive->GetArray() == array)
            return primitive->GetLineIndex() + 1;
    return 0;
}

int CRIndicator::GetPrimitiveMask() const {
    unsigned mask = 0;
    for (const CRPrimitive *primitive : m_primitives) {
        const int line = primitive->GetLineIndex();
        if (line >= 0 && line < 32)
            mask |= 1u << line;
    }
    return static_cast<int>(mask);
}

bool CRIndicator::Contain(const CRPrimitive *primitive) {
    const auto place = std::find(m_primitives.begin(), m_primitives.end(), primitive);
    if (place == m_primitives.end())
        return false;
    m_findPos = static_cast<int>(place - m_primitives.begin());
    return true;
}

void CRIndicator::Select(bool on) {
    for (CRPrimitive *primitive : m_primitives)
        primitive->SetSelected(on);
}

void CRIndicator::SelectAll(bool on) {
    Select(on);
}

void CRIndicator::Reset() {
    for (CRPrimitive *primitive : m_primitives) {
        primitive->ClearPos();
        primitive->m_nNextPos = 0;
    }
}

bool InstrFirst::operator()(const CRIndicator *a, const CRIndicator *b) const {
    if (a->m_primitives.empty() || b->m_primitives.empty())
        return !a->m_primitives.empty() && b->m_primitives.empty();
    return isInstrumentType(a->m_primitives.front()->m_type) &&
           !isInstrumentType(b->m_primitives.front()->m_type);
}

bool OnePrimitiveOnArea::Check(const CRPrimitive *primitive) {
    const CRIndicator *indicator = primitive ? primitive->m_pIndicator : nullptr;
    if (!indicator)
        return false;
    const CRGraphArea *area = primitive->GetArea();
    return std::count_if(indicator->m_primitives.begin(), indicator->m_primitives.end(),
                         [area](const CRPrimitive *other) { return other->GetArea() == area; }) == 1;
}
