#pragma once
#include <QDialog>

class CRGraphArea;
class QTreeWidget;
class QTreeWidgetItem;

// Asks for the layer of a pane that an object shall stand on; the last entry is a new layer.
class CChooseLayerDialog : public QDialog {
    Q_OBJECT

public:
    // `current` is the layer from which the object comes, -1 for none; `name` names a new layer.
    CChooseLayerDialog(const CRGraphArea *area, int current, QString name);

    // The chosen layer; the number of layers stands for a new one, -1 for no choice.
    int GetLayer() const { return m_layer; }
    QTreeWidget *Tree() const { return m_tree; }

public slots:
    void OnSelectionChanged(QTreeWidgetItem *item, int column);
    void OnDoubleClicked(QTreeWidgetItem *item, int column);

private:
    int m_layer = -1;
    int m_current = -1;
    QTreeWidget *m_tree = nullptr;
};
