#include "data/DataLine.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int maxOwnFields = 100;
constexpr long minGrowth = 300; // points

const char *const fieldNames[CRMDataLine::fieldCount] = {
    "TIME",     "OPEN",    "HIGH",    "LOW",   "CLOSE",  "VALUE",   "VOLUME",  "SIGN",
    "POSITION", "COUNT",   "ALL",     "TIME0", "VALUE0", "OPERID0", "REASON0", "TIME1",
    "VALUE1",   "OPERID1", "REASON1", "TIME2", "VALUE2", "OPERID2", "REASON2", "TIME3",
    "VALUE3",   "OPERID3", "REASON3", "TIME4", "VALUE4", "OPERID4", "REASON4"};

int slotOf(const QString &name) {
    for (int i = 0; i < CRMDataLine::fieldCount; ++i)
        if (name == QLatin1String(fieldNames[i]))
            return i;
    return -1;
}

} // namespace

CRMDataLine::CRMDataLine() {
    std::memset(m_arrayCopy, 0, sizeof m_arrayCopy);
    std::memset(m_fieldOffset, 0, sizeof m_fieldOffset);
}

CRMDataLine::CRMDataLine(mvDataPointArray *array) : CRMDataLine() {
    Create(array);
}

CRMDataLine::CRMDataLine(const CRMDataLine &other) : CRMDataLine() {
    *this = other;
}

CRMDataLine::CRMDataLine(CRMDataLine &&other) noexcept {
    moveFrom(other);
}

CRMDataLine &CRMDataLine::operator=(const CRMDataLine &other) {
    if (this == &other)
        return *this;
    releaseArray();
    m_pArray = other.m_pArray;
    std::memcpy(m_arrayCopy, other.m_arrayCopy, sizeof m_arrayCopy);
    m_capacity = other.m_capacity;
    std::memcpy(m_fieldOffset, other.m_fieldOffset, sizeof m_fieldOffset);
    m_fieldTypes = other.m_fieldTypes;
    m_fieldOffsets = other.m_fieldOffsets;
    m_lastCount = other.m_lastCount;
    return *this;
}

CRMDataLine &CRMDataLine::operator=(CRMDataLine &&other) noexcept {
    if (this != &other) {
        releaseArray();
        moveFrom(other);
    }
    return *this;
}

CRMDataLine::~CRMDataLine() {
    releaseArray();
}

// Frees an own array; a host's array is let go.
void CRMDataLine::releaseArray() {
    if (m_owned && m_pArray) {
        std::free(m_pArray->data);
        std::free(m_pArray->fields);
        std::free(m_pArray);
    }
    m_pArray = nullptr;
    m_owned = false;
}

// Ownership goes along, so that a growing vector of lines keeps the arrays of its lines.
void CRMDataLine::moveFrom(CRMDataLine &other) {
    m_pArray = other.m_pArray;
    std::memcpy(m_arrayCopy, other.m_arrayCopy, sizeof m_arrayCopy);
    m_capacity = other.m_capacity;
    std::memcpy(m_fieldOffset, other.m_fieldOffset, sizeof m_fieldOffset);
    m_owned = other.m_owned;
    m_fieldTypes.swap(other.m_fieldTypes);
    m_fieldOffsets.swap(other.m_fieldOffsets);
    m_lastCount = other.m_lastCount;
    other.m_owned = false;
    other.m_pArray = nullptr;
    other.m_capacity = 0;
}

