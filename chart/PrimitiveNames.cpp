#include "chart/Primitive.h"

#include "chart/PrimitiveTypes.h"
#include "module/HostCalls.h"
#include "support/PeriodText.h"

#include <QPointer>
#include <cmath>

namespace {

enum { exSymbol, exName, exSuffix, exAlias, exCount };

const QLatin1String placeholder("\\");

} // namespace

QString CRPrimitive::ExName(int which) const {
    return which < 0 || which >= exCount ? QString() : readText(m_exName[which], 255);
}

bool CRPrimitive::NameIs(const unsigned short *name) const {
    const mvDataPointArray *array = GetArray();
    return array && name && fieldText(array->identity.m_szNameSymbol) == readEndedText(name);
}

// Look, precision and names as the host's array has them now.
void CRPrimitive::CreatePrimitive(mvDataPointArray *array) {
    CRMDataLine::Create(array);
    TakeLook();
}

void CRPrimitive::TakeLook() {
    const mvDataPointArray *array = GetArray();
    if (!array)
        return;
    m_riseColor = QColor(static_cast<QRgb>(array->typeShow.firstColor));
    m_lineColor = QColor(static_cast<QRgb>(array->typeShow.secondColor));
    m_nPenStyle = static_cast<int>(array->typeShow.penType);
    m_nPenWidth = array->typeShow.weightPen;
    m_fPoint = static_cast<float>(std::pow(10.0, -static_cast<double>(array->precision)));
}

void CRPrimitive::SyncInternalData() {
    const mvDataPointArray *array = GetArray();
    if (!array)
        return;
    TakeLook();
    m_type = drawTypeOf(*array, m_type);
    const namePeriod period = array->identity.m_periods;
    const QString type = fieldText(array->identity.m_szType);

    const int source = IsInstrumentType() ? exName : exSymbol;
    if (ExName(source) == placeholder) {
        const QPointer<CRPrimitive> alive(this);
        RequestExNames();
        if (!alive)
            return;
    }
    m_name = m_alias = ExName(source);
    if (const QString suffix = ExName(exSuffix); !suffix.isEmpty())
        m_name += QLatin1Char('/') + suffix;
    if (const QString alias = ExName(exAlias); !alias.isEmpty())
        m_name = m_alias = alias;
    m_name += QLatin1Char(' ') + periodText(period.period, period.lenPeriod) + QLatin1Char(' ') + type;
    m_fullName = ExName(exName) + QLatin1Char('/') + ExName(exSuffix);
}

void CRPrimitive::SyncExNameData() {
    const QPointer<CRPrimitive> alive(this);
    RequestExNames();
    if (!alive)
        return;
    if (const QString alias = ExName(exAlias); !alias.isEmpty())
        m_alias = alias;
}

// The host fills a record of its own: its answer may come with the end of this series.
void CRPrimitive::RequestExNames() {
    const mvDataPointArray *array = GetArray();
    if (!array)
        return;
    static_assert(sizeof m_exName == sizeof(coreDisplayNames), "the four texts of a series");
    coreDisplayNames names;
    std::memcpy(&names, m_exName, sizeof names);
    fillField(names.symbol, fieldText(array->identity.m_szNameSymbol));
    const QPointer<CRPrimitive> alive(this);
    HostCalls::displayNames(array->owner, names);
    if (alive)
        std::memcpy(m_exName, &names, sizeof names);
}

QString CRPrimitive::GetMenuItemName() {
    const mvDataPointArray *array = GetArray();
    void *handle = array ? array->owner : m_hDpa;
    const QString symbol = ExName(exSymbol);
    QString label = fieldText(HostCalls::identity(handle).sNameInstrument.m_szNameSymbol);
    if (symbol != label)
        label += QLatin1Char('/') + symbol;
    if (const QString name = HostCalls::menuText(handle); !name.isEmpty())
        label += QLatin1Char('/') + name;
    return label;
}

SortByOrder::SortByOrder(const coreListCreateData &list) {
    for (int place = 0; list.arrays && place < list.count; ++place)
        if (const mvDataPointArray *array = list.arrays[place])
            m_places.emplace(fieldText(array->identity.m_szNameSymbol), place);
}

// True only when both names are in the list, so a foreign series keeps its place.
bool SortByOrder::operator()(const CRPrimitive *a, const CRPrimitive *b) const {
    const auto placeOf = [this](const CRPrimitive *primitive) {
        const mvDataPointArray *array = primitive ? primitive->GetArray() : nullptr;
        return array ? m_places.find(fieldText(array->identity.m_szNameSymbol)) : m_places.end();
    };
    const auto first = placeOf(a);
    const auto second = placeOf(b);
    return first != m_places.end() && second != m_places.end() && first->second < second->second;
}
