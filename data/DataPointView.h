#pragma once
#include "module/HostRecords.h"
#include <string>
#include <vector>

struct DATA_VIEW_STRUCT {
    DATA_POINT_TYPES type;
    char name[256]; // zero-ended
    int offset;     // of the field within a data point
};
static_assert(sizeof(DATA_VIEW_STRUCT) == 264, "DATA_VIEW_STRUCT");

// The fields of an array by name. Making a view moves the field-list pointer in the array's header behind
// the last descriptor: build one only on an array that no line reads afterwards.
class CDataPointView {
public:
    CDataPointView() = default;
    explicit CDataPointView(mvDataPointArray *array) { Create(array); }
    virtual ~CDataPointView() = default;

    void Create(mvDataPointArray *array);
    int Offset(const std::string &name, int index) const; // from the start of the data; -1 for none
    DATA_POINT_TYPES TypeByName(const std::string &name) const;

private:
    const DATA_VIEW_STRUCT *find(const std::string &name) const;

    int m_recordSize = 0;
    int m_count = 0;
    std::vector<DATA_VIEW_STRUCT> m_fields;
};
