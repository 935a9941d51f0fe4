#pragma once
#include <QFont>
#include <QFontMetrics>
#include <QRect>
#include <QString>

// QFontMetrics whose widths pass one correction step.
class CMvFontMetrics {
public:
    explicit CMvFontMetrics(const QFont &font) : m_metrics(font) {}
    int width(const QString &text, int length = -1) const;
    int width(QChar character) const;
    int height() const { return m_metrics.height(); }
    int ascent() const { return m_metrics.ascent(); }
    int descent() const { return m_metrics.descent(); }
    int leading() const { return m_metrics.leading(); }
    QRect boundingRect(const QString &text) const { return m_metrics.boundingRect(text); }
    QRect boundingRect(const QRect &rect, int flags, const QString &text) const;
    const QFontMetrics &metrics() const { return m_metrics; }

private:
    static int CorrectWidth(int width) { return width; }
    QFontMetrics m_metrics;
};

// Painting code measures through these: every font's metrics and every text's size are computed once
// and kept for the following frames.
const CMvFontMetrics &cachedMetrics(const QFont &font);
int textWidth(const QFont &font, const QString &text);
int textHeight(const QFont &font);
QRect textRect(const QFont &font, const QString &text, int flags = 0); // laid out from 0, 0

// How many metrics were built and texts measured so far; cached answers do not count.
unsigned int metricsBuilt();
unsigned int textsMeasured();
void clearFontCache();
