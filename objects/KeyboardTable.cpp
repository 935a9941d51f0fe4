#include "objects/KeyboardTable.h"

namespace {

// One row: `modifier` is the one that must be held; none: the row serves every other case of the key.
struct KeyRow {
    int key;
    Qt::KeyboardModifier modifier;
    KeyCommand command;
};

const KeyRow rows[] = {
    {Qt::Key_Plus, Qt::NoModifier, KeyCommand::ZoomIn},
    {Qt::Key_Equal, Qt::NoModifier, KeyCommand::ZoomIn},
    {Qt::Key_Minus, Qt::NoModifier, KeyCommand::ZoomOut},
    {Qt::Key_A, Qt::ControlModifier, KeyCommand::SelectAll},
    {Qt::Key_A, Qt::NoModifier, KeyCommand::MarkSelection},
    {Qt::Key_N, Qt::NoModifier, KeyCommand::NewArea},
    {Qt::Key_BraceLeft, Qt::NoModifier, KeyCommand::SymbolImages},
    {Qt::Key_Escape, Qt::NoModifier, KeyCommand::Escape},
    {Qt::Key_Delete, Qt::NoModifier, KeyCommand::Delete},
    {Qt::Key_Home, Qt::NoModifier, KeyCommand::ToStart},
    {Qt::Key_End, Qt::NoModifier, KeyCommand::ToEnd},
    {Qt::Key_Left, Qt::ControlModifier, KeyCommand::LeftToStart},
    {Qt::Key_Left, Qt::AltModifier, KeyCommand::LeftTen},
    {Qt::Key_Left, Qt::NoModifier, KeyCommand::Left},
    {Qt::Key_Right, Qt::ControlModifier, KeyCommand::RightToEnd},
    {Qt::Key_Right, Qt::AltModifier, KeyCommand::RightTen},
    {Qt::Key_Right, Qt::NoModifier, KeyCommand::Right},
    {Qt::Key_PageUp, Qt::NoModifier, KeyCommand::PageUp},
    {Qt::Key_PageDown, Qt::NoModifier, KeyCommand::PageDown},
};

} // namespace

KeyCommand keyCommand(int key, Qt::KeyboardModifiers modifiers) {
    for (const KeyRow &row : rows) {
        if (row.key == key && (row.modifier == Qt::NoModifier || (modifiers & row.modifier)))
            return row.command;
    }
    return KeyCommand::None;
}

bool movesReadOut(KeyCommand command) {
    switch (command) {
    case KeyCommand::ZoomIn:
    case KeyCommand::ZoomOut:
    case KeyCommand::Left:
    case KeyCommand::LeftTen:
    case KeyCommand::LeftToStart:
    case KeyCommand::Right:
    case KeyCommand::RightTen:
    case KeyCommand::RightToEnd:
        return true;
    default:
        return false;
    }
}
