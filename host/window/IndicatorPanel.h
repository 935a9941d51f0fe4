#pragma once
#include "host/core/Handle.h"
#include <QDockWidget>
#include <vector>

class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace desk {

class Host;

// One entry of an indicator catalogue.
struct IndicatorEntry {
    Handle interfaceHandle = 0;
    QString displayName;
    QString internalName;
    quint32 category = 0;
};

// The indicators by category. A double click, Enter or the menu adds one to the active chart.
class IndicatorPanel : public QDockWidget {
    Q_OBJECT

public:
    explicit IndicatorPanel(Host &host, QWidget *parent = nullptr);
    void reload(); // asks every indicator interface for its catalogue
    const std::vector<IndicatorEntry> &entries() const { return m_entries; }
    QTreeWidget *view() const { return m_view; }

signals:
    void addWanted(const desk::IndicatorEntry &entry);

protected:
    void changeEvent(QEvent *event) override;

private:
    void fill();
    void filter(const QString &text);
    void activate(QTreeWidgetItem *item);
    QTreeWidgetItem *firstShown() const;
    void showMenu(const QPoint &point);
    void retranslate();

    Host &m_host;
    std::vector<IndicatorEntry> m_entries;
    QLineEdit *m_filter;
    QTreeWidget *m_view;
};

} // namespace desk
