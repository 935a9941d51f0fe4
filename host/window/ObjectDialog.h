#pragma once
#include <QDialog>

class QLabel;

namespace desk {

class CalculatedObject;
class PageView;

// Asks the user to confirm a new object: its settings, and a way back.
class ObjectDialog : public QDialog {
    Q_OBJECT

public:
    ObjectDialog(CalculatedObject &object, QWidget *parent = nullptr);
    void accept() override; // hands the settings over; stays open with a sentence when they are refused
    PageView &view() { return *m_view; }

private:
    CalculatedObject &m_object;
    PageView *m_view;
    QLabel *m_refusal;
};

} // namespace desk
