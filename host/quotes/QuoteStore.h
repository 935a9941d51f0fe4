#pragma once
#include "host/quotes/Period.h"
#include "host/quotes/Quote.h"
#include <QByteArray>
#include <QSqlDatabase>
#include <QString>
#include <QVariant>
#include <optional>
#include <vector>

namespace desk {

struct SymbolInfo {
    QString name;
    int digits = 5;
    bool tradesAtWeekends = false;
};

// Where quotes came from: a file as it was when it was read.
struct SourceFile {
    qint64 id = 0;
    QString path;
    QString symbol;
    QString options; // what the user said about it
    QString form;    // what was found out
    QByteArray hash;
    qint64 size = 0;
    qint64 modifiedMs = 0;
    qint64 points = 0;
    qint64 leftOut = 0;
};

// The bars of one side and period, or the ticks, of one source.
struct StoredSeries {
    qint64 id = 0;
    qint64 file = 0;
    QString symbol;
    Side side = Side::Bid;
    Period period;        // ticks: "I" 0
    bool derived = false; // put together from ticks: gives way to bars of a file
};

// A block of consecutive points.
struct StoredChunk {
    qint64 id = 0;
    qint32 first = 0; // times of its points
    qint32 last = 0;
    int count = 0;
};

// The quotes kept between starts: an embedded database in one file, points in blocks.
class QuoteStore {
public:
    static constexpr int chunkPoints = 4096;

    QuoteStore();
    ~QuoteStore();
    QuoteStore(const QuoteStore &) = delete;
    QuoteStore &operator=(const QuoteStore &) = delete;

    // Opens or makes the file; an empty name keeps everything in memory. The answer is empty, or a sentence
    // that says why it could not be opened: the store is then in memory.
    QString open(const QString &path);
    bool isOpen() const { return m_database.isOpen(); }
    QString lastError() const { return m_error; }

    std::vector<SymbolInfo> symbols() const;
    std::optional<SymbolInfo> symbol(const QString &name) const;
    bool saveSymbol(const SymbolInfo &symbol);

    std::optional<SourceFile> file(const QString &path) const;
    std::vector<SourceFile> files() const;
    std::vector<StoredSeries> series(const QString &symbol) const; // the newest source first
    std::vector<StoredChunk> chunks(qint64 series) const;          // in order of time
    std::vector<Bar> bars(qint64 chunk) const;
    std::vector<Tick> ticks(qint64 chunk) const;

    // A change is seen as a whole or not at all.
    bool begin();
    bool commit();
    void rollback();
    bool addFile(SourceFile &file); // sets its id
    bool updateFile(const SourceFile &file);
    bool removeFile(qint64 file);         // with its series
    bool addSeries(StoredSeries &series); // sets its id
    bool addBars(qint64 series, const Bar *bars, int count);
    bool addTicks(qint64 series, const Tick *ticks, int count);

private:
    QString openFile(const QString &path);
    void close();
    bool makeTables();
    bool addChunk(qint64 series, qint32 first, qint32 last, int count, const QByteArray &data);
    bool run(const QString &statement, const QVariantList &values = {});
    QByteArray data(qint64 chunk) const;

    QSqlDatabase m_database;
    QString m_connection;
    mutable QString m_error;
};

} // namespace desk
