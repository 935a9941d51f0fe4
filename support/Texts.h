#pragma once
#include <array>

// The default English text of an id, as the host gets it at the start.
struct DefaultText {
    const char *id;
    const char *text;
};

const std::array<DefaultText, 196> &graphDefaultTexts();
const std::array<DefaultText, 40> &tradeDefaultTexts();
