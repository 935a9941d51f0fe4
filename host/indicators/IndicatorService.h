#pragma once
#include "host/core/ObjectService.h"
#include "host/indicators/Indicator.h"
#include "host/quotes/CandleService.h"
#include <memory>
#include <vector>

namespace desk {

class QuoteBook;

// "MVINDICATORS": the catalogue and the engine of indicators.
class IndicatorService : public ObjectService, public SourceWatcher {
public:
    IndicatorService(Host &host, CandleService &candles, QuoteBook &book);
    ~IndicatorService() override;
    bool handle(Handle target, unsigned message, int wParam, int lParam, int &result) override;
    void subscriptionChanged(Handle object, bool subscribed) override;
    std::vector<Handle> sourceChanged(Handle source, int first) override;

    Handle interfaceHandle() const { return m_interface; }
    // What a settings page changed in an indicator.
    struct Change {
        bool values = false;
        bool look = false;
        bool names = false;
        bool outputs = false;
    };
    void changed(Indicator &indicator, const Change &change);

private:
    void create(coreDemandsIndicator &demand) override;
    void outputsFetched(Handle object) override;
    int catalogue(int wParam) const;
    int needsSource(int wParam, int lParam) const;
    int bindSources(Handle object, int lParam);
    int confirm(Handle object, int lParam);
    void abandon();
    bool bindSeries(Indicator &indicator, Period period);
    Period chartPeriod(Handle object) const;
    bool isWanted(Handle object) const;
    void updateDependents(Handle source, int first, std::vector<Handle> &updated);
    void updateDependent(Indicator &indicator, Handle source, int first, std::vector<Handle> &updated);
    void letRest(Indicator &indicator); // it and what is built on it

    CandleService &m_candles;
    QuoteBook &m_book;
    Handle m_interface;
    std::vector<std::weak_ptr<Indicator>> m_indicators;
    Handle m_inMaking = 0; // made, and not yet on a chart
};

} // namespace desk
