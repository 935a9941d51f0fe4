#pragma once
#include "host/core/WindowFront.h"
#include <QDockWidget>

class QLabel;
class QScrollArea;

namespace desk {

// The information box: what the charts say about the point under the mouse, each line in its colour.
class InformationPanel : public QDockWidget {
    Q_OBJECT

public:
    explicit InformationPanel(QWidget *parent = nullptr);
    void showLines(const std::vector<LocatorLine> &lines, const QColor &background);
    const std::vector<LocatorLine> &lines() const { return m_lines; }
    QString text() const;

protected:
    void changeEvent(QEvent *event) override;

private:
    void retranslate();

    std::vector<LocatorLine> m_lines;
    QLabel *m_text;
    QScrollArea *m_scroll;
};

} // namespace desk
