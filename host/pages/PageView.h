#pragma once
#include "host/pages/Page.h"
#include "host/pages/PageEditors.h"
#include <QScrollArea>
#include <vector>

namespace desk {

// Shows one page: a headline for each group, a label and an editor for each item. It keeps the page's values
// apart from the user's: `page()` is what the editors say now.
class PageView : public QScrollArea {
    Q_OBJECT

public:
    explicit PageView(QWidget *parent = nullptr);
    void setPage(const Page &page);
    void clear() { setPage(Page()); }
    Page page() const;
    bool isChanged() const { return m_changed; }
    void setChanged(bool changed);
    // Window ids of the hosted items are valid from setPage on.
    quint32 windowId(int group, int index) const;
    void keepHostedValues(); // they are what setItemValue brings back
    void setItemValue(int group, int index, const QVariant &value);
    QWidget *editor(int group, int index) const;

signals:
    void edited(bool changed);

private:
    struct Row {
        int group;
        int index;
        PageEditor editor;
    };
    void addGroup(const PageGroup &group, class QFormLayout *form, QWidget *body);
    const Row *row(int group, int index) const;

    Page m_page;
    std::vector<Row> m_rows;
    bool m_changed = false;
};

} // namespace desk
