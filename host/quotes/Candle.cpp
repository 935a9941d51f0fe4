#include "host/quotes/Candle.h"
#include "host/pages/Page.h"
#include "host/quotes/CandleService.h"
#include "host/quotes/QuoteBook.h"
#include "host/quotes/SymbolNames.h"
#include <QColor>
#include <QHash>
#include <algorithm>

namespace desk {

namespace {

constexpr Word riseColour = 0xff2e9e5b;
constexpr Word fallColour = 0xffd0453f;

enum DrawKind : Word { DrawCandle = 1, DrawBar = 2, DrawLine = 3, DrawWideCandle = 5, DrawDots = 7 };
constexpr Word drawKinds[] = {DrawCandle, DrawBar, DrawLine, DrawWideCandle, DrawDots};

// Items of the page.
enum Item { ItemRise = 1, ItemFall, ItemDrawKind, ItemWeight };
constexpr int lookGroup = 1;

// All prices of one symbol share a value axis.
Word axisOf(const QString &symbol) {
    static QHash<QString, Word> axes;
    const auto place = axes.constFind(symbol);
    if (place != axes.constEnd())
        return place.value();
    const Word axis = Word(axes.size()) + 1;
    axes.insert(symbol, axis);
    return axis;
}

} // namespace

QString typeName(Side side) {
    return side == Side::Bid   ? QStringLiteral("Bid")
           : side == Side::Ask ? QStringLiteral("Ask")
                               : QStringLiteral("Middle");
}

std::optional<Side> sideOf(const QString &type) {
    for (const Side side : {Side::Bid, Side::Ask, Side::Middle}) {
        if (type.compare(typeName(side), Qt::CaseInsensitive) == 0)
            return side;
    }
    return std::nullopt;
}

Candle::Candle(CandleService &maker, QuoteBook &book, const QString &symbol, Side side, Period period)
    : CalculatedObject(maker, maker.interfaceHandle()), m_service(maker), m_book(book), m_symbol(symbol),
      m_side(side), m_period(period.normalised()), m_window{firstWindow, INT_MAX}, m_header(candleLayout()) {
    coreTypeShow &show = m_header.record()->typeShow;
    show.firstColor = riseColour;
    show.secondColor = fallColour;
    show.drawKind = DrawCandle;
    m_header.record()->coord = {axisOf(symbol), 0, 0};
    name();
    load(m_window);
}

bool Candle::isOf(const QString &symbol, Side side, Period period) const {
    return m_symbol == symbol && m_side == side && m_period == period.normalised();
}

void Candle::name() {
    setName(m_header.record()->identity, m_symbol, typeName(m_side), m_period);
    m_header.setLayout(m_period.isTick() ? tickLayout() : candleLayout());
    if (const SymbolHistory *history = m_book.history(m_symbol))
        m_header.record()->precision = history->info().digits;
}

void Candle::ownArray() {
    m_header.record()->owner = fromWord<void>(handle());
}

void Candle::publish() {
    if (m_period.isTick())
        m_header.setData(m_ticks.data(), m_ticks.size());
    else
        m_header.setData(m_bars.data(), m_bars.size());
}

void Candle::load(const HistoryWindow &window) {
    const SymbolHistory *history = m_book.history(m_symbol);
    std::vector<Bar> bars;
    std::vector<corePointTick> ticks;
    if (history && m_period.isTick()) {
        for (const Tick &tick : history->ticks(window))
            ticks.push_back({tick.timeSec(), tick.price(m_side), tick.volume});
    } else if (history) {
        bars = history->bars(m_side, m_period, window);
    }
    m_header.setData(nullptr, 0);
    m_bars = std::move(bars);
    m_ticks = std::move(ticks);
    publish();
}

void Candle::change(Side side, Period period) {
    m_side = side;
    m_period = period.normalised();
    m_window = {firstWindow, INT_MAX};
    load(m_window);
    name();
    publish();
}

void Candle::reload() {
    name();
    load(m_window);
}

// At least a page of bars, so that an empty stretch does not look like the end.
void Candle::loadOlder(qint64 seconds) {
    constexpr size_t page = 500;
    m_window.count = std::max(m_window.count, count()) + page;
    if (m_header.record()->count > 0) {
        const qint64 first = m_period.isTick() ? m_ticks.front().time : m_bars.front().time;
        const qint64 from = first - std::max<qint64>(0, seconds);
        m_window.from = qint32(std::max<qint64>(INT_MIN, std::min<qint64>(from, m_window.from)));
    }
    load(m_window);
}

QuoteEffect Candle::addTick(const Tick &tick) {
    if (!m_ticks.empty() && tick.timeSec() < m_ticks.back().time)
        return QuoteEffect::None;
    m_ticks.push_back({tick.timeSec(), tick.price(m_side), tick.volume});
    publish();
    return QuoteEffect::Appended;
}

QuoteEffect Candle::addToBar(const Tick &tick) {
    const SymbolHistory *history = m_book.history(m_symbol);
    const BarCutter cutter(m_period, history && history->info().tradesAtWeekends);
    const float price = tick.price(m_side);
    const Bar bar{cutter.start(tick.timeSec()), price, price, price, price, tick.volume};
    if (!m_bars.empty() && bar.time < m_bars.back().time)
        return QuoteEffect::None;
    if (!m_bars.empty() && bar.time == m_bars.back().time) {
        extend(m_bars.back(), bar);
        return QuoteEffect::LastChanged;
    }
    m_bars.push_back(bar);
    publish();
    return QuoteEffect::Appended;
}

QuoteEffect Candle::quote(const Tick &tick) {
    return m_period.isTick() ? addTick(tick) : addToBar(tick);
}

const coreNameInstrument &Candle::identity() const {
    return m_header.record()->identity;
}

std::vector<mvDataPointArray *> Candle::outputs() const {
    return {const_cast<mvDataPointArray *>(m_header.record())};
}

DisplayNames Candle::displayNames() const {
    if (!isCurrencyPair(m_symbol))
        return {m_symbol, QString(), m_symbol};
    return {baseCurrency(m_symbol), quoteCurrency(m_symbol), m_symbol};
}

QString Candle::menuText() const {
    return QStringLiteral("%1 (%2)").arg(typeName(m_side), m_period.longName());
}

std::unique_ptr<Page> Candle::page() const {
    const coreTypeShow &show = m_header.record()->typeShow;
    auto page = std::make_unique<Page>();
    page->title = m_symbol;
    page->text = menuText();
    PageGroup look;
    look.name = QObject::tr("Look");
    look.index = lookGroup;
    const auto add = [&look](PageItem::Kind kind, Item index, const QString &name,
                             const QVariant &value) -> PageItem & {
        PageItem item;
        item.kind = kind;
        item.group = lookGroup;
        item.index = index;
        item.name = name;
        item.value = value;
        look.items.append(item);
        return look.items.last();
    };
    add(PageItem::Colour, ItemRise, QObject::tr("Rising"), QColor(show.firstColor));
    add(PageItem::Colour, ItemFall, QObject::tr("Falling"), QColor(show.secondColor));
    PageItem &kind =
        add(PageItem::List, ItemDrawKind, QObject::tr("Drawn as"),
            int(std::find(std::begin(drawKinds), std::end(drawKinds), Word(show.drawKind)) - drawKinds));
    kind.choices = QStringList{QObject::tr("Candles"), QObject::tr("Bars"), QObject::tr("Line"),
                               QObject::tr("Wide candles"), QObject::tr("Dots")};
    PageItem &weight = add(PageItem::Int, ItemWeight, QObject::tr("Line width"), show.weightPen);
    weight.minimum = 1;
    weight.maximum = 5;
    page->groups.append(look);
    return page;
}

QString Candle::applyPage(const Page &page) {
    const PageItem *rise = page.find(lookGroup, ItemRise);
    const PageItem *fall = page.find(lookGroup, ItemFall);
    const PageItem *kind = page.find(lookGroup, ItemDrawKind);
    const PageItem *weight = page.find(lookGroup, ItemWeight);
    if (!rise || !fall || !kind || !weight)
        return QObject::tr("The page is not one of this series.");
    const int choice = kind->value.toInt();
    const int width = weight->value.toInt();
    if (choice < 0 || choice >= int(std::size(drawKinds)) || width < 1 || width > 5 ||
        !rise->value.value<QColor>().isValid() || !fall->value.value<QColor>().isValid())
        return QObject::tr("A value of the page is out of its range.");
    coreTypeShow &show = m_header.record()->typeShow;
    show.firstColor = rise->value.value<QColor>().rgb();
    show.secondColor = fall->value.value<QColor>().rgb();
    show.drawKind = drawKinds[choice];
    show.weightPen = width;
    m_service.lookChanged(*this);
    return QString();
}

} // namespace desk
