#pragma once
#include "host/quotes/FileForm.h"
#include "host/quotes/Period.h"
#include "host/quotes/Quote.h"
#include <QSize>
#include <QString>
#include <QStringList>
#include <optional>

namespace desk {

// What the command line asks for.
struct Options {
    QuoteFile common; // clock, digits and day that hold for all files and the feed
    std::vector<QuoteFile> quoteFiles;
    QString feed;   // "-", or "host:port"
    QString replay; // a file
    double speed = 60;
    QString symbol;
    std::optional<Period> period;
    Side side = Side::Bid;
    int bars = 0; // visible positions; 0: the chart's own choice
    QSize size;   // of the main window; empty: remembered, or a sensible one
    QString screenshot;
    QString trace;
    QString library;
    QString store;
    bool help = false;

    // False: `message` is the sentence that says what is wrong.
    bool parse(const QStringList &arguments, QString &message);
    static QString helpText();
};

} // namespace desk
