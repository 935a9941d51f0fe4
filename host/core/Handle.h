#pragma once
#include <QtGlobal>

namespace desk {

// An opaque 32-bit name of an interface, an object or a window; never 0 for a live thing. Interfaces and
// objects share one number space, so that a handle alone tells what it names.
using Handle = quint32;

} // namespace desk
