#include "support/Text.h"

#include <algorithm>

CUnicodeStringData::CUnicodeStringData() : m_record(zeroRecord<coreUncStringType>()) {
    clear();
}

void CUnicodeStringData::clear() {
    std::memset(m_scratch, 0, sizeof m_scratch);
}

void CUnicodeStringData::assign(const unsigned short *text, unsigned int length) {
    std::vector<unsigned short> data(text, text + length);
    data.push_back(0);
    m_data.swap(data);
    m_null = 0;
    m_record.length = length;
    m_record.characterSize = 2;
    m_record.data = length ? m_data.data() : nullptr;
}

CUnicodeString::CUnicodeString(const CUnicodeString &other) : CUnicodeStringData() {
    *this = other;
}

CUnicodeString &CUnicodeString::operator=(const unsigned short *text) {
    return *this = readEndedText(text);
}

// The data are read as 16-bit characters whatever size the record tells.
CUnicodeString &CUnicodeString::operator=(const coreUncStringType &record) {
    const auto *text = static_cast<const Unit16 *>(record.data);
    QString characters;
    for (Word i = 0; text && i < record.length && text[i]; ++i)
        characters += QChar(text[i]);
    return *this = characters;
}

CUnicodeString &CUnicodeString::operator=(const QString &text) {
    m_text = text;
    assign(m_text.utf16(), static_cast<unsigned int>(m_text.size()));
    return *this;
}

CUnicodeString &CUnicodeString::operator=(const CUnicodeString &other) {
    if (this == &other)
        return *this;
    if (!other.isNull())
        return *this = other.m_text;
    m_text = QString();
    m_data.clear();
    m_record = zeroRecord<coreUncStringType>();
    m_null = 1;
    return *this;
}

coreUncStringType CUnicodeString::toUnicode() {
    assign(m_text.utf16(), static_cast<unsigned int>(m_text.size()));
    return m_record;
}

long CUnicodeString::toUnicodeC(unsigned short *out, long limit) const {
    if (!out || m_text.isNull() || limit < 1)
        return 0;
    const long count = std::min<long>(m_text.size(), limit - 1);
    std::copy_n(m_text.utf16(), count, out);
    out[count] = 0;
    return count;
}

const unsigned short *CUnicodeString::toUnicodeC() {
    assign(m_text.utf16(), static_cast<unsigned int>(m_text.size()));
    return m_data.data();
}
