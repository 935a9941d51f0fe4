#pragma once
// Typed calls to the host. Each builds its record, sends one message and gives back what was answered;
// without a host each returns its neutral value. `component` is the host's main window handle.
#include "module/HostRecords.h"

#include <vector>

class CRGraphWidget;
class QSlider;
class QToolButton;
class QWidget;

namespace HostCalls {

// ---- interfaces ----
void *findInterface(const char *interfaceName, const char *provider, const char *object);
std::vector<void *> findInterfaces(const char *interfaceName); // 3002, then 3001 for all of them
coreNameInterface interfaceNames(void *interfaceHandle);
QString providerName(void *interfaceHandle);
void *interfaceOfObject(void *handle);
void windowGoesAway(CRGraphWidget *widget);

// ---- calculated objects ----
void *createObject(coreDemandsIndicator &record); // null is a refusal
void subscribe(void *handle, CRGraphWidget *widget);
void unsubscribe(void *handle, CRGraphWidget *widget);
int outputCount(void *handle);
std::vector<mvDataPointArray *> outputArrays(void *handle, int room); // at most `room`; entries may be null
int sourceCount(void *handle);                                        // 1 without an answer
void handOverSources(void *handle, const std::vector<mvDataPointArray *> &sources);
coreIndicatorIdentity identity(void *handle);
void displayNames(void *handle, coreDisplayNames &names); // symbol set by the caller
namePeriod sourcePeriod(void *handle, const namePeriod &start);
coreHorizontLine horizontalLevels(void *handle);
int linkCount(void *handle);
std::vector<coreIndicatorLinks> links(void *handle, int count);
void *nearestSource(void *handle); // null: the object is an instrument
void *baseObject(void *handle);
bool confirmObject(void *handle); // true without an answer
void creationAbandoned();
Word systemNumber(void *handle);
void changeArray(void *owner, const coreNameInstrument &identity);
void reloadArray(void *owner, int item);
void requestOlderData(void *interfaceHandle, void *handle, int seconds);
QString menuText(void *handle);
void showObjectProperties(void *handle);
void openAlert(const coreNameInstrument &identity);
void displayNamesOfSymbol(void *transport, coreDisplayNames &names); // symbol set by the caller

// ---- indicator catalogue and reports ----
int indicatorCount(void *interfaceHandle);
std::vector<INDICATOR_DESCRIPTION> indicatorList(void *interfaceHandle, int count);
bool indicatorNeedsSource(void *interfaceHandle, const unsigned short *name); // true without an answer
std::vector<coreReportSymbol> reportSymbols(void *interfaceHandle, void *handle, int count);

// ---- the application ----
QString applicationCaption();
void openHelp(const QString &page);
void setGameMode(bool on);
void accountLeavesGame(void *dealing, void *account);

// ---- main window ----
bool toolButtonState(void *component, mwiStateLsButton &state); // the host's result is not 0
void clearToolButton(void *component);
bool hasWorkFolder(void *component);
void openChartIdentity(void *component, const QString &name);
QToolButton *toolButton(void *component, unsigned message);
QSlider *zoomSlider(void *component);
void storeCrossCursor(void *component, Word mode);
Word readCrossCursor(void *component, Word start);
mwiLocatorFunction locatorFunction(void *component);
void milestone(void *component, const QString &text);
void desktopChanged(void *component);
void captionChanged(void *component, CRGraphWidget *widget, const QString &caption);
Word statusPane(void *statusBar, unsigned message, void *statusObject, int paneId, int width); // a window id

// ---- property pages ----
enum Panel { propertyPanel = 0, instrumentPanel = 1, indicatorPanel = 2 };
void raisePanel(void *component, Panel panel);
bool isPageKnown(void *component, PROPERTY_PAGE *page);
void showPage(void *component, PROPERTY_PAGE *page, bool known);
void pageItemChanged(void *component, PROPERTY_PAGE *page, PROPERTY *item);
void closePage(void *component, PROPERTY_PAGE *page);

} // namespace HostCalls
