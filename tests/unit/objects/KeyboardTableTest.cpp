#include "objects/KeyboardTable.h"

#include <gtest/gtest.h>

namespace {

struct KeyCase {
    int key;
    Qt::KeyboardModifiers modifiers;
    KeyCommand command;
};

class KeyboardTable : public testing::TestWithParam<KeyCase> {};

const auto ctrl = Qt::ControlModifier;
const auto alt = Qt::AltModifier;
const auto shift = Qt::ShiftModifier;
const auto none = Qt::NoModifier;

} // namespace

TEST_P(KeyboardTable, Row) {
    EXPECT_EQ(keyCommand(GetParam().key, GetParam().modifiers), GetParam().command);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, KeyboardTable,
    testing::Values(
        KeyCase{Qt::Key_Plus, none, KeyCommand::ZoomIn}, KeyCase{Qt::Key_Equal, ctrl, KeyCommand::ZoomIn},
        KeyCase{Qt::Key_Minus, none, KeyCommand::ZoomOut}, KeyCase{Qt::Key_A, ctrl, KeyCommand::SelectAll},
        KeyCase{Qt::Key_A, none, KeyCommand::MarkSelection}, KeyCase{Qt::Key_N, none, KeyCommand::NewArea},
        KeyCase{Qt::Key_N, ctrl, KeyCommand::NewArea},
        KeyCase{Qt::Key_BraceLeft, shift, KeyCommand::SymbolImages},
        KeyCase{Qt::Key_Escape, none, KeyCommand::Escape}, KeyCase{Qt::Key_Delete, none, KeyCommand::Delete},
        KeyCase{Qt::Key_Home, none, KeyCommand::ToStart}, KeyCase{Qt::Key_Home, ctrl, KeyCommand::ToStart},
        KeyCase{Qt::Key_End, none, KeyCommand::ToEnd}, KeyCase{Qt::Key_Left, none, KeyCommand::Left},
        KeyCase{Qt::Key_Left, alt, KeyCommand::LeftTen}, KeyCase{Qt::Key_Left, ctrl, KeyCommand::LeftToStart},
        KeyCase{Qt::Key_Left, ctrl | alt, KeyCommand::LeftToStart},
        KeyCase{Qt::Key_Right, none, KeyCommand::Right}, KeyCase{Qt::Key_Right, alt, KeyCommand::RightTen},
        KeyCase{Qt::Key_Right, ctrl, KeyCommand::RightToEnd},
        KeyCase{Qt::Key_PageUp, none, KeyCommand::PageUp},
        KeyCase{Qt::Key_PageDown, none, KeyCommand::PageDown}, KeyCase{Qt::Key_B, none, KeyCommand::None},
        KeyCase{Qt::Key_X, ctrl, KeyCommand::None}));

TEST(KeyboardReadOut, FollowsTheKeysThatMoveTheView) {
    EXPECT_TRUE(movesReadOut(KeyCommand::ZoomIn));
    EXPECT_TRUE(movesReadOut(KeyCommand::ZoomOut));
    EXPECT_TRUE(movesReadOut(KeyCommand::LeftTen));
    EXPECT_TRUE(movesReadOut(KeyCommand::RightToEnd));
    EXPECT_FALSE(movesReadOut(KeyCommand::ToStart));
    EXPECT_FALSE(movesReadOut(KeyCommand::PageUp));
    EXPECT_FALSE(movesReadOut(KeyCommand::None));
}
