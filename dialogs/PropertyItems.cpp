#include "dialogs/PropertyHead.h"

#include <QColor>
#include <QDateTime>
#include <QFont>
#include <cstdlib>
#include <vector>

namespace {

constexpr int labelLength = 255; // names and descriptions are cut to it

std::vector<propertyListEntry> entriesOf(const QStringList &items) {
    std::vector<propertyListEntry> entries(static_cast<size_t>(items.size()));
    for (int i = 0; i < items.size(); ++i)
        fillField(entries[static_cast<size_t>(i)].text, items[i]);
    return entries;
}

const unsigned short *raw(const QString &text) {
    return text.utf16();
}

} // namespace

int CPropertyHead::addProperty(int group, PROPERTY &item) {
    PROPERTY_GROUP *target = getPropertyGroup(group);
    PROPERTY *copy = target ? copyProperty(&item) : nullptr;
    if (!copy)
        return -1;
    void *grown = std::realloc(target->items, (target->count + 1) * sizeof(LIST_PROPERTY));
    if (!grown) {
        freeProperty(copy);
        return -1;
    }
    target->items = static_cast<LIST_PROPERTY *>(grown);
    copy->group = static_cast<Word>(group);
    copy->index = target->count;
    target->items[target->count] = copy;
    return static_cast<int>(target->count++);
}

int CPropertyHead::addItem(int group, Word type, const unsigned short *name,
                           const unsigned short *description, void *value, bool readOnly) {
    auto item = zeroRecord<PROPERTY>();
    item.type = type;
    fillField(item.name, readText(name, labelLength));
    fillField(item.description, readText(description, labelLength));
    item.value = value;
    item.readOnly = readOnly ? 1 : 0;
    return addProperty(group, item);
}

int CPropertyHead::AddPropertyIntItem(int group, const unsigned short *name,
                                      const unsigned short *description, int value, int minimum, int maximum,
                                      bool readOnly) {
    propertyInt record{value, minimum, maximum};
    return addItem(group, PropertyTypeInt, name, description, &record, readOnly);
}

int CPropertyHead::AddPropertyIntItem(int group, const QString &name, const QString &description, int value,
                                      int minimum, int maximum, bool readOnly) {
    return AddPropertyIntItem(group, raw(name), raw(description), value, minimum, maximum, readOnly);
}

int CPropertyHead::AddPropertyDoubleItem(int group, const unsigned short *name,
                                         const unsigned short *description, double value, bool, int digits,
                                         bool readOnly) {
    propertyDouble record{value, 0.0001, -1e11, 1e11, digits};
    return addItem(group, PropertyTypeDouble, name, description, &record, readOnly);
}

int CPropertyHead::AddPropertyDoubleItem(int group, const QString &name, const QString &description,
                                         double value, bool ignored, int digits, bool readOnly) {
    return AddPropertyDoubleItem(group, raw(name), raw(description), value, ignored, digits, readOnly);
}

int CPropertyHead::AddPropertyBoolItem(int group, const unsigned short *name,
                                       const unsigned short *description, bool value) {
    propertyBoolean record{static_cast<unsigned char>(value ? 1 : 0)};
    return addItem(group, PropertyTypeBoolean, name, description, &record, false);
}

int CPropertyHead::AddPropertyBoolItem(int group, const QString &name, const QString &description,
                                       bool value) {
    return AddPropertyBoolItem(group, raw(name), raw(description), value);
}

int CPropertyHead::AddPropertyTextItem(int group, const unsigned short *name,
                                       const unsigned short *description, const unsigned short *value) {
    auto record = zeroRecord<propertyString>();
    fillField(record.text, readText(value, 1024));
    return addItem(group, PropertyTypeString, name, description, &record, false);
}

int CPropertyHead::AddPropertyTextItem(int group, const QString &name, const QString &description,
                                       const QString &value) {
    return AddPropertyTextItem(group, raw(name), raw(description), raw(value));
}

int CPropertyHead::AddPropertyColorItem(int group, const unsigned short *name,
                                        const unsigned short *description, const QColor &value) {
    propertyColor record{value.rgb()};
    return addItem(group, PropertyTypeColor, name, description, &record, false);
}

int CPropertyHead::AddPropertyColorItem(int group, const QString &name, const QString &description,
                                        const QColor &value) {
    return AddPropertyColorItem(group, raw(name), raw(description), value);
}

int CPropertyHead::AddPropertyFontItem(int group, const unsigned short *name,
                                       const unsigned short *description, const QFont &value) {
    auto record = zeroRecord<propertyFont>();
    fillField(record.family, value.family());
    record.pointSize = value.pointSize();
    record.weight = value.weight();
    record.italic = value.italic() ? 1 : 0;
    return addItem(group, PropertyTypeFont, name, description, &record, false);
}

int CPropertyHead::AddPropertyFontItem(int group, const QString &name, const QString &description,
                                       const QFont &value) {
    return AddPropertyFontItem(group, raw(name), raw(description), value);
}

int CPropertyHead::AddPropertyDateTimeItem(int group, const unsigned short *name,
                                           const unsigned short *description, const QDateTime &value) {
    propertyDateTime record{value.toTime_t()};
    return addItem(group, PropertyTypeDateTime, name, description, &record, false);
}

int CPropertyHead::AddPropertyDateTimeItem(int group, const QString &name, const QString &description,
                                           const QDateTime &value) {
    return AddPropertyDateTimeItem(group, raw(name), raw(description), value);
}

int CPropertyHead::AddPropertyListItem(int group, const unsigned short *name,
                                       const unsigned short *description, QStringList items, int selected) {
    std::vector<propertyListEntry> entries = entriesOf(items);
    propertyList record{items.size(), selected, entries.data()};
    return addItem(group, PropertyTypeList, name, description, &record, false);
}

int CPropertyHead::AddPropertyListItem(int group, const QString &name, const QString &description,
                                       QStringList items, int selected) {
    return AddPropertyListItem(group, raw(name), raw(description), items, selected);
}

int CPropertyHead::AddPropertyWidget(int group, const unsigned short *name, const unsigned short *description,
                                     int width, int height) {
    propertyWidget record{0, width, height};
    return addItem(group, PropertyTypeWidget, name, description, &record, false);
}

int CPropertyHead::AddPropertyWidget(int group, const QString &name, const QString &description, int width,
                                     int height) {
    return AddPropertyWidget(group, raw(name), raw(description), width, height);
}

int CPropertyHead::ChangePropertyListItem(int group, int index, QStringList items, int selected) {
    PROPERTY *item = getPropertyItem(group, index);
    if (!item || item->type != PropertyTypeList || !item->value)
        return -1;
    const std::vector<propertyListEntry> entries = entriesOf(items);
    auto *list = static_cast<propertyList *>(item->value);
    void *storage = entries.empty() ? nullptr : std::calloc(entries.size(), sizeof(propertyListEntry));
    if (!entries.empty() && !storage)
        return -1;
    if (storage)
        std::memcpy(storage, entries.data(), entries.size() * sizeof(propertyListEntry));
    std::free(list->entries);
    list->entries = static_cast<propertyListEntry *>(storage);
    list->count = static_cast<int>(entries.size());
    list->selected = selected;
    return 0;
}
