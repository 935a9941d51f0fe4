#include "host/pages/PageCodec.h"
#include "module/HostRecords.h"
#include <QColor>
#include <QDateTime>
#include <QFont>
#include <algorithm>
#include <cstring>

namespace desk {

namespace {

// A record that tells more than this is broken.
constexpr int mostGroups = 256;
constexpr int mostItems = 4096;
constexpr int mostChoices = 4096;

int groupCount(const PROPERTY_PAGE &record) {
    return record.groups ? std::min(int(record.groupCount), mostGroups) : 0;
}

int itemCount(const PROPERTY_GROUP &group) {
    return group.items ? std::min(int(group.count), mostItems) : 0;
}

int choiceCount(const propertyList &list) {
    return list.entries ? std::max(0, std::min(int(list.count), mostChoices)) : 0;
}

template <class T>
T value(const PROPERTY &record) {
    T result;
    std::memcpy(&result, record.value, sizeof result);
    return result;
}

void decodeInt(const PROPERTY &record, PageItem &item) {
    const auto number = value<propertyInt>(record);
    item.kind = PageItem::Int;
    item.value = number.value;
    item.minimum = number.minimum;
    item.maximum = number.maximum;
}

void decodeDouble(const PROPERTY &record, PageItem &item) {
    const auto number = value<propertyDouble>(record);
    item.kind = PageItem::Double;
    item.value = number.value;
    item.minimum = number.minimum;
    item.maximum = number.maximum;
    item.step = number.step;
    item.digits = number.digits;
}

void decodeText(const PROPERTY &record, PageItem &item) {
    item.kind = PageItem::Text;
    item.value = readText(static_cast<const Unit16 *>(record.value), 1024);
}

void decodeColour(const PROPERTY &record, PageItem &item) {
    item.kind = PageItem::Colour;
    item.value = QColor::fromRgb(value<propertyColor>(record).rgb);
}

void decodeFont(const PROPERTY &record, PageItem &item) {
    const auto font = value<propertyFont>(record);
    item.kind = PageItem::Font;
    QFont shown(readText(font.family, 1024));
    if (font.pointSize > 0)
        shown.setPointSize(font.pointSize);
    shown.setWeight(qBound(0, int(font.weight), 99));
    shown.setItalic(font.italic != 0);
    item.value = shown;
}

void decodeList(const PROPERTY &record, PageItem &item) {
    const auto list = value<propertyList>(record);
    item.kind = PageItem::List;
    item.value = list.selected;
    for (int i = 0; i < choiceCount(list); ++i)
        item.choices << fieldText(list.entries[i].text);
}

void decodeDateTime(const PROPERTY &record, PageItem &item) {
    item.kind = PageItem::DateTime;
    item.value = QDateTime::fromSecsSinceEpoch(value<propertyDateTime>(record).time, Qt::UTC);
}

void decodeBoolean(const PROPERTY &record, PageItem &item) {
    item.kind = PageItem::Boolean;
    item.value = value<propertyBoolean>(record).value != 0;
}

void decodeWidget(const PROPERTY &record, PageItem &item) {
    const auto room = value<propertyWidget>(record);
    item.kind = PageItem::Widget;
    item.width = room.width;
    item.height = room.height;
}

// One row a type: how it is read, and how large its value record is.
struct TypeRow {
    void (*decode)(const PROPERTY &, PageItem &);
    int size;
};

constexpr TypeRow types[] = {
    {decodeInt, sizeof(propertyInt)},           {decodeDouble, sizeof(propertyDouble)},
    {decodeText, sizeof(propertyString)},       {decodeColour, sizeof(propertyColor)},
    {decodeFont, sizeof(propertyFont)},         {decodeList, sizeof(propertyList)},
    {decodeDateTime, sizeof(propertyDateTime)}, {decodeBoolean, sizeof(propertyBoolean)},
    {decodeWidget, sizeof(propertyWidget)},
};

bool isReadable(const PROPERTY *record) {
    return record && record->value && record->type < std::size(types);
}

template <class T>
void store(PROPERTY &record, const T &value) {
    std::memcpy(record.value, &value, sizeof value);
}

} // namespace

Page decodePage(const PROPERTY_PAGE &record) {
    Page page;
    page.title = readText(record.title, 255);
    page.text = readText(record.firstText, 1024);
    for (int g = 0; g < groupCount(record); ++g) {
        PageGroup group;
        group.name = readText(record.groups[g].name, 255);
        group.index = g;
        for (int i = 0; i < itemCount(record.groups[g]); ++i) {
            const PROPERTY *property = record.groups[g].items[i];
            if (!isReadable(property))
                continue;
            PageItem item;
            item.name = readText(property->name, 255);
            item.description = readText(property->description, 1024);
            item.readOnly = property->readOnly != 0;
            item.group = g;
            item.index = i;
            types[property->type].decode(*property, item);
            group.items << item;
        }
        page.groups << group;
    }
    return page;
}

PageCopy::PageCopy(const PROPERTY_PAGE &record) : m_record(std::make_unique<PROPERTY_PAGE>(record)) {
    for (int g = 0; g < groupCount(record); ++g) {
        PROPERTY_GROUP group = record.groups[g];
        m_lists.emplace_back();
        for (int i = 0; i < itemCount(record.groups[g]); ++i) {
            if (record.groups[g].items[i])
                copyItem(*record.groups[g].items[i], m_lists.back());
        }
        group.count = Word(m_lists.back().size());
        group.items = m_lists.back().data();
        m_groups.push_back(group);
    }
    m_record->groupCount = Word(m_groups.size());
    m_record->groups = m_groups.data();
}

PageCopy::~PageCopy() = default;

QByteArray &PageCopy::keep(const QByteArray &bytes) {
    m_values.push_back(bytes);
    m_values.back().detach();
    return m_values.back();
}

void PageCopy::copyItem(const PROPERTY &item, std::vector<PROPERTY *> &items) {
    m_items.push_back(item);
    PROPERTY &copy = m_items.back();
    items.push_back(&copy);
    if (!isReadable(&item))
        return;
    copy.value = keep(QByteArray(static_cast<const char *>(item.value), types[item.type].size)).data();
    if (item.type != PropertyTypeList)
        return;
    auto list = value<propertyList>(copy);
    const int bytes = choiceCount(list) * int(sizeof(propertyListEntry));
    list.entries = bytes ? reinterpret_cast<propertyListEntry *>(
                               keep(QByteArray(reinterpret_cast<const char *>(list.entries), bytes)).data())
                         : nullptr;
    store(copy, list);
}

void PageCopy::setValues(const Page &page) {
    for (int g = 0; g < int(m_groups.size()); ++g) {
        for (int i = 0; i < int(m_groups[g].count); ++i) {
            const PageItem *item = page.find(g, i);
            if (item && isReadable(m_groups[g].items[i]))
                setValue(*m_groups[g].items[i], *item);
        }
    }
}

void PageCopy::setValue(PROPERTY &record, const PageItem &item) {
    switch (record.type) {
    case PropertyTypeInt: {
        auto number = value<propertyInt>(record);
        number.value = item.value.toInt();
        store(record, number);
        break;
    }
    case PropertyTypeDouble: {
        auto number = value<propertyDouble>(record);
        number.value = item.value.toDouble();
        store(record, number);
        break;
    }
    case PropertyTypeString:
        // The last unit stays zero, so that the text has an end.
        fillText(static_cast<Unit16 *>(record.value), 1024, item.value.toString().left(1023));
        break;
    case PropertyTypeColor:
        store(record, propertyColor{item.value.value<QColor>().rgb()});
        break;
    case PropertyTypeFont: {
        const QFont font = item.value.value<QFont>();
        auto shown = zeroRecord<propertyFont>();
        fillField(shown.family, font.family().left(1023));
        shown.pointSize = font.pointSize();
        shown.weight = font.weight();
        shown.italic = font.italic() ? 1 : 0;
        store(record, shown);
        break;
    }
    case PropertyTypeList: {
        auto list = value<propertyList>(record);
        list.selected = item.value.toInt();
        store(record, list);
        break;
    }
    case PropertyTypeDateTime:
        store(record, propertyDateTime{Word(item.value.toDateTime().toSecsSinceEpoch())});
        break;
    case PropertyTypeBoolean:
        store(record, propertyBoolean{static_cast<unsigned char>(item.value.toBool() ? 1 : 0)});
        break;
    case PropertyTypeWidget: {
        auto room = value<propertyWidget>(record);
        room.windowId = item.value.toUInt();
        store(record, room);
        break;
    }
    default:
        break;
    }
}

void setWindowId(PROPERTY_PAGE &record, int group, int index, quint32 windowId) {
    if (group >= groupCount(record) || index >= itemCount(record.groups[group]))
        return;
    PROPERTY *property = record.groups[group].items[index];
    if (!isReadable(property) || property->type != PropertyTypeWidget)
        return;
    auto room = value<propertyWidget>(*property);
    room.windowId = windowId;
    store(*property, room);
}

} // namespace desk
