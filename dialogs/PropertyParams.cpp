#include "dialogs/PropertyParams.h"

#include <QColor>
#include <QDateTime>
#include <QFont>
#include <algorithm>
#include <cstdlib>
#include <memory>
#include <new>

CPropertyParamItem::~CPropertyParamItem() {
    if (!m_shared)
        std::free(m_value);
}

void *CPropertyParamItem::takeValue() {
    m_shared = true;
    return m_value;
}

// Takes hold of the item's value record, or of a copy of it. An item that came without one stays so.
void CPropertyParamItem::attach(Word type, const char *className, bool checkMemory) {
    if (m_item->type != type)
        throw PropertyException(std::string("Error in ") + className);
    if (m_shared) {
        m_value = m_item->value;
        return;
    }
    if (!m_item->value)
        return;
    m_value = std::calloc(1, static_cast<size_t>(GetLenItems()));
    if (m_value)
        std::memcpy(m_value, m_item->value, static_cast<size_t>(GetLenItems()));
    else if (checkMemory)
        throw PropertyException(std::string("Error memo in ") + className);
}

namespace {

// Null and type check of SetProperty, with the two texts of the class.
void check(const void *record, bool typeFits, const char *nullText, const char *typeText) {
    if (!record)
        throw PropertyException(nullText);
    if (!typeFits)
        throw PropertyException(typeText);
}

} // namespace

// ---- int ----

CPropertyParamInt::CPropertyParamInt(PROPERTY *item, bool deep) : CPropertyParamItem(item, deep) {
    attach(PropertyTypeInt, "CPropertyParamInt", true);
}

QVariant CPropertyParamInt::GetPropertyItem() const {
    const auto *record = static_cast<const propertyInt *>(m_value);
    return record ? QVariant(record->value) : QVariant();
}

void CPropertyParamInt::SetProperty(QVariant &value) {
    check(m_value, value.type() == QVariant::Int, "Error memo in CPropertyParamInt",
          "Error param in CPropertyParamInt");
    static_cast<propertyInt *>(m_value)->value = value.toInt();
}

// ---- double ----

CPropertyParamDouble::CPropertyParamDouble(PROPERTY *item, bool deep) : CPropertyParamItem(item, deep) {
    attach(PropertyTypeDouble, "CPropertyParamDouble", true);
}

QVariant CPropertyParamDouble::GetPropertyItem() const {
    const auto *record = static_cast<const propertyDouble *>(m_value);
    return record ? QVariant(double(record->value)) : QVariant();
}

void CPropertyParamDouble::SetProperty(QVariant &value) {
    check(m_value, value.type() == QVariant::Double, "Error memo in CPropertyParamDouble",
          "Error param in CPropertyParamDouble");
    static_cast<propertyDouble *>(m_value)->value = value.toDouble();
}

// ---- string ----

CPropertyParamString::CPropertyParamString(PROPERTY *item, bool deep) : CPropertyParamItem(item, deep) {
    attach(PropertyTypeString, "CPropertyParamString", true);
}

QVariant CPropertyParamString::GetPropertyItem() const {
    const auto *record = static_cast<const propertyString *>(m_value);
    return record ? QVariant(fieldText(record->text)) : QVariant();
}

void CPropertyParamString::SetProperty(QVariant &value) {
    check(m_value, value.type() == QVariant::String, "Error memo in CPropertyParamString",
          "Error param in CPropertyParamString");
    fillField(static_cast<propertyString *>(m_value)->text, value.toString());
}

// ---- colour ----

CPropertyParamColor::CPropertyParamColor(PROPERTY *item, bool deep) : CPropertyParamItem(item, deep) {
    attach(PropertyTypeColor, "CPropertyParamColor", false);
}

QVariant CPropertyParamColor::GetPropertyItem() const {
    const auto *record = static_cast<const propertyColor *>(m_value);
    return record ? QVariant(QColor(QRgb(record->rgb))) : QVariant();
}

void CPropertyParamColor::SetProperty(QVariant &value) {
    check(m_value, value.type() == QVariant::Color, "Error memo in CPropertyParamColor",
          "Error param in CPropertyParamColor");
    static_cast<propertyColor *>(m_value)->rgb = value.value<QColor>().rgb();
}

// ---- font ----

CPropertyParamFont::CPropertyParamFont(PROPERTY *item, bool deep) : CPropertyParamItem(item, deep) {
    attach(PropertyTypeFont, "CPropertyParamFont", true);
}

QVariant CPropertyParamFont::GetPropertyItem() const {
    const auto *record = static_cast<const propertyFont *>(m_value);
    if (!record)
        return QVariant();
    const int weight = std::clamp<int>(record->weight, -1, 99); // all that a font can have; -1 is the usual one
    return QFont(fieldText(record->family), record->pointSize, weight, record->italic != 0);
}

void CPropertyParamFont::SetProperty(QVariant &value) {
    check(m_value, value.type() == QVariant::Font, "Error memo in CPropertyParamFont",
          "Error param in CPropertyParamFont");
    const auto font = value.value<QFont>();
    auto *record = static_cast<propertyFont *>(m_value);
    fillField(record->family, font.family());
    record->pointSize = font.pointSize();
    record->weight = font.weight();
    record->italic = font.italic() ? 1 : 0;
}

// ---- list ----

