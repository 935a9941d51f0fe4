#pragma once
#include "dialogs/PropertyException.h"
#include "module/HostRecords.h"
#include <QVariant>

// Typed access to the value of one property item. A shared param works on the item's own value record,
// a deep one on a copy of it.
class CPropertyParamItem {
public:
    CPropertyParamItem(PROPERTY *item, bool deep) : m_item(item), m_shared(!deep) {}
    CPropertyParamItem(const CPropertyParamItem &) = delete;
    CPropertyParamItem &operator=(const CPropertyParamItem &) = delete;
    virtual ~CPropertyParamItem();

    virtual QVariant GetPropertyItem() const = 0;  // invalid without a value record
    virtual void SetProperty(QVariant &value) = 0; // throws PropertyException
    virtual int GetLenItems() const = 0;           // size of the value record

    void *takeValue(); // hands the value record to the caller

protected:
    void attach(Word type, const char *className, bool checkMemory);

    PROPERTY *m_item;
    bool m_shared;
    void *m_value = nullptr;
};

static_assert(sizeof(CPropertyParamItem) == 16, "CPropertyParamItem");

class CPropertyParamInt : public CPropertyParamItem {
public:
    CPropertyParamInt(PROPERTY *item, bool deep);
    QVariant GetPropertyItem() const override;
    void SetProperty(QVariant &value) override;
    int GetLenItems() const override { return sizeof(propertyInt); }
};

class CPropertyParamDouble : public CPropertyParamItem {
public:
    CPropertyParamDouble(PROPERTY *item, bool deep);
    QVariant GetPropertyItem() const override;
    void SetProperty(QVariant &value) override;
    int GetLenItems() const override { return sizeof(propertyDouble); }
};

class CPropertyParamString : public CPropertyParamItem {
public:
    CPropertyParamString(PROPERTY *item, bool deep);
    QVariant GetPropertyItem() const override;
    void SetProperty(QVariant &value) override;
    int GetLenItems() const override { return sizeof(propertyString); }
};

class CPropertyParamColor : public CPropertyParamItem {
public:
    CPropertyParamColor(PROPERTY *item, bool deep);
    QVariant GetPropertyItem() const override;
    void SetProperty(QVariant &value) override;
    int GetLenItems() const override { return sizeof(propertyColor); }
};

class CPropertyParamFont : public CPropertyParamItem {
public:
    CPropertyParamFont(PROPERTY *item, bool deep);
    QVariant GetPropertyItem() const override;
    void SetProperty(QVariant &value) override;
    int GetLenItems() const override { return sizeof(propertyFont); }
};

class CPropertyParamList : public CPropertyParamItem {
public:
    CPropertyParamList(PROPERTY *item, bool deep);
    ~CPropertyParamList() override;
    QVariant GetPropertyItem() const override;  // the selected index
    void SetProperty(QVariant &value) override; // an index, or the text of an entry
    int GetLenItems() const override { return sizeof(propertyList); }
};

class CPropertyParamDateTime : public CPropertyParamItem {
public:
    CPropertyParamDateTime(PROPERTY *item, bool deep);
    QVariant GetPropertyItem() const override;
    void SetProperty(QVariant &value) override;
    int GetLenItems() const override { return sizeof(propertyDateTime); }
};

class CPropertyParamBoolean : public CPropertyParamItem {
public:
    CPropertyParamBoolean(PROPERTY *item, bool deep);
    QVariant GetPropertyItem() const override;
    void SetProperty(QVariant &value) override;
    int GetLenItems() const override { return sizeof(propertyBoolean); }
};

class CPropertyParamWidget : public CPropertyParamItem {
public:
    CPropertyParamWidget(PROPERTY *item, bool deep);
    QVariant GetPropertyItem() const override; // the window id that the host has set
    void SetProperty(QVariant &value) override;
    int GetLenItems() const override { return sizeof(propertyWidget); }
};

// The class of the item's type; null for a null item or an unknown type.
CPropertyParamItem *createData(PROPERTY *item, bool deep);
// A copy of the item with a value record of its own; null when the memory runs out.
PROPERTY *copyProperty(const PROPERTY *item);
void freeProperty(PROPERTY *item);
