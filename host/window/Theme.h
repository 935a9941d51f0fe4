#pragma once
#include <QColor>
#include <QIcon>
#include <QString>

class QApplication;

namespace desk {

// The look of the desk: palette, style sheet and tinted icons.
namespace theme {

void apply(QApplication &application);
// A drawing of the resources in the text colour, with an accent form for "checked" and a pale one for
// "disabled".
QIcon icon(const QString &name);
QColor accent();
QColor rise();
QColor fall();
QColor faint();
// The ink itself where it can be read on the paper, else the same hue darker or lighter.
QColor readable(const QColor &ink, const QColor &paper);

} // namespace theme

} // namespace desk
