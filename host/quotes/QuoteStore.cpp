#include "host/quotes/QuoteStore.h"
#include <QAtomicInt>
#include <QDir>
#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>
#include <cstring>

namespace desk {

namespace {

constexpr int schemaVersion = 1;

QString connectionName() {
    static QAtomicInt last;
    return QStringLiteral("quotes%1").arg(++last);
}

template <class Point>
QByteArray bytesOf(const Point *points, int count) {
    return QByteArray(reinterpret_cast<const char *>(points), int(sizeof(Point)) * count);
}

template <class Point>
std::vector<Point> pointsOf(const QByteArray &bytes) {
    std::vector<Point> points(size_t(bytes.size()) / sizeof(Point));
    if (!points.empty())
        std::memcpy(static_cast<void *>(points.data()), bytes.constData(), points.size() * sizeof(Point));
    return points;
}

} // namespace

QuoteStore::QuoteStore() : m_connection(connectionName()) {}

QuoteStore::~QuoteStore() {
    close();
}

void QuoteStore::close() {
    if (!m_database.isValid())
        return;
    m_database.close();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_connection);
}

QString QuoteStore::open(const QString &path) {
    close();
    QString reason;
    if (!path.isEmpty()) {
        reason = openFile(path);
        if (reason.isEmpty())
            return reason;
        close();
    }
    openFile(QStringLiteral(":memory:"));
    return reason;
}

QString QuoteStore::openFile(const QString &path) {
    const bool inMemory = path == QLatin1String(":memory:");
    if (!inMemory && !QDir().mkpath(QFileInfo(path).absolutePath()))
        return QStringLiteral("The folder of %1 cannot be made; quotes are kept only until the end.")
            .arg(path);
    m_database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connection);
    m_database.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=2000"));
    m_database.setDatabaseName(path);
    if (!m_database.open())
        return QStringLiteral("%1 cannot be opened (%2); quotes are kept only until the end.")
            .arg(path, m_database.lastError().databaseText());
    if (!inMemory)
        run(QStringLiteral("PRAGMA journal_mode=WAL"));
    run(QStringLiteral("PRAGMA synchronous=NORMAL"));
    if (!makeTables())
        return QStringLiteral(
                   "%1 is no store of quotes that this version can use (%2); quotes are kept only until "
                   "the end.")
            .arg(path, m_error);
    return QString();
}

bool QuoteStore::makeTables() {
    QSqlQuery version(m_database);
    if (!version.exec(QStringLiteral("PRAGMA user_version")) || !version.next()) {
        m_error = version.lastError().databaseText();
        return false;
    }
    const int found = version.value(0).toInt();
    version.finish();
    if (found == schemaVersion)
        return true;
    if (found != 0) {
        m_error = QStringLiteral("its version is %1").arg(found);
        return false;
    }
    static const char *const statements[] = {
        "CREATE TABLE IF NOT EXISTS symbols (name TEXT PRIMARY KEY, digits INTEGER, weekends INTEGER)",
        "CREATE TABLE IF NOT EXISTS files (id INTEGER PRIMARY KEY AUTOINCREMENT, path TEXT UNIQUE, symbol "
        "TEXT, "
        "options TEXT, form TEXT, hash BLOB, size INTEGER, modified INTEGER, points INTEGER, left_out "
        "INTEGER)",
        "CREATE TABLE IF NOT EXISTS series (id INTEGER PRIMARY KEY, file INTEGER, symbol TEXT, side INTEGER, "
        "unit TEXT, length INTEGER, derived INTEGER)",
        "CREATE TABLE IF NOT EXISTS chunks (id INTEGER PRIMARY KEY, series INTEGER, first INTEGER, last "
        "INTEGER, "
        "count INTEGER, data BLOB)",
        "CREATE INDEX IF NOT EXISTS chunks_of_series ON chunks (series, first)",
        "CREATE INDEX IF NOT EXISTS series_of_symbol ON series (symbol)",
    };
    if (!begin())
        return false;
    for (const char *statement : statements) {
        if (!run(QLatin1String(statement))) {
            rollback();
            return false;
        }
    }
    return run(QStringLiteral("PRAGMA user_version=%1").arg(schemaVersion)) && commit();
}

