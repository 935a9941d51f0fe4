#pragma once
#include "host/quotes/TimeText.h"
#include <QByteArray>
#include <functional>
#include <vector>

class QIODevice;

namespace desk {

// Reads a text of any size line by line: LF, CRLF or CR, with or without an end of the last line, 8-bit text
// (a UTF-8 mark is skipped) or UTF-16 with its mark.
class LineReader {
public:
    // Longer lines are no quotes; they are cut here and the rest is skipped.
    static constexpr int longestLine = 65536;

    explicit LineReader(QIODevice &device);
    // Each block as it stands in the file.
    void watchBlocks(std::function<void(const char *, qint64)> watch) { m_watch = std::move(watch); }

    // The next line, without its end; it stays valid until the next call.
    bool next(Piece &line);
    qint64 lineNumber() const { return m_lineNumber; } // of the line just read, from 1
    qint64 bytesRead() const { return m_bytesRead; }
    bool isCut() const { return m_cut; }       // the line was longer than `longestLine`
    bool isBinary() const { return m_binary; } // the line has a zero byte: no text

private:
    bool fill();
    void appendWide(const char *bytes, qint64 size);

    enum Width { Unknown, Bytes, LittleEndian, BigEndian };

    QIODevice &m_device;
    std::function<void(const char *, qint64)> m_watch;
    std::vector<char> m_block;
    std::vector<char> m_text; // decoded text not yet handed out
    size_t m_from = 0;
    Width m_width = Unknown;
    int m_halfUnit = -1; // first byte of a UTF-16 unit that a block cut in two
    char m_lineEnd = 0;
    qint64 m_lineNumber = 0;
    qint64 m_bytesRead = 0;
    bool m_ended = false;
    bool m_cut = false;
    bool m_binary = false;
};

} // namespace desk
