#include "host/core/Front.h"

namespace desk {

Front::~Front() = default;

} // namespace desk
