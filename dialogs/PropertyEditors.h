#pragma once
#include <QComboBox>
#include <QDateEdit>
#include <QSpinBox>
#include <QTimeEdit>
#include <QWidget>

class QCheckBox;
class QLabel;

// The editor of the auto scroll item: a check box over a labelled number.
class CMvAutoscrollProperty : public QWidget {
    Q_OBJECT

public:
    CMvAutoscrollProperty(const QString &checkText, const QString &checkHint, const QString &numberText,
                          const QString &numberHint, int minimum, int maximum, int value,
                          QWidget *parent = nullptr);
    void SetChecked(bool on);
    bool IsChecked() const;
    void SetValue(int value);
    int Value() const;

public slots:
    void OnStateChanged(int state);

private:
    QCheckBox *m_check = nullptr;
    QLabel *m_label = nullptr;
    QSpinBox *m_spin = nullptr;
};

// The editors that the property window finds by class.
class CMvPropertyComboBox : public QComboBox {
    Q_OBJECT

public:
    explicit CMvPropertyComboBox(QWidget *parent = nullptr) : QComboBox(parent) {}
};

class CMvPropertySpinBox : public QSpinBox {
    Q_OBJECT

public:
    explicit CMvPropertySpinBox(QWidget *parent = nullptr) : QSpinBox(parent) {}
};

class CMvPropertyDateEdit : public QDateEdit {
    Q_OBJECT

public:
    explicit CMvPropertyDateEdit(QWidget *parent = nullptr) : QDateEdit(parent) {}
    explicit CMvPropertyDateEdit(const QDate &date, QWidget *parent = nullptr) : QDateEdit(date, parent) {}
};

class CMvPropertyTimeEdit : public QTimeEdit {
    Q_OBJECT

public:
    explicit CMvPropertyTimeEdit(QWidget *parent = nullptr) : QTimeEdit(parent) {}
    explicit CMvPropertyTimeEdit(const QTime &time, QWidget *parent = nullptr) : QTimeEdit(time, parent) {}
};
