#pragma once

#include <QLabel>
#include <QObject>
#include <QPointer>

class CRGraphLayer;
class CRGraphModule;
class CRGraphWidget;
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
    QPointer<QLabel> m_timeLabel; // the host's, which may take them away
    QPointer<QLabel> m_priceLabel;

private:
    void RequestPanes(unsigned message);
    QLabel *RequestPane(void *statusBar, unsigned message, int id, int width);
};
