#pragma once

#include <QObject>

class CRGraphLayer;
class CRGraphModule;
class CRGraphWidget;
class QLabel;
class QPoint;

// Two labels in the host's status bar: the time and the price under the mouse.
class CTextStatusBar : public QObject {
    Q_OBJECT

public:
    explicit CTextStatusBar(CRGraphModule *module);
    ~CTextStatusBar() override;

    void setTextStatusBar(CRGraphWidget *widget, CRGraphLayer *layer, const QPoint &point);
    void clearTextStatusBar();

    CRGraphModule *m_module = nullptr;
    QLabel *m_timeLabel = nullptr;
    QLabel *m_priceLabel = nullptr;

private:
    QLabel *RequestPane(unsigned message, int id, int width);
};
