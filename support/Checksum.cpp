#include "support/Checksum.h"

#include <array>

namespace {

constexpr std::array<unsigned int, 256> makeTable() {
    std::array<unsigned int, 256> table{};
    for (unsigned int i = 0; i < 256; ++i) {
        unsigned int value = i;
        for (int bit = 0; bit < 8; ++bit)
            value = value & 1 ? (value >> 1) ^ 0xEDB88320u : value >> 1;
        table[i] = value;
    }
    return table;
}

constexpr std::array<unsigned int, 256> table = makeTable();

} // namespace

int getCRC32Code(unsigned int &crc, const char *text, int length) {
    if (!text)
        return 1;
    crc = 0xFFFFFFFFu;
    for (int i = 0; i < length && text[i]; ++i)
        crc = (crc >> 8) ^ table[(crc ^ static_cast<unsigned char>(text[i])) & 0xFF];
    return 0;
}
