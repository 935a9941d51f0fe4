#include "host/quotes/TimeText.h"
#include <charconv>
#include <cmath>
#include <cstring>

namespace desk {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? char(c + 32) : c;
}

// Reads along one piece of text.
class Scanner {
public:
    explicit Scanner(Piece text) : m_place(text.begin), m_end(text.end) {}

    bool atEnd() const { return m_place == m_end; }
    char peek() const { return atEnd() ? '\0' : *m_place; }
    bool take(char c) {
        if (peek() != c || atEnd())
            return false;
        ++m_place;
        return true;
    }
    void blanks() {
        while (peek() == ' ')
            ++m_place;
    }
    // The digits here, at most `most` of them; their count is the answer.
    int digits(int most, qint64 &value) {
        int count = 0;
        value = 0;
        while (count < most && isDigit(peek())) {
            value = value * 10 + (*m_place++ - '0');
            ++count;
        }
        return count;
    }
    int digitsAhead() const {
        const char *place = m_place;
        while (place != m_end && isDigit(*place))
            ++place;
        return int(place - m_place);
    }
    // The letters here, in small ones.
    int letters(char *word, int room) {
        int count = 0;
        while (isLetter(peek())) {
            if (count < room)
                word[count] = lower(*m_place);
            ++count;
            ++m_place;
        }
        return count;
    }

private:
    const char *m_place;
    const char *m_end;
};

// 1 to 12 for the name of a month, whole or its first three letters; else 0.
int monthOf(const char *word, int length) {
    static const char *const names[] = {"january",   "february", "march",    "april",
                                        "may",       "june",     "july",     "august",
                                        "september", "october",  "november", "december"};
    for (int month = 0; month < 12; ++month) {
        const int whole = int(std::strlen(names[month]));
        if ((length == 3 || length == whole) && std::strncmp(word, names[month], size_t(length)) == 0)
            return month + 1;
    }
    return 0;
}

int daysIn(int year, int month) {
    static const int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return days[month - 1] + (month == 2 && leap ? 1 : 0);
}

bool isSeparator(char c) {
    return c == '-' || c == '/' || c == '.' || c == ' ';
}

bool readDate(Scanner &scanner, TimeForm form, qint64 &day) {
    qint64 year = 0;
    qint64 month = 0;
    qint64 dayOfMonth = 0;
    char word[10];
    int yearDigits = 4;
    if (isLetter(scanner.peek())) { // Feb 01, 2012
        month = monthOf(word, scanner.letters(word, int(sizeof word)));
        scanner.blanks();
        if (!scanner.digits(2, dayOfMonth))
            return false;
        scanner.take(',');
        scanner.blanks();
        yearDigits = scanner.digits(4, year);
    } else if (scanner.digitsAhead() >= 8) { // 20120201
        scanner.digits(4, year);
        scanner.digits(2, month);
        scanner.digits(2, dayOfMonth);
    } else {
        qint64 first = 0;
        qint64 second = 0;
        qint64 third = 0;
        const int firstDigits = scanner.digits(4, first);
        const char separator = scanner.peek();
        if (firstDigits == 0 || !isSeparator(separator) || !scanner.take(separator))
            return false;
        const bool named = isLetter(scanner.peek());
        if (named)
            second = monthOf(word, scanner.letters(word, int(sizeof word)));
        else if (!scanner.digits(2, second))
            return false;
        if (!scanner.take(separator))
            return false;
        const int thirdDigits = scanner.digits(4, third);
        if (thirdDigits == 0)
            return false;
        if (firstDigits == 4) {
            year = first, month = second, dayOfMonth = third;
        } else {
            const bool dayFirst = named || form != TimeForm::MonthFirst;
            year = third, month = dayFirst ? second : first, dayOfMonth = dayFirst ? first : second;
            yearDigits = thirdDigits;
        }
    }
    if (yearDigits == 2)
        year += year < 70 ? 2000 : 1900;
    else if (yearDigits != 4)
        return false;
    if (year < 1902 || year > 2037 || month < 1 || month > 12 || dayOfMonth < 1 ||
        dayOfMonth > daysIn(int(year), int(month)))
        return false;
    day = dayNumber(int(year), int(month), int(dayOfMonth));
    return true;
}

bool readFraction(Scanner &scanner, qint64 &ms) {
    if (!scanner.take('.') && !scanner.take(','))
        return true;
    qint64 value = 0;
    int count = scanner.digits(9, value);
    if (count == 0)
        return false;
    for (; count > 3; --count)
        value /= 10;
    for (; count < 3; ++count)
        value *= 10;
    ms += value;
    return true;
}

bool readClock(Scanner &scanner, qint64 &ms) {
    qint64 hour = 0;
    qint64 minute = 0;
    qint64 second = 0;
    qint64 thousandths = 0;
    const int run = scanner.digitsAhead();
    if (run >= 4) { // 1305, 130509, 130509250
        if (run != 4 && run != 6 && run != 9)
            return false;
        scanner.digits(2, hour);
        scanner.digits(2, minute);
        if (run >= 6)
            scanner.digits(2, second);
        if (run == 9)
            scanner.digits(3, thousandths);
    } else {
        if (!scanner.digits(2, hour))
            return false;
        if (scanner.take(':')) {
            if (scanner.digits(2, minute) != 2 || (scanner.take(':') && scanner.digits(2, second) != 2))
                return false;
        } else {
            return false;
        }
    }
    qint64 fraction = 0;
    if (!readFraction(scanner, fraction) || hour > 23 || minute > 59 || second > 59)
        return false;
    ms = ((hour * 60 + minute) * 60 + second) * 1000 + thousandths + fraction;
    return true;
}

