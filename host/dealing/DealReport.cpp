#include "host/dealing/DealReport.h"
#include "host/indicators/SourceView.h"
#include <QCoreApplication>
#include <cmath>

namespace desk {

namespace {

constexpr int averageBars = 20;
constexpr double dealVolume = 10000;
constexpr double startBalance = 10000;
constexpr int balanceDigits = 2;
constexpr Word lineKind = 4;

} // namespace

std::vector<Deal> practiceDeals(const SourceView &series) {
    std::vector<Deal> deals;
    double sum = 0;
    Deal open;
    for (int bar = 0; bar < series.count(); ++bar) {
        const double close = series.close(bar);
        sum += close;
        if (bar >= averageBars)
            sum -= series.close(bar - averageBars);
        if (bar < averageBars - 1)
            continue;
        const double volume = close >= sum / averageBars ? dealVolume : -dealVolume;
        if (volume == open.volume)
            continue;
        if (open.volume != 0) {
            open.closeBar = bar;
            open.closePrice = close;
            deals.push_back(open);
        }
        open = {bar, bar, close, close, volume};
    }
    return deals;
}

DealReport::DealReport(Service &maker, Handle interfaceHandle, const coreNameInstrument &name,
                       const QString &symbol)
    : CalculatedObject(maker, interfaceHandle), m_identity(name), m_symbol(symbol),
      m_prices(std::make_unique<PointArray<corePointValue>>(valueLayout())),
      m_balance(std::make_unique<PointArray<corePointValue>>(valueLayout())) {
    dress(*m_prices, QCoreApplication::translate("desk", "Opening price"), 0xffd07020);
    dress(*m_balance, QCoreApplication::translate("desk", "Balance"), 0xff1f6feb);
    m_balance->record()->precision = balanceDigits;
}

void DealReport::dress(PointArray<corePointValue> &line, const QString &name, quint32 colour) {
    mvDataPointArray &record = *line.record();
    record.identity = m_identity;
    fillField(record.identity.m_szNameSymbol, name);
    record.typeShow.firstColor = colour;
    record.typeShow.secondColor = colour;
    record.typeShow.drawKind = lineKind;
    record.typeShow.penType = eCoreTypeShowPenSolid;
    record.typeShow.weightPen = 1;
    line.publish();
}

void DealReport::ownArrays() {
    for (mvDataPointArray *array : outputs())
        array->owner = fromWord<void>(handle());
}

void DealReport::setBase(Handle object, const mvDataPointArray *array) {
    m_base = object;
    m_series = array;
    follow(true);
}

bool DealReport::follow(bool rebuilt) {
    const int bars = m_series ? m_series->count : 0;
    if (!rebuilt && bars == m_bars)
        return false;
    m_bars = bars;
    std::vector<corePointValue> prices;
    std::vector<corePointValue> balances;
    if (m_series) {
        m_prices->record()->precision = m_series->precision;
        m_prices->record()->coord = m_series->coord;
        m_prices->record()->coord.rank = 1;
        const namePeriod period = m_series->identity.m_periods;
        for (mvDataPointArray *line : outputs())
            line->identity.m_periods = period;
        m_identity.m_periods = period;
        const SourceView series(m_series);
        double balance = startBalance;
        for (const Deal &deal : practiceDeals(series)) {
            for (int bar = deal.openBar; bar < deal.closeBar; ++bar) {
                prices.push_back({series.time(bar), float(deal.openPrice)});
                balances.push_back({series.time(bar), float(balance)});
            }
            balance += deal.profit();
        }
    }
    m_prices->assign(std::move(prices));
    m_balance->assign(std::move(balances));
    return true;
}

std::vector<mvDataPointArray *> DealReport::outputs() const {
    return {m_prices->record(), m_balance->record()};
}

std::vector<Handle> DealReport::sources() const {
    return m_base ? std::vector<Handle>{m_base} : std::vector<Handle>{};
}

QString DealReport::menuText() const {
    return QCoreApplication::translate("desk", "Deals of %1").arg(m_symbol);
}

} // namespace desk
