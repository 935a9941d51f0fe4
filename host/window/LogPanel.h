#pragma once
#include <QDockWidget>

class QComboBox;
class QPlainTextEdit;

namespace desk {

class Journal;
struct JournalLine;

// The log of the run with a filter by level. The filter is also the journal's threshold: what it leaves out
// is not kept, since the module writes its traces on every frame.
class LogPanel : public QDockWidget {
    Q_OBJECT

public:
    explicit LogPanel(Journal &journal, QWidget *parent = nullptr);
    QComboBox *levelBox() const { return m_level; }
    QString text() const;

protected:
    void changeEvent(QEvent *event) override;

private:
    void append(const JournalLine &line);
    void setLevel(int index);
    void retranslate();

    Journal &m_journal;
    QComboBox *m_level;
    QPlainTextEdit *m_text;
};

// What the user did to the charts, newest last.
class ActionPanel : public QDockWidget {
    Q_OBJECT

public:
    explicit ActionPanel(QWidget *parent = nullptr);
    void add(const QString &text);
    QString text() const;

protected:
    void changeEvent(QEvent *event) override;

private:
    QPlainTextEdit *m_text;
};

} // namespace desk
