#pragma once
#include <QDialog>
#include <QPushButton>
#include <vector>

class CRGraphWidget;
class CRPrimitive;
class CSelectPrimitiveWidget;
class QComboBox;
struct coreNameInstrument;

namespace gui {

class Button : public QPushButton {
    Q_OBJECT

public:
    explicit Button(const QString &text, QWidget *parent = nullptr) : QPushButton(text, parent) {}

protected:
    void keyPressEvent(QKeyEvent *event) override { QPushButton::keyPressEvent(event); }
};

class ButtonHelp : public Button {
    Q_OBJECT

public:
    ButtonHelp(const QString &text, CSelectPrimitiveWidget *owner);

protected:
    void keyPressEvent(QKeyEvent *event) override; // Return and Enter press it
    CSelectPrimitiveWidget *m_owner;
};

class ButtonCancel : public Button {
    Q_OBJECT

public:
    ButtonCancel(const QString &text, CSelectPrimitiveWidget *owner);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    CSelectPrimitiveWidget *m_owner;
};

} // namespace gui

// The source picker: which series of the chart an indicator or a template is built on. Not modal: a click
// on a series in the chart chooses it too.
class CSelectPrimitiveWidget : public QDialog {
    Q_OBJECT

public:
    // `name` says what is being added. In template mode the choice goes to OnApplyTemplate.
    CSelectPrimitiveWidget(CRGraphWidget *widget, const QString &title, const QString &name,
                           bool templateMode = false);

    void FillListBox(const coreNameInstrument *preset); // null: the first entry
    void SelectPrimitiveInCombo(CRPrimitive *primitive);
    CRPrimitive *GetCurrentPrimitive() const;
    QComboBox *Combo() const { return m_combo; }

public slots:
    void OnOK();
    void Cancel();
    void OnHelp();
    void done(int result) override { result == Accepted ? OnOK() : Cancel(); }

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    CRGraphWidget *m_widget;
    std::vector<CRPrimitive *> m_primitives;
    bool m_templateMode;
    QComboBox *m_combo = nullptr;
};
