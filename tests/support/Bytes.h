#pragma once
// Records as plain bytes: a second, independent view of the offsets of the boundary.
#include <QString>
#include <cstdint>
#include <cstring>
#include <vector>

namespace bytes {

template <class T>
T at(const void *record, int offset) {
    T value;
    std::memcpy(&value, static_cast<const char *>(record) + offset, sizeof value);
    return value;
}

template <class T>
void put(void *record, int offset, T value) {
    std::memcpy(static_cast<char *>(record) + offset, &value, sizeof value);
}

inline std::uint32_t u32(const void *record, int offset) {
    return at<std::uint32_t>(record, offset);
}
inline std::int32_t i32(const void *record, int offset) {
    return at<std::int32_t>(record, offset);
}
inline float f32(const void *record, int offset) {
    return at<float>(record, offset);
}
inline std::uint8_t u8(const void *record, int offset) {
    return at<std::uint8_t>(record, offset);
}

inline QString text8(const void *record, int offset, int width) {
    const char *text = static_cast<const char *>(record) + offset;
    int length = 0;
    while (length < width && text[length])
        ++length;
    return QString::fromLocal8Bit(QByteArray(text, length));
}

inline QString text16(const void *record, int offset, int width) {
    QString result;
    for (int i = 0; i < width; ++i) {
        const std::uint16_t unit = at<std::uint16_t>(record, offset + 2 * i);
        if (unit == 0)
            break;
        result += QChar(unit);
    }
    return result;
}

inline void putText8(void *record, int offset, int width, const QString &text) {
    const QByteArray local = text.toLocal8Bit();
    std::memset(static_cast<char *>(record) + offset, 0, static_cast<std::size_t>(width));
    std::memcpy(static_cast<char *>(record) + offset, local.constData(),
                static_cast<std::size_t>(local.size() < width ? local.size() : width));
}

inline void putText16(void *record, int offset, int width, const QString &text) {
    std::memset(static_cast<char *>(record) + offset, 0, static_cast<std::size_t>(width) * 2);
    for (int i = 0; i < width && i < text.size(); ++i)
        put<std::uint16_t>(record, offset + 2 * i, text.at(i).unicode());
}

/// A zeroed record of a given size, passed to messages by address.
class Record {
public:
    explicit Record(int size) : m_bytes(static_cast<std::size_t>(size), 0) {}
    char *data() { return m_bytes.data(); }
    const char *data() const { return m_bytes.data(); }
    int size() const { return static_cast<int>(m_bytes.size()); }

private:
    std::vector<char> m_bytes;
};

} // namespace bytes
