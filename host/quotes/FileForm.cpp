#include "host/quotes/FileForm.h"
#include "host/quotes/SymbolNames.h"
#include <QFileInfo>
#include <QStringList>
#include <algorithm>
#include <cstring>

namespace desk {

QuoteFile QuoteFile::fromArgument(const QString &argument) {
    QuoteFile file;
    file.path = argument;
    const int mark = argument.lastIndexOf(QLatin1Char('='));
    if (mark > 0 && !QFileInfo::exists(argument)) {
        file.path = argument.left(mark);
        file.symbol = symbolFrom(argument.mid(mark + 1));
    }
    return file;
}

QString QuoteFile::optionsText() const {
    QStringList parts{symbol};
    parts << (clock ? clock->name() : QString()) << (digits ? QString::number(*digits) : QString())
          << (date ? date->toString(Qt::ISODate) : QString())
          << (side ? QString::number(int(*side)) : QString());
    return parts.join(QLatin1Char('|'));
}

bool FileForm::has(Column column) const {
    return std::find(columns.begin(), columns.end(), column) != columns.end();
}

QString FileForm::describe() const {
    QStringList parts{symbol};
    QString what;
    if (ticks) {
        what =
            has(Column::Price) ? QStringLiteral("ticks of one price") : QStringLiteral("bid and ask ticks");
    } else {
        what = QStringLiteral("bars of ") + (barSeconds > 0 && barSeconds < 60
                                                 ? QStringLiteral("%1 seconds").arg(barSeconds)
                                                 : period.longName());
        if (hasAskBars())
            what += QStringLiteral(", bid and ask");
        else if (side)
            what += *side == Side::Bid   ? QStringLiteral(", bid")
                    : *side == Side::Ask ? QStringLiteral(", ask")
                                         : QStringLiteral(", middle");
    }
    if (has(Column::Volume))
        what += QStringLiteral(" with volume");
    parts << what;
    const char *mark = separator == ','    ? "commas"
                       : separator == ';'  ? "semicolons"
                       : separator == '\t' ? "tabs"
                                           : "blanks";
    parts << QStringLiteral("%1 columns between %2").arg(columns.size()).arg(QLatin1String(mark));
    parts << (header ? QStringLiteral("header") : QStringLiteral("no header"));
    if (quoted)
        parts << QStringLiteral("in quotes");
    if (decimalComma)
        parts << QStringLiteral("decimal commas");
    if (newestFirst)
        parts << QStringLiteral("newest first");
    QString times = timeFormName(timeForm);
    if (timeForm == TimeForm::MillisecondsOfDay)
        times +=
            QStringLiteral(" of %1").arg(QDate(1970, 1, 1).addDays(dayMs / 86400000).toString(Qt::ISODate));
    if (dateOnly)
        times += QStringLiteral(" without time");
    if (zoned)
        times += QStringLiteral(" with their zone");
    else
        times +=
            (clockGiven ? QStringLiteral(" by the clock of ") : QStringLiteral(" taken as ")) + clock.name();
    parts << QStringLiteral("times ") + times;
    parts << (points ? QStringLiteral("prices in points of %1 digits")
                     : QStringLiteral("prices with %1 digits"))
                 .arg(digits);
    return parts.join(QStringLiteral("; "));
}

Piece trimmed(Piece text) {
    while (text.begin != text.end && (*text.begin == ' ' || *text.begin == '\t'))
        ++text.begin;
    while (text.end != text.begin && (text.end[-1] == ' ' || text.end[-1] == '\t'))
        --text.end;
    return text;
}

namespace {

Piece unquoted(Piece text) {
    text = trimmed(text);
    if (text.size() >= 2 && text.begin[0] == '"' && text.end[-1] == '"')
        return trimmed({text.begin + 1, text.end - 1});
    return text;
}

bool hasQuote(Piece text) {
    return !text.isEmpty() && std::memchr(text.begin, '"', size_t(text.size())) != nullptr;
}

} // namespace

int splitLine(Piece line, char separator, Piece *fields, int room) {
    line = separator == '\t' ? line : trimmed(line);
    bool quotes = hasQuote(line);
    if (quotes && line.size() >= 2 && line.begin[0] == '"' && line.end[-1] == '"' &&
        !hasQuote({line.begin + 1, line.end - 1})) { // the line as a whole stands in quotes
        line = {line.begin + 1, line.end - 1};
        quotes = false;
    }
    int count = 0;
    const char *begin = line.begin;
    bool inside = false;
    for (const char *place = line.begin;; ++place) {
        const bool atEnd = place == line.end;
        if (!atEnd && quotes && *place == '"')
            inside = !inside;
        if (!atEnd && (inside || *place != separator))
            continue;
        if (separator != ' ' || place != begin) {
            if (count < room)
                fields[count] = quotes ? unquoted({begin, place}) : trimmed({begin, place});
            ++count;
        }
        if (atEnd)
            break;
        begin = place + 1;
    }
    return count;
}

bool isIdleLine(Piece line) {
    line = trimmed(line);
    return line.isEmpty() || *line.begin == '#' ||
           (line.size() >= 2 && line.begin[0] == '/' && line.begin[1] == '/');
}

} // namespace desk
