#pragma once
#include "dialogs/PropertyParams.h"
#include "module/HostRecords.h"
#include <QStringList>
#include <QVariant>

class QColor;
class QDateTime;
class QFont;

// A page of settings: groups of typed items that the host's property window shows and changes.
// The page owns all its groups, items and values.
class CPropertyHead {
public:
    CPropertyHead();
    CPropertyHead(const unsigned short *title, const unsigned short *firstText,
                  const unsigned short *secondText, const CORE_OBJECT_SYSTEM &system = CORE_OBJECT_SYSTEM{});
    explicit CPropertyHead(const PROPERTY_PAGE &page);
    CPropertyHead(const CPropertyHead &other);
    CPropertyHead &operator=(const PROPERTY_PAGE &page);
    CPropertyHead &operator=(const CPropertyHead &other);
    virtual ~CPropertyHead();

    // ---- the page; its id belongs to the object and survives every copy ----
    void ReInicDatePage(const QString &title, const QString &firstText, const QString &secondText,
                        const CORE_OBJECT_SYSTEM &system);
    void ReNameDatePage(const QString &title);
    PROPERTY_PAGE *GetPage() { return &m_page; }
    const PROPERTY_PAGE *GetPage() const { return &m_page; }
    unsigned int GetPageId() const { return m_page.pageId; }
    void getInterface(CORE_OBJECT_SYSTEM &system) const { system = m_page.system; }
    void CopyPage(const PROPERTY_PAGE &page);
    void CopyWidgetParam(const PROPERTY_PAGE &page); // only the value records of the widget items

    // ---- groups ----
    int CreatePropertyGroup(QString name); // the new group's index
    int addGroup(PROPERTY_GROUP &group);
    PROPERTY_GROUP *getPropertyGroup(int group) const;
    int getCountPropertyInGroup(int group) const;

    // ---- adding items; the result is the index in the group, or -1 ----
    int addProperty(int group, PROPERTY &item);
    int AddPropertyIntItem(int group, const QString &name, const QString &description, int value, int minimum,
                           int maximum, bool readOnly = false);
    int AddPropertyIntItem(int group, const unsigned short *name, const unsigned short *description,
                           int value, int minimum, int maximum, bool readOnly = false);
    int AddPropertyDoubleItem(int group, const QString &name, const QString &description, double value, bool,
                              int digits, bool readOnly = false);
    int AddPropertyDoubleItem(int group, const unsigned short *name, const unsigned short *description,
                              double value, bool, int digits, bool readOnly = false);
    int AddPropertyBoolItem(int group, const QString &name, const QString &description, bool value);
    int AddPropertyBoolItem(int group, const unsigned short *name, const unsigned short *description,
                            bool value);
    int AddPropertyTextItem(int group, const QString &name, const QString &description, const QString &value);
    int AddPropertyTextItem(int group, const unsigned short *name, const unsigned short *description,
                            const unsigned short *value);
    int AddPropertyColorItem(int group, const QString &name, const QString &description, const QColor &value);
    int AddPropertyColorItem(int group, const unsigned short *name, const unsigned short *description,
                             const QColor &value);
    int AddPropertyFontItem(int group, const QString &name, const QString &description, const QFont &value);
    int AddPropertyFontItem(int group, const unsigned short *name, const unsigned short *description,
                            const QFont &value);
    int AddPropertyDateTimeItem(int group, const QString &name, const QString &description,
                                const QDateTime &value);
    int AddPropertyDateTimeItem(int group, const unsigned short *name, const unsigned short *description,
                                const QDateTime &value);
    int AddPropertyListItem(int group, const QString &name, const QString &description, QStringList items,
                            int selected);
    int AddPropertyListItem(int group, const unsigned short *name, const unsigned short *description,
                            QStringList items, int selected);
    int AddPropertyWidget(int group, const QString &name, const QString &description, int width, int height);
    int AddPropertyWidget(int group, const unsigned short *name, const unsigned short *description, int width,
                          int height);

    // ---- reading and changing items ----
    PROPERTY *getPropertyItem(int group, int index) const; // null out of range
    PROPERTY *SetProperty(int group, int index,
                          QVariant value); // null out of range; throws PropertyException
    QVariant GetPropertyItem(int group, int index) const;
    int ChangePropertyListItem(int group, int index, QStringList items, int selected);

private:
    int addItem(int group, Word type, const unsigned short *name, const unsigned short *description,
                void *value, bool readOnly);
    int CopyGroup(const PROPERTY_GROUP &group);
    void freeMemoAllProperty(LIST_PROPERTY *items, Word count);
    void freeGroups(PROPERTY_GROUP *groups, Word count);
    void freeMemoAllGroup();

    PROPERTY_PAGE m_page;
};
