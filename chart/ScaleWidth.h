#pragma once

#include <vector>

// How wide the value scales are, in pixels. A measure is the right edge less the left edge of a text's
// rectangle, both inclusive.

// Widens `width` where a label of this measure needs it.
void widenScale(int &width, int measure);

struct ScaleWidths {
    int left = 0;
    int right = 0;
};

// `left` and `right` come from the labels, `lastPrice` from the label of the last price, 0 without one.
ScaleWidths decideScaleWidths(bool leftOn, bool rightOn, bool lastPriceOn, int left, int right, int lastPrice);

// The largest of a long run of 32-bit floats in memory that another one owns and appends to. A new answer
// reads the end of the run and one block of the rest, in turn; all of it when the run moved or shrank.
class RunningMaximum {
public:
    // The value at index i lies at `first` + i * `stride`. Not a number is never the largest; a run with
    // nothing else gives minus infinity, whose text is a short one.
    float Update(const unsigned char *first, int stride, int count);
    void Forget();

private:
    float BlockMaximum(int block) const;

    std::vector<float> m_blocks;
    const unsigned char *m_first = nullptr;
    int m_stride = 0;
    int m_count = 0;
    int m_turn = 0;
};
