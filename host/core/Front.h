#pragma once
#include <QString>

class QWidget;

namespace desk {

class CalculatedObject;

// Severity of a sentence for the user or the log; the numbers are those of the module's log levels.
enum class Level { Trace = 0, Message = 2, Warning = 3, Error = 4, Critical = 5 };

// What the services ask of the desk's windows. The base class answers as a desk without windows does.
class Front {
public:
    virtual ~Front();
    // A sentence for the log dock and, from Warning up, for the status bar.
    virtual void tell(Level, const QString &) {}
    // A long work has done this share, 0 to 100; 100 ends it.
    virtual void progress(const QString &, int) {}
    // Asks the user to confirm a new object and its settings; false refuses it.
    virtual bool confirm(CalculatedObject &) { return true; }
    // The object of the selection changed: its page is the one that the property dock shows.
    virtual void showObject(CalculatedObject &) {}
    // An object or its page is gone or changed from outside: the dock reads it again.
    virtual void refreshObject(CalculatedObject &) {}
    virtual QWidget *dialogParent() { return nullptr; }
};

} // namespace desk
