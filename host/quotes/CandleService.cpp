#include "host/quotes/CandleService.h"
#include "host/core/Front.h"
#include "host/core/Host.h"
#include "host/quotes/QuoteBook.h"
#include "host/quotes/SymbolNames.h"
#include "module/HostMessages.h"
#include "module/HostRecords.h"
#include <algorithm>

namespace desk {

namespace {

constexpr int pointsChanged = 0;
constexpr int arraysRebuilt = 1;
constexpr int displayChanged = 2;

} // namespace

SourceWatcher::~SourceWatcher() = default;

CandleService::CandleService(Host &host, QuoteBook &book)
    : ObjectService(host), m_book(book), m_interface(registerInterface("CANDLE", "VELMAR", "CANDLE_VELMAR")) {
    take(m_interface, {ToHost::OlderData, ToHost::SymbolDisplayName});
    QObject::connect(&book, &QuoteBook::quoted, &m_context,
                     [this](const QString &symbol) { quoted(symbol); });
    QObject::connect(&book, &QuoteBook::historyChanged, &m_context,
                     [this](const QString &symbol) { historyChanged(symbol); });
    QObject::connect(&book, &QuoteBook::told, &m_context, [this](Level level, const QString &sentence) {
        this->host().front().tell(level, sentence);
    });
    QObject::connect(&book, &QuoteBook::progressed, &m_context, [this](const QString &what, int percent) {
        this->host().front().progress(what, percent);
    });
}

bool CandleService::handle(Handle target, unsigned message, int wParam, int lParam, int &result) {
    result = 0;
    switch (message) {
    case ToHost::CreationAbandoned:
    case ToHost::ConfirmObject:
    case ToHost::HandOverSources:
        return true; // a series has no sources and needs no consent
    case ToHost::SourceCount:
        answer(lParam, 0);
        return true;
    case ToHost::ChangeArray:
        result = change(Handle(wParam), lParam);
        return true;
    case ToHost::ReloadArray:
        if (const auto candle = own<Candle>(Handle(wParam))) {
            candle->reload();
            announce(*candle, 0, arraysRebuilt);
        } else {
            result = 1;
        }
        return true;
    case ToHost::OlderData:
        result = loadOlder(Handle(wParam), lParam);
        return true;
    case ToHost::SymbolDisplayName:
        displayName(wParam);
        return true;
    default:
        return ObjectService::handle(target, message, wParam, lParam, result);
    }
}

// The chart's own menu names a pair by the currency that stands against the dollar.
const SymbolHistory *CandleService::historyOf(const QString &symbol) const {
    const SymbolHistory *history = m_book.history(symbol);
    if (history || !isCurrency(symbol))
        return history;
    history = m_book.history(symbol + QStringLiteral("/USD"));
    return history ? history : m_book.history(QStringLiteral("USD/") + symbol);
}

std::shared_ptr<Candle> CandleService::series(const QString &symbol, Side side, Period period,
                                              quint32 uniqueNumber) {
    const SymbolHistory *history = historyOf(symbol);
    if (!history || !period.isValid())
        return nullptr;
    const QString name = history->info().name;
    for (const std::weak_ptr<Candle> &known : m_candles) {
        const std::shared_ptr<Candle> candle = known.lock();
        if (candle && candle->isOf(name, side, period))
            return candle;
    }
    auto candle = std::make_shared<Candle>(*this, m_book, name, side, period);
    if (uniqueNumber != 0 && !host().objects().findUnique(uniqueNumber))
        candle->setUniqueNumber(uniqueNumber);
    host().objects().add(candle);
    candle->ownArray();
    m_candles.push_back(candle);
    tellIfEmpty(*candle, period);
    return candle;
}

void CandleService::tellIfEmpty(const Candle &candle, Period period) {
    const SymbolHistory *history = m_book.history(candle.symbol());
    const std::optional<Period> finest = history ? history->finest() : std::nullopt;
    if (candle.count() == 0 && finest && finest->seconds() > period.seconds())
        host().front().tell(
            Level::Message,
            QStringLiteral("%1 has no quotes finer than %2: its series of %3 begins with the next quote.")
                .arg(candle.symbol(), finest->longName(), period.longName()));
}

// Numbers of a stored workspace come back with the demand: the new object takes them over.
void CandleService::create(coreDemandsIndicator &demand) {
    const QString symbol = fieldText(demand.sNameInstrument.m_szNameSymbol);
    const std::optional<Side> side = sideOf(fieldText(demand.sNameInstrument.m_szType));
    const Period period = periodOf(demand.sNameInstrument.m_periods);
    demand.handle = nullptr;
    if (!side || !period.isValid()) {
        host().front().tell(Level::Warning,
                            QStringLiteral("There is no series of %1 of type \"%2\" and period %3 %4.")
                                .arg(symbol, fieldText(demand.sNameInstrument.m_szType))
                                .arg(QLatin1Char(period.unit))
                                .arg(period.length));
        return;
    }
    const std::shared_ptr<Candle> candle = series(symbol, *side, period, demand.nSzNumber);
    if (!candle) {
        host().front().tell(Level::Warning,
                            isCurrency(symbol)
                                ? QStringLiteral("There are no quotes of %1 against the dollar.").arg(symbol)
                                : QStringLiteral("There are no quotes of a symbol \"%1\".").arg(symbol));
        return;
    }
    demand.handle = fromWord<void>(candle->handle());
}

int CandleService::change(Handle object, int lParam) {
    const std::shared_ptr<Candle> candle = own<Candle>(object);
    if (!candle || !lParam)
        return 1;
    const auto &wanted = *fromWord<coreNameInstrument>(lParam);
    const std::optional<Side> side = sideOf(fieldText(wanted.m_szType));
    const Period period = periodOf(wanted.m_periods);
    if (!side || !period.isValid())
        return 1;
    candle->change(*side, period);
    tellIfEmpty(*candle, period);
    announce(*candle, 0, arraysRebuilt);
    return 0;
}

int CandleService::loadOlder(Handle object, int seconds) {
    const std::shared_ptr<Candle> candle = own<Candle>(object);
    if (!candle)
        return 1;
    const size_t before = candle->count();
    candle->loadOlder(seconds);
    if (candle->count() == before)
        host().front().tell(Level::Message,
                            QStringLiteral("There are no older quotes of %1.").arg(candle->symbol()));
    announce(*candle, 0, arraysRebuilt);
    return 0;
}

void CandleService::displayName(int wParam) const {
    if (!wParam)
        return;
    auto &names = *fromWord<coreDisplayNames>(wParam);
    const SymbolHistory *history = historyOf(fieldText(names.symbol));
    if (!history)
        return;
    const QString symbol = history->info().name;
    fillField(names.name, isCurrencyPair(symbol) ? baseCurrency(symbol) : symbol);
    fillField(names.suffix, quoteCurrency(symbol));
    fillField(names.alias, symbol);
}

void CandleService::announce(Candle &candle, int first, int kind) {
    const Handle handle = candle.handle();
    std::vector<Handle> dependents;
    for (SourceWatcher *watcher : m_watchers) {
        const std::vector<Handle> updated = watcher->sourceChanged(handle, first);
        dependents.insert(dependents.end(), updated.begin(), updated.end());
    }
    host().notifyUpdate(handle, kind);
    for (const Handle dependent : dependents)
        host().notifyUpdate(dependent, kind);
}

void CandleService::removeWatcher(SourceWatcher &watcher) {
    m_watchers.erase(std::remove(m_watchers.begin(), m_watchers.end(), &watcher), m_watchers.end());
}

void CandleService::lookChanged(Candle &candle) {
    host().notifyUpdate(candle.handle(), displayChanged);
}

void CandleService::quoted(const QString &symbol) {
    const SymbolHistory *history = m_book.history(symbol);
    const std::optional<Tick> tick = history ? history->last() : std::nullopt;
    if (!tick)
        return;
    const std::vector<std::weak_ptr<Candle>> candles = m_candles; // a chart may ask for new ones meanwhile
    for (const std::weak_ptr<Candle> &known : candles) {
        const std::shared_ptr<Candle> candle = known.lock();
        if (!candle || candle->symbol() != symbol)
            continue;
        const size_t before = candle->count();
        if (candle->quote(*tick) != QuoteEffect::None)
            announce(*candle, before == 0 ? 0 : int(before) - 1, pointsChanged);
    }
}

void CandleService::historyChanged(const QString &symbol) {
    const std::vector<std::weak_ptr<Candle>> candles = m_candles;
    for (const std::weak_ptr<Candle> &known : candles) {
        const std::shared_ptr<Candle> candle = known.lock();
        if (!candle || candle->symbol() != symbol)
            continue;
        candle->reload();
        announce(*candle, 0, arraysRebuilt);
    }
}

} // namespace desk
