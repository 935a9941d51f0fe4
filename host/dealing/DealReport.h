#pragma once
#include "host/core/CalculatedObject.h"
#include "host/quotes/PointArray.h"
#include "module/HostRecords.h"

namespace desk {

class SourceView;

// One closed deal of the practice account: bought (positive volume) or sold, from one bar's close to
// another's.
struct Deal {
    int openBar = 0;
    int closeBar = 0;
    double openPrice = 0;
    double closePrice = 0;
    double volume = 0;
    double profit() const { return (closePrice - openPrice) * volume; }
};

// The deals that the practice account has made on a series. It has always one position, and turns it when the
// close crosses its average of 20 bars.
std::vector<Deal> practiceDeals(const SourceView &series);

// A report of the deals on one symbol: the price at which each was opened, and the balance that they led to.
class DealReport : public CalculatedObject {
public:
    DealReport(Service &maker, Handle interfaceHandle, const coreNameInstrument &name, const QString &symbol);

    const QString &symbol() const { return m_symbol; }
    void ownArrays(); // writes the object's handle into its arrays
    // Takes the series of the symbol, and whose it is; a null array leaves the report empty. The array stays
    // where it is as long as its object lives.
    void setBase(Handle object, const mvDataPointArray *array);
    Handle base() const { return m_base; }
    bool isBuiltOn(Handle object) const { return m_base != 0 && m_base == object; }
    // Makes the deals anew, up to the newest finished bar. False when there is no bar more since the last time.
    bool follow(bool rebuilt);

    bool isInstrument() const override { return false; }
    const coreNameInstrument &identity() const override { return m_identity; }
    std::vector<mvDataPointArray *> outputs() const override;
    std::vector<Handle> sources() const override;
    namePeriod period() const override { return m_identity.m_periods; }
    QString menuText() const override;

private:
    void dress(PointArray<corePointValue> &line, const QString &name, quint32 colour);

    coreNameInstrument m_identity;
    QString m_symbol;
    Handle m_base = 0;
    const mvDataPointArray *m_series = nullptr;
    int m_bars = 0; // of the series when the deals were made
    std::unique_ptr<PointArray<corePointValue>> m_prices;
    std::unique_ptr<PointArray<corePointValue>> m_balance;
};

} // namespace desk
