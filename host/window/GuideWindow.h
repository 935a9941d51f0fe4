#pragma once
#include <QDialog>

namespace desk {

// The user guide, to be read beside the charts.
class GuideWindow : public QDialog {
    Q_OBJECT

public:
    explicit GuideWindow(QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;
};

} // namespace desk
