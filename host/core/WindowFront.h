#pragma once
#include "host/core/Handle.h"
#include <QColor>
#include <QString>
#include <vector>

class QLabel;
class QSlider;
class QToolButton;

namespace desk {

// One line of the information box.
struct LocatorLine {
    QString text;
    QColor colour;
    int pointSize = 0;
};

// What the main window does for the module's main window messages.
class WindowFront {
public:
    virtual ~WindowFront();
    // The tool button of one of the messages 3550, 3551, 3553, 3554; null when there is none.
    virtual QToolButton *toolButton(unsigned message) = 0;
    virtual QSlider *zoomSlider() = 0;
    virtual void captionChanged(Handle window, const QString &caption) = 0;
    // A user's action that changed a chart; an empty text only says that the workspace changed.
    virtual void milestone(const QString &text) = 0;
    virtual void crossCursorChanged(bool on) = 0;
    virtual void showLocator(const std::vector<LocatorLine> &lines, const QColor &background) = 0;
    virtual void openInstrumentPicker(const QString &name) = 0;
    virtual void askForLogin() = 0;
    virtual void openHelp(const QString &page) = 0;
    virtual void openAlert(const QString &symbol) = 0;
    // A label of that width in the status bar, made at the first question for an id.
    virtual QLabel *statusPane(unsigned id, int width) = 0;
};

} // namespace desk