CPropertyParamList::CPropertyParamList(PROPERTY *item, bool deep) : CPropertyParamItem(item, deep) {
    attach(PropertyTypeList, "CPropertyParamList", false);
    auto *record = static_cast<propertyList *>(m_value);
    if (m_shared || !record)
        return;
    const propertyListEntry *from = record->entries;
    const int count = from && record->count > 0 ? record->count : 0;
    void *entries = count ? std::calloc(static_cast<size_t>(count), sizeof(propertyListEntry)) : nullptr;
    record->count = entries ? count : 0;
    record->entries = static_cast<propertyListEntry *>(entries);
    if (entries)
        std::memcpy(entries, from, static_cast<size_t>(count) * sizeof(propertyListEntry));
}

CPropertyParamList::~CPropertyParamList() {
    if (!m_shared && m_value)
        std::free(static_cast<propertyList *>(m_value)->entries);
}

QVariant CPropertyParamList::GetPropertyItem() const {
    const auto *record = static_cast<const propertyList *>(m_value);
    return record ? QVariant(record->selected) : QVariant();
}

// An index or a text that the list does not have leaves the choice as it is.
void CPropertyParamList::SetProperty(QVariant &value) {
    check(m_value, value.type() == QVariant::Int || value.type() == QVariant::String,
          "CPropertyParamList error in GetPropertyItem", "CPropertyParamList type in GetPropertyItem");
    auto *record = static_cast<propertyList *>(m_value);
    if (value.type() == QVariant::Int) {
        const int index = value.toInt();
        if (index >= 0 && index < record->count)
            record->selected = index;
        return;
    }
    const QString text = value.toString();
    for (int i = 0; record->entries && i < record->count; ++i) {
        if (fieldText(record->entries[i].text) == text) {
            record->selected = i;
            return;
        }
    }
}

// ---- date and time ----

CPropertyParamDateTime::CPropertyParamDateTime(PROPERTY *item, bool deep) : CPropertyParamItem(item, deep) {
    attach(PropertyTypeDateTime, "CPropertyParamDateTime", true);
}

QVariant CPropertyParamDateTime::GetPropertyItem() const {
    const auto *record = static_cast<const propertyDateTime *>(m_value);
    return record ? QVariant(QDateTime::fromTime_t(record->time)) : QVariant();
}

void CPropertyParamDateTime::SetProperty(QVariant &value) {
    check(m_value, value.type() == QVariant::DateTime, "CPropertyParamDouble error in SetProperty",
          "CPropertyParamDouble error in CPropertyParamDateTime");
    static_cast<propertyDateTime *>(m_value)->time = value.toDateTime().toTime_t();
}

// ---- boolean ----

CPropertyParamBoolean::CPropertyParamBoolean(PROPERTY *item, bool deep) : CPropertyParamItem(item, deep) {
    attach(PropertyTypeBoolean, "CPropertyParamBoolean", false);
}

QVariant CPropertyParamBoolean::GetPropertyItem() const {
    const auto *record = static_cast<const propertyBoolean *>(m_value);
    return record ? QVariant(record->value != 0) : QVariant();
}

void CPropertyParamBoolean::SetProperty(QVariant &value) {
    check(m_value, value.type() == QVariant::Bool, "CPropertyParamBoolean error in GetPropertyItem",
          "CPropertyParamBoolean type in GetPropertyItem");
    static_cast<propertyBoolean *>(m_value)->value = value.toBool() ? 1 : 0;
}

// ---- widget ----

CPropertyParamWidget::CPropertyParamWidget(PROPERTY *item, bool deep) : CPropertyParamItem(item, deep) {
    attach(PropertyTypeWidget, "CPropertyParamWidget", false);
}

QVariant CPropertyParamWidget::GetPropertyItem() const {
    const auto *record = static_cast<const propertyWidget *>(m_value);
    return record ? QVariant(static_cast<uint>(record->windowId)) : QVariant();
}

// The host alone sets the window; what a value of another type asks for is left out.
void CPropertyParamWidget::SetProperty(QVariant &value) {
    if (m_value && (value.type() == QVariant::UInt || value.type() == QVariant::Int))
        static_cast<propertyWidget *>(m_value)->windowId = value.toUInt();
}

// ---- factory and copies ----

namespace {

template <class T>
CPropertyParamItem *make(PROPERTY *item, bool deep) {
    CPropertyParamItem *param = new (std::nothrow) T(item, deep);
    if (!param)
        throw PropertyException("Error Memo int CPropertyParamItem");
    return param;
}

using Maker = CPropertyParamItem *(*)(PROPERTY *, bool);

// By type number.
constexpr Maker makers[] = {
    make<CPropertyParamInt>,      make<CPropertyParamDouble>,  make<CPropertyParamString>,
    make<CPropertyParamColor>,    make<CPropertyParamFont>,    make<CPropertyParamList>,
    make<CPropertyParamDateTime>, make<CPropertyParamBoolean>, make<CPropertyParamWidget>};

} // namespace

CPropertyParamItem *createData(PROPERTY *item, bool deep) {
    if (!item || item->type >= std::size(makers))
        return nullptr;
    return makers[item->type](item, deep);
}

PROPERTY *copyProperty(const PROPERTY *item) {
    if (!item)
        return nullptr;
    auto *copy = static_cast<PROPERTY *>(std::malloc(sizeof(PROPERTY)));
    if (!copy)
        return nullptr;
    *copy = *item;
    try {
        const std::unique_ptr<CPropertyParamItem> param(createData(copy, true));
        copy->value = param ? param->takeValue() : nullptr;
    } catch (const PropertyException &) {
        std::free(copy);
        return nullptr;
    }
    return copy;
}

void freeProperty(PROPERTY *item) {
    if (!item)
        return;
    if (item->type == PropertyTypeList && item->value)
        std::free(static_cast<propertyList *>(item->value)->entries);
    std::free(item->value);
    std::free(item);
}
