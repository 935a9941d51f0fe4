#include "data/DataStore.h"

CRMDataStore::CRMDataStore(coreListCreateData *list) {
    Create(list);
}

CRMDataStore::~CRMDataStore() {
    Clear();
}

void CRMDataStore::Create(coreListCreateData *list) {
    Clear();
    if (!list || list->count < 1 || !list->arrays)
        return;
    m_count = list->count;
    m_arrays = list->arrays;
    m_lines.reserve(static_cast<size_t>(m_count));
    for (int i = 0; i < m_count; ++i)
        m_lines.emplace_back(m_arrays[i]);
}

void CRMDataStore::Update(coreListCreateData *list) {
    if (!list || !list->arrays)
        return;
    for (int i = 0; i < list->count && i < static_cast<int>(m_lines.size()); ++i)
        m_lines[static_cast<size_t>(i)].Update(list->arrays[i]);
}

CRMDataLine *CRMDataStore::AddLine() {
    m_lines.emplace_back();
    m_lines.back().Create();
    auto **arrays = new mvDataPointArray *[static_cast<size_t>(m_count) + 1]();
    if (m_ownsList)
        delete[] m_arrays;
    m_ownsList = true;
    m_arrays = arrays;
    ++m_count;
    for (size_t i = 0; i < m_lines.size() && i < static_cast<size_t>(m_count); ++i)
        m_arrays[i] = m_lines[i].GetArray();
    return &m_lines.back();
}

void CRMDataStore::Clear() {
    m_lines.clear();
    if (m_ownsList)
        delete[] m_arrays;
    m_arrays = nullptr;
    m_ownsList = false;
    m_count = 0;
}

void CRMDataStore::ClearData() {
    for (CRMDataLine &line : m_lines)
        line.ClearData();
}

CRMDataLine *CRMDataStore::operator[](unsigned int index) {
    return index < m_lines.size() ? &m_lines[index] : nullptr;
}

CRMDataLine *CRMDataStore::FindLineByName(const QString &name) {
    for (CRMDataLine &line : m_lines)
        if (line.GetArray() && fieldText(line.GetArray()->identity.m_szNameSymbol) == name)
            return &line;
    return nullptr;
}
