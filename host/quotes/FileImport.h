#pragma once
#include "host/quotes/FileForm.h"
#include <QByteArrayList>
#include <QStringList>
#include <functional>

namespace desk {

class QuoteStore;

// What became of one file.
struct ImportReport {
    static constexpr int mostReasons = 10;

    bool refused = false;
    bool unchanged = false; // it was read before and has not changed since
    QString symbol;
    Period period;       // of its bars; ticks: "I" 0
    QString form;        // what was found out about it, in one line
    QString summary;     // one sentence: how it ended
    QStringList reasons; // the first left-out lines: "FILE:LINE: reason"
    qint64 lines = 0;
    qint64 points = 0;
    qint64 leftOut = 0;
};

// Reads a file of quotes into the store. What the store held of the file before is replaced when the file has
// changed, and stays as it was when the file cannot be read.
class FileImport {
public:
    // Called now and then with the share that is done, 0 to 100; false ends the import.
    using Progress = std::function<bool(int percent)>;

    explicit FileImport(QuoteStore &store, Progress progress = {});
    ImportReport run(const QuoteFile &file);

private:
    QuoteStore &m_store;
    Progress m_progress;
};

} // namespace desk
