#pragma once
#include <QString>

namespace desk {

// A symbol in its one written form: "EURUSD", "eur_usd" and "EUR/USD" are "EUR/USD"; a name that is no pair
// of known currencies stays as it is, without blanks at its ends.
QString symbolFrom(const QString &text);
// The first pair of currencies (or else the first word) in the name of a file.
QString symbolFromFileName(const QString &fileName);

bool isCurrencyPair(const QString &symbol);
bool isCurrency(const QString &code);
QString baseCurrency(const QString &symbol);  // "EUR" of "EUR/USD"; the whole of any other name
QString quoteCurrency(const QString &symbol); // "USD"; empty when it is no pair
// Digits behind the point in which a pair is quoted: 3 against the yen, 2 and 3 for gold and silver, else 5.
int usualDigits(const QString &symbol);

} // namespace desk
