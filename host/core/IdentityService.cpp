#include "host/core/IdentityService.h"
#include "host/core/CalculatedObject.h"
#include "host/core/Front.h"
#include "host/core/Host.h"
#include "module/HostMessages.h"
#include "module/HostRecords.h"
#include <algorithm>

namespace desk {

const IdentityService::Row IdentityService::rows[] = {
    {ToHost::SystemNumber, &IdentityService::systemNumber},
    {ToHost::InterfaceOfObject, &IdentityService::interfaceOf},
    {ToHost::LinkCount, &IdentityService::linkCount},
    {ToHost::Links, &IdentityService::links},
    {ToHost::Identity, &IdentityService::identity},
    {ToHost::BindLoadedLine, &IdentityService::boundLine},
    {ToHost::HorizontalLevels, &IdentityService::levels},
    {ToHost::ObjectProperties, &IdentityService::properties},
    {ToHost::FullPath, &IdentityService::fullPath},
    {ToHost::SourceInterface, &IdentityService::sourceInterface},
    {ToHost::SourceName, &IdentityService::sourceName},
    {ToHost::SourcePeriod, &IdentityService::period},
    {ToHost::DisplayNames, &IdentityService::displayNames},
    {ToHost::BaseObject, &IdentityService::base},
    {ToHost::OwnerLineNumber, &IdentityService::ownerLine},
    {ToHost::MenuText, &IdentityService::menuText},
};

IdentityService::IdentityService(Host &host) : Service(host) {
    take(coreHandle(), {ToHost::LineNumberOfArray, ToHost::ObjectOfNumber});
    for (const Row &row : rows)
        take(coreHandle(), {row.message});
}

bool IdentityService::handle(Handle, unsigned message, int wParam, int lParam, int &result) {
    result = 0;
    if (message == ToHost::LineNumberOfArray) {
        lineOfArray(wParam, lParam);
        return true;
    }
    if (message == ToHost::ObjectOfNumber) {
        const auto object = host().objects().findSystem(quint32(wParam));
        if (lParam)
            *fromWord<Word>(lParam) = object ? object->handle() : 0;
        return true;
    }
    const std::shared_ptr<CalculatedObject> object = host().objects().find(Handle(wParam));
    if (!object) {
        result = 1;
        return true;
    }
    for (const Row &row : rows) {
        if (row.message == message) {
            if (!lParam && message != ToHost::ObjectProperties)
                result = 1;
            else
                result = (this->*row.answer)(*object, lParam) ? 0 : 1;
            return true;
        }
    }
    return false;
}

void IdentityService::lineOfArray(int wParam, int lParam) {
    const auto *array = fromWord<const mvDataPointArray>(wParam);
    const std::shared_ptr<CalculatedObject> object = host().objects().findArray(array);
    if (!object || !lParam)
        return;
    const std::vector<mvDataPointArray *> outputs = object->outputs();
    const auto place = std::find(outputs.begin(), outputs.end(), array);
    *fromWord<Word>(lParam) = Word(place - outputs.begin()) + 1;
}

bool IdentityService::systemNumber(CalculatedObject &object, int lParam) {
    *fromWord<Word>(lParam) = object.systemNumber();
    return true;
}

bool IdentityService::interfaceOf(CalculatedObject &object, int lParam) {
    *fromWord<Word>(lParam) = object.interfaceHandle();
    // A double click raises the property panel and then asks this for what was clicked.
    if (host().previousMessage() == ToHost::RaisePanel)
        host().front().showObject(object);
    return true;
}

bool IdentityService::linkCount(CalculatedObject &object, int lParam) {
    *fromWord<Word>(lParam) = Word(object.links().size());
    return true;
}

// The caller's count is one more than the room that the number of links asks for.
bool IdentityService::links(CalculatedObject &object, int lParam) {
    auto &list = *fromWord<coreListIndicatorLinks>(lParam);
    const std::vector<coreIndicatorLinks> links = object.links();
    const int count = std::min(std::max(0, int(list.count)), int(links.size()));
    if (list.links)
        std::copy_n(links.begin(), count, list.links);
    list.count = count;
    return true;
}

bool IdentityService::identity(CalculatedObject &object, int lParam) {
    auto &record = *fromWord<coreIndicatorIdentity>(lParam);
    record.sInterfaceObject.m_if = object.interfaceHandle();
    record.sInterfaceObject.m_object = object.handle();
    if (const InterfaceEntry *entry = host().interfaces().find(object.interfaceHandle())) {
        fillField(record.sNameInterface.nameIntreface, entry->kind);
        fillField(record.sNameInterface.nameProvider, entry->provider);
        fillField(record.sNameInterface.nameObject, entry->object);
    }
    record.sNameInstrument = object.identity();
    record.nSzNumber = object.uniqueNumber();
    record.m_nLevelDpa = Word(host().objects().level(object.handle()));
    return true;
}

bool IdentityService::boundLine(CalculatedObject &object, int lParam) {
    auto &record = *fromWord<coreBoundLine>(lParam);
    const std::vector<mvDataPointArray *> outputs = object.outputs();
    if (record.line < 1 || record.line > outputs.size())
        return false;
    record.array = outputs[record.line - 1];
    return true;
}

bool IdentityService::levels(CalculatedObject &object, int lParam) {
    auto &record = *fromWord<coreHorizontLine>(lParam);
    const LevelLine line = object.levels();
    const int count = std::min(int(line.levels.size()), maxHorizontLevels);
    record.line = line.line;
    record.count = count;
    record.color = line.colour;
    for (int i = 0; i < count; ++i)
        record.levels[i] = line.levels[std::size_t(i)];
    return true;
}

bool IdentityService::properties(CalculatedObject &object, int) {
    host().front().showObject(object);
    return true;
}

// {buffer, room}: the chain of sources, topmost first, ended by zero. {null, 1}: the nearest source, which
// stays 0 for an instrument; an indicator without a source names itself, so that it is not taken for one.
bool IdentityService::fullPath(CalculatedObject &object, int lParam) {
    auto &record = *fromWord<coreFullPathHandle>(lParam);
    const std::vector<Handle> chain = host().objects().path(object.handle());
    if (!record.buffer) {
        if (!object.isInstrument())
            record.buffer = fromWord<char>(chain.empty() ? object.handle() : chain.back());
        return true;
    }
    const std::size_t room = record.size / sizeof(Word);
    if (room == 0)
        return false;
    const std::size_t count = std::min(chain.size(), room - 1);
    for (std::size_t i = 0; i <= count; ++i) {
        const Word word = i < count ? chain[i] : 0;
        std::memcpy(record.buffer + i * sizeof word, &word, sizeof word);
    }
    return true;
}

bool IdentityService::sourceInterface(CalculatedObject &object, int lParam) {
    const InterfaceEntry *entry = host().interfaces().find(object.interfaceHandle());
    if (!entry)
        return false;
    auto &names = *fromWord<coreNameInterface>(lParam);
    fillField(names.nameIntreface, entry->kind);
    fillField(names.nameProvider, entry->provider);
    fillField(names.nameObject, entry->object);
    return true;
}

bool IdentityService::sourceName(CalculatedObject &object, int lParam) {
    std::memcpy(fromWord<void>(lParam), object.identity().m_szNameSymbol,
                sizeof object.identity().m_szNameSymbol);
    return true;
}

bool IdentityService::period(CalculatedObject &object, int lParam) {
    *fromWord<namePeriod>(lParam) = object.period();
    return true;
}

bool IdentityService::displayNames(CalculatedObject &object, int lParam) {
    auto &record = *fromWord<coreDisplayNames>(lParam);
    const DisplayNames names = object.displayNames();
    if (!names.name.isEmpty())
        fillField(record.name, names.name);
    if (!names.suffix.isEmpty())
        fillField(record.suffix, names.suffix);
    if (!names.alias.isEmpty())
        fillField(record.alias, names.alias);
    return true;
}

bool IdentityService::base(CalculatedObject &object, int lParam) {
    *fromWord<Word>(lParam) = host().objects().base(object.handle());
    return true;
}

bool IdentityService::ownerLine(CalculatedObject &object, int lParam) {
    *fromWord<Word>(lParam) = Word(object.sourceLine());
    return true;
}

bool IdentityService::menuText(CalculatedObject &object, int lParam) {
    fillText(fromWord<Unit16>(lParam), 255, object.menuText().left(254));
    return true;
}

} // namespace desk
