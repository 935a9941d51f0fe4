#include "host/quotes/FormSample.h"
#include <map>

namespace desk {

FormSample::FormSample(const QByteArrayList &lines, char separator) {
    for (const QByteArray &line : lines) {
        std::vector<Piece> fields(mostColumns);
        const int count = splitLine({line.constData(), line.constData() + line.size()}, separator,
                                    fields.data(), mostColumns);
        fields.resize(size_t(std::min(count, mostColumns)));
        m_rows.push_back(std::move(fields));
    }
    std::map<size_t, int> counts; // of the rows that the separator cuts at all
    for (const auto &row : m_rows) {
        if (row.size() < 2)
            continue;
        ++counts[row.size()];
        ++m_cut;
    }
    for (const auto &[width, count] : counts) {
        if (count > m_matching) {
            m_matching = count;
            m_width = width;
        }
    }
}

void FormSample::keepMatching() {
    m_rows.erase(std::remove_if(m_rows.begin(), m_rows.end(),
                                [this](const auto &row) { return row.size() != m_width; }),
                 m_rows.end());
}

std::vector<Piece> FormSample::column(int index) const {
    std::vector<Piece> fields;
    for (const auto &row : m_rows)
        fields.push_back(row[size_t(index)]);
    return fields;
}

bool isDigits(Piece text) {
    return !text.isEmpty() && std::all_of(text.begin, text.end, [](char c) { return c >= '0' && c <= '9'; });
}

namespace {

qint64 orderOf(const std::vector<Piece> &fields, TimeForm form) {
    qint64 order = 0;
    qint64 last = 0;
    bool first = true;
    for (const Piece &field : fields) {
        TimeReading reading;
        if (!readTime(field, form, reading))
            continue;
        if (!first)
            order += reading.ms > last ? 1 : reading.ms < last ? -1 : 0;
        last = reading.ms;
        first = false;
    }
    return order;
}

} // namespace

TimeColumn findTime(const std::vector<Piece> &fields) {
    TimeColumn time;
    const auto reads = [&fields](TimeForm form) {
        return mostly(fields, [form](Piece field) {
            TimeReading reading;
            return readTime(field, form, reading);
        });
    };
    const auto take = [&](TimeForm form) {
        time.found = true;
        time.form = form;
        TimeReading reading;
        time.dateOnly = time.zoned = true;
        for (const Piece &field : fields) {
            if (readTime(field, form, reading)) {
                time.dateOnly = time.dateOnly && reading.dateOnly;
                time.zoned = time.zoned && reading.hasZone;
            }
        }
        return time;
    };
    const bool yearFirst = mostly(fields, [](Piece field) {
        return field.size() >= 6 && isDigits({field.begin, field.begin + 4}) &&
               (!isDigits({field.begin, field.begin + 6}) ||
                isDigits({field.begin, field.begin + std::min(8, field.size())}));
    });
    if (yearFirst && reads(TimeForm::YearFirst))
        return take(TimeForm::YearFirst);
    const bool dayFirst = reads(TimeForm::DayFirst);
    const bool monthFirst = reads(TimeForm::MonthFirst);
    if (!yearFirst && (dayFirst || monthFirst)) {
        if (dayFirst != monthFirst)
            return take(dayFirst ? TimeForm::DayFirst : TimeForm::MonthFirst);
        const qint64 dayOrder = std::abs(orderOf(fields, TimeForm::DayFirst));
        const qint64 monthOrder = std::abs(orderOf(fields, TimeForm::MonthFirst));
        if (dayOrder != monthOrder)
            return take(dayOrder > monthOrder ? TimeForm::DayFirst : TimeForm::MonthFirst);
        const Piece first = fields.front();
        const bool slash = std::find(first.begin, first.end, '/') != first.end;
        return take(slash ? TimeForm::MonthFirst : TimeForm::DayFirst);
    }
    const auto magnitude = [&fields](int least, int most) {
        return mostly(fields, [least, most](Piece field) {
            const char *point = std::find(field.begin, field.end, '.');
            const Piece whole{field.begin, point};
            return isDigits(whole) && whole.size() >= least && whole.size() <= most;
        });
    };
    if (magnitude(9, 10) && reads(TimeForm::EpochSeconds))
        return take(TimeForm::EpochSeconds);
    if (magnitude(12, 13) && reads(TimeForm::EpochMilliseconds))
        return take(TimeForm::EpochMilliseconds);
    if (magnitude(15, 16) && reads(TimeForm::EpochMicroseconds))
        return take(TimeForm::EpochMicroseconds);
    if (magnitude(18, 19) && reads(TimeForm::EpochNanoseconds))
        return take(TimeForm::EpochNanoseconds);
    if (magnitude(1, 8) && reads(TimeForm::MillisecondsOfDay))
        return take(TimeForm::MillisecondsOfDay);
    return time;
}

} // namespace desk
