#pragma once
#include "host/pages/Page.h"
#include <QDockWidget>
#include <functional>

class QLabel;
class QPushButton;

namespace desk {

class PageView;

// Whose page is shown: the module's page of an id, or a calculated object's.
struct PageKey {
    enum Owner { None, Module, Object };
    Owner owner = None;
    quint32 id = 0;
    bool operator==(const PageKey &other) const { return owner == other.owner && id == other.id; }
};

// The property window: one page at a time, with buttons that apply the edited values or take them back.
class PropertyDock : public QDockWidget {
    Q_OBJECT

public:
    // Takes the values; answers an empty text, or a sentence that says why they were refused.
    using Apply = std::function<QString(const Page &page)>;

    explicit PropertyDock(QWidget *parent = nullptr);
    void showPage(const PageKey &key, const Page &page, Apply apply);
    void closePage(const PageKey &key);
    bool shows(const PageKey &key) const { return m_key == key && key.owner != PageKey::None; }
    PageKey key() const { return m_key; }
    PageView &view() { return *m_view; }
    void raiseDock();

public slots:
    void apply();
    void reset();

protected:
    void changeEvent(QEvent *event) override;

private:
    void retranslate();
    void showEdited(bool changed);

    PageKey m_key;
    Page m_page;
    Apply m_apply;
    QLabel *m_title;
    QLabel *m_refusal;
    PageView *m_view;
    QPushButton *m_applyButton;
    QPushButton *m_resetButton;
};

} // namespace desk
