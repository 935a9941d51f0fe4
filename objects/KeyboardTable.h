#pragma once

#include <Qt>

// What the keys of a chart window do.
enum class KeyCommand {
    None,
    ZoomIn,
    ZoomOut,
    SelectAll,
    MarkSelection, // only notes that there is a selection
    NewArea,
    SymbolImages,
    Escape,
    Delete,
    ToStart,
    ToEnd,
    Left,
    LeftTen,
    LeftToStart,
    Right,
    RightTen,
    RightToEnd,
    PageUp,
    PageDown
};

KeyCommand keyCommand(int key, Qt::KeyboardModifiers modifiers);

// The read-out of the cross cursor follows the chart that this command moves.
bool movesReadOut(KeyCommand command);
