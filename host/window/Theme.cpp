#include "host/window/Theme.h"
#include <QApplication>
#include <QFile>
#include <QFont>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QStyleFactory>
#include <QSvgRenderer>
#include <algorithm>
#include <cmath>

namespace desk::theme {

namespace {

const QColor windowColour(0xf3, 0xf5, 0xf8);
const QColor textColour(0x1f, 0x29, 0x33);
const QColor faintColour(0x7b, 0x87, 0x94);
const QColor lineColour(0xd8, 0xde, 0xe6);
const QColor accentColour(0x1f, 0x6f, 0xeb);

QPixmap tinted(const QByteArray &drawing, const QColor &colour, int side) {
    QByteArray svg = drawing;
    svg.replace("currentColor", colour.name().toLatin1());
    QSvgRenderer renderer(svg);
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    renderer.render(&painter);
    return pixmap;
}

// Relative luminance, 0 to 1, as readability guidelines define it.
double luminance(const QColor &colour) {
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

double contrast(const QColor &one, const QColor &other) {
    const double a = luminance(one), b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

} // namespace

QColor readable(const QColor &ink, const QColor &paper) {
    constexpr double least = 3;
    const bool darken = luminance(paper) > 0.18;
    QColor result = ink.isValid() ? ink : textColour;
    for (int step = 0; step < 20 && contrast(result, paper) < least; ++step) {
        const double light = result.lightnessF() + (darken ? -0.05 : 0.05);
        result = QColor::fromHslF(std::max(0.0, result.hslHueF()), result.hslSaturationF(),
                                  qBound(0.0, light, 1.0));
    }
    return result;
}

QColor accent() {
    return accentColour;
}

QColor rise() {
    return QColor(0x12, 0x8a, 0x4e);
}

QColor fall() {
    return QColor(0xc9, 0x33, 0x3a);
}

QColor faint() {
    return faintColour;
}

QIcon icon(const QString &name) {
    QFile file(QStringLiteral(":/icons/%1.svg").arg(name));
    if (!file.open(QIODevice::ReadOnly))
        return QIcon();
    const QByteArray drawing = file.readAll();
    QIcon result;
    for (const int side : {16, 20, 32, 40}) {
        result.addPixmap(tinted(drawing, QColor(0x3e, 0x4c, 0x59), side), QIcon::Normal, QIcon::Off);
        result.addPixmap(tinted(drawing, accentColour, side), QIcon::Normal, QIcon::On);
        result.addPixmap(tinted(drawing, QColor(0xb6, 0xbf, 0xc9), side), QIcon::Disabled, QIcon::Off);
        result.addPixmap(tinted(drawing, QColor(0x9d, 0xbd, 0xf0), side), QIcon::Disabled, QIcon::On);
    }
    return result;
}

void apply(QApplication &application) {
    application.setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QFont font = application.font();
    font.setPointSize(9);
    application.setFont(font);
    QPalette palette;
    palette.setColor(QPalette::Window, windowColour);
    palette.setColor(QPalette::WindowText, textColour);
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, QColor(0xf8, 0xfa, 0xfc));
    palette.setColor(QPalette::Text, textColour);
    palette.setColor(QPalette::Button, Qt::white);
    palette.setColor(QPalette::ButtonText, textColour);
    palette.setColor(QPalette::ToolTipBase, Qt::white);
    palette.setColor(QPalette::ToolTipText, textColour);
    palette.setColor(QPalette::PlaceholderText, faintColour);
    palette.setColor(QPalette::Highlight, accentColour);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, accentColour);
    palette.setColor(QPalette::Mid, lineColour);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(0xa9, 0xb3, 0xbe));
    application.setPalette(palette);
    QFile sheet(QStringLiteral(":/desk.qss"));
    if (sheet.open(QIODevice::ReadOnly))
        application.setStyleSheet(QString::fromUtf8(sheet.readAll()));
}

} // namespace desk::theme
