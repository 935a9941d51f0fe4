#pragma once
#include "data/DataLine.h"
#include <vector>

// The lines of one host object, one for each of its output arrays.
class CRMDataStore {
public:
    CRMDataStore() = default;
    explicit CRMDataStore(coreListCreateData *list);
    CRMDataStore(const CRMDataStore &) = delete;
    CRMDataStore &operator=(const CRMDataStore &) = delete;
    virtual ~CRMDataStore();

    void Create(coreListCreateData *list);
    void Update(coreListCreateData *list);
    CRMDataLine *AddLine(); // a line with an array of its own
    void Clear();
    void ClearData();
    CRMDataLine *operator[](unsigned int index);
    CRMDataLine *FindLineByName(const QString &name);

    int GetCount() const { return m_count; }
    mvDataPointArray **GetArrays() const { return m_arrays; }

private:
    int m_count = 0;
    mvDataPointArray **m_arrays = nullptr;
    bool m_ownsList = false;
    std::vector<CRMDataLine> m_lines;
};