// Attaches a host's array. Offsets follow from the order of the descriptors and their widths.
void CRMDataLine::Create(mvDataPointArray *array) {
    if (!array)
        return;
    if (array != m_pArray)
        releaseArray();
    m_pArray = array;
    std::memcpy(m_arrayCopy, array, sizeof m_arrayCopy);
    std::fill_n(m_fieldOffset, int(fieldCount), -1);
    m_fieldTypes.clear();
    m_fieldOffsets.clear();
    int offset = 0;
    for (int i = 0; array->fields && i < array->fieldCount; ++i) {
        const coreFieldDescriptor &field = array->fields[i];
        const QString name = fieldText(field.name);
        m_fieldOffsets[name] = offset;
        m_fieldTypes[name] = field.type;
        offset += GetFieldLen(field.type);
    }
    for (const auto &[name, place] : m_fieldOffsets) {
        const int slot = slotOf(name);
        if (slot >= 0)
            m_fieldOffset[slot] = place;
    }
}

void CRMDataLine::Detach() {
    releaseArray();
    std::fill_n(m_fieldOffset, int(fieldCount), -1);
    m_fieldTypes.clear();
    m_fieldOffsets.clear();
    m_lastCount = 0;
}

QString CRMDataLine::AttachedName() const {
    coreNameInstrument identity;
    std::memcpy(&identity, m_arrayCopy, sizeof identity);
    return fieldText(identity.m_szNameSymbol);
}

int CRMDataLine::Update(mvDataPointArray *array) {
    if (array && array != m_pArray) {
        releaseArray();
        m_pArray = array;
    }
    const int added = GetDataPointCount() - m_lastCount;
    m_lastCount = GetDataPointCount();
    return added;
}

int CRMDataLine::GetDataPoint(int index, void *out) const {
    const unsigned char *point = out ? GetDataPoint(index) : nullptr;
    if (!point)
        return 0;
    std::memcpy(out, point, m_pArray->recordSize);
    return 1;
}

DATA_POINT_TYPES CRMDataLine::GetFieldType(const QString &field) const {
    const auto it = m_fieldTypes.find(field);
    return it == m_fieldTypes.end() ? DPT_NONE : it->second;
}

int CRMDataLine::GetFieldOffset(const QString &field) const {
    const auto it = m_fieldOffsets.find(field);
    return it == m_fieldOffsets.end() ? -1 : it->second;
}

int CRMDataLine::GetFieldLen(DATA_POINT_TYPES type) {
    switch (type) {
    case DPT_BYTE:
        return 1;
    case DPT_SHORT:
        return 2;
    case DPT_LONG:
    case DPT_FLOAT:
        return 4;
    case DPT_INT64:
    case DPT_DOUBLE:
        return 8;
    default:
        return 0;
    }
}

// ---- header of an own array ----

void CRMDataLine::SetName(const coreNameInstrument *name) {
    if (m_pArray && name)
        m_pArray->identity = *name;
}

void CRMDataLine::SetName(const QString &symbol, const QString &type, char period, int lenPeriod,
                          long startTime) {
    if (!m_pArray)
        return;
    coreNameInstrument &name = m_pArray->identity;
    fillField(name.m_szNameSymbol, symbol);
    fillField(name.m_szType, type);
    name.m_periods.period = period;
    name.m_periods.lenPeriod = lenPeriod;
    name.m_periods.startTime = static_cast<int>(startTime);
}

// Appends to the symbol in place. The symbol's neighbours stay as they are: what does not fit is left out.
void CRMDataLine::SetAdditionalName(const QString &name) {
    if (m_pArray)
        fillField(m_pArray->identity.m_szNameSymbol,
                  fieldText(m_pArray->identity.m_szNameSymbol) + ' ' + name);
}

void CRMDataLine::SetOwner(void *owner) {
    if (m_pArray)
        m_pArray->owner = owner;
}

void CRMDataLine::SetTypeShow(const coreTypeShow *typeShow) {
    if (m_pArray && typeShow)
        m_pArray->typeShow = *typeShow;
}

void CRMDataLine::SetPrecis(int digits) {
    if (m_pArray)
        m_pArray->precision = digits;
}

void CRMDataLine::SetCoord(const coreSystemCoord *coord) {
    if (m_pArray && coord)
        m_pArray->coord = *coord;
}

