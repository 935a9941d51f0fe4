#pragma once
#include <QDate>
#include <QDialog>
#include <QTime>
#include <memory>

class QCheckBox;
class QDateEdit;
class QTimeEdit;
namespace GraphModule {
class CFindDateData;
}

// "Choose date and time to go to". Dates and times are in UTC.
class DateTimeDlg : public QDialog {
    Q_OBJECT

public:
    explicit DateTimeDlg(QWidget *parent = nullptr);
    ~DateTimeDlg() override;

    void SetChecked(bool on);
    bool IsChecked() const;
    void SetDate(const QDate &date);
    void SetTime(const QTime &time);
    QDate Date() const;
    QTime Time() const;
    void SetTimeEnable(bool on);
    void SetData(const GraphModule::CFindDateData &data, bool hasTime);
    const GraphModule::CFindDateData &GetData();

private:
    std::unique_ptr<GraphModule::CFindDateData> m_data;
    QDateEdit *m_date = nullptr;
    QTimeEdit *m_time = nullptr;
    QCheckBox *m_save = nullptr;
};
