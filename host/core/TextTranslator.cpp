#include "host/core/TextTranslator.h"
#include <QFile>

namespace desk {

namespace {

QByteArray key(const QByteArray &context, const QByteArray &id) {
    return context + '\0' + id;
}

QString unescaped(QString text) {
    return text.replace(QLatin1String("\\n"), QLatin1String("\n"));
}

} // namespace

void TextTranslator::insert(const QByteArray &context, const QByteArray &id, const QString &text) {
    m_texts[key(context, id)] = text;
}

void TextTranslator::loadTable(const QString &resource) {
    m_table.clear();
    QFile file(resource);
    if (resource.isEmpty() || !file.open(QIODevice::ReadOnly))
        return;
    while (!file.atEnd()) {
        QString line = QString::fromUtf8(file.readLine());
        while (line.endsWith(QLatin1Char('\n')) || line.endsWith(QLatin1Char('\r')))
            line.chop(1);
        const int tab = line.indexOf(QLatin1Char('\t'));
        if (tab > 0)
            m_table.insert(unescaped(line.left(tab)), unescaped(line.mid(tab + 1)));
    }
}

QString TextTranslator::translate(const char *context, const char *sourceText, const char *, int) const {
    const auto registered = m_texts.constFind(key(context, sourceText));
    const QString english = registered != m_texts.constEnd() ? *registered : QString::fromUtf8(sourceText);
    const auto translated = m_table.constFind(english);
    if (translated != m_table.constEnd())
        return *translated;
    // A null answer lets other translators, or the source text, have their turn.
    return registered != m_texts.constEnd() ? english : QString();
}

} // namespace desk
