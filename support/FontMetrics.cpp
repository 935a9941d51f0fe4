#include "support/FontMetrics.h"

#include <QHash>
#include <list>
#include <memory>

namespace {

constexpr int maxFonts = 16;
constexpr int maxTexts = 2048;

struct TextKey {
    QString text;
    int flags;
    bool operator==(const TextKey &other) const { return flags == other.flags && text == other.text; }
};

uint qHash(const TextKey &key, uint seed = 0) {
    return ::qHash(key.text, seed) ^ static_cast<uint>(key.flags);
}

struct FontEntry {
    explicit FontEntry(const QFont &font) : font(font), metrics(font) {}
    QFont font;
    CMvFontMetrics metrics;
    QHash<QString, int> widths;
    QHash<TextKey, QRect> rects;
};

// The fonts in use, the latest first. Charts use a handful, so a walk beats a hash of a QFont.
std::list<FontEntry> fonts;
unsigned int builtCount = 0;
unsigned int measuredCount = 0;

FontEntry &entryOf(const QFont &font) {
    for (auto it = fonts.begin(); it != fonts.end(); ++it) {
        if (it->font == font) {
            if (it != fonts.begin())
                fonts.splice(fonts.begin(), fonts, it);
            return fonts.front();
        }
    }
    if (fonts.size() >= maxFonts)
        fonts.pop_back();
    ++builtCount;
    fonts.emplace_front(font);
    return fonts.front();
}

} // namespace

int CMvFontMetrics::width(const QString &text, int length) const {
    return CorrectWidth(m_metrics.horizontalAdvance(text, length));
}

int CMvFontMetrics::width(QChar character) const {
    return CorrectWidth(m_metrics.horizontalAdvance(character));
}

QRect CMvFontMetrics::boundingRect(const QRect &rect, int flags, const QString &text) const {
    return m_metrics.boundingRect(rect, flags, text);
}

const CMvFontMetrics &cachedMetrics(const QFont &font) {
    return entryOf(font).metrics;
}

int textWidth(const QFont &font, const QString &text) {
    FontEntry &entry = entryOf(font);
    const auto it = entry.widths.constFind(text);
    if (it != entry.widths.constEnd())
        return *it;
    if (entry.widths.size() >= maxTexts)
        entry.widths.clear();
    ++measuredCount;
    const int width = entry.metrics.width(text);
    entry.widths.insert(text, width);
    return width;
}

int textHeight(const QFont &font) {
    return entryOf(font).metrics.height();
}

QRect textRect(const QFont &font, const QString &text, int flags) {
    FontEntry &entry = entryOf(font);
    const TextKey key{text, flags};
    const auto it = entry.rects.constFind(key);
    if (it != entry.rects.constEnd())
        return *it;
    if (entry.rects.size() >= maxTexts)
        entry.rects.clear();
    ++measuredCount;
    const QRect rect = entry.metrics.boundingRect(QRect(), flags, text);
    entry.rects.insert(key, rect);
    return rect;
}

unsigned int metricsBuilt() {
    return builtCount;
}

unsigned int textsMeasured() {
    return measuredCount;
}

void clearFontCache() {
    fonts.clear();
}
