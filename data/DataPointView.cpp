#include "data/DataPointView.h"

void CDataPointView::Create(mvDataPointArray *array) {
    m_fields.clear();
    m_recordSize = array ? static_cast<int>(array->recordSize) : 0;
    m_count = array ? array->count : 0;
    int offset = 0;
    for (int i = 0; array && array->fields && i < array->fieldCount; ++i) {
        const coreFieldDescriptor &field = *array->fields++;
        DATA_VIEW_STRUCT view;
        view.type = field.type;
        std::memcpy(view.name, field.name, sizeof field.name);
        view.name[255] = 0;
        view.offset = offset;
        m_fields.push_back(view);
        // Narrower than the fields of a line: eight-byte types count four.
        switch (field.type) {
        case DPT_BYTE:
        case DPT_NONE:
            offset += 1;
            break;
        case DPT_SHORT:
            offset += 2;
            break;
        case DPT_LONG:
        case DPT_INT64:
        case DPT_FLOAT:
        case DPT_DOUBLE:
            offset += 4;
            break;
        }
    }
}

const DATA_VIEW_STRUCT *CDataPointView::find(const std::string &name) const {
    for (const DATA_VIEW_STRUCT &field : m_fields)
        if (std::strcmp(field.name, name.c_str()) == 0)
            return &field;
    return nullptr;
}

int CDataPointView::Offset(const std::string &name, int index) const {
    const DATA_VIEW_STRUCT *field = index >= 0 && index < m_count ? find(name) : nullptr;
    return field ? index * m_recordSize + field->offset : -1;
}

DATA_POINT_TYPES CDataPointView::TypeByName(const std::string &name) const {
    const DATA_VIEW_STRUCT *field = find(name);
    return field ? field->type : DPT_NONE;
}
