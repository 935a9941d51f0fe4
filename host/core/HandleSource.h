#pragma once
#include "host/core/Handle.h"

namespace desk {

// Gives handles that are never 0 and never given twice.
class HandleSource {
public:
    Handle next() { return m_next += 16; }

private:
    Handle m_next = 0x00100000;
};

} // namespace desk
