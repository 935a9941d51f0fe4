#include "host/quotes/LineReader.h"
#include <QIODevice>
#include <cstring>

namespace desk {

namespace {

constexpr qint64 blockSize = 1 << 20;

} // namespace

LineReader::LineReader(QIODevice &device) : m_device(device), m_block(size_t(blockSize)) {}

void LineReader::appendWide(const char *bytes, qint64 size) {
    const auto add = [this](int first, int second) {
        const int low = m_width == LittleEndian ? first : second;
        const int high = m_width == LittleEndian ? second : first;
        m_text.push_back(high == 0 ? char(low) : '?');
    };
    qint64 place = 0;
    if (m_halfUnit >= 0 && size > 0) {
        add(m_halfUnit, quint8(bytes[place++]));
        m_halfUnit = -1;
    }
    for (; place + 1 < size; place += 2)
        add(quint8(bytes[place]), quint8(bytes[place + 1]));
    if (place < size)
        m_halfUnit = quint8(bytes[place]);
}

// Moves what is left to the front and reads one more block behind it.
bool LineReader::fill() {
    if (m_ended)
        return false;
    qint64 size = m_device.read(m_block.data(), blockSize);
    if (size <= 0) {
        m_ended = true;
        return false;
    }
    m_bytesRead += size;
    if (m_watch)
        m_watch(m_block.data(), size);
    m_text.erase(m_text.begin(), m_text.begin() + std::ptrdiff_t(m_from));
    m_from = 0;
    const char *bytes = m_block.data();
    if (m_width == Unknown) {
        m_width = Bytes;
        if (size >= 2 && std::memcmp(bytes, "\xff\xfe", 2) == 0)
            m_width = LittleEndian;
        else if (size >= 2 && std::memcmp(bytes, "\xfe\xff", 2) == 0)
            m_width = BigEndian;
        const int mark = m_width != Bytes                                          ? 2
                         : size >= 3 && std::memcmp(bytes, "\xef\xbb\xbf", 3) == 0 ? 3
                                                                                   : 0;
        bytes += mark;
        size -= mark;
    }
    const size_t old = m_text.size();
    if (m_width == Bytes)
        m_text.insert(m_text.end(), bytes, bytes + size);
    else
        appendWide(bytes, size);
    const size_t added = m_text.size() - old;
    if (m_lineEnd == 0 && added > 0) {
        const char *begin = m_text.data() + old;
        if (std::memchr(begin, '\n', added) || !std::memchr(begin, '\r', added))
            m_lineEnd = '\n';
        else
            m_lineEnd = '\r';
    }
    return true;
}

bool LineReader::next(Piece &line) {
    m_cut = false;
    size_t searched = 0;
    for (;;) {
        const size_t left = m_text.size() - m_from;
        const char *begin = m_text.data() + m_from;
        const void *found =
            left > searched ? std::memchr(begin + searched, m_lineEnd, left - searched) : nullptr;
        if (found) {
            line = {begin, static_cast<const char *>(found)};
            m_from += size_t(line.size()) + 1;
            break;
        }
        searched = left;
        if (left > size_t(longestLine)) {                     // only its beginning is of use
            if (std::memchr(begin, 0, size_t(longestLine))) { // and this is no text: its end may be far away
                line = {begin, begin + longestLine};
                m_from += size_t(longestLine);
                m_cut = m_binary = true;
                ++m_lineNumber;
                return true;
            }
            m_cut = true;
            m_text.resize(m_from + size_t(longestLine));
            searched = size_t(longestLine);
        }
        if (!fill()) {
            if (m_text.size() == m_from)
                return false;
            line = {m_text.data() + m_from, m_text.data() + m_text.size()};
            m_from = m_text.size();
            break;
        }
    }
    ++m_lineNumber;
    if (line.size() > longestLine) {
        m_cut = true;
        line.end = line.begin + longestLine;
    }
    m_binary = !line.isEmpty() && std::memchr(line.begin, 0, size_t(line.size()));
    if (!line.isEmpty() && line.end[-1] == '\r')
        --line.end;
    return true;
}

} // namespace desk
