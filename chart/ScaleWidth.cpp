#include "chart/ScaleWidth.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace {
constexpr int blockSize = 4096; // values
constexpr float lowest = -std::numeric_limits<float>::infinity();
}

void widenScale(int &width, int measure) {
    if (measure + 10 >= width)
        width = measure + 11;
}

ScaleWidths decideScaleWidths(bool leftOn, bool rightOn, bool lastPriceOn, int left, int right, int lastPrice) {
    ScaleWidths widths;
    const int least = lastPriceOn ? lastPrice : 0;
    if (leftOn)
        widths.left = rightOn ? left : std::max(left, least);
    if (rightOn)
        widths.right = std::max(right, least);
    return widths;
}

float RunningMaximum::BlockMaximum(int block) const {
    const int from = block * blockSize;
    const int to = std::min(m_count, from + blockSize);
    const unsigned char *source = m_first + static_cast<long long>(from) * m_stride;
    float largest = lowest;
    for (int i = from; i < to; ++i, source += m_stride) {
        float value;
        std::memcpy(&value, source, sizeof value);
        largest = value > largest ? value : largest;
    }
    return largest;
}

float RunningMaximum::Update(const unsigned char *first, int stride, int count) {
    const int blocks = (count + blockSize - 1) / blockSize;
    const bool fresh = first != m_first || stride != m_stride || count < m_count;
    const int known = fresh ? 0 : std::max(0, static_cast<int>(m_blocks.size()) - 1);
    m_first = first;
    m_stride = stride;
    m_count = count;
    m_blocks.resize(static_cast<std::size_t>(blocks));
    for (int block = std::min(known, std::max(0, blocks - 2)); block < blocks; ++block)
        m_blocks[static_cast<std::size_t>(block)] = BlockMaximum(block);
    if (blocks > 0 && !fresh) {
        m_turn = (m_turn + 1) % blocks;
        m_blocks[static_cast<std::size_t>(m_turn)] = BlockMaximum(m_turn);
    }
    return blocks > 0 ? *std::max_element(m_blocks.begin(), m_blocks.end()) : lowest;
}

void RunningMaximum::Forget() {
    m_blocks.clear();
    m_first = nullptr;
    m_count = 0;
}
