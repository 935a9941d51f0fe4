#include "host/quotes/QuoteBook.h"
#include "host/quotes/SeriesWriter.h"
#include "host/quotes/SymbolNames.h"
#include <QFileInfo>
#include <cmath>

namespace desk {

namespace {

constexpr int keepEveryMs = 300000;

bool isPrice(float price) {
    return std::isfinite(price) && price > 0;
}

QString feedPath(const QString &symbol) {
    return QStringLiteral("live feed of ") + symbol;
}

} // namespace

QuoteBook::QuoteBook(QObject *parent) : QObject(parent) {
    m_store.open(QString());
    m_keepTimer.setInterval(keepEveryMs);
    connect(&m_keepTimer, &QTimer::timeout, this, &QuoteBook::storeKeptQuotes);
}

QuoteBook::~QuoteBook() {
    storeKeptQuotes();
}

void QuoteBook::openStore(const QString &path) {
    const QString reason = m_store.open(path);
    if (!reason.isEmpty())
        emit told(Level::Warning, reason);
    m_histories.clear();
    addStoredSymbols();
    emit symbolsChanged();
}

void QuoteBook::addStoredSymbols() {
    for (const SymbolInfo &symbol : m_store.symbols())
        addSymbol(symbol);
}

ImportReport QuoteBook::importFile(const QuoteFile &file) {
    const QString what = QFileInfo(file.path).fileName();
    FileImport import(m_store, [this, &what](int percent) {
        emit progressed(what, percent);
        return true;
    });
    const ImportReport report = import.run(file);
    if (!report.form.isEmpty())
        emit told(Level::Message, report.form);
    for (const QString &reason : report.reasons)
        emit told(Level::Warning, reason);
    if (report.leftOut > report.reasons.size() && !report.unchanged)
        emit told(Level::Warning, QStringLiteral("%1: %2 further lines are left out.")
                                      .arg(what)
                                      .arg(report.leftOut - report.reasons.size()));
    emit told(report.refused ? Level::Error : Level::Message, report.summary);
    if (report.refused)
        return report;
    addStoredSymbols();
    if (!report.unchanged) {
        // A file read again may have given its quotes to another symbol before.
        for (const auto &[symbol, history] : m_histories) {
            history->reload();
            emit historyChanged(symbol);
        }
    }
    emit symbolsChanged();
    return report;
}

QStringList QuoteBook::symbols() const {
    QStringList names;
    for (const auto &[name, history] : m_histories)
        names << name;
    return names;
}

SymbolHistory *QuoteBook::history(const QString &symbol) const {
    const auto place = m_histories.find(symbolFrom(symbol));
    return place != m_histories.end() ? place->second.get() : nullptr;
}

SymbolHistory &QuoteBook::addSymbol(const SymbolInfo &symbol) {
    std::unique_ptr<SymbolHistory> &place = m_histories[symbol.name];
    if (!place) {
        place = std::make_unique<SymbolHistory>(m_store, symbol);
        emit symbolsChanged();
    }
    return *place;
}

bool QuoteBook::hasStoredQuotes(const QString &symbol) const {
    return !m_store.series(symbolFrom(symbol)).empty();
}

bool QuoteBook::quote(const QString &symbol, const Tick &tick) {
    SymbolHistory *history = this->history(symbol);
    Tick counted = tick;
    if (!(counted.volume > 0))
        counted.volume = 1;
    if (!history || !isPrice(tick.bid) || !isPrice(tick.ask) || tick.timeMs < 0 || !history->add(counted))
        return false;
    emit quoted(history->info().name, tick.timeMs, double(tick.bid), double(tick.ask));
    return true;
}

void QuoteBook::keepQuotes(const QString &symbol) {
    if (m_kept.contains(symbol))
        return;
    m_kept << symbol;
    if (!m_keepTimer.isActive())
        m_keepTimer.start();
}

void QuoteBook::storeKeptQuotes() {
    for (const QString &symbol : qAsConst(m_kept)) {
        SymbolHistory *history = this->history(symbol);
        if (!history || history->liveTicks().empty() || !m_store.begin())
            continue;
        const std::vector<Tick> ticks = history->liveTicks();
        SourceFile source = m_store.file(feedPath(symbol)).value_or(SourceFile());
        bool done = true;
        if (source.id == 0) {
            source.path = feedPath(symbol);
            source.symbol = symbol;
            source.form = source.path;
            done = m_store.addFile(source);
        }
        FileForm form;
        form.symbol = symbol;
        form.ticks = true;
        form.columns = {Column::Time, Column::Bid, Column::Ask};
        SeriesWriter writer(m_store, source.id, form);
        QuoteLine line;
        for (const Tick &tick : ticks) {
            line.timeMs = tick.timeMs;
            line.tick = tick;
            done = done && writer.add(line);
        }
        source.points += qint64(ticks.size());
        done = done && writer.finish() && m_store.updateFile(source) && m_store.saveSymbol(history->info());
        if (!done)
            m_store.rollback();
        if (done && m_store.commit())
            history->liveStored();
        else
            emit told(Level::Warning,
                      QStringLiteral("Quotes of %1 could not be kept: %2.").arg(symbol, m_store.lastError()));
    }
}

} // namespace desk