bool QuoteStore::run(const QString &statement, const QVariantList &values) {
    QSqlQuery query(m_database);
    bool done = query.prepare(statement);
    for (const QVariant &value : values)
        query.addBindValue(value);
    done = done && query.exec();
    if (!done)
        m_error = query.lastError().databaseText();
    return done;
}

std::vector<SymbolInfo> QuoteStore::symbols() const {
    std::vector<SymbolInfo> result;
    QSqlQuery query(QStringLiteral("SELECT name, digits, weekends FROM symbols ORDER BY name"), m_database);
    while (query.next())
        result.push_back({query.value(0).toString(), query.value(1).toInt(), query.value(2).toBool()});
    return result;
}

std::optional<SymbolInfo> QuoteStore::symbol(const QString &name) const {
    QSqlQuery query(m_database);
    query.prepare(QStringLiteral("SELECT digits, weekends FROM symbols WHERE name = ?"));
    query.addBindValue(name);
    if (!query.exec() || !query.next())
        return std::nullopt;
    return SymbolInfo{name, query.value(0).toInt(), query.value(1).toBool()};
}

bool QuoteStore::saveSymbol(const SymbolInfo &symbol) {
    return run(QStringLiteral("INSERT OR REPLACE INTO symbols (name, digits, weekends) VALUES (?, ?, ?)"),
               {symbol.name, symbol.digits, int(symbol.tradesAtWeekends)});
}

namespace {

const char fileColumns[] =
    "SELECT id, path, symbol, options, form, hash, size, modified, points, left_out FROM files";

SourceFile fileOf(const QSqlQuery &query) {
    return {query.value(0).toLongLong(), query.value(1).toString(),   query.value(2).toString(),
            query.value(3).toString(),   query.value(4).toString(),   query.value(5).toByteArray(),
            query.value(6).toLongLong(), query.value(7).toLongLong(), query.value(8).toLongLong(),
            query.value(9).toLongLong()};
}

} // namespace

std::optional<SourceFile> QuoteStore::file(const QString &path) const {
    QSqlQuery query(m_database);
    query.prepare(QLatin1String(fileColumns) + QStringLiteral(" WHERE path = ?"));
    query.addBindValue(path);
    if (!query.exec() || !query.next())
        return std::nullopt;
    return fileOf(query);
}

std::vector<SourceFile> QuoteStore::files() const {
    std::vector<SourceFile> result;
    QSqlQuery query(QLatin1String(fileColumns) + QStringLiteral(" ORDER BY id"), m_database);
    while (query.next())
        result.push_back(fileOf(query));
    return result;
}

std::vector<StoredSeries> QuoteStore::series(const QString &symbol) const {
    std::vector<StoredSeries> result;
    QSqlQuery query(m_database);
    query.prepare(QStringLiteral("SELECT id, file, side, unit, length, derived FROM series WHERE symbol = ? "
                                 "ORDER BY file DESC, id"));
    query.addBindValue(symbol);
    query.exec();
    while (query.next()) {
        const QString unit = query.value(3).toString();
        result.push_back({query.value(0).toLongLong(), query.value(1).toLongLong(), symbol,
                          Side(query.value(2).toInt()),
                          Period{unit.isEmpty() ? 'I' : char(unit.at(0).toLatin1()), query.value(4).toInt()},
                          query.value(5).toBool()});
    }
    return result;
}

std::vector<StoredChunk> QuoteStore::chunks(qint64 series) const {
    std::vector<StoredChunk> result;
    QSqlQuery query(m_database);
    query.prepare(
        QStringLiteral("SELECT id, first, last, count FROM chunks WHERE series = ? ORDER BY first, id"));
    query.addBindValue(series);
    query.exec();
    while (query.next())
        result.push_back({query.value(0).toLongLong(), query.value(1).toInt(), query.value(2).toInt(),
                          query.value(3).toInt()});
    return result;
}

