#include "host/window/LogPanel.h"
#include "host/core/Journal.h"
#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace desk {

namespace {

constexpr Level levels[] = {Level::Trace, Level::Message, Level::Warning, Level::Error, Level::Critical};
constexpr int mostShown = 2000;

QPlainTextEdit *makeText(QWidget *parent, const QString &name) {
    auto *text = new QPlainTextEdit(parent);
    text->setObjectName(name);
    text->setReadOnly(true);
    text->setMaximumBlockCount(mostShown);
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    text->setFrameShape(QFrame::NoFrame);
    return text;
}

} // namespace

LogPanel::LogPanel(Journal &journal, QWidget *parent) : QDockWidget(parent), m_journal(journal) {
    setObjectName(QStringLiteral("logPanel"));
    auto *body = new QWidget(this);
    auto *layout = new QVBoxLayout(body);
    layout->setContentsMargins(6, 2, 6, 4);
    layout->setSpacing(4);
    auto *row = new QHBoxLayout;
    m_level = new QComboBox(body);
    m_level->setObjectName(QStringLiteral("logLevel"));
    row->addWidget(m_level);
    row->addStretch(1);
    m_text = makeText(body, QStringLiteral("logText"));
    layout->addLayout(row);
    layout->addWidget(m_text, 1);
    setWidget(body);
    retranslate();
    for (const JournalLine &line : m_journal.lines())
        append(line);
    connect(&m_journal, &Journal::added, this, &LogPanel::append);
    connect(m_level, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &LogPanel::setLevel);
}

QString LogPanel::text() const {
    return m_text->toPlainText();
}

void LogPanel::append(const JournalLine &line) {
    m_text->appendPlainText(QStringLiteral("%1  %2  %3  %4")
                                .arg(line.time.toString(QStringLiteral("HH:mm:ss.zzz")),
                                     levelName(line.level).leftJustified(8), line.source.leftJustified(14),
                                     line.text));
}

void LogPanel::setLevel(int index) {
    if (index < 0)
        return;
    m_journal.setThreshold(levels[index]);
    m_text->clear();
    for (const JournalLine &line : m_journal.lines()) {
        if (m_journal.accepts(line.level))
            append(line);
    }
}

void LogPanel::changeEvent(QEvent *event) {
    QDockWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void LogPanel::retranslate() {
    setWindowTitle(tr("Log"));
    const QSignalBlocker quiet(m_level);
    m_level->clear();
    for (const Level level : levels) {
        m_level->addItem(tr("From level: %1").arg(levelName(level)));
        if (level == m_journal.threshold())
            m_level->setCurrentIndex(m_level->count() - 1);
    }
}

ActionPanel::ActionPanel(QWidget *parent) : QDockWidget(parent) {
    setObjectName(QStringLiteral("actionPanel"));
    m_text = makeText(this, QStringLiteral("actionText"));
    setWidget(m_text);
    setWindowTitle(tr("Actions"));
}

void ActionPanel::add(const QString &text) {
    m_text->appendPlainText(QDateTime::currentDateTimeUtc().toString(QStringLiteral("HH:mm:ss  ")) + text);
}

QString ActionPanel::text() const {
    return m_text->toPlainText();
}

void ActionPanel::changeEvent(QEvent *event) {
    QDockWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        setWindowTitle(tr("Actions"));
}

} // namespace desk
