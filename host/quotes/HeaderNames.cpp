#include "host/quotes/HeaderNames.h"
#include <algorithm>

namespace desk {

namespace {

// A header's name as small letters and digits, with the side that it names taken out.
struct Name {
    QString rest;
    bool bid = false;
    bool ask = false;
};

Name nameOf(const QString &text) {
    Name name;
    for (const QChar c : text.toLower()) {
        if (c.isLetterOrNumber())
            name.rest += c;
    }
    for (const char *word : {"offer", "ask"}) {
        if (!name.ask && name.rest.contains(QLatin1String(word))) {
            name.ask = true;
            name.rest.remove(QLatin1String(word));
        }
    }
    if (!name.ask && name.rest.contains(QLatin1String("bid"))) {
        name.bid = true;
        name.rest.remove(QLatin1String("bid"));
    }
    return name;
}

bool isOneOf(const QString &text, std::initializer_list<const char *> words) {
    return std::any_of(words.begin(), words.end(),
                       [&text](const char *word) { return text == QLatin1String(word); });
}

Column barColumn(const QString &rest) {
    if (isOneOf(rest, {"open", "o", "first", "openprice"}))
        return Column::Open;
    if (isOneOf(rest, {"high", "h", "max", "highprice"}))
        return Column::High;
    if (isOneOf(rest, {"low", "l", "min", "lowprice"}))
        return Column::Low;
    if (isOneOf(rest, {"close", "c", "closeprice"}))
        return Column::Close;
    return Column::Other;
}

bool isVolume(const QString &rest) {
    return rest.startsWith(QLatin1String("vol")) || rest.endsWith(QLatin1String("volume")) ||
           isOneOf(rest, {"v", "size", "qty", "quantity", "tickvol", "ticks"});
}

} // namespace

bool namePrices(const QStringList &names, std::vector<Column> &columns, std::optional<Side> &side) {
    bool bidBars = false;
    bool askBars = false;
    bool plainBars = false;
    const auto has = [&columns](Column what) {
        return std::find(columns.begin(), columns.end(), what) != columns.end();
    };
    const auto set = [&](size_t place, Column what) {
        if (!has(what))
            columns[place] = what;
    };
    for (size_t place = 0; place < columns.size(); ++place) {
        if (columns[place] != Column::Other)
            continue;
        const Name name = nameOf(names[int(place)]);
        const Column bar = barColumn(name.rest);
        if (bar != Column::Other) {
            (name.ask ? askBars : name.bid ? bidBars : plainBars) = true;
            set(place, name.ask ? Column(int(bar) + int(Column::AskOpen) - int(Column::Open)) : bar);
        } else if (isVolume(name.rest)) {
            set(place, name.ask ? Column::AskVolume : Column::Volume);
        } else if ((name.bid || name.ask) && isOneOf(name.rest, {"", "price", "rate"})) {
            set(place, name.ask ? Column::Ask : Column::Bid);
        } else if (isOneOf(name.rest, {"price", "rate", "mid", "middle", "last", "value"})) {
            set(place, Column::Price);
        } else if (isOneOf(name.rest,
                           {"symbol", "ticker", "instrument", "pair", "currencypair", "ccypair"})) {
            set(place, Column::Symbol);
        }
    }
    if (askBars && !bidBars && !plainBars) { // bars of the ask alone stand where single bars stand
        for (Column &what : columns) {
            if (what >= Column::AskOpen && what <= Column::AskClose)
                what = Column(int(what) - int(Column::AskOpen) + int(Column::Open));
            if (what == Column::AskVolume)
                what = Column::Volume;
        }
        side = Side::Ask;
    } else if (bidBars && !askBars && !plainBars) {
        side = Side::Bid;
    }
    if (has(Column::Open) && has(Column::High) && !has(Column::Close)) // "price" beside them is the close
        std::replace(columns.begin(), columns.end(), Column::Price, Column::Close);
    const auto all = [&has](Column first) {
        for (int i = 0; i < 4; ++i) {
            if (!has(Column(int(first) + i)))
                return false;
        }
        return true;
    };
    if (all(Column::Open)) {
        for (Column &what : columns) {
            const bool tick = what == Column::Bid || what == Column::Ask || what == Column::Price;
            const bool halfAsk = what >= Column::AskOpen && what <= Column::AskClose && !all(Column::AskOpen);
            if (tick || halfAsk)
                what = Column::Other;
        }
        return true;
    }
    if (has(Column::Open) || has(Column::High) || has(Column::Low))
        return false;
    for (Column &what : columns) { // a lone "close" is a price
        if (what == Column::Close)
            what = Column::Price;
    }
    const bool both = has(Column::Bid) && has(Column::Ask);
    for (Column &what : columns) {
        if (both && what == Column::Price)
            what = Column::Other;
        if (!both && (what == Column::Bid || what == Column::Ask) && !has(Column::Price))
            what = Column::Price;
    }
    return both || has(Column::Price);
}

} // namespace desk
