#include "host/quotes/FeedLine.h"
#include "host/quotes/FileForm.h"
#include "host/quotes/SymbolNames.h"
#include <algorithm>

namespace desk {

namespace {

constexpr int mostSymbolLetters = 31;

QString textOf(Piece piece) {
    return QString::fromUtf8(piece.begin, std::min(piece.size(), 40));
}

bool isSymbol(Piece piece) {
    return !piece.isEmpty() && piece.size() <= mostSymbolLetters &&
           std::all_of(piece.begin, piece.end, [](char c) {
               return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                      c == '/' || c == '.' || c == '_' || c == '-';
           });
}

bool readFeedTime(Piece piece, const Clock &clock, qint64 &ms) {
    TimeReading reading;
    const char *point = std::find(piece.begin, piece.end, '.');
    const bool count = std::all_of(piece.begin, point, [](char c) { return c >= '0' && c <= '9'; });
    const auto whole = point - piece.begin;
    const TimeForm form = !count || whole == 8 || whole == 14 ? TimeForm::YearFirst
                          : whole <= 10                       ? TimeForm::EpochSeconds
                                                              : TimeForm::EpochMilliseconds;
    if (!readTime(piece, form, reading) || reading.dateOnly)
        return false;
    ms = reading.hasZone ? reading.ms - reading.zoneSeconds * 1000LL
                         : clock.toUtc(reading.ms / 1000) * 1000 + reading.ms % 1000;
    return ms >= 0;
}

int digitsOf(Piece price) {
    const char *point = std::find(price.begin, price.end, '.');
    return point == price.end ? 0 : std::min<int>(8, int(price.end - point) - 1);
}

} // namespace

QString parseFeedLine(Piece line, const Clock &clock, QString &symbol, Tick &tick, int &digits) {
    Piece fields[4];
    const int count = splitLine(line, ',', fields, 4);
    if (count != 4)
        return QStringLiteral("%1 %2 instead of SYMBOL,TIME,BID,ASK")
            .arg(count)
            .arg(QLatin1String(count == 1 ? "field" : "fields"));
    if (!isSymbol(fields[0]))
        return QStringLiteral("\"%1\" is no symbol").arg(textOf(fields[0]));
    if (!readFeedTime(fields[1], clock, tick.timeMs))
        return QStringLiteral("\"%1\" is no time").arg(textOf(fields[1]));
    double prices[2];
    for (int i = 0; i < 2; ++i) {
        if (!readNumber(fields[2 + i], false, prices[i]) || !(prices[i] > 0))
            return QStringLiteral("\"%1\" is no price").arg(textOf(fields[2 + i]));
    }
    symbol = symbolFrom(QString::fromUtf8(fields[0].begin, fields[0].size()));
    tick.bid = float(prices[0]);
    tick.ask = float(prices[1]);
    tick.volume = 1;
    digits = std::max(digitsOf(fields[2]), digitsOf(fields[3]));
    return QString();
}

} // namespace desk
