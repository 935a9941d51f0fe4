#pragma once
#include <QDialog>
#include <QStringList>

class QComboBox;

// Asks for the time frame of a report chart.
class TimeFrameForm : public QDialog {
    Q_OBJECT

public:
    explicit TimeFrameForm(QWidget *parent = nullptr);
    void SetItems(const QStringList &items, int current);
    int CurrentIndex() const;
    QComboBox *Combo() const { return m_combo; }

private:
    QComboBox *m_combo;
};
