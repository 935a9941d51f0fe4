#pragma once

#include <QString>

class QWidget;

// Tells the user why an action was refused, with a single button, and logs the same text as an error.
// The box runs an event loop: `parent` and what belongs to it may be gone afterwards.
void warnUser(QWidget *parent, const QString &text, const char *tag);