bool readHalfOfDay(Scanner &scanner, const char *word, qint64 &ms) {
    const qint64 hour = ms / 3600000;
    if (hour < 1 || hour > 12)
        return false;
    if (word[0] == 'p' && hour < 12)
        ms += 12 * 3600000;
    if (word[0] == 'a' && hour == 12)
        ms -= 12 * 3600000;
    scanner.blanks();
    return true;
}

// What may stand behind a time of day: am or pm, then a zone.
bool readZone(Scanner &scanner, TimeReading &reading, qint64 &timeOfDay) {
    scanner.blanks();
    if (isLetter(scanner.peek())) {
        char word[4] = {};
        const int length = scanner.letters(word, 4);
        if (length == 2 && word[1] == 'm' && (word[0] == 'a' || word[0] == 'p')) {
            if (!readHalfOfDay(scanner, word, timeOfDay))
                return false;
        } else if ((length == 1 && word[0] == 'z') || (length == 3 && (std::strncmp(word, "utc", 3) == 0 ||
                                                                       std::strncmp(word, "gmt", 3) == 0))) {
            reading.hasZone = true;
        } else {
            return false;
        }
    }
    const char sign = scanner.peek();
    if (sign == '+' || sign == '-') {
        scanner.take(sign);
        qint64 hours = 0;
        qint64 minutes = 0;
        if (!scanner.digits(2, hours))
            return false;
        scanner.take(':');
        scanner.digits(2, minutes);
        if (hours > 14 || minutes > 59)
            return false;
        reading.hasZone = true;
        reading.zoneSeconds = int(hours * 3600 + minutes * 60) * (sign == '-' ? -1 : 1);
    }
    scanner.blanks();
    return scanner.atEnd();
}

bool readCount(Piece text, qint64 &value) {
    const auto answer = std::from_chars(text.begin, text.end, value);
    if (answer.ec != std::errc() || value < 0)
        return false;
    // Whole numbers that a table wrote as decimals end in ".0".
    const char *place = answer.ptr;
    if (place != text.end && *place == '.') {
        do
            ++place;
        while (place != text.end && *place == '0');
    }
    return place == text.end;
}

} // namespace

qint32 dayNumber(int year, int month, int day) {
    const int shifted = year - (month <= 2 ? 1 : 0);
    const int era = shifted / 400;
    const int yearOfEra = shifted - era * 400;
    const int dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    return era * 146097 + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear - 719468;
}

bool readTime(Piece text, TimeForm form, TimeReading &reading) {
    reading = TimeReading();
    qint64 count = 0;
    switch (form) {
    case TimeForm::EpochSeconds: {
        double seconds = 0;
        reading.hasZone = true;
        if (!readNumber(text, false, seconds) || seconds < 0 || seconds > 2147483647.0)
            return false;
        reading.ms = qint64(std::llround(seconds * 1000));
        return true;
    }
    case TimeForm::EpochMilliseconds:
    case TimeForm::EpochMicroseconds:
    case TimeForm::EpochNanoseconds:
        reading.hasZone = true;
        if (!readCount(text, count))
            return false;
        reading.ms = form == TimeForm::EpochMilliseconds   ? count
                     : form == TimeForm::EpochMicroseconds ? count / 1000
                                                           : count / 1000000;
        return reading.ms / 1000 <= 2147483647;
    case TimeForm::MillisecondsOfDay:
        return readCount(text, reading.ms) && reading.ms < 86400000;
    default:
        break;
    }
    Scanner scanner(text);
    qint64 day = 0;
    qint64 timeOfDay = 0;
    if (!readDate(scanner, form, day))
        return false;
    const bool glued = isDigit(scanner.peek());
    const bool marked = scanner.take('T') || scanner.take('_') || scanner.take(',');
    scanner.blanks();
    if (scanner.atEnd()) {
        reading.dateOnly = true;
    } else if (isDigit(scanner.peek())) {
        if (!readClock(scanner, timeOfDay) || (glued && marked))
            return false;
        if (!readZone(scanner, reading, timeOfDay))
            return false;
    } else {
        return false;
    }
    reading.ms = day * 86400000 + timeOfDay;
    return true;
}

bool readTimeOfDay(Piece text, qint64 &ms) {
    Scanner scanner(text);
    TimeReading zone;
    return readClock(scanner, ms) && readZone(scanner, zone, ms) && !zone.hasZone;
}

bool readNumber(Piece text, bool comma, double &value) {
    char copy[64];
    if (text.begin != text.end && *text.begin == '+')
        ++text.begin;
    if (comma) {
        const int size = text.size();
        if (size >= int(sizeof copy))
            return false;
        std::memcpy(copy, text.begin, size_t(size));
        if (char *mark = static_cast<char *>(std::memchr(copy, ',', size_t(size))))
            *mark = '.';
        text = {copy, copy + size};
    }
    const auto answer = std::from_chars(text.begin, text.end, value);
    return answer.ec == std::errc() && answer.ptr == text.end && std::isfinite(value);
}

QString timeFormName(TimeForm form) {
    switch (form) {
    case TimeForm::YearFirst:
        return QStringLiteral("year-month-day");
    case TimeForm::DayFirst:
        return QStringLiteral("day.month.year");
    case TimeForm::MonthFirst:
        return QStringLiteral("month/day/year");
    case TimeForm::EpochSeconds:
        return QStringLiteral("seconds since 1970");
    case TimeForm::EpochMilliseconds:
        return QStringLiteral("milliseconds since 1970");
    case TimeForm::EpochMicroseconds:
        return QStringLiteral("microseconds since 1970");
    case TimeForm::EpochNanoseconds:
        return QStringLiteral("nanoseconds since 1970");
    case TimeForm::MillisecondsOfDay:
        break;
    }
    return QStringLiteral("milliseconds since midnight");
}

} // namespace desk
