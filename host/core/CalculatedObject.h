#pragma once
#include "host/core/Handle.h"
#include <QString>
#include <memory>
#include <vector>

struct coreIndicatorLinks;
struct coreNameInstrument;
struct mvDataPointArray;
struct namePeriod;

namespace desk {

struct Page;
class Service;

// The four texts of messages 3135 and 4023; an empty one is left alone.
struct DisplayNames {
    QString name;
    QString suffix;
    QString alias;
};

// Horizontal levels of one output line (1-based; 0 = none).
struct LevelLine {
    int line = 0;
    quint32 colour = 0;
    std::vector<float> levels;
};

// An object that calculates data arrays: an instrument series or an indicator. Its maker is the service that
// answers 3042, 3043 and the like for it; the naming and identity questions are answered from here by
// IdentityService. Array headers stay at their address as long as the object lives.
class CalculatedObject {
public:
    CalculatedObject(Service &maker, Handle interfaceHandle);
    virtual ~CalculatedObject();
    CalculatedObject(const CalculatedObject &) = delete;
    CalculatedObject &operator=(const CalculatedObject &) = delete;

    Service &maker() const { return m_maker; }
    Handle interfaceHandle() const { return m_interfaceHandle; }
    Handle handle() const { return m_handle; }              // 0 until Objects::add
    quint32 systemNumber() const { return m_systemNumber; } // unique in the run
    quint32 uniqueNumber() const { return m_uniqueNumber; } // unique in the workspace
    void setUniqueNumber(quint32 number) { m_uniqueNumber = number; }

    virtual bool isInstrument() const = 0;
    // The record that made it: symbol (or internal indicator name), data type, period.
    virtual const coreNameInstrument &identity() const = 0;
    virtual std::vector<mvDataPointArray *> outputs() const = 0;
    // Handles of the nearest sources; the first is the base. Empty for instruments.
    virtual std::vector<Handle> sources() const { return {}; }
    // 1-based line of the nearest source on which this object is built.
    virtual int sourceLine() const { return 1; }
    virtual namePeriod period() const = 0;
    virtual DisplayNames displayNames() const { return {}; }
    // Menu text with parameters, such as "Moving Average (14)".
    virtual QString menuText() const { return {}; }
    virtual LevelLine levels() const { return {}; }
    virtual std::vector<coreIndicatorLinks> links() const;

    // Settings for the property dock and the confirmation dialog; null when there is nothing to set.
    virtual std::unique_ptr<Page> page() const;
    // Takes a page with the user's values and tells the chart windows what changed. The answer is empty, or a
    // sentence that says why the values were refused.
    virtual QString applyPage(const Page &) { return {}; }

private:
    friend class Objects;
    Service &m_maker;
    Handle m_interfaceHandle;
    Handle m_handle = 0;
    quint32 m_systemNumber = 0;
    quint32 m_uniqueNumber = 0;
};

} // namespace desk
