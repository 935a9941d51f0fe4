#pragma once
#include "host/quotes/Clock.h"
#include "host/quotes/Quote.h"
#include "host/quotes/TimeText.h"
#include <QString>

namespace desk {

// One line of a live feed: "SYMBOL,TIME,BID,ASK" with a time in any calendar form that begins with the year,
// or in seconds or milliseconds since 1970. The answer is empty, or says what is wrong with the line.
QString parseFeedLine(Piece line, const Clock &clock, QString &symbol, Tick &tick, int &digits);

} // namespace desk
