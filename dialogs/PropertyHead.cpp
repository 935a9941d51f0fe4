#include "dialogs/PropertyHead.h"

#include <cstdlib>
#include <memory>

namespace {

unsigned int nextPageId = 0;

} // namespace

CPropertyHead::CPropertyHead() : m_page(zeroRecord<PROPERTY_PAGE>()) {
    m_page.pageId = nextPageId++;
}

CPropertyHead::CPropertyHead(const unsigned short *title, const unsigned short *firstText,
                             const unsigned short *secondText, const CORE_OBJECT_SYSTEM &system)
    : CPropertyHead() {
    ReInicDatePage(readText(title, 255), readText(firstText, 1024), readText(secondText, 1024), system);
}

CPropertyHead::CPropertyHead(const PROPERTY_PAGE &page) : CPropertyHead() {
    CopyPage(page);
}

CPropertyHead::CPropertyHead(const CPropertyHead &other) : CPropertyHead() {
    CopyPage(other.m_page);
}

CPropertyHead &CPropertyHead::operator=(const PROPERTY_PAGE &page) {
    CopyPage(page);
    return *this;
}

CPropertyHead &CPropertyHead::operator=(const CPropertyHead &other) {
    CopyPage(other.m_page);
    return *this;
}

CPropertyHead::~CPropertyHead() {
    freeMemoAllGroup();
}

// ---- the page ----

void CPropertyHead::ReInicDatePage(const QString &title, const QString &firstText, const QString &secondText,
                                   const CORE_OBJECT_SYSTEM &system) {
    const CORE_OBJECT_SYSTEM owner = system; // it may lie in the page that is cleared now
    const Word id = m_page.pageId;
    freeMemoAllGroup();
    clearRecord(m_page);
    m_page.pageId = id;
    fillField(m_page.title, title);
    fillField(m_page.firstText, firstText);
    fillField(m_page.secondText, secondText);
    m_page.system = owner;
}

void CPropertyHead::ReNameDatePage(const QString &title) {
    fillField(m_page.title, title);
}

void CPropertyHead::CopyPage(const PROPERTY_PAGE &page) {
    if (&page == &m_page)
        return;
    // Lists of the page may still have their entries in the items that go now: these go last.
    PROPERTY_GROUP *const oldGroups = m_page.groups;
    const Word oldCount = m_page.groupCount;
    m_page.groups = nullptr;
    m_page.groupCount = 0;
    std::memcpy(m_page.title, page.title, sizeof m_page.title);
    std::memcpy(m_page.firstText, page.firstText, sizeof m_page.firstText);
    std::memcpy(m_page.secondText, page.secondText, sizeof m_page.secondText);
    m_page.system = page.system;
    for (Word i = 0; page.groups && i < page.groupCount; ++i)
        if (CopyGroup(page.groups[i]) < 0)
            break;
    freeGroups(oldGroups, oldCount);
}

void CPropertyHead::CopyWidgetParam(const PROPERTY_PAGE &page) {
    for (Word group = 0; page.groups && group < page.groupCount; ++group) {
        const PROPERTY_GROUP &from = page.groups[group];
        for (Word index = 0; from.items && index < from.count; ++index) {
            const PROPERTY *source = from.items[index];
            PROPERTY *target = getPropertyItem(static_cast<int>(group), static_cast<int>(index));
            if (source && target && source->type == PropertyTypeWidget &&
                target->type == PropertyTypeWidget && source->value && target->value)
                std::memcpy(target->value, source->value, sizeof(propertyWidget));
        }
    }
}

// ---- groups ----

int CPropertyHead::CreatePropertyGroup(QString name) {
    auto group = zeroRecord<PROPERTY_GROUP>();
    fillField(group.name, name);
    group.created = 1;
    return addGroup(group);
}

int CPropertyHead::addGroup(PROPERTY_GROUP &group) {
    return CopyGroup(group);
}

// Appends a deep copy of the group; its index, or -1 when the memory runs out.
int CPropertyHead::CopyGroup(const PROPERTY_GROUP &group) {
    const PROPERTY_GROUP from = group; // it may lie in the array that grows
    void *grown = std::realloc(m_page.groups, (m_page.groupCount + 1) * sizeof(PROPERTY_GROUP));
    if (!grown)
        return -1;
    m_page.groups = static_cast<PROPERTY_GROUP *>(grown);
    const int index = static_cast<int>(m_page.groupCount);
    PROPERTY_GROUP &copy = m_page.groups[index];
    copy = from;
    copy.index = m_page.groupCount++;
    copy.count = 0;
    copy.items = nullptr;
    for (Word i = 0; from.items && i < from.count; ++i)
        if (from.items[i] && addProperty(index, *from.items[i]) < 0)
            return -1;
    return index;
}

PROPERTY_GROUP *CPropertyHead::getPropertyGroup(int group) const {
    if (group < 0 || group >= static_cast<int>(m_page.groupCount))
        return nullptr;
    return m_page.groups + group;
}

int CPropertyHead::getCountPropertyInGroup(int group) const {
    const PROPERTY_GROUP *found = getPropertyGroup(group);
    return found ? static_cast<int>(found->count) : 0;
}

void CPropertyHead::freeMemoAllProperty(LIST_PROPERTY *items, Word count) {
    for (Word i = 0; i < count; ++i)
        freeProperty(items[i]);
    std::free(items);
}

void CPropertyHead::freeGroups(PROPERTY_GROUP *groups, Word count) {
    for (Word i = 0; i < count; ++i)
        freeMemoAllProperty(groups[i].items, groups[i].count);
    std::free(groups);
}

void CPropertyHead::freeMemoAllGroup() {
    freeGroups(m_page.groups, m_page.groupCount);
    m_page.groups = nullptr;
    m_page.groupCount = 0;
}

// ---- reading and changing items ----

PROPERTY *CPropertyHead::getPropertyItem(int group, int index) const {
    const PROPERTY_GROUP *found = getPropertyGroup(group);
    if (!found || index < 0 || index >= static_cast<int>(found->count))
        return nullptr;
    return found->items[index];
}

PROPERTY *CPropertyHead::SetProperty(int group, int index, QVariant value) {
    PROPERTY *item = getPropertyItem(group, index);
    const std::unique_ptr<CPropertyParamItem> param(createData(item, false));
    if (param)
        param->SetProperty(value);
    return item;
}

QVariant CPropertyHead::GetPropertyItem(int group, int index) const {
    const std::unique_ptr<CPropertyParamItem> param(createData(getPropertyItem(group, index), false));
    return param ? param->GetPropertyItem() : QVariant();
}
