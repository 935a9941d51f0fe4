#pragma once
#include "host/quotes/FileForm.h"
#include <array>

namespace desk {

// One line's quote: a tick, or a bar, with the ask's bar beside it when the line has both.
struct QuoteLine {
    qint64 timeMs = 0;
    Tick tick;
    Bar bar;
    Bar ask;
};

// Reads lines of one form.
class LineParser {
public:
    explicit LineParser(const FileForm &form);
    // The answer is empty, or says what is wrong with the line.
    QString parse(Piece line, QuoteLine &quote);
    // The line before this one was taken: its time decides which of two equal autumn readings is meant.
    void setLastTime(qint64 timeMs) { m_lastMs = timeMs; }

private:
    int columnOf(Column what) const;
    QString readTimes(const Piece *fields, QuoteLine &quote);
    QString readBar(const Piece *fields, Column first, int volumeColumn, Bar &bar);
    QString readPrice(Piece field, const char *name, double &value) const;
    bool readVolume(const Piece *fields, int column, float &volume) const;

    const FileForm &m_form;
    double m_scale = 1;
    std::array<int, int(Column::Symbol) + 1> m_places;
    qint64 m_lastMs = -1;
};

} // namespace desk
