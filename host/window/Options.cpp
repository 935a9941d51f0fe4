#include "host/window/Options.h"
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QRegularExpression>

namespace desk {

namespace {

QString text(const char *english) {
    return QCoreApplication::translate("desk::Options", english);
}

// All that the command line takes; one description for the parser and the help.
void describe(QCommandLineParser &parser) {
    parser.setApplicationDescription(text(
        "A small trading terminal around the chart module. Without arguments it shows a built-in market."));
    parser.addOptions({
        {{"h", "help"}, text("Show this help.")},
        {"quotes", text("Read a file of quotes (repeatable). Its form is found out."), text("FILE[=SYMBOL]")},
        {"clock", text("Clock of the files' times, such as +02:00."), text("OFFSET")},
        {"digits", text("Digits behind the point of the files' prices."), text("N")},
        {"date", text("Day of files whose times count from midnight."), text("YYYY-MM-DD")},
        {"feed", text("Follow live quotes, SYMBOL,TIME,BID,ASK a line, from standard input (-) or a socket."),
         text("-|HOST:PORT")},
        {"replay", text("Play a file of quotes as if it came in now."), text("FILE[=SYMBOL]")},
        {"speed", text("How many times faster than real the replay runs (60)."), text("N")},
        {"symbol", text("Show a chart of this symbol."), text("SYMBOL")},
        {"period", text("Period of the chart: tick, M1, M5, M10, H1, H3, D1, W1, MN1, Y1."), text("PERIOD")},
        {"type", text("Price of the chart: Bid, Ask or Middle."), text("TYPE")},
        {"bars", text("Number of visible positions."), text("N")},
        {"size", text("Size of the main window."), text("WIDTHxHEIGHT")},
        {"screenshot", text("Write a picture of the desk and end; no display is needed."), text("FILE.png")},
        {"trace", text("Write every message between desk and module."), text("FILE")},
        {"library", text("The chart library (the one beside this program)."), text("FILE")},
        {"store", text("Folder of the kept quotes and settings."), text("DIR")},
    });
}

// The periods that a chart of the command line can have.
constexpr const char *periodNames[] = {"tick", "M1", "M5", "M10", "H1", "H3", "D1", "W1", "MN1", "Y1"};

std::optional<Period> periodOf(const QString &name) {
    for (const char *known : periodNames) {
        if (name.compare(QLatin1String(known), Qt::CaseInsensitive) == 0)
            return Period::fromName(QString::fromLatin1(known));
    }
    return std::nullopt;
}

bool parseNumber(const QString &value, double least, double most, double &number) {
    bool valid = false;
    const double parsed = value.toDouble(&valid);
    if (!valid || !(parsed >= least) || parsed > most)
        return false;
    number = parsed;
    return true;
}

} // namespace

QString Options::helpText() {
    QCommandLineParser parser;
    describe(parser);
    return parser.helpText();
}

bool Options::parse(const QStringList &arguments, QString &message) {
    QCommandLineParser parser;
    describe(parser);
    const auto refuse = [&message](const QString &sentence) {
        message = sentence;
        return false;
    };
    if (!parser.parse(arguments))
        return refuse(parser.errorText());
    help = parser.isSet("help");
    if (!parser.positionalArguments().isEmpty())
        return refuse(text("Unknown argument '%1': see --help.").arg(parser.positionalArguments().first()));

    if (parser.isSet("clock")) {
        common.clock = Clock::fromText(parser.value("clock"));
        if (!common.clock)
            return refuse(text("'%1' is no clock: write it like +02:00.").arg(parser.value("clock")));
    }
    double number = 0;
    if (parser.isSet("digits")) {
        if (!parseNumber(parser.value("digits"), 0, 8, number) || number != int(number))
            return refuse(text("'%1' is no number of digits from 0 to 8.").arg(parser.value("digits")));
        common.digits = int(number);
    }
    if (parser.isSet("date")) {
        const QDate date = QDate::fromString(parser.value("date"), Qt::ISODate);
        if (!date.isValid())
            return refuse(text("'%1' is no date: write it like 2014-05-05.").arg(parser.value("date")));
        common.date = date;
    }
    for (const QString &argument : parser.values("quotes")) {
        QuoteFile file = QuoteFile::fromArgument(argument);
        file.clock = common.clock;
        file.digits = common.digits;
        file.date = common.date;
        quoteFiles.push_back(file);
    }
    feed = parser.value("feed");
    replay = parser.value("replay");
    if (parser.isSet("speed")) {
        if (!parseNumber(parser.value("speed"), 0.001, 1e6, number))
            return refuse(text("'%1' is no speed above 0.").arg(parser.value("speed")));
        speed = number;
    }
    symbol = parser.value("symbol");
    if (parser.isSet("period")) {
        period = periodOf(parser.value("period"));
        if (!period)
            return refuse(text("Unknown period '%1': take one of tick, M1, M5, M10, H1, H3, D1, W1, MN1, Y1.")
                              .arg(parser.value("period")));
    }
    if (parser.isSet("type")) {
        const QString type = parser.value("type").toLower();
        if (type != "bid" && type != "ask" && type != "middle")
            return refuse(text("Unknown type '%1': take one of Bid, Ask, Middle.").arg(parser.value("type")));
        side = type == "bid" ? Side::Bid : type == "ask" ? Side::Ask : Side::Middle;
    }
    if (parser.isSet("bars")) {
        if (!parseNumber(parser.value("bars"), 1, 1e7, number) || number != int(number))
            return refuse(text("'%1' is no number of bars.").arg(parser.value("bars")));
        bars = int(number);
    }
    if (parser.isSet("size")) {
        const QRegularExpressionMatch match =
            QRegularExpression(QStringLiteral("^(\\d{2,5})[xX](\\d{2,5})$")).match(parser.value("size"));
        size = QSize(match.captured(1).toInt(), match.captured(2).toInt());
        if (!match.hasMatch() || size.width() > 16384 || size.height() > 16384 || size.width() < 64 ||
            size.height() < 64)
            return refuse(text("'%1' is no size: write it like 1280x720.").arg(parser.value("size")));
    }
    screenshot = parser.value("screenshot");
    if (parser.isSet("screenshot") && screenshot.isEmpty())
        return refuse(text("The picture of --screenshot needs a file name."));
    trace = parser.value("trace");
    library = parser.value("library");
    store = parser.value("store");
    return true;
}

} // namespace desk
