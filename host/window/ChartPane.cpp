#include "host/window/ChartPane.h"
#include "host/core/Host.h"
#include "host/window/Theme.h"
#include "module/HostMessages.h"
#include "module/HostRecords.h"
#include <QCoreApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

namespace desk {

namespace {

constexpr int headerHeight = 28;
constexpr int captionRoom = 230; // pixels of a header that a tool bar leaves to the caption and the buttons

QToolButton *headerButton(QWidget *parent, const QString &icon, const QString &name) {
    auto *button = new QToolButton(parent);
    button->setIcon(theme::icon(icon));
    button->setIconSize(QSize(12, 12));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setObjectName(name);
    return button;
}

void repolish(QWidget *widget) {
    widget->style()->unpolish(widget);
    widget->style()->polish(widget);
    for (QWidget *child : widget->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
        child->style()->unpolish(child);
        child->style()->polish(child);
    }
    widget->update();
}

} // namespace

ChartPane::ChartPane(Host &host, QWidget *parent) : QFrame(parent), m_host(host) {
    setObjectName(QStringLiteral("chartPane"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->setSpacing(0);
    m_header = new QWidget(this);
    m_header->setObjectName(QStringLiteral("chartHeader"));
    m_header->setAttribute(Qt::WA_StyledBackground);
    m_header->setFixedHeight(headerHeight);
    auto *row = new QHBoxLayout(m_header);
    row->setContentsMargins(8, 1, 3, 1);
    row->setSpacing(2);
    m_title = new QLabel(m_header);
    m_title->setObjectName(QStringLiteral("chartTitle"));
    m_title->setTextFormat(Qt::PlainText);
    m_title->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_title->installEventFilter(this);
    m_maximise = headerButton(m_header, QStringLiteral("maximise"), QStringLiteral("maximisePane"));
    m_close = headerButton(m_header, QStringLiteral("close"), QStringLiteral("closePane"));
    m_strip = new QWidget(m_header);
    m_strip->setObjectName(QStringLiteral("chartStrip"));
    row->addWidget(m_title, 1);
    row->addWidget(m_strip);
    row->addWidget(m_maximise);
    row->addWidget(m_close);

    m_frame = new QWidget(this);
    m_frame->setMinimumSize(120, 80);
    m_frame->installEventFilter(this);
    m_inner = new QWidget(m_frame);
    layout->addWidget(m_header);
    layout->addWidget(m_frame, 1);

    connect(m_close, &QToolButton::clicked, this, &ChartPane::closeWanted);
    connect(m_maximise, &QToolButton::clicked, this, &ChartPane::maximiseWanted);
    retranslate();
}

ChartPane::~ChartPane() {
    destroy();
}

bool ChartPane::create() {
    auto data = zeroRecord<mvwcCreateData>();
    data.parent = Word(m_inner->winId());
    data.toolBarParent = Word(m_strip->winId());
    const int refused = m_host.sendToModule(ToModule::CreateWindow, toWord(&data));
    m_window = Handle(toWord(data.widget));
    if (refused || m_window == 0) {
        m_window = 0;
        return false;
    }
    // The chart's tool bar stretches over its parent, which therefore takes the size that the bar wants.
    if (const auto *bar = m_strip->findChild<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
        m_strip->setFixedSize(qMax(1, bar->sizeHint().width()), headerHeight - 2);
    showToolBar();
    resizeChart();
    if (m_frame->isVisible())
        m_host.sendToModule(ToModule::Show, int(m_window));
    return true;
}

void ChartPane::destroy() {
    if (m_window == 0)
        return;
    const Handle window = m_window;
    m_window = 0;
    m_host.sendToModule(ToModule::DeleteWindow, int(window));
}

QWidget *ChartPane::chart() const {
    const QList<QWidget *> children = m_inner->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    return children.isEmpty() ? nullptr : children.first();
}

void ChartPane::takeFocus() {
    if (m_window != 0)
        m_host.sendToModule(ToModule::TakeFocus, int(m_window));
}

void ChartPane::setActive(bool active) {
    m_active = active;
    showToolBar();
    setProperty("active", active);
    m_header->setProperty("active", active);
    repolish(this);
    repolish(m_header);
    showCaption(); // in another weight
}

void ChartPane::setCaption(const QString &caption) {
    m_caption = caption;
    showCaption();
    emit captionChanged();
}

QString ChartPane::shortCaption() const {
    const QString head = QCoreApplication::applicationName() + QStringLiteral(", ");
    return m_caption.startsWith(head) ? m_caption.mid(head.size()) : m_caption;
}

void ChartPane::showCaption() {
    m_title->setText(m_title->fontMetrics().elidedText(shortCaption(), Qt::ElideRight, m_title->width()));
    m_title->setToolTip(shortCaption());
}

// The active chart's tool bar, where it leaves room for the caption.
void ChartPane::showToolBar() {
    m_strip->setVisible(m_active && width() - m_strip->width() > captionRoom);
}

void ChartPane::resizeEvent(QResizeEvent *event) {
    QFrame::resizeEvent(event);
    showToolBar();
}

void ChartPane::resizeChart() {
    m_inner->setGeometry(m_frame->rect());
    if (m_window != 0)
        m_host.sendToModule(ToModule::Resize, int(m_window));
}

bool ChartPane::eventFilter(QObject *object, QEvent *event) {
    if (object == m_title && event->type() == QEvent::Resize)
        showCaption();
    if (object == m_frame) {
        if (event->type() == QEvent::Resize)
            resizeChart();
        else if (event->type() == QEvent::Show && m_window != 0)
            m_host.sendToModule(ToModule::Show, int(m_window));
    }
    return QFrame::eventFilter(object, event);
}

void ChartPane::mousePressEvent(QMouseEvent *event) {
    QFrame::mousePressEvent(event);
    emit activateWanted();
}

void ChartPane::changeEvent(QEvent *event) {
    QFrame::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void ChartPane::retranslate() {
    m_maximise->setToolTip(tr("One chart at a time, or all of them"));
    m_close->setToolTip(tr("Close this chart"));
}

} // namespace desk
