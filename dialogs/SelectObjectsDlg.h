#pragma once
#include <QDialog>
#include <QStringList>
#include <vector>

class CRGraphArea;
class CRGraphLayer;
class CRGraphWidget;
class QTreeWidget;
class QTreeWidgetItem;

// A part of a chart: all of it, one pane or one layer.
struct SelectScope {
    enum Kind { chart = 1, area = 2, layer = 3 };
    int kind = chart;
    CRGraphArea *areaObject = nullptr;
    CRGraphLayer *layerObject = nullptr;
};

// What the user chose, in tree order.
struct SelectResult {
    std::vector<SelectScope> ids;
    std::vector<QString> types;
};

// "Delete ... by type": the parts of a chart in one tree, the types of its objects in another.
class CSelectObjectsDlg : public QDialog {
    Q_OBJECT

public:
    using Result = SelectResult;

    bool Create(void *data); // the chart window; false, and a log line, when the trees cannot be filled
    const Result &GetResult() const { return m_result; }
    QTreeWidget *ObjectTree() const { return m_objectTree; }
    QTreeWidget *TypeTree() const { return m_typeTree; }

public slots:
    void OnCheckItem(QTreeWidgetItem *item, int column);
    void OnOK();

protected:
    CSelectObjectsDlg(const char *titleId, const char *logTag, QWidget *parent);
    bool event(QEvent *event) override;
    void customEvent(QEvent *event) override;
    // Adds the texts of a layer's objects to `texts`, and of their types to `types`, without repeats.
    virtual void collect(CRGraphWidget *widget, CRGraphLayer *layer, QStringList &texts,
                         QStringList &types) = 0;

private:
    void fill(CRGraphWidget *widget);
    void finishFilling();

    Result m_result;
    QTreeWidget *m_objectTree = nullptr;
    QTreeWidget *m_typeTree = nullptr;
    bool m_updating = false; // check states are being changed in code
    const char *m_logTag;
    std::vector<SelectScope> m_scopes; // of the object tree's items, which hold the index
};
