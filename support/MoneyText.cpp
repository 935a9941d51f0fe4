#include "support/Text.h"

#include <QLocale>
#include <cmath>
#include <limits>

QChar groupSeparator(const mwiSeparators &separators) {
    return separators.groupSeparator == 1 ? QLatin1Char(',') : QLatin1Char(' ');
}

QChar decimalSeparator(const mwiSeparators &separators) {
    return separators.decimalPoint == 1 ? QLatin1Char(',') : QLatin1Char('.');
}

MoneyString::MoneyString(const mwiSeparators &separators, short value)
    : MoneyString(separators, static_cast<long long>(value)) {}

MoneyString::MoneyString(const mwiSeparators &separators, unsigned short value)
    : MoneyString(separators, static_cast<long long>(value)) {}

MoneyString::MoneyString(const mwiSeparators &separators, int value)
    : MoneyString(separators, static_cast<long long>(value)) {}

MoneyString::MoneyString(const mwiSeparators &separators, unsigned int value)
    : MoneyString(separators, static_cast<long long>(value)) {}

MoneyString::MoneyString(const mwiSeparators &separators, long value)
    : MoneyString(separators, static_cast<long long>(value)) {}

MoneyString::MoneyString(const mwiSeparators &separators, unsigned long value)
    : MoneyString(separators, static_cast<long long>(value)) {}

MoneyString::MoneyString(const mwiSeparators &separators, long long value) : m_separators(separators) {
    m_text = PrepareIntegerPart(value);
}

MoneyString::MoneyString(const mwiSeparators &separators, float value, int digits)
    : MoneyString(separators, static_cast<double>(value), digits) {}

MoneyString::MoneyString(const mwiSeparators &separators, double value, int digits)
    : m_separators(separators) {
    m_text = PrepareFloatPart(value, digits);
}

QString MoneyString::GetString(const QString &digits, bool negative) const {
    QString text = digits;
    text.remove('-');
    for (int i = text.size() - 3; i > 0; i -= 3)
        text.insert(i, groupSeparator(m_separators));
    return negative ? '-' + text : text;
}

QString MoneyString::PrepareIntegerPart(long long value) const {
    return GetString(QString::number(value), value < 0);
}

QString MoneyString::PrepareFloatPart(double value, int digits) const {
    const double rounded = roundFloat(std::fabs(value), digits);
    const QString number = QString::number(rounded, 'f', digits);
    const int point = number.indexOf('.');
    // A value beyond 64 bits is grouped from its own digits.
    const bool fits = rounded < 9223372036854775808.0;
    QString text =
        fits ? PrepareIntegerPart(static_cast<long long>(rounded)) : GetString(number.left(point), false);
    if (point >= 0)
        text += decimalSeparator(m_separators) + number.mid(point + 1);
    return value < 0 ? '-' + text : text;
}

// Takes a text in the host's format; keeps and returns the plain number.
QString MoneyString::PrepareFromDigit(const QString &text) {
    m_text = text;
    m_text.remove(groupSeparator(m_separators));
    m_text.replace(decimalSeparator(m_separators), '.');
    return m_text;
}

namespace {

// The whole part of a plain number, within the limits of T.
template <class T>
T wholeNumber(const QString &text, bool *ok) {
    bool isNumber = false;
    const double value = std::trunc(text.toDouble(&isNumber));
    const bool fits = isNumber && value >= static_cast<double>(std::numeric_limits<T>::min()) &&
                      value <= static_cast<double>(std::numeric_limits<T>::max());
    if (ok)
        *ok = fits;
    return fits ? static_cast<T>(value) : T(0);
}

QString plainNumber(const QString &text, const mwiSeparators &separators) {
    return MoneyString(separators).PrepareFromDigit(text);
}

} // namespace

short MoneyString::toShort(bool *ok) const {
    return wholeNumber<short>(plainNumber(m_text, m_separators), ok);
}

unsigned short MoneyString::toUShort(bool *ok) const {
    return wholeNumber<unsigned short>(plainNumber(m_text, m_separators), ok);
}

int MoneyString::toInt(bool *ok) const {
    return wholeNumber<int>(plainNumber(m_text, m_separators), ok);
}

unsigned int MoneyString::toUInt(bool *ok) const {
    return wholeNumber<unsigned int>(plainNumber(m_text, m_separators), ok);
}

long MoneyString::toLong(bool *ok) const {
    return wholeNumber<long>(plainNumber(m_text, m_separators), ok);
}

unsigned long MoneyString::toULong(bool *ok) const {
    return wholeNumber<unsigned long>(plainNumber(m_text, m_separators), ok);
}

QString FromValueToString(double value, const mwiSeparators &separators, int digits, bool trim) {
    QString text = MoneyString(separators, std::fabs(roundFloat(value, digits)), digits).toString();
    if (trim) {
        TruncateCh(text, '0');
        if (text.endsWith(decimalSeparator(separators)))
            text.chop(1);
    }
    return text;
}

void GetDecimalValue(QString &out, double value, int digits) {
    out = QLocale().toString(value, 'f', digits);
}

void GetDecimalValue(QString &out, float value, int digits) {
    out = QLocale().toString(static_cast<double>(value), 'f', digits);
}

void GetDecimalValue(QString &out, int value) {
    out = QLocale().toString(static_cast<qlonglong>(value));
}

void GetDecimalValueMoney(QString &out, double value, int digits, KaltoMoneyPosition position,
                          const QString &mark) {
    GetDecimalValue(out, value, digits);
    out = ConvertToMoneyFormat(out, position, false, mark);
}

QString ConvertToMoneyFormat(const QString &text, KaltoMoneyPosition position, bool space,
                             const QString &mark) {
    if (text.isEmpty() || mark.isEmpty())
        return text;
    const QString gap = space ? QStringLiteral(" ") : QString();
    if (position == moneyMarkBehind)
        return text + gap + mark;
    if (text.startsWith('-') || text.startsWith('+'))
        return text.left(1) + mark + gap + text.mid(1);
    return mark + gap + text;
}

void TruncateCh(QString &text, QChar character) {
    while (text.endsWith(character))
        text.chop(1);
}

void TruncateLot(QString &text, DecimalSeparator separator) {
    TruncateCh(text, '0');
    TruncateCh(text, separator == decimalComma ? ',' : '.');
}

int GetLenPrecis(const QString &text, QChar separator) {
    const int at = text.lastIndexOf(separator);
    return at < 0 ? 0 : text.size() - at - 1;
}

void CutForPrecis(QString &text, int digits) {
    const int at = text.indexOf('.');
    if (at >= 0 && digits >= 0)
        text.truncate(at + 1 + digits);
}
