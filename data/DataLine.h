#pragma once
#include "module/HostRecords.h"
#include <QString>
#include <cstring>
#include <map>

// A read-only view on one array of the host: field names become offsets once, values are read in place.
// It can also hold an array that the module builds for itself, point by point.
class CRMDataLine {
public:
    // The fields that a line knows by slot, in the order of the slots.
    enum Field {
        TIME,
        OPEN,
        HIGH,
        LOW,
        CLOSE,
        VALUE,
        VOLUME,
        SIGN,
        POSITION,
        COUNT,
        ALL,
        TIME0,
        VALUE0,
        OPERID0,
        REASON0,
        TIME1,
        VALUE1,
        OPERID1,
        REASON1,
        TIME2,
        VALUE2,
        OPERID2,
        REASON2,
        TIME3,
        VALUE3,
        OPERID3,
        REASON3,
        TIME4,
        VALUE4,
        OPERID4,
        REASON4,
        fieldCount
    };

    CRMDataLine();
    explicit CRMDataLine(mvDataPointArray *array);
    CRMDataLine(const CRMDataLine &other); // shares the array, without owning it
    CRMDataLine(CRMDataLine &&other) noexcept;
    CRMDataLine &operator=(const CRMDataLine &other);
    CRMDataLine &operator=(CRMDataLine &&other) noexcept;
    virtual ~CRMDataLine();

    void Create(mvDataPointArray *array);
    void Detach();                // lets the array go; its name stays known
    QString AttachedName() const; // symbol of a host's array when it was attached; outlives the array
    int Update(mvDataPointArray *array); // points added since the last update

    // ---- values; 0 for no data, an index outside the array, a field that the array lacks ----
    long GetTime(int index) const { return longAt(TIME, index); }
    double GetOpen(int index) const { return floatAt(OPEN, index); }
    double GetHigh(int index) const { return floatAt(HIGH, index); }
    double GetLow(int index) const { return floatAt(LOW, index); }
    double GetClose(int index) const { return floatAt(CLOSE, index); }
    double GetValue(int index) const { return floatAt(VALUE, index); }
    double GetVolume(int index) const { return floatAt(VOLUME, index); }
    int GetSign(int index) const { return byteAt(SIGN, index); }
    int GetPosition(int index) const { return longAt(POSITION, index); }
    int GetCount(int index) const { return longAt(COUNT, index); }
    int GetAll(int index) const { return longAt(ALL, index); }
    int GetTime0(int index) const { return longAt(TIME0, index); }
    int GetTime1(int index) const { return longAt(TIME1, index); }
    int GetTime2(int index) const { return longAt(TIME2, index); }
    int GetTime3(int index) const { return longAt(TIME3, index); }
    int GetTime4(int index) const { return longAt(TIME4, index); }
    double GetValue0(int index) const { return floatAt(VALUE0, index); }
    double GetValue1(int index) const { return floatAt(VALUE1, index); }
    double GetValue2(int index) const { return floatAt(VALUE2, index); }
    double GetValue3(int index) const { return floatAt(VALUE3, index); }
    double GetValue4(int index) const { return floatAt(VALUE4, index); }
    int GetOperid0(int index) const { return longAt(OPERID0, index); }
    int GetOperid1(int index) const { return longAt(OPERID1, index); }
    int GetOperid2(int index) const { return longAt(OPERID2, index); }
    int GetOperid3(int index) const { return longAt(OPERID3, index); }
    int GetOperid4(int index) const { return longAt(OPERID4, index); }
    int GetReason0(int index) const { return longAt(REASON0, index); }
    int GetReason1(int index) const { return longAt(REASON1, index); }
    int GetReason2(int index) const { return longAt(REASON2, index); }
    int GetReason3(int index) const { return longAt(REASON3, index); }
    int GetReason4(int index) const { return longAt(REASON4, index); }
    bool HasField(Field field) const { return m_pArray && m_fieldOffset[field] >= 0; }
    // Where the field lies in the first point, for walks over all points; null without data or field.
    const unsigned char *FirstOf(Field field) const { return at(field, 0); }

    // ---- points and fields ----
    mvDataPointArray *GetArray() const { return m_pArray; }
    int GetDataPointCount() const { return m_pArray ? m_pArray->count : 0; }
    const unsigned char *GetDataPoint(int index) const {
        if (!m_pArray || !m_pArray->data || index < 0 || index >= m_pArray->count)
            return nullptr;
        return m_pArray->data + static_cast<size_t>(index) * m_pArray->recordSize;
    }
    int GetDataPoint(int index, void *out) const;
    DATA_POINT_TYPES GetFieldType(const QString &field) const;
    int GetFieldOffset(const QString &field) const;
    static int GetFieldLen(DATA_POINT_TYPES type);
    double ValueByName(const QString &field, int index) const; // the index is not checked

    // ---- searches; both ends are inclusive point indexes, -1 at the end is the last point ----
    int FindTime(long timeSec, int from, int to) const;
    int FindElement(const QString &field, double value, int from, int to) const;
    double FindMinElement(const QString &field, int from, int to) const;
    double FindMaxElement(const QString &field, int from, int to) const;
    void GetStringRepresentation(QString &out) const; // tab-separated, one point a line

    // ---- header of an own array ----
    void SetName(const coreNameInstrument *name);
    void SetName(const QString &symbol, const QString &type, char period, int lenPeriod, long startTime);
    void SetAdditionalName(const QString &name);
    void SetOwner(void *owner);
    void SetTypeShow(const coreTypeShow *typeShow);
    void SetPrecis(int digits);
    void SetCoord(const coreSystemCoord *coord);
    void SetLineColor(long color);
    void SetWeightPen(int weight);
    void SetLineShowType(int type);
    void SetBorderValue(float value);
    void SetPenType(eCoreTypeShowPen type);

    // ---- building an own array ----
    void Create();
    void InsertDPV(DATA_POINT_TYPES type, const QString &name);
    void AllocateMemory(long points);
    void AppendData(const unsigned char *record);
    void ReplaceData(int index, const unsigned char *record);
    void ClearData();

private:
    const unsigned char *at(Field field, int index) const {
        const unsigned char *point = m_fieldOffset[field] < 0 ? nullptr : GetDataPoint(index);
        return point ? point + m_fieldOffset[field] : nullptr;
    }
    float floatAt(Field field, int index) const {
        float value = 0;
        if (const unsigned char *source = at(field, index))
            std::memcpy(&value, source, sizeof value);
        return value;
    }
    int longAt(Field field, int index) const {
        int value = 0;
        if (const unsigned char *source = at(field, index))
            std::memcpy(&value, source, sizeof value);
        return value;
    }
    int byteAt(Field field, int index) const {
        const unsigned char *source = at(field, index);
        return source ? *source : 0;
    }
    template <class Better>
    double FindExtreme(const QString &field, int from, int to, double start, Better better) const;
    void releaseArray();
    void moveFrom(CRMDataLine &other);

    mvDataPointArray *m_pArray = nullptr;
    unsigned char m_arrayCopy[850];
    unsigned int m_capacity = 0; // points that an own array has room for
    int m_fieldOffset[fieldCount];
    bool m_owned = false;
    std::map<QString, DATA_POINT_TYPES> m_fieldTypes;
    std::map<QString, int> m_fieldOffsets;
    int m_lastCount = 0;
};
