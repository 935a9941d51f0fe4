#include "host/quotes/FileImport.h"
#include "host/quotes/FormFinder.h"
#include "host/quotes/LineReader.h"
#include "host/quotes/SeriesWriter.h"
#include <QCryptographicHash>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QLocale>

namespace desk {

namespace {

constexpr int sampleLines = 2000;
constexpr int linesPerProgress = 20000;

QString counted(qint64 count) {
    return QLocale(QLocale::English).toString(count);
}

// The first lines of a file, for finding out its form; `binary` when it does not even begin as text.
QByteArrayList firstLines(QFile &file, bool &binary) {
    QByteArrayList lines;
    LineReader reader(file);
    Piece line;
    while (lines.size() < sampleLines && reader.lineNumber() < 2 * sampleLines && reader.next(line)) {
        if (reader.isBinary()) {
            binary = lines.isEmpty();
            break;
        }
        if (!reader.isCut() && !isIdleLine(line))
            lines << QByteArray(line.begin, line.size());
    }
    file.seek(0);
    return lines;
}

QByteArray hashOf(QFile &file) {
    QCryptographicHash hash(QCryptographicHash::Md5);
    std::vector<char> block(1 << 20);
    for (qint64 size; (size = file.read(block.data(), qint64(block.size()))) > 0;)
        hash.addData(block.data(), int(size));
    file.seek(0);
    return hash.result();
}

// One run over one file.
class Run {
public:
    Run(QuoteStore &store, const FileImport::Progress &progress, const QuoteFile &quotes,
        ImportReport &report)
        : m_store(store), m_progress(progress), m_quotes(quotes), m_report(report), m_info(quotes.path),
          m_file(quotes.path) {}
    void start();

private:
    bool openFile();
    bool isKnown();
    void readLines();
    bool take(const QuoteLine &quote, qint64 line);
    bool release();
    void leaveOut(qint64 line, const QString &reason);
    void refuse(const QString &reason);
    void end(LineReader &reader, QCryptographicHash &hash);

    QuoteStore &m_store;
    const FileImport::Progress &m_progress;
    const QuoteFile &m_quotes;
    ImportReport &m_report;
    QFileInfo m_info;
    QFile m_file;
    FileForm m_form;
    SourceFile m_source;
    std::optional<SeriesWriter> m_writer;

