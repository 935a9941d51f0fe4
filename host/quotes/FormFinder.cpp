#include "host/quotes/FormFinder.h"
#include "host/quotes/FormSample.h"
#include "host/quotes/HeaderNames.h"
#include "host/quotes/SymbolNames.h"
#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>
#include <array>
#include <cmath>
#include <map>

namespace desk {

namespace {

class Finder {
public:
    Finder(const QuoteFile &file, FileForm &form) : m_file(file), m_form(form) {}
    QString find(const QByteArrayList &lines);

private:
    bool chooseSeparator(const QByteArrayList &lines);
    void chooseHeader();
    void chooseDecimalMark();
    bool findTimes();
    bool columnsFromHeader();
    bool columnsFromContent();
    void orderPrices();
    QString chooseDay();
    void chooseSymbol();
    void chooseSide();
    void choosePeriod();
    void chooseDigits();

    bool isNumeric(int column) const;
    std::vector<double> numbers(int column) const;
    bool alike(int first, int second) const; // prices of the same thing
    int columnOf(Column what) const;

    const QuoteFile &m_file;
    FileForm &m_form;
    std::vector<FormSample> m_sample; // one, once the separator is known
    QStringList m_names;              // of the header
    std::vector<qint64> m_times;      // of the sample's rows, in ms
};

bool Finder::chooseSeparator(const QByteArrayList &lines) {
    for (const char separator : {'\t', ';', ',', ' '}) {
        FormSample sample(lines, separator);
        if (sample.isTable()) {
            m_form.separator = separator;
            m_sample.push_back(std::move(sample));
            return true;
        }
    }
    return false;
}

bool Finder::isNumeric(int column) const {
    const bool comma = m_form.decimalComma;
    return mostly(m_sample[0].column(column), [comma](Piece field) {
        double value = 0;
        return readNumber(field, comma, value);
    });
}

std::vector<double> Finder::numbers(int column) const {
    std::vector<double> values;
    for (const Piece &field : m_sample[0].column(column)) {
        double value = std::nan("");
        if (!readNumber(field, m_form.decimalComma, value))
            value = std::nan("");
        values.push_back(value);
    }
    return values;
}

bool Finder::alike(int first, int second) const {
    if (!isNumeric(first) || !isNumeric(second))
        return false;
    const std::vector<double> a = numbers(first);
    const std::vector<double> b = numbers(second);
    size_t near = 0;
    for (size_t row = 0; row < a.size(); ++row)
        near +=
            a[row] > 0 && b[row] > 0 && std::fabs(a[row] - b[row]) <= 0.2 * std::max(a[row], b[row]) ? 1 : 0;
    return near * 10 >= a.size() * 8;
}

int Finder::columnOf(Column what) const {
    const auto place = std::find(m_form.columns.begin(), m_form.columns.end(), what);
    return place == m_form.columns.end() ? -1 : int(place - m_form.columns.begin());
}

// A header is a first line without a single number or time in it.
void Finder::chooseHeader() {
    FormSample &sample = m_sample[0];
    const std::vector<Piece> &first = sample.front();
    bool letters = false;
    for (const Piece &field : first) {
        double value = 0;
        TimeReading reading;
        if (readNumber(field, true, value) || readTime(field, TimeForm::YearFirst, reading) ||
            readTime(field, TimeForm::MonthFirst, reading))
            return;
        letters = letters || std::any_of(field.begin, field.end, [](char c) {
                      return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
                  });
    }
    if (!letters)
        return;
    m_form.header = true;
    for (const Piece &field : first)
        m_names << QString::fromUtf8(field.begin, field.size());
    sample.dropFront();
}

void Finder::chooseDecimalMark() {
    if (m_form.separator == ',')
        return;
    static const QRegularExpression comma(QStringLiteral("^[+-]?[0-9]+,[0-9]+$"));
    int commas = 0;
    int points = 0;
    for (const auto &row : m_sample[0].rows()) {
        for (const Piece &field : row) {
            double value = 0;
            if (comma.match(QString::fromLatin1(field.begin, field.size())).hasMatch())
                ++commas;
            else if (std::find(field.begin, field.end, '.') != field.end && readNumber(field, false, value))
                ++points;
        }
    }
    m_form.decimalComma = commas > points;
}

// The time: one column, or a date and a time of day.
bool Finder::findTimes() {
    FormSample &sample = m_sample[0];
    m_form.columns.assign(size_t(sample.width()), Column::Other);
    TimeColumn count; // a plain count may be any number: a calendar time goes before it
    int countColumn = -1;
    for (int column = 0; column < sample.width(); ++column) {
        const TimeColumn time = findTime(sample.column(column));
        if (!time.found)
            continue;
        if (time.form == TimeForm::MillisecondsOfDay) {
            if (countColumn < 0 && column == 0) {
                count = time;
                countColumn = column;
            }
            continue;
        }
        m_form.timeForm = time.form;
        m_form.zoned = time.zoned && !time.dateOnly;
        m_form.dateOnly = time.dateOnly;
        m_form.columns[size_t(column)] = Column::Time;
        if (time.dateOnly) {
            for (const int next : {column + 1, column - 1}) {
                if (next < 0 || next >= sample.width() || !mostly(sample.column(next), [](Piece field) {
                        qint64 ms = 0;
                        return field.size() >= 4 && readTimeOfDay(field, ms) &&
                               (!isDigits(field) || field.size() == 6 || field.size() == 9 ||
                                field.size() == 4);
                    }))
                    continue;
                m_form.columns[size_t(column)] = Column::Date;
                m_form.columns[size_t(next)] = Column::TimeOfDay;
                m_form.dateOnly = false;
                break;
            }
        }
        return true;
    }
    if (countColumn < 0)
        return false;
    m_form.timeForm = count.form;
    m_form.columns[size_t(countColumn)] = Column::Time;
    return true;
}

bool Finder::columnsFromHeader() {
    if (!m_form.header || m_names.size() != m_sample[0].width())
        return false;
    std::vector<Column> columns = m_form.columns;
    std::optional<Side> side;
    if (!namePrices(m_names, columns, side))
        return false;
    for (int column = 0; column < int(columns.size()); ++column) {
        const Column what = columns[size_t(column)];
        const bool price = what >= Column::Open && what <= Column::Price;
        if (price && !isNumeric(column))
            return false;
        if ((what == Column::Volume || what == Column::AskVolume) && !isNumeric(column)) // "85.2K"
            columns[size_t(column)] = Column::Other;
    }
    m_form.columns = columns;
    if (side)
        m_form.side = side;
    return true;
}

bool Finder::columnsFromContent() {
    std::vector<int> free;
    bool behindTime = false;
    for (int column = 0; column < int(m_form.columns.size()); ++column) {
        behindTime = behindTime || m_form.columns[size_t(column)] != Column::Other;
        if (behindTime && m_form.columns[size_t(column)] == Column::Other && isNumeric(column))
            free.push_back(column);
    }
    const auto set = [this, &free](size_t place, Column what) {
        if (place < free.size())
            m_form.columns[size_t(free[place])] = what;
    };
    const auto near = [this, &free](size_t first, size_t second) {
        return second < free.size() && alike(free[first], free[second]);
    };
    if (free.empty())
        return false;
    if (near(0, 1) && near(0, 2) && near(0, 3)) {
        const Column bars[] = {Column::Open, Column::High, Column::Low, Column::Close};
        const Column asks[] = {Column::AskOpen, Column::AskHigh, Column::AskLow, Column::AskClose};
        for (size_t i = 0; i < 4; ++i)
            set(i, bars[i]);
        size_t volume = 4;
        for (const size_t from : {size_t(4), size_t(5)}) {
            if (!near(0, from) || !near(0, from + 1) || !near(0, from + 2) || !near(0, from + 3))
                continue;
            for (size_t i = 0; i < 4; ++i)
                set(from + i, asks[i]);
            volume = from == 4 ? 8 : 4;
            if (from == 5)
                set(9, Column::AskVolume);
            break;
        }
        if (volume == 4 && near(0, 4)) // a fifth price, such as an adjusted close
            volume = 5;
        set(volume, Column::Volume);
        orderPrices();
    } else if (near(0, 1)) {
        const std::vector<double> a = numbers(free[0]);
        const std::vector<double> b = numbers(free[1]);
        int above = 0;
        for (size_t row = 0; row < a.size(); ++row)
            above += a[row] > b[row] ? 1 : a[row] < b[row] ? -1 : 0;
        set(0, above > 0 ? Column::Ask : Column::Bid);
        set(1, above > 0 ? Column::Bid : Column::Ask);
        set(2, Column::Volume);
    } else {
        set(0, Column::Price);
        set(1, Column::Volume);
    }
    return true;
}

// Without a header the four prices may stand in another order than open, high, low, close.
void Finder::orderPrices() {
    const int first = columnOf(Column::Open);
    std::array<std::vector<double>, 4> values;
    for (int i = 0; i < 4; ++i)
        values[size_t(i)] = numbers(columnOf(Column(int(Column::Open) + i)));
    static const int orders[][4] = {{0, 1, 2, 3}, {0, 2, 1, 3}, {0, 2, 3, 1}, {0, 3, 2, 1}}; // of O, H, L, C
    for (const auto &order : orders) {
        size_t right = 0;
        const size_t rows = values[0].size();
        for (size_t row = 0; row < rows; ++row) {
            const double open = values[size_t(order[0])][row];
            const double high = values[size_t(order[1])][row];
            const double low = values[size_t(order[2])][row];
            const double close = values[size_t(order[3])][row];
            right += high >= std::max(open, close) && low <= std::min(open, close) ? 1 : 0;
        }
        if (right * 10 < rows * 8)
            continue;
        const Column names[] = {Column::Open, Column::High, Column::Low, Column::Close};
        for (int i = 0; i < 4; ++i)
            m_form.columns[size_t(first + order[i])] = names[i];
        return;
    }
}

// Times that count from midnight need their day: given, or from the file's name.
QString Finder::chooseDay() {
    if (m_form.timeForm != TimeForm::MillisecondsOfDay)
        return QString();
    std::optional<QDate> day = m_file.date;
    if (!day) {
        static const QRegularExpression pattern(
            QStringLiteral("(?<!\\d)((?:19|20)\\d\\d)[-_.]?(\\d\\d)[-_.]?(\\d\\d)(?!\\d)"));
        const QRegularExpressionMatch match = pattern.match(QFileInfo(m_file.path).fileName());
        const QDate named(match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt());
        if (match.hasMatch() && named.isValid())
            day = named;
    }
    if (!day || !day->isValid())
        return QStringLiteral("its times count from midnight and its name has no date; give one with --date");
    m_form.dayMs = qint64(dayNumber(day->year(), day->month(), day->day())) * 86400000;
    return QString();
}

void Finder::chooseSymbol() {
    for (int column = 0; column < int(m_form.columns.size()); ++column) {
        Column &what = m_form.columns[size_t(column)];
        const std::vector<Piece> fields = m_sample[0].column(column);
        if ((what != Column::Other && what != Column::Symbol) || fields.empty())
            continue;
        const QByteArray text(fields.front().begin, fields.front().size());
        const bool pair = isCurrencyPair(symbolFrom(QString::fromUtf8(text)));
        if (!pair && what != Column::Symbol)
            continue;
        what = Column::Symbol;
        m_form.symbolText = text;
        m_form.symbol = symbolFrom(QString::fromUtf8(text));
        break;
    }
    if (m_form.symbol.isEmpty())
        m_form.symbol = symbolFromFileName(m_file.path);
    if (!m_file.symbol.isEmpty())
        m_form.symbol = symbolFrom(m_file.symbol);
}

void Finder::chooseSide() {
    if (m_form.ticks || m_form.hasAskBars()) {
        m_form.side.reset();
        return;
    }
    static const QRegularExpression pattern(QStringLiteral("(?<![A-Za-z])(bid|ask|mid|middle)(?![A-Za-z])"),
                                            QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = pattern.match(QFileInfo(m_file.path).completeBaseName());
    if (!m_form.side && match.hasMatch()) {
        const QString word = match.captured(1).toLower();
        m_form.side = word == QLatin1String("bid")   ? Side::Bid
                      : word == QLatin1String("ask") ? Side::Ask
                                                     : Side::Middle;
    }
    if (m_file.side)
        m_form.side = m_file.side;
}

Period barPeriod(qint64 seconds) {
    const qint64 day = 86400;
    if (seconds >= 360 * day)
        return {'Y', int((seconds + 180 * day) / (365 * day))};
    if (seconds >= 28 * day)
        return {'M', int((seconds + 15 * day) / (30 * day))};
    if (seconds >= 7 * day)
        return {'W', int(seconds / (7 * day))};
    if (seconds >= day)
        return {'D', int(seconds / day)};
    return {'I', int(std::max<qint64>(1, seconds / 60))};
}

// The most frequent distance of two times is the length of the bars.
void Finder::choosePeriod() {
    qint64 usual = 0;
    if (!m_form.ticks) {
        std::map<qint64, int> distances;
        for (size_t row = 1; row < m_times.size(); ++row) {
            const qint64 distance = std::abs(m_times[row] - m_times[row - 1]) / 1000;
            if (distance > 0)
                ++distances[distance];
        }
        int most = 0;
        for (const auto &[distance, count] : distances) {
            if (count > most) {
                most = count;
                usual = distance;
            }
        }
    }
    if (m_form.ticks)
        return;
    static const QRegularExpression named(
        QStringLiteral("(?<![A-Za-z0-9])(MN1|M[1-9]\\d?|H[1-9]\\d?|D1|W1|Y1)(?![A-Za-z0-9])"),
        QRegularExpression::CaseInsensitiveOption);
    if (usual > 0) {
        m_form.period = barPeriod(usual);
    } else if (const auto period =
                   Period::fromName(named.match(QFileInfo(m_file.path).completeBaseName()).captured(1))) {
        m_form.period = *period;
        usual = period->seconds();
    } else {
        m_form.period = m_form.dateOnly ? Period{'D', 1} : Period{'I', 1};
        usual = m_form.period.seconds();
    }
    m_form.barSeconds = int(std::min<qint64>(usual, 2147483647));
}

// Prices written in points are whole numbers, give or take what binary numbers leave; a pair of currencies
// never costs thousands, so that is how they are told from prices.
void Finder::chooseDigits() {
    int column =
        columnOf(m_form.ticks ? (m_form.has(Column::Price) ? Column::Price : Column::Bid) : Column::Close);
    const std::vector<double> values = numbers(column);
    size_t whole = 0;
    size_t known = 0;
    std::array<size_t, 9> exact = {};
    for (const double value : values) {
        if (!std::isfinite(value))
            continue;
        ++known;
        whole += value >= 1000 && std::fabs(value - std::round(value)) < 1e-4 ? 1 : 0;
        double scale = 1;
        for (size_t digits = 0; digits < exact.size(); ++digits, scale *= 10)
            exact[digits] += std::fabs(value * scale - std::round(value * scale)) < 1e-6 * scale ? 1 : 0;
    }
    const bool pair = isCurrencyPair(m_form.symbol);
    m_form.points = known > 0 && whole * 100 >= known * 99 && (pair || m_file.digits);
    if (m_file.digits) {
        m_form.digits = *m_file.digits;
    } else if (pair) {
        m_form.digits = usualDigits(m_form.symbol);
    } else {
        int digits = 0;
        while (digits < 6 && exact[size_t(digits)] * 100 < known * 99)
            ++digits;
        m_form.digits = digits;
    }
}

QString Finder::find(const QByteArrayList &lines) {
    if (lines.isEmpty())
        return QStringLiteral("it is empty");
    if (!chooseSeparator(lines))
        return QStringLiteral("no columns were found in its lines");
    m_form.quoted =
        std::any_of(lines.begin(), lines.end(), [](const QByteArray &line) { return line.contains('"'); });
    chooseHeader();
    m_sample[0].keepMatching();
    if (m_sample[0].rows().empty())
        return QStringLiteral("it has no line of quotes");
    chooseDecimalMark();
    if (!findTimes())
        return QStringLiteral("no column of times was found");
    if (!columnsFromHeader() && !columnsFromContent())
        return QStringLiteral("no columns of prices were found");
    m_form.ticks = !m_form.has(Column::Open);
    if (const QString reason = chooseDay(); !reason.isEmpty())
        return reason;
    chooseSymbol();
    if (m_form.symbol.isEmpty())
        return QStringLiteral("its name tells no symbol; give one as FILE=SYMBOL");
    chooseSide();
    if (m_file.clock) {
        m_form.clock = *m_file.clock;
        m_form.clockGiven = true;
    }
    const int timeColumn = std::max(columnOf(Column::Time), columnOf(Column::Date));
    const int clockColumn = columnOf(Column::TimeOfDay);
    for (const auto &row : m_sample[0].rows()) {
        TimeReading reading;
        qint64 timeOfDay = 0;
        if (readTime(row[size_t(timeColumn)], m_form.timeForm, reading) &&
            (clockColumn < 0 || readTimeOfDay(row[size_t(clockColumn)], timeOfDay)))
            m_times.push_back(reading.ms + timeOfDay);
    }
    int later = 0;
    for (size_t row = 1; row < m_times.size(); ++row)
        later += m_times[row] > m_times[row - 1] ? 1 : m_times[row] < m_times[row - 1] ? -1 : 0;
    m_form.newestFirst = later < 0 && -later * 2 > int(m_times.size());
    choosePeriod();
    chooseDigits();
    return QString();
}

} // namespace

QString findForm(const QuoteFile &file, const QByteArrayList &lines, FileForm &form) {
    form = FileForm();
    return Finder(file, form).find(lines);
}

} // namespace desk
