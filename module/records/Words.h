#pragma once
// The ground of all boundary records: 32-bit words, and text fields of a fixed width.
#include <QString>
#include <cstddef>
#include <cstdint>
#include <cstring>

static_assert(sizeof(void *) == 4, "the boundary is 32-bit: handles and addresses travel in one word");

using Word = std::uint32_t;

/// A UTF-16 unit at any address: fields of packed records lie at odd offsets too.
using Unit16 = unsigned short __attribute__((aligned(1)));

/// The shape of the message functions of both sides.
using HostFunction = int (*)(void *target, unsigned int message, int wParam, int lParam);

#define VELMAR_RECORD(type, size) static_assert(sizeof(type) == (size), "size of " #type)
#define VELMAR_FIELD(type, field, offset)                                                                    \
    static_assert(offsetof(type, field) == (offset), "offset of " #type "." #field)

/// The one place where an address becomes a word of a message.
inline int toWord(const void *address) {
    return static_cast<int>(reinterpret_cast<std::uintptr_t>(address));
}

/// The one place where a word of a message becomes an address.
template <class T>
T *fromWord(int word) {
    return reinterpret_cast<T *>(static_cast<std::uintptr_t>(static_cast<Word>(word)));
}

template <class T>
T *fromWord(Word word) {
    return reinterpret_cast<T *>(static_cast<std::uintptr_t>(word));
}

/// A record with every byte zero.
template <class T>
T zeroRecord() {
    T record;
    std::memset(static_cast<void *>(&record), 0, sizeof record);
    return record;
}

template <class T>
void clearRecord(T &record) {
    std::memset(static_cast<void *>(&record), 0, sizeof record);
}

/// Units before the terminator, or `width` when there is none.
inline int textLength(const Unit16 *text, int width) {
    int length = 0;
    while (length < width && text[length] != 0)
        ++length;
    return length;
}

inline int textLength(const char *text, int width) {
    const void *end = std::memchr(text, 0, static_cast<std::size_t>(width));
    return end ? static_cast<int>(static_cast<const char *>(end) - text) : width;
}

/// Zero-fills `width` bytes, then copies as much of `text` as fits; a full field has no terminator.
inline void fillText(char *field, int width, const char *text, int length) {
    std::memset(field, 0, static_cast<std::size_t>(width));
    if (text)
        std::memcpy(field, text, static_cast<std::size_t>(length < width ? length : width));
}

inline void fillText(Unit16 *field, int width, const QString &text) {
    std::memset(field, 0, static_cast<std::size_t>(width) * 2);
    const int length = text.size() < width ? text.size() : width;
    std::memcpy(field, text.constData(), static_cast<std::size_t>(length) * 2);
}

template <std::size_t N>
void fillField(char (&field)[N], const char *text) {
    fillText(field, static_cast<int>(N), text, text ? textLength(text, static_cast<int>(N)) : 0);
}

template <std::size_t N>
void fillField(char (&field)[N], const QByteArray &text) {
    fillText(field, static_cast<int>(N), text.constData(), text.size());
}

/// In the local 8-bit encoding.
template <std::size_t N>
void fillField(char (&field)[N], const QString &text) {
    fillField(field, text.toLocal8Bit());
}

template <std::size_t N>
void fillField(Unit16 (&field)[N], const QString &text) {
    fillText(field, static_cast<int>(N), text);
}

/// Text of at most `width` units; ends at the first zero.
inline QString readText(const Unit16 *text, int width) {
    if (!text)
        return QString();
    const int length = textLength(text, width);
    QString result(length, Qt::Uninitialized);
    std::memcpy(static_cast<void *>(result.data()), text, static_cast<std::size_t>(length) * 2);
    return result;
}

inline QString readText(const char *text, int width) {
    return text ? QString::fromLocal8Bit(text, textLength(text, width)) : QString();
}

/// A text known only to be zero-ended, as a host hands over names outside records.
inline QString readEndedText(const Unit16 *text) {
    int length = 0;
    while (text && text[length] != 0)
        ++length;
    return readText(text, length);
}

template <std::size_t N>
QString fieldText(const Unit16 (&field)[N]) {
    return readText(field, static_cast<int>(N));
}

template <std::size_t N>
QString fieldText(const char (&field)[N]) {
    return readText(field, static_cast<int>(N));
}

/// The bytes of a text field, with no conversion.
template <std::size_t N>
QByteArray fieldBytes(const char (&field)[N]) {
    return QByteArray(field, textLength(field, static_cast<int>(N)));
}
