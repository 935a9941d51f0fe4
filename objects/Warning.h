#pragma once

#include <QString>

class QWidget;

// A message box with a single button. It runs an event loop: `parent` and what belongs to it may be gone
// afterwards.
void showWarning(QWidget *parent, const QString &title, const QString &text);

// Tells the user why an action was refused, with a single button, and logs the same text as an error.
void warnUser(QWidget *parent, const QString &text, const char *tag);
