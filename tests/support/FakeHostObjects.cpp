// Calculated objects: the series of instruments and the indicators on them.
#include "tests/support/FakeHostPrivate.h"

#include <algorithm>
#include <cmath>

namespace {

// "EURUSD" and "EUR/USD" are shown as "EUR/USD", anything else as it stands.
void splitSymbol(const QString &symbol, QString *name, QString *suffix, QString *alias) {
    QString plain = symbol;
    plain.remove('/');
    if (plain.size() == 6) {
        *name = plain.left(3);
        *suffix = plain.mid(3);
        *alias = *name + "/" + *suffix;
    } else {
        *name = symbol;
        *suffix = QString();
        *alias = symbol;
    }
}

bool sameSeries(const coreNameInstrument &a, const coreNameInstrument &b) {
    return fieldText(a.m_szNameSymbol) == fieldText(b.m_szNameSymbol) &&
           fieldText(a.m_szType) == fieldText(b.m_szType) && a.m_periods.period == b.m_periods.period &&
           a.m_periods.lenPeriod == b.m_periods.lenPeriod;
}

int fieldOffset(const mvDataPointArray *array, const char *name) {
    static constexpr int widths[] = {1, 2, 4, 8, 4, 8, 0};
    int offset = 0;
    for (int i = 0; i < array->fieldCount; ++i) {
        if (fieldText(array->fields[i].name) == name)
            return offset;
        offset += widths[array->fields[i].type];
    }
    return -1;
}

} // namespace

// ---- making ----

void FakeHost::setHistory(const QString &symbol, const std::vector<Bar> &bars) {
    m_history[symbol] = bars;
}

void FakeHost::setTickHistory(const QString &symbol, const std::vector<Tick> &ticks) {
    m_tickHistory[symbol] = ticks;
}

void FakeHost::addIndicatorKind(const FakeIndicator &indicator) {
    for (FakeIndicator &kind : m_kinds) {
        if (kind.name == indicator.name) {
            kind = indicator;
            return;
        }
    }
    m_kinds.push_back(indicator);
}

FakeObject *FakeHost::object(Word handle) {
    const auto found = m_objects.find(handle);
    return found == m_objects.end() ? nullptr : found->second.get();
}

FakeObject *FakeHost::lastObject() {
    return m_last;
}

std::vector<FakeObject *> FakeHost::objects() {
    std::vector<FakeObject *> result;
    for (const auto &entry : m_objects)
        result.push_back(entry.second.get());
    return result;
}

FakeObject *FakeHost::make(const coreDemandsIndicator &record) {
    const QString name = fieldText(record.sNameInstrument.m_szNameSymbol);
    if (record.parameter == interfaceOf("MvDealingHistory") && record.parameter != 0) {
        FakeIndicator report;
        report.name = report.displayName = name;
        report.inputs = static_cast<int>(reportSymbols.size());
        report.outputs = {{"Report", 4, 0, 3, nullptr}};
        return makeIndicator(report, record.sNameInstrument, record.parameter);
    }
    if (record.parameter == interfaceOf("MVINDICATORS") && record.parameter != 0) {
        for (const FakeIndicator &kind : m_kinds) {
            if (kind.name == name)
                return makeIndicator(kind, record.sNameInstrument, record.parameter);
        }
        return nullptr;
    }
    for (const auto &entry : m_objects) {
        if (entry.second->instrument && sameSeries(entry.second->name, record.sNameInstrument))
            return entry.second.get();
    }
    return makeInstrument(record.sNameInstrument);
}

FakeObject *FakeHost::makeInstrument(const coreNameInstrument &name) {
    auto object = std::make_unique<FakeObject>();
    object->handle = m_nextHandle;
    m_nextHandle += 0x10;
    object->maker = interfaceOf("CANDLE");
    object->name = name;
    object->number = object->handle & 0xFFFF;
    splitSymbol(fieldText(name.m_szNameSymbol), &object->displayName, &object->suffix, &object->alias);
    object->outputs.emplace_back(new FakeArray);
    FakeObject *result = object.get();
    m_objects[object->handle] = std::move(object);
    fillInstrument(result);
    return result;
}

void FakeHost::fillInstrument(FakeObject *object) {
    const QString symbol = fieldText(object->name.m_szNameSymbol);
    FakeArray &array = object->array();
    mvDataPointArray *header = array.header();
    header->identity = object->name;
    header->owner = fromWord<void>(object->handle);
    header->precision = m_precision;
    header->typeShow.drawKind = m_drawKind;
    header->coord.axis = qHash(symbol) & 0xFFFF;
    if (object->name.m_periods.period == 'I' && object->name.m_periods.lenPeriod == 0) {
        array.setTicks(m_tickHistory.count(symbol) ? m_tickHistory[symbol] : makeTicks(300));
        return;
    }
    const auto own = m_history.find(symbol);
    array.setCandles(own != m_history.end()
                         ? own->second
                         : makeBars(200, 1388534400, periodSeconds(object->name.m_periods)));
}