void CRMDataLine::SetLineColor(long color) {
    if (!m_pArray)
        return;
    m_pArray->typeShow.firstColor = static_cast<Word>(color);
    m_pArray->typeShow.secondColor = static_cast<Word>(color);
}

void CRMDataLine::SetWeightPen(int weight) {
    if (m_pArray)
        m_pArray->typeShow.weightPen = weight;
}

void CRMDataLine::SetLineShowType(int type) {
    if (m_pArray)
        m_pArray->typeShow.lineShowType = type;
}

void CRMDataLine::SetBorderValue(float value) {
    if (m_pArray)
        m_pArray->typeShow.borderValue = value;
}

void CRMDataLine::SetPenType(eCoreTypeShowPen type) {
    if (m_pArray)
        m_pArray->typeShow.penType = type;
}

// ---- building an own array ----

void CRMDataLine::Create() {
    releaseArray();
    std::fill_n(m_fieldOffset, int(fieldCount), -1);
    auto *array = static_cast<mvDataPointArray *>(std::calloc(1, sizeof(mvDataPointArray)));
    auto *fields = static_cast<coreFieldDescriptor *>(std::calloc(maxOwnFields, sizeof(coreFieldDescriptor)));
    if (!array || !fields) {
        std::free(array);
        std::free(fields);
        return;
    }
    array->fields = fields;
    m_pArray = array;
    m_owned = true;
    m_capacity = 0;
    m_lastCount = 0;
    m_fieldTypes.clear();
    m_fieldOffsets.clear();
    std::memset(m_arrayCopy, 0, sizeof m_arrayCopy);
}

// From the 101st field on the descriptor is dropped, but the record still grows.
void CRMDataLine::InsertDPV(DATA_POINT_TYPES type, const QString &name) {
    if (!m_pArray || !m_owned)
        return;
    if (m_pArray->fieldCount < maxOwnFields) {
        coreFieldDescriptor &field = m_pArray->fields[m_pArray->fieldCount];
        field.type = type;
        fillField(field.name, name);
    }
    ++m_pArray->fieldCount;
    const int slot = slotOf(name);
    if (slot >= 0)
        m_fieldOffset[slot] = static_cast<int>(m_pArray->recordSize);
    m_pArray->recordSize += static_cast<Word>(GetFieldLen(type));
}

void CRMDataLine::AllocateMemory(long points) {
    if (!m_pArray || !m_owned)
        return;
    const unsigned int kept = m_pArray->data ? m_capacity : 0;
    const auto capacity = kept + static_cast<unsigned int>(std::max(points, minGrowth));
    void *data = std::realloc(kept ? m_pArray->data : nullptr,
                              std::max<size_t>(1, static_cast<size_t>(capacity) * m_pArray->recordSize));
    if (!data)
        return;
    m_pArray->data = static_cast<unsigned char *>(data);
    m_capacity = capacity;
}

void CRMDataLine::AppendData(const unsigned char *record) {
    if (!record || !m_pArray || !m_owned)
        return;
    if (m_pArray->count == static_cast<int>(m_capacity))
        AllocateMemory(1);
    if (m_pArray->count >= static_cast<int>(m_capacity))
        return;
    std::memcpy(m_pArray->data + static_cast<size_t>(m_pArray->count) * m_pArray->recordSize, record,
                m_pArray->recordSize);
    ++m_pArray->count;
}

void CRMDataLine::ReplaceData(int index, const unsigned char *record) {
    if (record && m_owned && GetDataPoint(index))
        std::memcpy(m_pArray->data + static_cast<size_t>(index) * m_pArray->recordSize, record,
                    m_pArray->recordSize);
}

void CRMDataLine::ClearData() {
    if (!m_pArray || !m_owned)
        return;
    std::free(m_pArray->data);
    m_pArray->data = nullptr;
    m_pArray->count = 0;
    m_capacity = 0;
    m_lastCount = 0;
}
