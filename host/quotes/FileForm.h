#pragma once
#include "host/quotes/Clock.h"
#include "host/quotes/Period.h"
#include "host/quotes/Quote.h"
#include "host/quotes/TimeText.h"
#include <QDate>
#include <QString>
#include <optional>
#include <vector>

namespace desk {

// A file of quotes and what its owner says about it; what is left open is found out from the file.
struct QuoteFile {
    QString path;
    QString symbol;
    std::optional<Clock> clock;
    std::optional<int> digits;
    std::optional<QDate> date; // for times that count from midnight
    std::optional<Side> side;

    // "FILE" or "FILE=SYMBOL".
    static QuoteFile fromArgument(const QString &argument);
    // All that changes how the file is read, as one text.
    QString optionsText() const;
};

enum class Column {
    Other,
    Time, // date and time, or a count
    Date,
    TimeOfDay,
    Open,
    High,
    Low,
    Close,
    AskOpen,
    AskHigh,
    AskLow,
    AskClose,
    Bid,
    Ask,
    Price, // one price without sides
    Volume,
    AskVolume,
    Symbol,
};

// How the lines of one file are written.
struct FileForm {
    char separator = ','; // a blank stands for any run of blanks
    bool header = false;
    bool quoted = false; // fields or lines stand in quotes
    bool decimalComma = false;
    bool newestFirst = false;
    std::vector<Column> columns;
    TimeForm timeForm = TimeForm::YearFirst;
    bool dateOnly = false;
    bool zoned = false; // the times carry their zone
    qint64 dayMs = 0;   // midnight for times that count from it
    bool ticks = false;
    Period period;            // of bars
    int barSeconds = 0;       // distance of the bars; differs from the period for bars shorter than a minute
    std::optional<Side> side; // of single prices, when it is known
    bool points = false;      // prices are whole numbers of the last digit
    int digits = 5;
    QString symbol;
    QByteArray symbolText; // as it stands in the lines, when they carry it
    Clock clock;
    bool clockGiven = false;

    bool has(Column column) const;
    bool hasAskBars() const { return has(Column::AskOpen); }
    QString describe() const; // one line, without the file's name
};

// Cuts a line into its fields, without the blanks and quotes around them; answers how many there are, of
// which at most `room` are stored.
int splitLine(Piece line, char separator, Piece *fields, int room);
Piece trimmed(Piece text);
// Empty line, or a comment.
bool isIdleLine(Piece line);

} // namespace desk
