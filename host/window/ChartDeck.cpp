#include "host/window/ChartDeck.h"
#include "host/window/ChartPane.h"
#include <QApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QTabBar>
#include <algorithm>
#include <cmath>
#include <numeric>

namespace desk {

namespace {

constexpr int gap = 5;
constexpr int smallestShare = 90; // pixels that a row or column keeps

// Pixel borders of shares along a length: n + 1 offsets, gaps not counted.
std::vector<int> offsets(const std::vector<double> &weights, int length) {
    const double sum = std::accumulate(weights.begin(), weights.end(), 0.0);
    const int room = length - gap * int(weights.size() - 1);
    std::vector<int> result{0};
    double done = 0;
    for (const double weight : weights) {
        done += weight;
        result.push_back(int(std::lround(room * done / sum)));
    }
    return result;
}

} // namespace

ChartDeck::ChartDeck(Host &host, QWidget *parent) : QWidget(parent), m_host(host) {
    setObjectName(QStringLiteral("chartDeck"));
    setMouseTracking(true);
    m_tabs = new QTabBar(this);
    m_tabs->setObjectName(QStringLiteral("chartTabs"));
    m_tabs->setDrawBase(false);
    m_tabs->setExpanding(false);
    m_tabs->setTabsClosable(true);
    m_tabs->setElideMode(Qt::ElideRight);
    m_tabs->hide();
    m_empty = new QLabel(this);
    m_empty->setAlignment(Qt::AlignCenter);
    m_empty->setProperty("role", QStringLiteral("empty"));
    m_empty->setWordWrap(true);
    connect(m_tabs, &QTabBar::currentChanged, this, [this](int index) {
        if (index >= 0 && index < int(m_panes.size()))
            activate(m_panes[std::size_t(index)]);
    });
    connect(m_tabs, &QTabBar::tabCloseRequested, this, [this](int index) {
        if (index >= 0 && index < int(m_panes.size()))
            closeChart(m_panes[std::size_t(index)]);
    });
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) { activateOwner(now); });
    qApp->installEventFilter(this);
    retranslate();
}

ChartDeck::~ChartDeck() {
    disconnect(qApp, nullptr, this, nullptr);
}

ChartPane *ChartDeck::addChart() {
    auto *pane = new ChartPane(m_host, this);
    m_panes.push_back(pane);
    makeRows();
    // The frame has its size before the chart is made, so that the first layout is the right one.
    arrange();
    pane->show();
    if (!pane->create()) {
        m_panes.pop_back();
        delete pane;
        makeRows();
        arrange();
        return nullptr;
    }
    connect(
        pane, &ChartPane::closeWanted, this, [this, pane] { closeChart(pane); }, Qt::QueuedConnection);
    connect(pane, &ChartPane::activateWanted, this, [this, pane] { activate(pane); });
    connect(pane, &ChartPane::maximiseWanted, this, [this, pane] {
        activate(pane);
        setMode(m_mode == Tiled ? Tabs : Tiled);
    });
    connect(pane, &ChartPane::captionChanged, this, [this, pane] {
        const auto place = std::find(m_panes.begin(), m_panes.end(), pane);
        m_tabs->setTabText(int(place - m_panes.begin()), pane->shortCaption());
        emit captionChanged(pane);
    });
    showTabs();
    activate(pane);
    return pane;
}

void ChartDeck::closeChart(ChartPane *pane) {
    const auto place = std::find(m_panes.begin(), m_panes.end(), pane);
    if (place == m_panes.end())
        return;
    const std::size_t index = std::size_t(place - m_panes.begin());
    m_panes.erase(place);
    const bool wasActive = m_active == pane;
    if (wasActive)
        m_active = nullptr;
    pane->hide();
    pane->destroy();
    pane->deleteLater();
    makeRows();
    showTabs();
    arrange();
    if (!wasActive)
        return;
    if (m_panes.empty())
        emit activated(nullptr);
    else
        activate(m_panes[std::min(index, m_panes.size() - 1)]);
}

