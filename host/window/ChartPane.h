#pragma once
#include "host/core/Handle.h"
#include <QFrame>

class QLabel;
class QToolButton;

namespace desk {

class Host;

// One chart window of the module: a header with its caption and its own tool bar, and the frame that it
// fills. The chart lives in an inner widget, since it takes the size of its parent's parent.
class ChartPane : public QFrame {
    Q_OBJECT

public:
    ChartPane(Host &host, QWidget *parent = nullptr);
    ~ChartPane() override;

    bool create();  // 5003; false when the module refused
    void destroy(); // 5004
    Handle window() const { return m_window; }
    QWidget *chart() const;
    void takeFocus(); // 5009
    void setActive(bool active);
    bool isActive() const { return m_active; }
    void setCaption(const QString &caption);
    QString caption() const { return m_caption; }
    QString shortCaption() const; // the caption without the application's name

signals:
    void captionChanged();
    void closeWanted();
    void maximiseWanted();
    void activateWanted();

protected:
    bool eventFilter(QObject *object, QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void resizeChart();
    void showToolBar();
    void retranslate();
    void showCaption();

    Host &m_host;
    Handle m_window = 0;
    bool m_active = false;
    QString m_caption;
    QWidget *m_header;
    QLabel *m_title;
    QToolButton *m_maximise;
    QToolButton *m_close;
    QWidget *m_strip; // parent of the chart's own tool bar
    QWidget *m_frame; // what the chart fills
    QWidget *m_inner; // its direct parent
};

} // namespace desk