    // The quote last read waits until the next one has shown that its time does not run ahead.
    QuoteLine m_held;
    qint64 m_heldLine = 0;
    qint64 m_lastMs = -1;              // time of the quote before the held one
    std::vector<QuoteLine> m_reversed; // of a file with the newest first
    bool m_stored = true;
};

void Run::refuse(const QString &reason) {
    m_report.refused = true;
    m_report.summary = QStringLiteral("%1 is not imported: %2.").arg(m_quotes.path, reason);
}

void Run::leaveOut(qint64 line, const QString &reason) {
    ++m_report.leftOut;
    if (m_report.reasons.size() < ImportReport::mostReasons)
        m_report.reasons << QStringLiteral("%1:%2: %3; the line is left out.")
                                .arg(m_info.fileName())
                                .arg(line)
                                .arg(reason);
}

bool Run::openFile() {
    if (!m_info.exists())
        refuse(QStringLiteral("there is no such file"));
    else if (m_info.isDir())
        refuse(QStringLiteral("it is a folder"));
    else if (!m_info.isFile())
        refuse(QStringLiteral("it is no ordinary file"));
    else if (!m_file.open(QIODevice::ReadOnly))
        refuse(QStringLiteral("it cannot be read (%1)").arg(m_file.errorString()));
    else if (m_info.size() == 0)
        refuse(QStringLiteral("it is empty"));
    return !m_report.refused;
}

bool Run::isKnown() {
    const std::optional<SourceFile> known = m_store.file(m_info.canonicalFilePath());
    if (!known || known->size != m_info.size() || known->options != m_quotes.optionsText())
        return false;
    const qint64 modified = m_info.lastModified().toMSecsSinceEpoch();
    if (known->modifiedMs != modified) {
        if (known->hash != hashOf(m_file))
            return false;
        SourceFile touched = *known;
        touched.modifiedMs = modified;
        m_store.updateFile(touched);
    }
    m_report.unchanged = true;
    m_report.symbol = known->symbol;
    for (const StoredSeries &series : m_store.series(known->symbol)) {
        if (series.file == known->id && !series.derived)
            m_report.period = series.period;
    }
    m_report.form = known->form;
    m_report.points = known->points;
    m_report.leftOut = known->leftOut;
    m_report.summary = QStringLiteral("%1 is unchanged since its last import: %2 quotes of %3.")
                           .arg(m_quotes.path, counted(known->points), known->symbol);
    return true;
}

bool Run::release() {
    if (m_heldLine == 0)
        return true;
    m_lastMs = m_held.timeMs;
    m_heldLine = 0;
    if (m_form.newestFirst) {
        m_reversed.push_back(m_held);
        return true;
    }
    return m_writer->add(m_held);
}

bool Run::take(const QuoteLine &quote, qint64 line) {
    if (m_heldLine != 0) {
        const qint64 direction = m_form.newestFirst ? -1 : 1;
        const qint64 step = (quote.timeMs - m_held.timeMs) * direction;
        if (step < 0) {
            // When the quote before the held one is near this one, the held one's time ran far ahead.
            constexpr qint64 far = 10 * 86400000LL;
            const qint64 ahead = (m_held.timeMs - m_lastMs) * direction;
            const qint64 back = (quote.timeMs - m_lastMs) * direction;
            const qint64 usual = std::max<qint64>(far, m_form.period.seconds() * 1000 * 4);
            if (m_lastMs >= 0 && ahead > usual && back > 0 && back < usual) {
                leaveOut(m_heldLine, QStringLiteral("its time runs ahead of the lines behind it"));
                m_heldLine = 0;
            } else {
                leaveOut(line, QStringLiteral("its time goes back"));
                return true;
            }
        } else if (step == 0 && !m_form.ticks) {
            leaveOut(line, QStringLiteral("a second bar of the same time"));
            return true;
        } else if (step == 0 && quote.tick.bid == m_held.tick.bid && quote.tick.ask == m_held.tick.ask &&
                   quote.tick.volume == m_held.tick.volume) {
            leaveOut(line, QStringLiteral("a duplicate of the line before"));
            return true;
        }
    }
    const bool done = release();
    m_held = quote;
    m_heldLine = line;
    return done;
}

void Run::readLines() {
    LineReader reader(m_file);
    QCryptographicHash hash(QCryptographicHash::Md5);
    reader.watchBlocks([&hash](const char *block, qint64 size) { hash.addData(block, int(size)); });
    LineParser parser(m_form);
    const qint64 size = std::max<qint64>(1, m_info.size());
    bool header = m_form.header;
    Piece line;
    QuoteLine quote;
    while (m_stored && reader.next(line)) {
        if (reader.isBinary())
            return refuse(QStringLiteral("it holds binary data after line %1").arg(reader.lineNumber() - 1));
        if (reader.lineNumber() % linesPerProgress == 0 && m_progress &&
            !m_progress(int(reader.bytesRead() * 100 / size)))
            return refuse(QStringLiteral("the import was stopped"));
        if (isIdleLine(line))
            continue;
        if (header) {
            header = false;
            continue;
        }
        ++m_report.lines;
        if (reader.isCut()) {
            leaveOut(reader.lineNumber(),
                     QStringLiteral("it is longer than %1 bytes").arg(LineReader::longestLine));
            continue;
        }
        parser.setLastTime(m_heldLine != 0 ? m_held.timeMs : m_lastMs);
        const QString reason = parser.parse(line, quote);
        if (!reason.isEmpty())
            leaveOut(reader.lineNumber(), reason);
        else
            m_stored = take(quote, reader.lineNumber());
    }
    m_stored = m_stored && release();
    end(reader, hash);
}

void Run::end(LineReader &, QCryptographicHash &hash) {
    if (m_file.error() != QFile::NoError)
        return refuse(QStringLiteral("reading it failed (%1)").arg(m_file.errorString()));
    for (auto quote = m_reversed.rbegin(); m_stored && quote != m_reversed.rend(); ++quote)
        m_stored = m_writer->add(*quote);
    m_stored = m_stored && m_writer->finish();
    m_report.points = m_writer->points();
    if (m_stored && m_report.points == 0)
        return refuse(QStringLiteral("none of its %1 lines is a quote").arg(counted(m_report.lines)));
    m_source.hash = hash.result();
    m_source.points = m_report.points;
    m_source.leftOut = m_report.leftOut;
    m_stored = m_stored && m_store.updateFile(m_source) &&
               m_store.saveSymbol({m_form.symbol, m_form.digits, m_writer->tradesAtWeekends()});
    if (!m_stored)
        refuse(QStringLiteral("the store refused its quotes (%1)").arg(m_store.lastError()));
}

void Run::start() {
    if (!openFile() || isKnown())
        return;
    bool binary = false;
    const QByteArrayList lines = firstLines(m_file, binary);
    if (binary)
        return refuse(QStringLiteral("it is binary data, no text"));
    const QString reason = findForm(m_quotes, lines, m_form);
    if (!reason.isEmpty())
        return refuse(reason);
    m_report.symbol = m_form.symbol;
    m_report.period = m_form.period;
    m_report.form = QStringLiteral("%1: %2.").arg(m_info.fileName(), m_form.describe());
    m_source.path = m_info.canonicalFilePath();
    m_source.symbol = m_form.symbol;
    m_source.options = m_quotes.optionsText();
    m_source.form = m_report.form;
    m_source.size = m_info.size();
    m_source.modifiedMs = m_info.lastModified().toMSecsSinceEpoch();
    const std::optional<SourceFile> old = m_store.file(m_source.path);
    if (!m_store.begin() || (old && !m_store.removeFile(old->id)) || !m_store.addFile(m_source)) {
        const QString error = m_store.lastError();
        m_store.rollback();
        return refuse(QStringLiteral("the store refused its quotes (%1)").arg(error));
    }
    m_writer.emplace(m_store, m_source.id, m_form);
    readLines();
    if (m_report.refused) {
        m_store.rollback();
        return;
    }
    if (!m_store.commit())
        return refuse(QStringLiteral("the store refused its quotes (%1)").arg(m_store.lastError()));
    m_report.summary =
        QStringLiteral("%1: %2 quotes of %3 imported, %4 lines left out.")
            .arg(m_quotes.path, counted(m_report.points), m_form.symbol, counted(m_report.leftOut));
}

} // namespace

FileImport::FileImport(QuoteStore &store, Progress progress)
    : m_store(store), m_progress(std::move(progress)) {}

ImportReport FileImport::run(const QuoteFile &file) {
    ImportReport report;
    Run(m_store, m_progress, file, report).start();
    if (m_progress)
        m_progress(100);
    return report;
}

} // namespace desk
