#include "host/indicators/IndicatorService.h"
#include "host/core/Front.h"
#include "host/core/Host.h"
#include "host/quotes/QuoteBook.h"
#include "module/HostMessages.h"
#include "module/HostRecords.h"
#include <QCoreApplication>
#include <algorithm>

namespace desk {

namespace {

constexpr int arraysRebuilt = 1;
constexpr int displayChanged = 2;
constexpr Period usualPeriod{'I', 60};

} // namespace

IndicatorService::IndicatorService(Host &host, CandleService &candles, QuoteBook &book)
    : ObjectService(host), m_candles(candles), m_book(book),
      m_interface(registerInterface("MVINDICATORS", "VELMAR", "BinIndicators")) {
    take(m_interface, {ToHost::IndicatorCount, ToHost::IndicatorList, ToHost::IndicatorNeedsSource});
    m_candles.addWatcher(*this);
}

IndicatorService::~IndicatorService() {
    m_candles.removeWatcher(*this);
}

bool IndicatorService::handle(Handle target, unsigned message, int wParam, int lParam, int &result) {
    result = 0;
    switch (message) {
    case ToHost::CreationAbandoned:
        abandon();
        return true;
    case ToHost::IndicatorCount:
        answer(wParam, Word(formulaKinds().size()));
        return true;
    case ToHost::IndicatorList:
        result = catalogue(wParam);
        return true;
    case ToHost::IndicatorNeedsSource:
        result = needsSource(wParam, lParam);
        return true;
    case ToHost::SourceCount:
        if (const auto indicator = own<Indicator>(Handle(wParam)))
            answer(lParam, indicator->kind().needsSource ? 1 : 0);
        return true;
    case ToHost::HandOverSources:
        result = bindSources(Handle(wParam), lParam);
        return true;
    case ToHost::ConfirmObject:
        result = confirm(Handle(wParam), lParam);
        return true;
    case ToHost::ChangeArray:
        return true; // period and type of an indicator are those of its source
    case ToHost::ReloadArray:
        if (const auto indicator = own<Indicator>(Handle(wParam))) {
            indicator->recompute();
            changed(*indicator, {true, false, false, false});
        }
        return true;
    default:
        return ObjectService::handle(target, message, wParam, lParam, result);
    }
}

int IndicatorService::catalogue(int wParam) const {
    if (!wParam)
        return 1;
    auto &list = *fromWord<coreIndicatorCatalogue>(wParam);
    const std::vector<FormulaKind> &kinds = formulaKinds();
    const int room = list.count;
    const int count = std::min(std::max(0, room), int(kinds.size()));
    for (int i = 0; i < count && list.descriptions; ++i) {
        INDICATOR_DESCRIPTION &description = list.descriptions[i];
        clearRecord(description);
        fillField(description.displayName, QCoreApplication::translate("desk", kinds[size_t(i)].displayName));
        fillField(description.name.m_szNameSymbol, QString::fromLatin1(kinds[size_t(i)].name));
        description.category = Word(kinds[size_t(i)].category);
    }
    list.count = int(kinds.size());
    return 0;
}

int IndicatorService::needsSource(int wParam, int lParam) const {
    if (!wParam)
        return 1;
    const FormulaKind *kind =
        findFormulaKind(fieldText(fromWord<coreNameInstrument>(wParam)->m_szNameSymbol));
    if (!kind)
        return 1;
    answer(lParam, kind->needsSource ? 1 : 0);
    return 0;
}

void IndicatorService::create(coreDemandsIndicator &demand) {
    demand.handle = nullptr;
    const QString name = fieldText(demand.sNameInstrument.m_szNameSymbol);
    const FormulaKind *kind = findFormulaKind(name);
    if (!kind) {
        host().front().tell(Level::Warning, QStringLiteral("There is no indicator \"%1\".").arg(name));
        return;
    }
    // The outputs of one stored indicator ask one after the other; they belong to one object.
    if (demand.nSzNumber != 0) {
        const auto known = host().objects().findUnique(demand.nSzNumber);
        if (known && &known->maker() == this) {
            demand.handle = fromWord<void>(known->handle());
            return;
        }
    }
    auto indicator = std::make_shared<Indicator>(*this, *kind);
    if (demand.nSzNumber != 0 && !host().objects().findUnique(demand.nSzNumber))
        indicator->setUniqueNumber(demand.nSzNumber);
    host().objects().add(indicator);
    indicator->ownArrays();
    if (!kind->needsSource && !bindSeries(*indicator, usualPeriod)) {
        host().objects().remove(indicator->handle());
        host().front().tell(Level::Warning,
                            QStringLiteral("The indicator \"%1\" needs quotes of %2.")
                                .arg(name, kind->make()->symbols().join(QStringLiteral(" and "))));
        return;
    }
    m_indicators.erase(std::remove_if(m_indicators.begin(), m_indicators.end(),
                                      [](const auto &known) { return known.expired(); }),
                       m_indicators.end());
    indicator->tellApart(
        static_cast<int>(std::count_if(m_indicators.begin(), m_indicators.end(), [kind](const auto &known) {
            const auto other = known.lock();
            return other && &other->kind() == kind;
        })));
    m_indicators.push_back(indicator);
    m_inMaking = indicator->handle();
    demand.handle = fromWord<void>(indicator->handle());
}

void IndicatorService::abandon() {
    const Handle object = m_inMaking;
    m_inMaking = 0;
    if (!own<Indicator>(object) || host().subscriptions().hasSubscriber(object))
        return;
    host().subscriptions().dropObject(object);
    host().objects().remove(object);
}

int IndicatorService::bindSources(Handle object, int lParam) {
    const std::shared_ptr<Indicator> indicator = own<Indicator>(object);
    if (!indicator || !lParam)
        return 1;
    const auto &list = *fromWord<coreListCreateData>(lParam);
    if (list.count < 1 || !list.arrays || !list.arrays[0])
        return 1;
    mvDataPointArray *array = list.arrays[0];
    const std::shared_ptr<CalculatedObject> owner = host().objects().findArray(array);
    if (!owner)
        return 1;
    const std::vector<Handle> path = host().objects().path(owner->handle());
    if (owner == indicator || std::find(path.begin(), path.end(), object) != path.end())
        return 1; // nothing is its own source
    const std::vector<mvDataPointArray *> lines = owner->outputs();
    indicator->setSourceLine(1 + int(std::find(lines.begin(), lines.end(), array) - lines.begin()));
    indicator->setInputs({{owner->handle(), array}}, host().objects().level(owner->handle()) + 1);
    return 0;
}

void IndicatorService::outputsFetched(Handle object) {
    if (m_inMaking == object)
        m_inMaking = 0;
}

// The user may set it up and may refuse it; until then the charts do not know it.
int IndicatorService::confirm(Handle object, int lParam) {
    const std::shared_ptr<Indicator> indicator = own<Indicator>(object);
    if (!indicator)
        return 1;
    m_inMaking = object;
    answer(lParam, host().front().confirm(*indicator) ? 1 : 0);
    return 0;
}

// The series of a formula without a source, at a period.
bool IndicatorService::bindSeries(Indicator &indicator, Period period) {
    std::vector<Indicator::Input> inputs;
    for (const QString &symbol : indicator.kind().make()->symbols()) {
        const std::shared_ptr<Candle> candle = m_candles.series(symbol, Side::Middle, period);
        if (!candle)
            return false;
        inputs.push_back({candle->handle(), candle->outputs().front()});
    }
    indicator.setInputs(inputs, 1);
    return true;
}

// The period of the instrument on the same chart, for what stands beside it.
Period IndicatorService::chartPeriod(Handle object) const {
    for (const Handle window : host().subscriptions().windows(object)) {
        for (const Handle other : host().subscriptions().objects(window)) {
            const std::shared_ptr<CalculatedObject> found = host().objects().find(other);
            if (found && found->isInstrument())
                return periodOf(found->period());
        }
    }
    return usualPeriod;
}

void IndicatorService::subscriptionChanged(Handle object, bool subscribed) {
    const std::shared_ptr<Indicator> indicator = own<Indicator>(object);
    if (!indicator || !subscribed)
        return;
    if (!indicator->kind().needsSource && periodOf(indicator->period()) != chartPeriod(object))
        bindSeries(*indicator, chartPeriod(object));
    // Sources come up to date before what is built on them.
    for (const Handle source : host().objects().path(object)) {
        if (const auto below = own<Indicator>(source); below && below->isStale())
            below->recompute();
    }
    if (indicator->isStale())
        indicator->recompute();
}

bool IndicatorService::isWanted(Handle object) const {
    if (host().subscriptions().hasSubscriber(object))
        return true;
    return std::any_of(m_indicators.begin(), m_indicators.end(), [this, object](const auto &known) {
        const std::shared_ptr<Indicator> indicator = known.lock();
        return indicator && indicator->dependsOn(object) && isWanted(indicator->handle());
    });
}

std::vector<Handle> IndicatorService::sourceChanged(Handle source, int first) {
    std::vector<Handle> updated;
    updateDependents(source, first, updated);
    if (first == 0) { // a chart has another period: what stands beside its instrument follows
        for (const std::weak_ptr<Indicator> &known : std::vector<std::weak_ptr<Indicator>>(m_indicators)) {
            const std::shared_ptr<Indicator> indicator = known.lock();
            if (!indicator || indicator->kind().needsSource ||
                !host().subscriptions().hasSubscriber(indicator->handle()) ||
                periodOf(indicator->period()) == chartPeriod(indicator->handle()))
                continue;
            bindSeries(*indicator, chartPeriod(indicator->handle()));
            updated.push_back(indicator->handle());
            updateDependents(indicator->handle(), 0, updated);
        }
    }
    return updated;
}

void IndicatorService::updateDependents(Handle source, int first, std::vector<Handle> &updated) {
    for (const std::weak_ptr<Indicator> &known : m_indicators) {
        const std::shared_ptr<Indicator> indicator = known.lock();
        if (indicator && indicator->dependsOn(source))
            updateDependent(*indicator, source, first, updated);
    }
}

void IndicatorService::updateDependent(Indicator &indicator, Handle source, int first,
                                       std::vector<Handle> &updated) {
    const Handle handle = indicator.handle();
    if (!isWanted(handle)) {
        letRest(indicator);
        return;
    }
    if (const auto below = own<Indicator>(source); below && first > 0)
        first = below->firstChanged(indicator.inputs().front().array);
    if (first == 0)
        indicator.recompute();
    else
        indicator.update(source, first);
    updated.push_back(handle);
    updateDependents(handle, first, updated);
}

void IndicatorService::letRest(Indicator &indicator) {
    indicator.setStale();
    for (const std::weak_ptr<Indicator> &known : m_indicators) {
        const std::shared_ptr<Indicator> above = known.lock();
        if (above && above->dependsOn(indicator.handle()))
            letRest(*above);
    }
}

void IndicatorService::changed(Indicator &indicator, const Change &change) {
    const Handle handle = indicator.handle();
    std::vector<Handle> dependents;
    if (change.values)
        updateDependents(handle, 0, dependents);
    if (m_inMaking == handle)
        return; // no chart knows it yet
    if (change.names)
        host().notifyRename(handle);
    if (change.outputs)
        host().notifyRebuild(handle);
    if (change.values && !change.outputs)
        host().notifyUpdate(handle, arraysRebuilt);
    else if (change.look)
        host().notifyUpdate(handle, displayChanged);
    for (const Handle dependent : dependents)
        host().notifyUpdate(dependent, arraysRebuilt);
}

} // namespace desk
