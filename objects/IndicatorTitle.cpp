#include "objects/Indicator.h"

#include "chart/GraphWidget.h"
#include "chart/TimeScrollBar.h"
#include "module/HostCalls.h"
#include "objects/DrawTypes.h"
#include "support/PeriodText.h"

#include <QPointer>
#include <cmath>
#include <cstring>

QString titleValueText(double value, float step) {
    const double magnitude = std::fabs(std::log10(static_cast<double>(step)));
    if (!std::isfinite(magnitude))
        return QString();
    const int decimals = QString::number(magnitude, 'g').section(QLatin1Char('.'), 0, 0).toInt();
    return QStringLiteral(" (%1) ").arg(value, 0, 'f', decimals);
}

namespace {

// The third field of a point; it is a number of four bytes in all points that have one.
double thirdField(const CRPrimitive &primitive, int dataIndex) {
    constexpr unsigned offset = 8;
    float value = 0;
    if (primitive.GetArray()->recordSize >= offset + sizeof value)
        std::memcpy(&value, primitive.GetDataPoint(dataIndex) + offset, sizeof value);
    return value;
}

} // namespace

// The value at the last position on the screen that has data; empty for none.
QString CRIndicator::TitleValueText(const CRPrimitive *primitive) const {
    constexpr int titlesAtTop = 2;
    const CTimeScrollBar *bar = m_widget->m_pScrollBar;
    if (!bar || m_widget->m_nSymbolNamesPos == titlesAtTop)
        return QString();
    const int first = bar->GetScrollValue() - bar->m_nScreenDataPoints;
    for (int position = bar->GetScrollValue() - 1; position >= first && position >= 0; --position) {
        const int dataIndex = primitive->GetPos(position);
        if (dataIndex < 0 || !primitive->GetDataPoint(dataIndex))
            continue;
        bool has = false;
        double value = primitive->TitleValue(dataIndex, &has);
        if (primitive->m_type == PT_MARKS) // the title of a pane shows the other one
            value = thirdField(*primitive, dataIndex);
        return has ? titleValueText(value, primitive->m_fPoint) : QString();
    }
    return QString();
}

QString CRIndicator::GetName() const {
    if (m_primitives.empty())
        return QString();
    return fieldText(HostCalls::identity(m_primitives.front()->m_hDpa).sNameInstrument.m_szNameSymbol);
}

// The part of the window's caption that stands for this object.
QString CRIndicator::GetTitle() {
    if (m_primitives.empty() || !m_widget)
        return QString();
    QPointer<CRPrimitive> primitive(m_primitives.front());
    const QString value = TitleValueText(primitive);
    if (!isInstrumentType(primitive->m_type)) {
        if (OnePrimitiveOnArea::Check(primitive))
            return primitive->GetAlias() + value;
        return GetName() + value;
    }
    if (primitive->m_alias.isEmpty() || primitive->m_fullName.startsWith(QLatin1Char('/'))) {
        primitive->RequestExNames();
        if (primitive)
            primitive->SyncInternalData();
    }
    if (!primitive || !primitive->GetArray())
        return QString();
    const namePeriod own = primitive->GetArray()->identity.m_periods;
    const namePeriod answered = HostCalls::sourcePeriod(primitive->GetArray()->owner, own);
    if (!primitive)
        return QString();
    if (samePeriod(own, answered))
        return primitive->m_name + value;
    return periodText(answered.period, answered.lenPeriod) + QLatin1Char('/') + primitive->m_alias + value;
}
