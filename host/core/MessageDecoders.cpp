#include "host/core/MessageDecoders.h"
#include "host/core/RecordText.h"
#include "module/HostRecords.h"
#include <QStringList>
#include <algorithm>

namespace desk::decode {

namespace {

// Lists longer than this are cut in the trace.
constexpr int mostListed = 12;

QString hex(const void *address) {
    return hexText(quint32(toWord(address)));
}

QString wordAt(int address) {
    return address ? QString::number(*fromWord<Word>(address)) : QStringLiteral("null");
}

QString hexAt(int address) {
    return address ? hexText(*fromWord<Word>(address)) : QStringLiteral("null");
}

QString missing() {
    return QStringLiteral("null record");
}

} // namespace

QString nothing(int, int, bool) {
    return QString();
}

QString handle(int wParam, int, bool answered) {
    return answered ? QString() : QStringLiteral("handle %1").arg(hexText(quint32(wParam)));
}

QString handleAndWord(int wParam, int lParam, bool answered) {
    return answered ? wordAt(lParam) : QStringLiteral("handle %1").arg(hexText(quint32(wParam)));
}

QString word(int wParam, int, bool) {
    return wordAt(wParam);
}

QString numbers(int wParam, int lParam, bool answered) {
    return answered ? QString() : QStringLiteral("%1, %2").arg(wParam).arg(lParam);
}

QString interfaceRequest(int wParam, int, bool answered) {
    const auto *record = fromWord<coreNameInterfaceRequest>(wParam);
    if (!record)
        return missing();
    if (answered)
        return QStringLiteral("result %1")
            .arg(record->mode == 1 ? hexAt(int(record->result)) : hexText(record->result));
    return interfaceText(record->names) + QStringLiteral(" mode %1").arg(record->mode);
}

QString interfaceNames(int wParam, int lParam, bool answered) {
    if (!answered)
        return QStringLiteral("interface %1").arg(hexText(quint32(wParam)));
    return lParam ? interfaceText(*fromWord<coreNameInterface>(lParam)) : missing();
}

QString createObject(int wParam, int, bool answered) {
    const auto *record = fromWord<coreDemandsIndicator>(wParam);
    if (!record)
        return missing();
    if (answered)
        return QStringLiteral("object %1").arg(hex(record->handle));
    return QStringLiteral("%1 maker %2 number %3 node %4/%5")
        .arg(instrumentText(record->sNameInstrument), hexText(record->parameter))
        .arg(record->nSzNumber)
        .arg(hexText(record->node.root), hexText(record->node.node));
}

QString subscription(int wParam, int lParam, bool answered) {
    if (answered)
        return QString();
    const auto *record = fromWord<coreChartWindow>(lParam);
    return QStringLiteral("object %1 window %2")
        .arg(hexText(quint32(wParam)), record ? hex(record->widget) : missing());
}

QString windowRecord(int wParam, int, bool answered) {
    if (answered)
        return QString();
    const auto *record = fromWord<coreChartWindow>(wParam);
    return record ? QStringLiteral("window %1").arg(hex(record->widget)) : missing();
}

QString insertText(int wParam, int, bool answered) {
    const auto *record = fromWord<coreTranslateText>(wParam);
    if (!record || answered)
        return QString();
    return QStringLiteral("%1 %2 %3")
        .arg(fieldText(record->context), fieldText(record->id), quoted(fieldText(record->text)));
}

QString arrayList(int wParam, int lParam, bool answered) {
    const auto *list = fromWord<coreListCreateData>(lParam);
    if (!list)
        return missing();
    QStringList parts{QStringLiteral("handle %1").arg(hexText(quint32(wParam))),
                      QStringLiteral("count %1").arg(list->count)};
    // Before the answer the pointers are only room, except in a hand-over, where the reader cannot tell.
    for (int i = 0; answered && list->arrays && i < std::min(int(list->count), mostListed); ++i)
        parts << arrayText(list->arrays[i]);
    return parts.join(QLatin1String(", "));
}

QString links(int wParam, int lParam, bool answered) {
    const auto *list = fromWord<coreListIndicatorLinks>(lParam);
    if (!list)
        return missing();
    QStringList parts{QStringLiteral("handle %1 count %2").arg(hexText(quint32(wParam))).arg(list->count)};
    for (int i = 0; answered && list->links && i < std::min(int(list->count), mostListed); ++i) {
        const coreIndicatorLinks &link = list->links[i];
        parts << QStringLiteral("fill %1 lines %2-%3 mode %4")
                     .arg(link.fill)
                     .arg(link.firstLine)
                     .arg(link.secondLine)
                     .arg(link.colorMode);
    }
    return parts.join(QLatin1String(", "));
}

QString lineOfArray(int wParam, int lParam, bool answered) {
    return answered ? QStringLiteral("line ") + wordAt(lParam)
                    : arrayText(fromWord<mvDataPointArray>(wParam));
}

QString identity(int wParam, int lParam, bool answered) {
    if (!answered)
        return QStringLiteral("handle %1").arg(hexText(quint32(wParam)));
    const auto *record = fromWord<coreIndicatorIdentity>(lParam);
    if (!record)
        return missing();
    return QStringLiteral("%1 %2 number %3 level %4")
        .arg(interfaceText(record->sNameInterface), instrumentText(record->sNameInstrument))
        .arg(record->nSzNumber)
        .arg(record->m_nLevelDpa);
}

QString boundLine(int wParam, int lParam, bool answered) {
    const auto *record = fromWord<coreBoundLine>(lParam);
    if (!record)
        return missing();
    return answered ? hex(record->array)
                    : QStringLiteral("handle %1 line %2").arg(hexText(quint32(wParam))).arg(record->line);
}

QString levels(int wParam, int lParam, bool answered) {
    const auto *record = fromWord<coreHorizontLine>(lParam);
    if (!record)
        return missing();
    if (!answered)
        return QStringLiteral("handle %1").arg(hexText(quint32(wParam)));
    QString shown = QStringLiteral("line %1 colour %2").arg(record->line).arg(hexText(record->color));
    for (int i = 0; i < std::min(int(record->count), +maxHorizontLevels); ++i)
        shown += QStringLiteral(" %1").arg(double(record->levels[i]));
    return shown;
}

QString period(int wParam, int lParam, bool answered) {
    if (!answered)
        return QStringLiteral("handle %1").arg(hexText(quint32(wParam)));
    return lParam ? periodText(*fromWord<namePeriod>(lParam)) : missing();
}

QString changeArray(int wParam, int lParam, bool answered) {
    if (answered)
        return QString();
    return QStringLiteral("handle %1 %2")
        .arg(hexText(quint32(wParam)),
             lParam ? instrumentText(*fromWord<coreNameInstrument>(lParam)) : missing());
}

namespace {

QString namesText(const coreDisplayNames *names) {
    if (!names)
        return missing();
    return QStringLiteral("symbol %1 name %2 suffix %3 alias %4")
        .arg(quoted(readText(names->symbol, 255)), quoted(readText(names->name, 255)),
             quoted(readText(names->suffix, 255)), quoted(readText(names->alias, 255)));
}

} // namespace

QString displayNames(int wParam, int lParam, bool answered) {
    const QString names = namesText(fromWord<coreDisplayNames>(lParam));
    return answered ? names : QStringLiteral("handle %1 %2").arg(hexText(quint32(wParam)), names);
}

QString symbolNames(int wParam, int, bool) {
    return namesText(fromWord<coreDisplayNames>(wParam));
}

QString fullPath(int wParam, int lParam, bool answered) {
    const auto *record = fromWord<coreFullPathHandle>(lParam);
    if (!record)
        return missing();
    if (!answered)
        return QStringLiteral("handle %1%2")
            .arg(hexText(quint32(wParam)), QLatin1String(record->size == 1 ? " nearest" : ""));
    if (record->size == 1)
        return hex(record->buffer);
    QStringList handles;
    const auto *chain = reinterpret_cast<const Word *>(record->buffer);
    for (int i = 0; chain && i < int(record->size / 4) && chain[i]; ++i)
        handles << hexText(chain[i]);
    return handles.isEmpty() ? QStringLiteral("no source") : handles.join(QLatin1Char(' '));
}

QString menuText(int wParam, int lParam, bool answered) {
    if (!answered)
        return QStringLiteral("handle %1").arg(hexText(quint32(wParam)));
    return lParam ? quoted(readText(fromWord<Unit16>(lParam), 255)) : missing();
}

QString subscribeEvent(int wParam, int, bool answered) {
    const auto *record = fromWord<coreEventSubscription>(wParam);
    if (!record || answered)
        return QString();
    return QStringLiteral("%1 subscriber %2").arg(quoted(fieldText(record->name)), hex(record->subscriber));
}

QString createEvent(int wParam, int, bool) {
    const auto *record = fromWord<coreEventCreation>(wParam);
    return record ? QStringLiteral("%1 id %2").arg(quoted(fieldText(record->name)), hexText(record->id))
                  : missing();
}

QString event(int wParam, int, bool answered) {
    const auto *record = fromWord<MVEvent>(wParam);
    if (!record || answered)
        return QString();
    return QStringLiteral("%1 code %2 size %3 subscriber %4")
        .arg(quoted(fieldText(record->name)))
        .arg(record->code)
        .arg(record->size)
        .arg(hex(record->subscriber));
}

QString emitEvent(int, int lParam, bool answered) {
    return event(lParam, 0, answered);
}

QString languages(int wParam, int, bool answered) {
    const auto *list = fromWord<coreLanguageList>(wParam);
    if (!list)
        return missing();
    QStringList parts{QStringLiteral("count %1").arg(list->count)};
    for (int i = 0; answered && list->languages && i < std::min(int(list->count), mostListed); ++i) {
        parts << quoted(fieldText(list->languages[i].name)) +
                     QLatin1String(list->languages[i].current ? " current" : "");
    }
    return parts.join(QLatin1String(", "));
}

QString text(int wParam, int, bool answered) {
    return answered || !wParam ? QString() : quoted(readText(fromWord<Unit16>(wParam), 1024));
}

QString answeredText(int wParam, int, bool answered) {
    return answered && wParam ? quoted(readText(fromWord<Unit16>(wParam), 1024)) : QString();
}

QString folder(int wParam, int, bool answered) {
    const auto *record = fromWord<coreFolderPath>(wParam);
    if (!record)
        return missing();
    return answered ? quoted(fieldText(record->path)) : QStringLiteral("folder %1").arg(record->folder);
}

QString toolButton(int wParam, int, bool answered) {
    const auto *record = fromWord<mwiStateLsButton>(wParam);
    if (!record || !answered)
        return QString();
    return record->armed ? QStringLiteral("armed ") + quoted(fieldText(record->name))
                         : QStringLiteral("not armed");
}

QString control(int wParam, int lParam, bool answered) {
    return answered ? QStringLiteral("widget ") + hexAt(lParam) : QStringLiteral("%1").arg(wParam);
}

QString milestone(int wParam, int, bool answered) {
    if (answered || !wParam)
        return QString();
    const QString shown = readText(fromWord<const char>(wParam) + 4, 255);
    return shown.isEmpty() ? QStringLiteral("desktop changed") : quoted(shown);
}

QString caption(int wParam, int lParam, bool) {
    const auto *record = fromWord<coreChartWindow>(wParam);
    return QStringLiteral("window %1 %2")
        .arg(record ? hex(record->widget) : missing(),
             lParam ? quoted(readText(fromWord<Unit16>(lParam), 255)) : missing());
}

QString catalogue(int wParam, int, bool answered) {
    const auto *list = fromWord<coreIndicatorCatalogue>(wParam);
    if (!list)
        return missing();
    QStringList parts{QStringLiteral("count %1").arg(list->count)};
    for (int i = 0; answered && list->descriptions && i < list->count; ++i)
        parts << fieldText(list->descriptions[i].displayName);
    return parts.join(QLatin1String(", "));
}

QString needsSource(int wParam, int lParam, bool answered) {
    if (answered)
        return wordAt(lParam);
    return wParam ? quoted(readText(fromWord<coreNameInstrument>(wParam)->m_szNameSymbol, 255)) : missing();
}

QString statusPane(int wParam, int, bool) {
    const auto *record = fromWord<mwiStatusPane>(wParam);
    if (!record)
        return missing();
    return QStringLiteral("pane %1 kind %2 width %3 window id %4")
        .arg(record->paneId)
        .arg(record->kind)
        .arg(record->width)
        .arg(hexText(record->windowId));
}

namespace {

QString pageText(const PROPERTY_PAGE *record) {
    if (!record)
        return QStringLiteral("no page");
    return QStringLiteral("page %1 %2 of %3, %4 groups")
        .arg(record->pageId)
        .arg(quoted(readText(record->title, 255)), hexText(record->system.m_object))
        .arg(record->groupCount);
}

} // namespace

QString page(int wParam, int lParam, bool answered) {
    return answered ? (lParam ? wordAt(lParam) : QString()) : pageText(fromWord<PROPERTY_PAGE>(wParam));
}

QString pageItem(int wParam, int lParam, bool answered) {
    if (answered)
        return QString();
    const auto *item = fromWord<PROPERTY>(lParam);
    QString shown = pageText(fromWord<PROPERTY_PAGE>(wParam));
    if (item)
        shown += QStringLiteral(", item %1.%2 %3")
                     .arg(item->group)
                     .arg(item->index)
                     .arg(quoted(readText(item->name, 255)));
    return shown;
}

QString pageChange(int wParam, int, bool answered) {
    const auto *record = fromWord<PROPERTY_CHANGE>(wParam);
    if (!record || answered)
        return QString();
    return QStringLiteral("owner %1, %2").arg(hex(record->owner), pageText(record->page));
}

QString dealingList(int wParam, int lParam, bool) {
    const auto *list = fromWord<mvdList>(lParam ? lParam : wParam);
    return list ? QStringLiteral("count %1").arg(list->count) : missing();
}

QString accountCount(int wParam, int lParam, bool answered) {
    return answered ? wordAt(lParam) : QStringLiteral("account %1").arg(hexText(quint32(wParam)));
}

QString updateData(int wParam, int, bool answered) {
    const auto *record = fromWord<coreCoreUpdateDpaData>(wParam);
    if (!record || answered)
        return QString();
    return QStringLiteral("%1 object %2 window %3 kind %4")
        .arg(instrumentText(record->identity), hex(record->owner), hex(record->widget))
        .arg(record->updateKind);
}

QString rebuild(int wParam, int lParam, bool answered) {
    const auto *record = fromWord<coreRebuildDpa>(lParam);
    if (!record || answered)
        return QString();
    return QStringLiteral("window %1 object %2 count %3")
        .arg(hexText(quint32(wParam)), hex(record->handle))
        .arg(record->count);
}

QString rename(int wParam, int lParam, bool answered) {
    const auto *record = fromWord<coreRenameDpa>(lParam);
    if (!record || answered)
        return QString();
    return QStringLiteral("window %1 object %2 %3")
        .arg(hexText(quint32(wParam)), hex(record->handle), instrumentText(record->identity));
}

QString globalParameters(int wParam, int, bool answered) {
    const auto *record = fromWord<coreGlobalParameters>(wParam);
    return record && !answered ? QStringLiteral("group %1 change %2").arg(record->group).arg(record->change)
                               : QString();
}

QString panelState(int wParam, int lParam, bool answered) {
    const auto *window = fromWord<coreChartWindow>(wParam);
    const auto *state = fromWord<mwiPanelState>(lParam);
    if (!window || !state || answered)
        return QString();
    return QStringLiteral("window %1 kind %2 item %3")
        .arg(hex(window->widget))
        .arg(state->kind)
        .arg(state->item);
}

QString convertList(int wParam, int, bool answered) {
    const auto *list = fromWord<mwiConvertList>(wParam);
    if (!list)
        return missing();
    if (!answered || list->count == 0)
        return QStringLiteral("count %1").arg(list->count);
    return QStringLiteral("count %1 needed %2 type %3")
        .arg(list->count)
        .arg(list->answers[0].needed)
        .arg(list->answers[0].type);
}

QString createWindow(int wParam, int, bool answered) {
    const auto *record = fromWord<mvwcCreateData>(wParam);
    if (!record)
        return missing();
    return answered ? QStringLiteral("window %1").arg(hex(record->widget))
                    : QStringLiteral("parent %1 tool bar %2 kind %3")
                          .arg(hexText(record->parent), hexText(record->toolBarParent))
                          .arg(record->kind);
}

QString itemList(int wParam, int lParam, bool answered) {
    const auto *list = fromWord<mvwcDpaList>(lParam);
    if (!list || answered)
        return QString();
    QStringList parts{QStringLiteral("window %1").arg(hexText(quint32(wParam)))};
    for (int i = 0; list->items && i < std::min(int(list->count), mostListed); ++i)
        parts << instrumentText(list->items[i].instrument) +
                     QStringLiteral(" kind %1").arg(list->items[i].kind);
    return parts.join(QLatin1String(", "));
}

QString crossCursor(int wParam, int lParam, bool) {
    return QStringLiteral("%1 mode %2").arg(QLatin1String(wParam ? "set" : "read"), wordAt(lParam));
}

QString node(int wParam, int lParam, bool answered) {
    const auto *record = fromWord<coreSzNode>(lParam);
    if (!record || answered)
        return QString();
    return QStringLiteral("%1 node %2/%3")
        .arg(hexText(quint32(wParam)), hexText(record->root), hexText(record->node));
}

} // namespace desk::decode
