#pragma once
#include "module/HostRecords.h"
#include "support/Numbers.h"
#include <QString>
#include <vector>

// Where the currency mark goes; every value but 1 puts it ahead of the number.
enum KaltoMoneyPosition : int { moneyMarkAhead = 0, moneyMarkBehind = 1 };
enum DecimalSeparator : int { decimalPoint = 0, decimalComma = 1 };

QChar groupSeparator(const mwiSeparators &separators);
QChar decimalSeparator(const mwiSeparators &separators);

// A host string of either character size, and the owned buffer behind it.
class CUnicodeStringData {
public:
    CUnicodeStringData();
    virtual ~CUnicodeStringData() = default;
    bool isNull() const { return m_null != 0; }
    void clear();

protected:
    void assign(const unsigned short *text, unsigned int length);

    unsigned char m_null = 1; // 1 until something was assigned
    coreUncStringType m_record;
    std::vector<unsigned short> m_data; // what m_record points at, and a terminator
    unsigned char m_scratch[2000];
};

class CUnicodeString : public CUnicodeStringData {
public:
    CUnicodeString() = default;
    explicit CUnicodeString(const QString &text) { *this = text; }
    CUnicodeString(const CUnicodeString &other);
    CUnicodeString &operator=(const unsigned short *text);
    CUnicodeString &operator=(const coreUncStringType &record);
    CUnicodeString &operator=(const QString &text);
    CUnicodeString &operator=(const CUnicodeString &other);

    const QString &toString() const { return m_text; }
    coreUncStringType toUnicode(); // valid until the next assignment
    long toUnicodeC(unsigned short *out, long limit) const;
    const unsigned short *toUnicodeC();

private:
    QString m_text;
};

// A number as money: groups of three digits and the host's separators.
class MoneyString {
public:
    explicit MoneyString(const mwiSeparators &separators) : m_separators(separators) {}
    MoneyString(const mwiSeparators &separators, short value);
    MoneyString(const mwiSeparators &separators, unsigned short value);
    MoneyString(const mwiSeparators &separators, int value);
    MoneyString(const mwiSeparators &separators, unsigned int value);
    MoneyString(const mwiSeparators &separators, long value);
    MoneyString(const mwiSeparators &separators, unsigned long value);
    MoneyString(const mwiSeparators &separators, long long value);
    MoneyString(const mwiSeparators &separators, float value, int digits);
    MoneyString(const mwiSeparators &separators, double value, int digits);

    const QString &toString() const { return m_text; }
    operator QString() const { return m_text; }

    QString GetString(const QString &digits, bool negative) const;
    QString PrepareIntegerPart(long long value) const;
    QString PrepareFloatPart(double value, int digits) const;

    // The reverse: takes a text in the host's format and keeps the plain number.
    QString PrepareFromDigit(const QString &text);
    short toShort(bool *ok = nullptr) const;
    unsigned short toUShort(bool *ok = nullptr) const;
    int toInt(bool *ok = nullptr) const;
    unsigned int toUInt(bool *ok = nullptr) const;
    long toLong(bool *ok = nullptr) const;
    unsigned long toULong(bool *ok = nullptr) const;

private:
    mwiSeparators m_separators;
    QString m_text;
};

// The absolute value, rounded; with `trim` without zeros at the end.
QString FromValueToString(double value, const mwiSeparators &separators, int digits, bool trim);

void GetDecimalValue(QString &out, double value, int digits);
void GetDecimalValue(QString &out, float value, int digits);
void GetDecimalValue(QString &out, int value);
void GetDecimalValueMoney(QString &out, double value, int digits, KaltoMoneyPosition position,
                          const QString &mark);
QString ConvertToMoneyFormat(const QString &text, KaltoMoneyPosition position, bool space,
                             const QString &mark);

void TruncateCh(QString &text, QChar character);
void TruncateLot(QString &text, DecimalSeparator separator);
int GetLenPrecis(const QString &text, QChar separator);
void CutForPrecis(QString &text, int digits);
