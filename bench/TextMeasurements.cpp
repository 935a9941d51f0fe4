// Stands in front of QFontMetrics: the functions have Qt's own linker names, count, and call Qt's.
#include "bench/TextMeasurements.h"

#include <QFontMetrics>
#include <dlfcn.h>

namespace {

long g_count = 0;

template <class Function>
Function next(const char *name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

} // namespace

long textMeasurements() {
    return g_count;
}

extern "C" {

[[gnu::visibility("default")]] int countHorizontalAdvance(const void *self, const QString &text,
                                                              int length) __asm__(
    "_ZNK12QFontMetrics17horizontalAdvanceERK7QStringi");
int countHorizontalAdvance(const void *self, const QString &text, int length) {
    static const auto real = next<int (*)(const void *, const QString &, int)>(
        "_ZNK12QFontMetrics17horizontalAdvanceERK7QStringi");
    ++g_count;
    return real(self, text, length);
}

[[gnu::visibility("default")]] int countWidth(const void *self, const QString &text, int length) __asm__(
    "_ZNK12QFontMetrics5widthERK7QStringi");
int countWidth(const void *self, const QString &text, int length) {
    static const auto real =
        next<int (*)(const void *, const QString &, int)>("_ZNK12QFontMetrics5widthERK7QStringi");
    ++g_count;
    return real(self, text, length);
}
}