void ChartDeck::closeAll() {
    m_active = nullptr;
    while (!m_panes.empty()) {
        ChartPane *pane = m_panes.back();
        m_panes.pop_back();
        pane->destroy();
        delete pane;
    }
    showTabs();
}

ChartPane *ChartDeck::find(Handle window) const {
    const auto place = std::find_if(m_panes.begin(), m_panes.end(),
                                    [window](const ChartPane *pane) { return pane->window() == window; });
    return window != 0 && place != m_panes.end() ? *place : nullptr;
}

void ChartDeck::activate(ChartPane *pane) {
    if (!pane || pane == m_active)
        return;
    m_active = pane;
    for (ChartPane *other : m_panes)
        other->setActive(other == pane);
    if (m_mode == Tabs)
        arrange();
    {
        const QSignalBlocker quiet(m_tabs);
        m_tabs->setCurrentIndex(int(std::find(m_panes.begin(), m_panes.end(), pane) - m_panes.begin()));
    }
    pane->takeFocus();
    emit activated(pane);
}

void ChartDeck::activateNext(int step) {
    if (m_panes.empty())
        return;
    const auto place = std::find(m_panes.begin(), m_panes.end(), m_active);
    const int count = int(m_panes.size());
    const int index = place == m_panes.end() ? 0 : int(place - m_panes.begin());
    activate(m_panes[std::size_t((index + step % count + count) % count)]);
}

void ChartDeck::setMode(Mode mode) {
    if (mode == m_mode)
        return;
    m_mode = mode;
    showTabs();
    arrange();
    emit modeChanged(mode);
}

void ChartDeck::activateOwner(QObject *object) {
    for (; object; object = object->parent()) {
        const auto place = std::find(m_panes.begin(), m_panes.end(), object);
        if (place != m_panes.end()) {
            if ((*place)->window() != 0)
                activate(*place);
            return;
        }
    }
}

// A press counts before the chart sees it, and also where the window system gives no focus.
bool ChartDeck::eventFilter(QObject *object, QEvent *event) {
    if (event->type() == QEvent::MouseButtonPress && object->isWidgetType())
        activateOwner(object);
    return QWidget::eventFilter(object, event);
}

// As square a grid as the number of charts gives; the last row takes what is left.
void ChartDeck::makeRows() {
    m_rows.clear();
    const int count = int(m_panes.size());
    if (count == 0)
        return;
    const int columns = int(std::ceil(std::sqrt(double(count))));
    const int rows = (count + columns - 1) / columns;
    for (int row = 0, left = count; row < rows; ++row) {
        const int here = (left + rows - row - 1) / (rows - row);
        m_rows.push_back({1.0, std::vector<double>(std::size_t(here), 1.0)});
        left -= here;
    }
}

void ChartDeck::showTabs() {
    const QSignalBlocker quiet(m_tabs);
    while (m_tabs->count() > 0)
        m_tabs->removeTab(0);
    for (const ChartPane *pane : m_panes)
        m_tabs->addTab(pane->shortCaption());
    m_tabs->setCurrentIndex(int(std::find(m_panes.begin(), m_panes.end(), m_active) - m_panes.begin()));
    m_tabs->setVisible(m_mode == Tabs && !m_panes.empty());
}

