#include "host/core/WindowFront.h"

namespace desk {

WindowFront::~WindowFront() = default;

} // namespace desk
