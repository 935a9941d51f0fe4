#pragma once
#include "host/core/Handle.h"
#include <QWidget>
#include <vector>

class QLabel;
class QTabBar;

namespace desk {

class ChartPane;
class Host;

// The chart windows of the desk, tiled side by side or one at a time under tabs. It owns the panes and knows
// which of them is the active one. Dragging a gap between tiles moves the border of two rows or columns.
class ChartDeck : public QWidget {
    Q_OBJECT

public:
    enum Mode { Tiled, Tabs };

    explicit ChartDeck(Host &host, QWidget *parent = nullptr);
    ~ChartDeck() override;

    ChartPane *addChart(); // null when the module refused
    void closeChart(ChartPane *pane);
    void closeAll();
    const std::vector<ChartPane *> &panes() const { return m_panes; }
    ChartPane *active() const { return m_active; }
    ChartPane *find(Handle window) const;
    void activate(ChartPane *pane);
    void activateNext(int step);
    Mode mode() const { return m_mode; }
    void setMode(Mode mode);
    QSize sizeHint() const override { return QSize(900, 600); }

signals:
    void activated(desk::ChartPane *pane); // null when the last chart is gone
    void modeChanged(desk::ChartDeck::Mode mode);
    void captionChanged(desk::ChartPane *pane);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    // A border between two tiles of the same row, or between two rows.
    struct Border {
        int row = -1;    // the row whose columns it parts; -1: it parts rows
        int before = -1; // index of the row or column before it
    };
    struct Row {
        double weight = 1;
        std::vector<double> columns;
    };
    void activateOwner(QObject *object); // the pane that a widget lies in
    void arrange();
    void makeRows();
    void showTabs();
    Border borderAt(const QPoint &point) const;
    void retranslate();

    Host &m_host;
    Mode m_mode = Tiled;
    std::vector<ChartPane *> m_panes;
    std::vector<Row> m_rows;
    ChartPane *m_active = nullptr;
    QTabBar *m_tabs;
    QLabel *m_empty;
    Border m_drag;
};

} // namespace desk
