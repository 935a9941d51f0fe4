#include "host/quotes/SymbolNames.h"
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

namespace desk {

bool isCurrency(const QString &code) {
    static const QSet<QString> codes = {
        QStringLiteral("USD"), QStringLiteral("EUR"), QStringLiteral("GBP"), QStringLiteral("JPY"),
        QStringLiteral("CHF"), QStringLiteral("CAD"), QStringLiteral("AUD"), QStringLiteral("NZD"),
        QStringLiteral("SEK"), QStringLiteral("NOK"), QStringLiteral("DKK"), QStringLiteral("PLN"),
        QStringLiteral("CZK"), QStringLiteral("HUF"), QStringLiteral("TRY"), QStringLiteral("ZAR"),
        QStringLiteral("MXN"), QStringLiteral("SGD"), QStringLiteral("HKD"), QStringLiteral("CNH"),
        QStringLiteral("CNY"), QStringLiteral("RUB"), QStringLiteral("ILS"), QStringLiteral("RON"),
        QStringLiteral("INR"), QStringLiteral("KRW"), QStringLiteral("BRL"), QStringLiteral("THB"),
        QStringLiteral("XAU"), QStringLiteral("XAG")};
    return codes.contains(code);
}

namespace {

// "EUR/USD" for six letters of two currencies with at most one mark between them, else empty.
QString pairOf(const QString &word) {
    static const QRegularExpression pattern(QStringLiteral("^([A-Z]{3})[/_. -]?([A-Z]{3})$"));
    const QRegularExpressionMatch match = pattern.match(word.toUpper());
    if (!match.hasMatch() || !isCurrency(match.captured(1)) || !isCurrency(match.captured(2)))
        return QString();
    return match.captured(1) + QLatin1Char('/') + match.captured(2);
}

} // namespace

QString symbolFrom(const QString &text) {
    const QString name = text.trimmed();
    const QString pair = pairOf(name);
    return pair.isEmpty() ? name : pair;
}

QString symbolFromFileName(const QString &fileName) {
    const QString name = QFileInfo(fileName).completeBaseName();
    static const QRegularExpression pairs(
        QStringLiteral("(?<![A-Za-z])([A-Za-z]{3})[/_. -]?([A-Za-z]{3})(?![A-Za-z])"));
    for (int from = 0; from < name.size();) {
        const QRegularExpressionMatch match = pairs.match(name, from);
        if (!match.hasMatch())
            break;
        const QString pair = pairOf(match.captured(1) + match.captured(2));
        if (!pair.isEmpty())
            return pair;
        from = match.capturedStart(1) + 1;
    }
    static const QRegularExpression word(QStringLiteral("[A-Za-z0-9.]+"));
    return word.match(name).captured(0).left(31);
}

bool isCurrencyPair(const QString &symbol) {
    return !pairOf(symbol).isEmpty();
}

QString baseCurrency(const QString &symbol) {
    const QString pair = pairOf(symbol);
    return pair.isEmpty() ? symbol : pair.left(3);
}

QString quoteCurrency(const QString &symbol) {
    return pairOf(symbol).mid(4);
}

int usualDigits(const QString &symbol) {
    if (baseCurrency(symbol) == QLatin1String("XAU"))
        return 2;
    const QString quoted = quoteCurrency(symbol);
    const bool large = quoted == QLatin1String("JPY") || quoted == QLatin1String("HUF") ||
                       quoted == QLatin1String("KRW") || baseCurrency(symbol) == QLatin1String("XAG");
    return large ? 3 : 5;
}

} // namespace desk
