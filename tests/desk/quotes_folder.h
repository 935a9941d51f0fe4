#pragma once
#include "host/quotes/FileImport.h"
#include "host/quotes/QuoteStore.h"
#include "host/quotes/SymbolHistory.h"
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace desk {

inline void PrintTo(const Period &period, std::ostream *out) {
    *out << period.name().toStdString();
}

// Seconds of "2012-02-01 00:05:00" in UTC.
inline qint32 utc(const char *text) {
    return qint32(QDateTime::fromString(QString::fromLatin1(text) + QLatin1Char('Z'),
                                        QStringLiteral("yyyy-MM-dd hh:mm:sst"))
                      .toSecsSinceEpoch());
}

// A folder of files of quotes and a store for them.
class QuoteFolder {
public:
    QuoteFolder() { store.open(QString()); }

    QString write(const char *name, const QByteArray &content) {
        const QString path = folder.filePath(QString::fromUtf8(name));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return path;
    }
    ImportReport import(const QuoteFile &file) { return FileImport(store).run(file); }
    ImportReport import(const char *name, const QByteArray &content) {
        QuoteFile file;
        file.path = write(name, content);
        return import(file);
    }
    std::vector<StoredSeries> series(const char *symbol) { return store.series(QString::fromLatin1(symbol)); }
    std::vector<Bar> bars(const char *symbol, Side side, Period period, HistoryWindow window = {100000}) {
        return SymbolHistory(store, store.symbol(QString::fromLatin1(symbol))
                                        .value_or(SymbolInfo{QString::fromLatin1(symbol)}))
            .bars(side, period, window);
    }
    std::vector<Tick> ticks(const char *symbol) {
        return SymbolHistory(store, {QString::fromLatin1(symbol)}).ticks({100000});
    }

    QTemporaryDir folder;
    QuoteStore store;
};

} // namespace desk
