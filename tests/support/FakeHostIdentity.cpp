// What calculated objects are: their makers, names, sources, links and levels.
#include "tests/support/FakeHostPrivate.h"

#include <algorithm>

int FakeHost::answerIdentity(unsigned message, int wParam, int lParam, bool *known) {
    const auto giveWord = [lParam](Word word) {
        bytes::put<Word>(fromWord<void>(lParam), 0, word);
        return 0;
    };
    FakeObject *asked = object(static_cast<Word>(wParam));
    switch (message) {
    case ToHost::InterfaceOfObject:
        return asked ? giveWord(asked->maker) : 1;
    case ToHost::LinkCount:
        return asked ? giveWord(static_cast<Word>(asked->links.size())) : 1;
    case ToHost::Links: {
        auto *list = fromWord<coreListIndicatorLinks>(lParam);
        if (!asked)
            return 1;
        const int count = std::min(static_cast<int>(list->count), static_cast<int>(asked->links.size()));
        for (int i = 0; i < count; ++i)
            list->links[i] = asked->links[static_cast<std::size_t>(i)];
        return 0;
    }
    case ToHost::LineNumberOfArray:
        for (FakeObject *owner : objects()) {
            for (std::size_t i = 0; i < owner->outputs.size(); ++i) {
                if (owner->outputs[i]->header() == fromWord<mvDataPointArray>(wParam))
                    return giveWord(static_cast<Word>(i) + 1);
            }
        }
        return 1;
    case ToHost::Identity: {
        if (!asked)
            return 1;
        auto *identity = fromWord<coreIndicatorIdentity>(lParam);
        identity->sInterfaceObject.m_if = asked->maker;
        identity->sInterfaceObject.m_object = asked->handle;
        for (const NamedInterface &item : m_interfaces) {
            if (item.handle == asked->maker) {
                fillField(identity->sNameInterface.nameIntreface, item.name);
                fillField(identity->sNameInterface.nameProvider, item.provider);
                fillField(identity->sNameInterface.nameObject, item.object);
            }
        }
        identity->sNameInstrument = asked->name;
        identity->nSzNumber = asked->number;
        const FakeObject *source = asked->sources.empty()
                                       ? nullptr
                                       : object(static_cast<Word>(toWord(asked->sources.front()->owner)));
        identity->m_nLevelDpa = asked->instrument ? 0 : source && !source->instrument ? 2 : 1;
        return 0;
    }
    case ToHost::HorizontalLevels:
        if (!asked)
            return 1;
        std::memcpy(fromWord<void>(lParam), &asked->levels, sizeof asked->levels);
        return 0;
    case ToHost::FullPath: {
        auto *record = fromWord<coreFullPathHandle>(lParam);
        if (!asked)
            return 1;
        std::vector<Word> chain; // nearest first
        for (const FakeObject *step = asked; step && !step->sources.empty();) {
            chain.push_back(static_cast<Word>(toWord(step->sources.front()->owner)));
            step = object(chain.back());
        }
        if (!record->buffer) {
            const Word own = asked->instrument ? 0 : asked->handle;
            record->buffer = fromWord<char>(chain.empty() ? own : chain.front());
            return 0;
        }
        int offset = 0;
        for (auto step = chain.rbegin(); step != chain.rend(); ++step, offset += 4)
            bytes::put<Word>(record->buffer, offset, *step);
        bytes::put<Word>(record->buffer, offset, 0);
        return 0;
    }
    case ToHost::SourcePeriod:
        if (!asked)
            return 1;
        std::memcpy(fromWord<void>(lParam), &asked->array().header()->identity.m_periods, sizeof(namePeriod));
        return 0;
    case ToHost::DisplayNames:
        if (asked && asked->instrument) {
            bytes::putText16(fromWord<void>(lParam), 510, 255, asked->displayName);
            bytes::putText16(fromWord<void>(lParam), 1020, 255, asked->suffix);
            bytes::putText16(fromWord<void>(lParam), 1530, 255, asked->alias);
        }
        return 0;
    case ToHost::BaseObject: {
        const FakeObject *top = asked;
        while (top && !top->sources.empty())
            top = object(static_cast<Word>(toWord(top->sources.front()->owner)));
        return giveWord(!top || top == asked ? 0 : top->handle);
    }
    case ToHost::OwnerLineNumber: {
        Word line = 1;
        if (asked && !asked->sources.empty()) {
            if (const FakeObject *owner = object(static_cast<Word>(toWord(asked->sources.front()->owner)))) {
                for (std::size_t i = 0; i < owner->outputs.size(); ++i) {
                    if (owner->outputs[i]->header() == asked->sources.front())
                        line = static_cast<Word>(i) + 1;
                }
            }
        }
        return giveWord(line);
    }
    case ToHost::SystemNumber:
        return asked ? giveWord(asked->number) : 1;
    case ToHost::ObjectOfNumber:
        for (FakeObject *numbered : objects()) {
            if (numbered->number == static_cast<Word>(wParam))
                return giveWord(numbered->handle);
        }
        return 0;
    case ToHost::MenuText:
        if (asked)
            bytes::putText16(fromWord<void>(lParam), 0, 255, asked->alias);
        return 0;
    default:
        *known = false;
        return 0;
    }
}