void ChartDeck::arrange() {
    m_empty->setVisible(m_panes.empty());
    m_empty->setGeometry(rect().adjusted(20, 20, -20, -20));
    if (m_panes.empty())
        return;
    if (m_mode == Tabs) {
        const int top = m_tabs->sizeHint().height();
        m_tabs->setGeometry(0, 0, width(), top);
        ChartPane *shown = m_active ? m_active : m_panes.front();
        shown->setGeometry(0, top, width(), std::max(1, height() - top));
        shown->show();
        for (ChartPane *pane : m_panes)
            pane->setVisible(pane == shown);
        return;
    }
    std::vector<double> weights;
    for (const Row &row : m_rows)
        weights.push_back(row.weight);
    const std::vector<int> rows = offsets(weights, height());
    std::size_t next = 0;
    for (std::size_t r = 0; r < m_rows.size(); ++r) {
        const std::vector<int> columns = offsets(m_rows[r].columns, width());
        const int y = rows[r] + gap * int(r);
        for (std::size_t c = 0; c < m_rows[r].columns.size() && next < m_panes.size(); ++c) {
            ChartPane *pane = m_panes[next++];
            pane->setGeometry(columns[c] + gap * int(c), y, columns[c + 1] - columns[c],
                              rows[r + 1] - rows[r]);
            pane->show();
        }
    }
}

ChartDeck::Border ChartDeck::borderAt(const QPoint &point) const {
    if (m_mode != Tiled || m_rows.empty())
        return {};
    std::vector<double> weights;
    for (const Row &row : m_rows)
        weights.push_back(row.weight);
    const std::vector<int> rows = offsets(weights, height());
    for (std::size_t r = 0; r < m_rows.size(); ++r) {
        const int top = rows[r] + gap * int(r);
        const int bottom = rows[r + 1] + gap * int(r);
        if (r + 1 < m_rows.size() && point.y() >= bottom && point.y() < bottom + gap)
            return {-1, int(r)};
        if (point.y() < top || point.y() >= bottom)
            continue;
        const std::vector<int> columns = offsets(m_rows[r].columns, width());
        for (std::size_t c = 0; c + 1 < m_rows[r].columns.size(); ++c) {
            const int right = columns[c + 1] + gap * int(c);
            if (point.x() >= right && point.x() < right + gap)
                return {int(r), int(c)};
        }
    }
    return {};
}

void ChartDeck::mousePressEvent(QMouseEvent *event) {
    m_drag = event->button() == Qt::LeftButton ? borderAt(event->pos()) : Border();
}

void ChartDeck::mouseMoveEvent(QMouseEvent *event) {
    if (m_drag.before < 0) {
        const Border border = borderAt(event->pos());
        if (border.before < 0)
            unsetCursor();
        else
            setCursor(border.row < 0 ? Qt::SplitVCursor : Qt::SplitHCursor);
        return;
    }
    std::vector<double> weights;
    const bool isRow = m_drag.row < 0;
    if (isRow) {
        for (const Row &row : m_rows)
            weights.push_back(row.weight);
    } else {
        weights = m_rows[std::size_t(m_drag.row)].columns;
    }
    const std::size_t before = std::size_t(m_drag.before);
    const int length = isRow ? height() : width();
    const std::vector<int> edges = offsets(weights, length);
    const int pair = edges[before + 2] - edges[before];
    const int place =
        (isRow ? event->pos().y() : event->pos().x()) - gap * m_drag.before - gap / 2 - edges[before];
    if (pair < 2 * smallestShare)
        return;
    const double share = double(qBound(smallestShare, place, pair - smallestShare)) / pair;
    const double sum = weights[before] + weights[before + 1];
    weights[before] = sum * share;
    weights[before + 1] = sum - weights[before];
    if (isRow) {
        for (std::size_t r = 0; r < m_rows.size(); ++r)
            m_rows[r].weight = weights[r];
    } else {
        m_rows[std::size_t(m_drag.row)].columns = weights;
    }
    arrange();
}

void ChartDeck::mouseReleaseEvent(QMouseEvent *) {
    m_drag = Border();
}

void ChartDeck::resizeEvent(QResizeEvent *) {
    arrange();
}

void ChartDeck::changeEvent(QEvent *event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void ChartDeck::retranslate() {
    m_empty->setText(tr("No chart is open.\nDouble-click a symbol in the list to open one."));
}

} // namespace desk
