#pragma once
#include "host/core/ObjectService.h"
#include "host/quotes/Candle.h"
#include <QObject>
#include <memory>
#include <vector>

namespace desk {

class QuoteBook;

// Follows the data of objects: whoever builds on a series hears of it here.
class SourceWatcher {
public:
    virtual ~SourceWatcher();
    // Points from `first` on are new or changed; 0 after a rebuild. Brings all that is built on the object up
    // to date and answers it, sources before their dependents.
    virtual std::vector<Handle> sourceChanged(Handle source, int first) = 0;
};

// "CANDLE": the instrument series of the quote book.
class CandleService : public ObjectService {
public:
    CandleService(Host &host, QuoteBook &book);
    bool handle(Handle target, unsigned message, int wParam, int lParam, int &result) override;

    Handle interfaceHandle() const { return m_interface; }
    void addWatcher(SourceWatcher &watcher) { m_watchers.push_back(&watcher); }
    void removeWatcher(SourceWatcher &watcher);
    // The series of a symbol, made when it is not there yet; null for an unknown symbol or period.
    std::shared_ptr<Candle> series(const QString &symbol, Side side, Period period, quint32 uniqueNumber = 0);
    // The series is to be drawn in another way.
    void lookChanged(Candle &candle);

private:
    void create(coreDemandsIndicator &demand) override;
    void tellIfEmpty(const Candle &candle, Period period);
    int change(Handle object, int lParam);
    int loadOlder(Handle object, int seconds);
    const SymbolHistory *historyOf(const QString &symbol) const; // also of "EUR" alone; null for an unknown one
    void displayName(int wParam) const;
    void quoted(const QString &symbol);
    void historyChanged(const QString &symbol);
    void announce(Candle &candle, int first, int kind);

    QuoteBook &m_book;
    Handle m_interface;
    std::vector<SourceWatcher *> m_watchers;
    std::vector<std::weak_ptr<Candle>> m_candles;
    QObject m_context; // ends the connections with the service
};

} // namespace desk
