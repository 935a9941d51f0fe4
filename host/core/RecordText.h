#pragma once
#include <QString>

struct coreNameInstrument;
struct coreNameInterface;
struct mvDataPointArray;
struct namePeriod;

namespace desk {

// How records read in the trace and in sentences.
QString hexText(quint32 word);
QString periodText(const namePeriod &period); // "M5", "H1", "tick"
QString instrumentText(const coreNameInstrument &name);
QString interfaceText(const coreNameInterface &name);
QString arrayText(const mvDataPointArray *array);
QString quoted(const QString &text);

} // namespace desk
