#include "objects/PanelPeriods.h"

#include "module/Module.h"
#include "support/PeriodText.h"

#include <QString>

namespace {

struct PanelRow {
    char unit;
    int length;
    const char *number; // ahead of the word, null for none
    const char *textId; // null: the plain period text
};

constexpr PanelRow rows[panelPeriodCount] = {
    {'I', 1, "1 ", "G0199"},         {'I', 5, "5 ", "G0200"},        {'I', 10, "10 ", "G0200"},
    {'I', 60, nullptr, "M0254"},     {'I', 180, nullptr, "M0255"},   {'D', 1, nullptr, "C0014Day"},
    {'M', 1, nullptr, "C0027Month"}, {'Y', 1, nullptr, "C0045Year"}, {'I', 0, nullptr, nullptr},
};

} // namespace

bool setPanelPeriod(int row, namePeriod *period) {
    if (row < 0 || row >= panelPeriodCount)
        return false;
    period->period = rows[row].unit;
    period->lenPeriod = rows[row].length;
    return true;
}

QString panelPeriodText(int row) {
    if (row < 0 || row >= panelPeriodCount)
        return QString();
    const PanelRow &entry = rows[row];
    if (!entry.textId)
        return periodText(entry.unit, entry.length);
    return QLatin1String(entry.number ? entry.number : "") + GetModule()->tr(entry.textId, 0);
}