QByteArray QuoteStore::data(qint64 chunk) const {
    QSqlQuery query(m_database);
    query.prepare(QStringLiteral("SELECT data FROM chunks WHERE id = ?"));
    query.addBindValue(chunk);
    return query.exec() && query.next() ? query.value(0).toByteArray() : QByteArray();
}

std::vector<Bar> QuoteStore::bars(qint64 chunk) const {
    return pointsOf<Bar>(data(chunk));
}

std::vector<Tick> QuoteStore::ticks(qint64 chunk) const {
    return pointsOf<Tick>(data(chunk));
}

bool QuoteStore::begin() {
    if (m_database.transaction())
        return true;
    m_error = m_database.lastError().databaseText();
    return false;
}

bool QuoteStore::commit() {
    if (m_database.commit())
        return true;
    m_error = m_database.lastError().databaseText();
    m_database.rollback();
    return false;
}

void QuoteStore::rollback() {
    m_database.rollback();
}

bool QuoteStore::addFile(SourceFile &file) {
    QSqlQuery query(m_database);
    query.prepare(
        QStringLiteral("INSERT INTO files (path, symbol, options, form, hash, size, modified, points, "
                       "left_out) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)"));
    for (const QVariant &value : QVariantList{file.path, file.symbol, file.options, file.form, file.hash,
                                              file.size, file.modifiedMs, file.points, file.leftOut})
        query.addBindValue(value);
    if (!query.exec()) {
        m_error = query.lastError().databaseText();
        return false;
    }
    file.id = query.lastInsertId().toLongLong();
    return true;
}

bool QuoteStore::updateFile(const SourceFile &file) {
    return run(QStringLiteral(
                   "UPDATE files SET symbol = ?, options = ?, form = ?, hash = ?, size = ?, modified = ?, "
                   "points = ?, left_out = ? WHERE id = ?"),
               {file.symbol, file.options, file.form, file.hash, file.size, file.modifiedMs, file.points,
                file.leftOut, file.id});
}

bool QuoteStore::removeFile(qint64 file) {
    return run(QStringLiteral("DELETE FROM chunks WHERE series IN (SELECT id FROM series WHERE file = ?)"),
               {file}) &&
           run(QStringLiteral("DELETE FROM series WHERE file = ?"), {file}) &&
           run(QStringLiteral("DELETE FROM files WHERE id = ?"), {file});
}

bool QuoteStore::addSeries(StoredSeries &series) {
    QSqlQuery query(m_database);
    query.prepare(
        QStringLiteral("INSERT INTO series (file, symbol, side, unit, length, derived) VALUES (?, ?, ?, ?, "
                       "?, ?)"));
    for (const QVariant &value :
         QVariantList{series.file, series.symbol, int(series.side), QString(QLatin1Char(series.period.unit)),
                      series.period.length, int(series.derived)})
        query.addBindValue(value);
    if (!query.exec()) {
        m_error = query.lastError().databaseText();
        return false;
    }
    series.id = query.lastInsertId().toLongLong();
    return true;
}

bool QuoteStore::addChunk(qint64 series, qint32 first, qint32 last, int count, const QByteArray &data) {
    return run(QStringLiteral("INSERT INTO chunks (series, first, last, count, data) VALUES (?, ?, ?, ?, ?)"),
               {series, first, last, count, data});
}

bool QuoteStore::addBars(qint64 series, const Bar *bars, int count) {
    return count == 0 || addChunk(series, bars[0].time, bars[count - 1].time, count, bytesOf(bars, count));
}

bool QuoteStore::addTicks(qint64 series, const Tick *ticks, int count) {
    return count == 0 ||
           addChunk(series, ticks[0].timeSec(), ticks[count - 1].timeSec(), count, bytesOf(ticks, count));
}

} // namespace desk