FakeObject *FakeHost::makeIndicator(const FakeIndicator &kind, const coreNameInstrument &name, Word maker) {
    auto object = std::make_unique<FakeObject>();
    object->handle = m_nextHandle;
    m_nextHandle += 0x10;
    object->maker = maker;
    object->instrument = false;
    object->name = name;
    object->displayName = object->alias = kind.displayName;
    object->inputs = kind.inputs;
    object->links = kind.links;
    object->levels = kind.levels;
    object->kind = kind;
    object->number = object->handle & 0xFFFF;
    for (const FakeOutput &output : kind.outputs) {
        object->outputs.emplace_back(new FakeArray);
        mvDataPointArray *header = object->outputs.back()->header();
        header->identity = name;
        fillField(header->identity.m_szNameSymbol, output.name);
        header->owner = fromWord<void>(object->handle);
        header->typeShow.drawKind = output.drawKind;
        header->typeShow.lineShowType = output.style;
        header->typeShow.scaleKind = output.placement;
        header->typeShow.secondColor = 0xFF2040C0;
        header->coord.rank = 1;
        object->outputs.back()->setValues({});
    }
    FakeObject *result = object.get();
    m_objects[object->handle] = std::move(object);
    if (kind.inputs == 0)
        recompute(result);
    return result;
}

void FakeHost::recompute(FakeObject *object) {
    if (object->instrument)
        return;
    std::vector<int> times;
    std::vector<float> closes;
    const mvDataPointArray *source = object->sources.empty() ? nullptr : object->sources.front();
    if (source) {
        const int time = fieldOffset(source, "TIME");
        const int close = fieldOffset(source, "CLOSE");
        const int value = close >= 0 ? close : fieldOffset(source, "VALUE");
        for (int i = 0; i < source->count; ++i) {
            const unsigned char *record = source->data + static_cast<std::size_t>(i) * source->recordSize;
            times.push_back(bytes::i32(record, time));
            closes.push_back(bytes::f32(record, value));
        }
    } else if (object->kind.inputs == 0) {
        for (const Bar &bar : makeBars(200, 1388534400, 3600, 2.0f)) {
            times.push_back(bar.time);
            closes.push_back(bar.close);
        }
    }
    for (std::size_t k = 0; k < object->outputs.size(); ++k) {
        const FakeOutput &output = object->kind.outputs[k];
        mvDataPointArray *header = object->outputs[k]->header();
        if (source) {
            header->identity.m_periods = source->identity.m_periods;
            fillField(header->identity.m_szType, fieldBytes(source->identity.m_szType));
            header->coord.axis = source->coord.axis;
        }
        object->outputs[k]->setValues({});
        for (int i = 0; i < static_cast<int>(times.size()); ++i) {
            const float computed =
                output.value ? output.value(closes, i) : closes[static_cast<std::size_t>(i)];
            const Value value{times[static_cast<std::size_t>(i)], computed};
            object->outputs[k]->append(&value);
        }
    }
}

// ---- changing ----

void FakeHost::appendBar(FakeObject *object, const Bar &bar) {
    object->array().append(&bar);
    for (FakeObject *other : objects()) {
        if (!other->sources.empty() && other->sources.front() == object->array().header())
            recompute(other);
    }
}

void FakeHost::changeLastBar(FakeObject *object, const Bar &bar) {
    object->array().replaceLast(&bar);
    for (FakeObject *other : objects()) {
        if (!other->sources.empty() && other->sources.front() == object->array().header())
            recompute(other);
    }
}

int FakeHost::update(FakeObject *object, int kind) {
    int result = 0;
    const std::multiset<CRGraphWidget *> subscribers = object->subscribers;
    CRGraphWidget *last = nullptr;
    for (CRGraphWidget *widget : subscribers) {
        if (widget == last)
            continue;
        last = widget;
        Chart chart;
        chart.handle = widget;
        result = update(object, chart, kind);
    }
    return result;
}

int FakeHost::update(FakeObject *object, const Chart &chart, int kind) {
    bytes::Record record(790);
    std::memcpy(record.data(), &object->name, sizeof object->name);
    bytes::put<Word>(record.data(), 774, object->handle);
    bytes::put<Word>(record.data(), 782, static_cast<Word>(toWord(chart.handle)));
    bytes::put<int>(record.data(), 786, kind);
    return send(ToModule::UpdateData, record.data());
}

void FakeHost::changeArray(Word handle, const coreNameInstrument &name) {
    FakeObject *changed = object(handle);
    if (!changed)
        return;
    if (changed->instrument) {
        changed->name.m_periods = name.m_periods;
        if (changed->name.m_periods.period != 'I' && changed->name.m_periods.lenPeriod == 0)
            changed->name.m_periods.lenPeriod = 1;
        std::memcpy(changed->name.m_szType, name.m_szType, sizeof name.m_szType);
        fillInstrument(changed);
    }
    update(changed, coreUpdateArrays);
    for (FakeObject *other : objects()) {
        if (!other->sources.empty() && other->sources.front() == changed->array().header()) {
            recompute(other);
            update(other, coreUpdateArrays);
        }
    }
}

// ---- answering ----

