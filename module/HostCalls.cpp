#include "module/HostCalls.h"

#include "module/HostMessages.h"
#include "module/Module.h"

namespace HostCalls {

namespace {

int core(unsigned message, MessageWord wParam, MessageWord lParam, int neutral = 0) {
    return GetModule()->SendCore(message, wParam, lParam, neutral);
}

Word word(const void *address) {
    return static_cast<Word>(toWord(address));
}

// The queries of the form "handle in, one word out".
Word query(unsigned message, void *handle, Word start = 0) {
    Word answer = start;
    core(message, handle, &answer);
    return answer;
}

// The room for a list of which the host told the length. A number that can be none is taken for 0.
int listRoom(int count) {
    constexpr int most = 65536;
    return count < 0 || count > most ? 0 : count;
}

// Always with one place more than the room, so that a list has an address and a host can end it.
template <class T>
std::vector<T> listWithEnd(int room) {
    return std::vector<T>(static_cast<std::size_t>(room) + 1, T());
}

// An answered count is never trusted beyond the room that was offered.
template <class T>
void shrinkTo(std::vector<T> &list, int answered) {
    list.resize(static_cast<std::size_t>(qBound(0, answered, static_cast<int>(list.size()))));
}

} // namespace

// ---- interfaces ----

void *findInterface(const char *interfaceName, const char *provider, const char *object) {
    Word handle = 0;
    coreNameInterfaceRequest request = zeroRecord<coreNameInterfaceRequest>();
    fillField(request.names.nameIntreface, interfaceName);
    fillField(request.names.nameProvider, provider);
    fillField(request.names.nameObject, object);
    request.mode = 1;
    request.result = word(&handle);
    core(ToHost::FindInterface, &request, 0);
    return fromWord<void>(handle);
}

std::vector<void *> findInterfaces(const char *interfaceName) {
    int count = 0;
    coreNameInterfaceRequest request = zeroRecord<coreNameInterfaceRequest>();
    fillField(request.names.nameIntreface, interfaceName);
    request.mode = 1;
    request.result = word(&count);
    core(ToHost::CountInterfaces, &request, 0);
    const int room = listRoom(count);
    std::vector<void *> handles = listWithEnd<void *>(room);
    clearRecord(request);
    fillField(request.names.nameIntreface, interfaceName);
    request.mode = static_cast<Word>(room);
    request.result = word(handles.data());
    core(ToHost::FindInterface, &request, 0);
    shrinkTo(handles, room);
    return handles;
}

coreNameInterface interfaceNames(void *interfaceHandle) {
    coreNameInterfaceRequest request = zeroRecord<coreNameInterfaceRequest>();
    core(ToHost::InterfaceNames, interfaceHandle, &request);
    return request.names;
}

// A host that knows only the short form of the answer puts the provider at the start.
QString providerName(void *interfaceHandle) {
    const coreNameInterface names = interfaceNames(interfaceHandle);
    return names.nameProvider[0] ? fieldText(names.nameProvider) : fieldText(names.nameIntreface);
}

void *interfaceOfObject(void *handle) {
    return fromWord<void>(query(ToHost::InterfaceOfObject, handle));
}

void windowGoesAway(CRGraphWidget *widget) {
    coreChartWindow record{word(GetModule()->m_interfaceHandle), widget};
    core(ToHost::WindowGoesAway, &record, 0);
}

// ---- calculated objects ----

void *createObject(coreDemandsIndicator &record) {
    core(ToHost::CreateObject, &record, 0);
    return record.handle;
}

void subscribe(void *handle, CRGraphWidget *widget) {
    coreChartWindow record{word(GetModule()->m_interfaceHandle), widget};
    core(ToHost::Subscribe, handle, &record);
}

void unsubscribe(void *handle, CRGraphWidget *widget) {
    coreChartWindow record{word(GetModule()->m_interfaceHandle), widget};
    core(ToHost::Unsubscribe, handle, &record);
}

int outputCount(void *handle) {
    return static_cast<int>(query(ToHost::OutputCount, handle));
}

std::vector<mvDataPointArray *> outputArrays(void *handle, int room) {
    room = listRoom(room);
    std::vector<mvDataPointArray *> arrays = listWithEnd<mvDataPointArray *>(room);
    coreListCreateData list{room, arrays.data()};
    core(ToHost::OutputArrays, handle, &list);
    shrinkTo(arrays, qMin(room, static_cast<int>(list.count)));
    return arrays;
}

int sourceCount(void *handle) {
    return static_cast<int>(query(ToHost::SourceCount, handle, 1));
}

void handOverSources(void *handle, const std::vector<mvDataPointArray *> &sources) {
    std::vector<mvDataPointArray *> arrays = sources;
    coreListCreateData list{static_cast<int>(arrays.size()), arrays.data()};
    core(ToHost::HandOverSources, handle, &list);
}

coreIndicatorIdentity identity(void *handle) {
    coreIndicatorIdentity record = zeroRecord<coreIndicatorIdentity>();
    core(ToHost::Identity, handle, &record);
    return record;
}

void displayNames(void *handle, coreDisplayNames &names) {
    core(ToHost::DisplayNames, handle, &names);
}

namePeriod sourcePeriod(void *handle, const namePeriod &start) {
    namePeriod period = start;
    core(ToHost::SourcePeriod, handle, &period);
    return period;
}

coreHorizontLine horizontalLevels(void *handle) {
    coreHorizontLine lines = zeroRecord<coreHorizontLine>();
    core(ToHost::HorizontalLevels, handle, &lines);
    lines.count = qBound(0, static_cast<int>(lines.count), maxHorizontLevels);
    return lines;
}

int linkCount(void *handle) {
    return static_cast<int>(query(ToHost::LinkCount, handle));
}

std::vector<coreIndicatorLinks> links(void *handle, int count) {
    const int room = listRoom(count);
    std::vector<coreIndicatorLinks> result = listWithEnd<coreIndicatorLinks>(room);
    coreListIndicatorLinks list{room, result.data()};
    core(ToHost::Links, handle, &list);
    shrinkTo(result, qMin(room, static_cast<int>(list.count)));
    return result;
}

void *nearestSource(void *handle) {
    coreFullPathHandle record{nullptr, 1};
    core(ToHost::FullPath, handle, &record);
    return record.buffer;
}

void *baseObject(void *handle) {
    return fromWord<void>(query(ToHost::BaseObject, handle));
}

bool confirmObject(void *handle) {
    return query(ToHost::ConfirmObject, handle, 1) != 0;
}

void creationAbandoned() {
    core(ToHost::CreationAbandoned, 0, 0);
}

Word systemNumber(void *handle) {
    return query(ToHost::SystemNumber, handle);
}

void changeArray(void *owner, const coreNameInstrument &identity) {
    coreNameInstrument record = identity;
    core(ToHost::ChangeArray, owner, &record);
}

void reloadArray(void *owner, int item) {
    core(ToHost::ReloadArray, owner, item);
}

void requestOlderData(void *interfaceHandle, void *handle, int seconds) {
    GetModule()->Send(interfaceHandle, ToHost::OlderData, handle, seconds);
}

QString menuText(void *handle) {
    coreReportSymbol buffer = zeroRecord<coreReportSymbol>(); // 255 units of text
    core(ToHost::MenuText, handle, buffer.symbol);
    return fieldText(buffer.symbol);
}

void showObjectProperties(void *handle) {
    core(ToHost::ObjectProperties, handle, 0);
}

void openAlert(const coreNameInstrument &identity) {
    coreAlertRequest record = zeroRecord<coreAlertRequest>();
    record.identity = identity;
    core(ToHost::OpenAlert, &record, 0);
}

void displayNamesOfSymbol(void *transport, coreDisplayNames &names) {
    GetModule()->Send(transport, ToHost::SymbolDisplayName, &names, 0);
}

// ---- indicator catalogue and reports ----

int indicatorCount(void *interfaceHandle) {
    int count = 0;
    GetModule()->Send(interfaceHandle, ToHost::IndicatorCount, &count, 0);
    return count;
}

std::vector<INDICATOR_DESCRIPTION> indicatorList(void *interfaceHandle, int count) {
    const int room = listRoom(count);
    std::vector<INDICATOR_DESCRIPTION> descriptions = listWithEnd<INDICATOR_DESCRIPTION>(room);
    coreIndicatorCatalogue list{room, descriptions.data()};
    GetModule()->Send(interfaceHandle, ToHost::IndicatorList, &list, 0);
    shrinkTo(descriptions, qMin(room, static_cast<int>(list.count)));
    return descriptions;
}

bool indicatorNeedsSource(void *interfaceHandle, const unsigned short *name) {
    coreNameInstrument record = zeroRecord<coreNameInstrument>();
    fillField(record.m_szNameSymbol, readText(name, 255));
    Word needed = 1;
    GetModule()->Send(interfaceHandle, ToHost::IndicatorNeedsSource, &record, &needed);
    return needed != 0;
}

std::vector<coreReportSymbol> reportSymbols(void *interfaceHandle, void *handle, int count) {
    std::vector<coreReportSymbol> symbols;
    if (count < 1)
        return symbols;
    symbols.resize(static_cast<std::size_t>(count), zeroRecord<coreReportSymbol>());
    coreReportSymbolList list{count, symbols.data()};
    GetModule()->Send(interfaceHandle, ToHost::ReportSymbols, handle, &list);
    shrinkTo(symbols, list.count);
    return symbols;
}

// ---- the application ----

QString applicationCaption() {
    unsigned short buffer[1024] = {};
    core(ToHost::ApplicationCaption, buffer, 0);
    return readText(buffer, 1024);
}

void openHelp(const QString &page) {
    unsigned short buffer[1024];
    fillField(buffer, page);
    core(ToHost::OpenHelp, buffer, 0);
}

void setGameMode(bool on) {
    core(on ? ToHost::GameModeOn : ToHost::GameModeOff, 0, 0);
}

void accountLeavesGame(void *dealing, void *account) {
    GetModule()->Send(dealing, ToHost::AccountLeavesGame, account, 0);
}

} // namespace HostCalls
