#pragma once
#include "host/core/Front.h"
#include "host/quotes/FileImport.h"
#include "host/quotes/QuoteStore.h"
#include "host/quotes/SymbolHistory.h"
#include <QObject>
#include <QStringList>
#include <QTimer>
#include <map>
#include <memory>

namespace desk {

// All quotes that the desk knows: symbols, their history, and the quotes that come in. Feeds, replays and the
// built-in market write here; instrument series and the symbol list read here.
class QuoteBook : public QObject {
    Q_OBJECT

public:
    explicit QuoteBook(QObject *parent = nullptr);
    ~QuoteBook() override;

    // Where quotes are kept between starts; without it they are kept in memory.
    void openStore(const QString &path);
    QuoteStore &store() { return m_store; }
    ImportReport importFile(const QuoteFile &file);

    QStringList symbols() const;
    SymbolHistory *history(const QString &symbol) const; // null for an unknown symbol
    // Makes the symbol known; an existing one stays as it is.
    SymbolHistory &addSymbol(const SymbolInfo &symbol);
    bool hasStoredQuotes(const QString &symbol) const;

    // Takes a quote. False when its time goes back or a price is none.
    bool quote(const QString &symbol, const Tick &tick);
    // Quotes of this symbol are kept for the next start (those of a feed; not a replay's or the market's).
    void keepQuotes(const QString &symbol);
    void storeKeptQuotes();
    // History was put under a symbol by something else than an import.
    void tellHistoryChanged(const QString &symbol) { emit historyChanged(symbol); }

signals:
    void quoted(const QString &symbol, qint64 timeMs, double bid, double ask);
    void symbolsChanged();
    void historyChanged(const QString &symbol);
    void told(desk::Level level, const QString &sentence);
    void progressed(const QString &what, int percent);

private:
    void addStoredSymbols();

    QuoteStore m_store;
    std::map<QString, std::unique_ptr<SymbolHistory>> m_histories;
    QStringList m_kept;
    QTimer m_keepTimer;
};

} // namespace desk