int FakeHost::answerObject(unsigned message, int wParam, int lParam, bool *known) {
    const auto giveWord = [lParam](Word word) {
        bytes::put<Word>(fromWord<void>(lParam), 0, word);
        return 0;
    };
    FakeObject *asked = object(static_cast<Word>(wParam));
    switch (message) {
    case ToHost::CreateObject: {
        auto *record = fromWord<coreDemandsIndicator>(wParam);
        if (FakeObject *made = make(*record)) {
            m_last = made;
            record->handle = fromWord<void>(made->handle);
        }
        return 0;
    }
    case ToHost::Subscribe:
        if (asked)
            asked->subscribers.insert(fromWord<CRGraphWidget>(bytes::u32(fromWord<void>(lParam), 4)));
        return 0;
    case ToHost::Unsubscribe:
        if (asked) {
            const auto found =
                asked->subscribers.find(fromWord<CRGraphWidget>(bytes::u32(fromWord<void>(lParam), 4)));
            if (found != asked->subscribers.end())
                asked->subscribers.erase(found);
        }
        return 0;
    case ToHost::OutputCount:
        return asked ? giveWord(static_cast<Word>(asked->outputs.size())) : 1;
    case ToHost::OutputArrays: {
        auto *list = fromWord<coreListCreateData>(lParam);
        if (!asked)
            return 1;
        const int count = std::min(static_cast<int>(list->count), static_cast<int>(asked->outputs.size()));
        for (int i = 0; i < count; ++i)
            list->arrays[i] = asked->array(i).header();
        list->count = static_cast<int>(asked->outputs.size());
        return 0;
    }
    case ToHost::SourceCount:
        return asked ? giveWord(static_cast<Word>(asked->inputs)) : 1;
    case ToHost::HandOverSources: {
        const auto *list = fromWord<const coreListCreateData>(lParam);
        if (!asked)
            return 1;
        asked->sources.clear();
        for (int i = 0; i < list->count; ++i) {
            if (list->arrays[i])
                asked->sources.push_back(list->arrays[i]);
        }
        recompute(asked);
        return 0;
    }
    case ToHost::SymbolDisplayName: {
        QString name, suffix, alias;
        splitSymbol(bytes::text16(fromWord<void>(wParam), 0, 255), &name, &suffix, &alias);
        bytes::putText16(fromWord<void>(wParam), 510, 255, name);
        bytes::putText16(fromWord<void>(wParam), 1020, 255, suffix);
        bytes::putText16(fromWord<void>(wParam), 1530, 255, alias);
        return 0;
    }
    case ToHost::ConfirmObject:
        return asked ? giveWord(asked->confirm) : 1;
    case ToHost::CreationAbandoned:
        return 0;
    case ToHost::ChangeArray:
        changeArray(static_cast<Word>(wParam), *fromWord<const coreNameInstrument>(lParam));
        return 0;
    case ToHost::ReloadArray:
        if (asked)
            update(asked, coreUpdateArrays);
        return 0;
    default:
        *known = false;
        return 0;
    }
}

int FakeHost::answerEngine(void *, unsigned message, int wParam, int lParam, bool *known) {
    switch (message) {
    case ToHost::IndicatorCount:
        bytes::put<int>(fromWord<void>(wParam), 0, static_cast<int>(m_kinds.size()));
        return 0;
    case ToHost::IndicatorList: {
        auto *list = fromWord<coreIndicatorCatalogue>(wParam);
        const int count = std::min(static_cast<int>(list->count), static_cast<int>(m_kinds.size()));
        for (int i = 0; i < count; ++i) {
            const FakeIndicator &kind = m_kinds[static_cast<std::size_t>(i)];
            fillField(list->descriptions[i].displayName, kind.displayName);
            fillField(list->descriptions[i].name.m_szNameSymbol, kind.name);
            list->descriptions[i].category = kind.category;
        }
        return 0;
    }
    case ToHost::IndicatorNeedsSource:
        for (const FakeIndicator &kind : m_kinds) {
            if (kind.name == bytes::text16(fromWord<void>(wParam), 0, 255))
                bytes::put<Word>(fromWord<void>(lParam), 0, kind.inputs > 0 ? 1 : 0);
        }
        return 0;
    case ToHost::ReportSymbols: {
        auto *list = fromWord<coreReportSymbolList>(lParam);
        const int count = std::min(static_cast<int>(list->count), static_cast<int>(reportSymbols.size()));
        for (int i = 0; i < count; ++i)
            fillField(list->symbols[i].symbol, reportSymbols[static_cast<std::size_t>(i)]);
        return 0;
    }
    case ToHost::AccountCount:
        bytes::put<int>(fromWord<void>(wParam), 0, 0);
        return 0;
    case ToHost::DayOffCount:
        bytes::put<int>(fromWord<void>(lParam), 0,
                        static_cast<int>(dayOff[static_cast<Word>(wParam)].size()));
        return 0;
    case ToHost::DayOffSymbols: {
        char *out = fromWord<char>(bytes::u32(fromWord<void>(lParam), 4));
        for (const mvdDayOff &record : dayOff[static_cast<Word>(wParam)]) {
            std::memcpy(out, &record, 31);
            out += 31;
        }
        return 0;
    }
    default:
        *known = false;
        return 0;
    }
}
