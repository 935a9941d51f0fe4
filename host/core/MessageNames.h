#pragma once
#include <QString>

namespace desk {

// What a message is called and how its words and records read. `answered` tells whether the receiver has
// filled its part of the records yet.
struct MessageText {
    unsigned number;
    const char *name;
    QString (*decode)(int wParam, int lParam, bool answered);
};

// Null for a number that is not known in that direction.
const MessageText *messageToHost(unsigned message);
const MessageText *messageToModule(unsigned message);

} // namespace desk
