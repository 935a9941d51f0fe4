#pragma once
#include <QHash>
#include <QTranslator>

namespace desk {

// Looks a text up in what the module registered, then in the table of the language that is set.
class TextTranslator : public QTranslator {
public:
    using QTranslator::QTranslator;
    void insert(const QByteArray &context, const QByteArray &id, const QString &text);
    int count() const { return m_texts.size(); }
    // "English text<TAB>text", one a line; an empty name is English itself.
    void loadTable(const QString &resource);

    QString translate(const char *context, const char *sourceText, const char *disambiguation,
                      int n) const override;
    bool isEmpty() const override { return false; }

private:
    QHash<QByteArray, QString> m_texts; // "context\0id" of the module
    QHash<QString, QString> m_table;    // English to the language
};

} // namespace desk
