#pragma once
#include <QDockWidget>
#include <QMap>

class QLineEdit;
class QSortFilterProxyModel;
class QStandardItemModel;
class QTreeView;

namespace desk {

// The list of symbols with their last quotes. A double click, Enter or the menu adds a symbol to the active
// chart; the menu opens it in a chart of its own, too.
class SymbolPanel : public QDockWidget {
    Q_OBJECT

public:
    explicit SymbolPanel(QWidget *parent = nullptr);
    void setSymbol(const QString &symbol, int digits); // adds it when it is new
    void removeAll();
    void setQuote(const QString &symbol, double bid, double ask);
    QStringList symbols() const;
    QString currentSymbol() const;
    void select(const QString &symbol);
    void filter(const QString &text);
    QTreeView *view() const { return m_view; }

signals:
    void addWanted(const QString &symbol);
    void openWanted(const QString &symbol);

protected:
    void changeEvent(QEvent *event) override;

private:
    struct Entry {
        int digits = 5;
        double bid = 0;
    };
    int rowOf(const QString &symbol) const;
    void showMenu(const QPoint &point);
    void retranslate();

    QLineEdit *m_filter;
    QTreeView *m_view;
    QStandardItemModel *m_model;
    QSortFilterProxyModel *m_proxy;
    QMap<QString, Entry> m_entries;
};

} // namespace desk
