#include "objects/ToolBar.h"

#include <QComboBox>
#include <QCursor>
#include <QFrame>
#include <QMouseEvent>
#include <QPainter>
#include <QSlider>
#include <QTimerEvent>
#include <QVBoxLayout>

namespace {

constexpr int gap = 2;             // pixels between children
constexpr int margin = 4;          // pixels beside a button's content
constexpr int outDelay = 1500;     // milliseconds until a bar that was left hides
constexpr int inDelay = 300;       // milliseconds until a hidden bar under the mouse shows

int wantedWidth(const QWidget *widget) {
    return qBound(widget->minimumWidth(), widget->sizeHint().width(), widget->maximumWidth());
}

} // namespace

CToolButton::CToolButton(QWidget *parent) : QToolButton(parent) {
    setAutoRaise(true);
    setFocusPolicy(Qt::NoFocus);
}

CToolButton::CToolButton(const QPixmap &pixmap, const QString &text, const QString &title, QWidget *parent)
    : CToolButton(parent) {
    setToolTip(title);
    setPixmapButton(pixmap);
    setTextButton(text);
}

int CToolButton::GetWidthByContent() const {
    int width = 2 * margin;
    if (!m_pixmap.isNull())
        width += m_pixmap.width();
    if (!text().isEmpty())
        width += fontMetrics().horizontalAdvance(text()) + (m_pixmap.isNull() ? 0 : margin);
    return width;
}

void CToolButton::setPixmapButton(const QPixmap &pixmap) {
    m_pixmap = pixmap;
    setIcon(QIcon(pixmap));
    updateGeometry();
    update();
}

void CToolButton::setTextButton(const QString &text) {
    setText(text);
    updateGeometry();
    update();
}

void CToolButton::setForeground(const QColor &color) {
    m_foreground = color;
    update();
}

void CToolButton::resizeWidthButton(int width, int height) {
    resize(width < 1 ? GetWidthByContent() : width, height);
}

QSize CToolButton::sizeHint() const {
    return QSize(GetWidthByContent(), qMax(m_pixmap.height(), fontMetrics().height()) + 2 * margin);
}

void CToolButton::drawButtonLabel(QPainter *painter) {
    int x = margin;
    if (!m_pixmap.isNull()) {
        const QPixmap pixmap =
            isEnabled() ? m_pixmap : QIcon(m_pixmap).pixmap(m_pixmap.size(), QIcon::Disabled);
        painter->drawPixmap(x, (height() - m_pixmap.height()) / 2, pixmap);
        x += m_pixmap.width() + margin;
    }
    painter->setPen(isEnabled() ? m_foreground : palette().color(QPalette::Disabled, QPalette::ButtonText));
    painter->drawText(QRect(x, 0, width() - x, height()), Qt::AlignVCenter | Qt::AlignLeft, text());
}

void CToolButton::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    if (isEnabled() && (underMouse() || isDown() || isChecked())) {
        painter.fillRect(rect(), palette().color(isDown() || isChecked() ? QPalette::Mid : QPalette::Midlight));
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
    drawButtonLabel(&painter);
}

CToolBar::CToolBar(QWidget *parent) : QWidget(parent) {
    setMouseTracking(true);
    m_extendButton = new CToolButton(QPixmap(), QString(QChar(0x00BB)), QString(), this);
    m_extendButton->hide();
    connect(m_extendButton, SIGNAL(clicked()), this, SLOT(OnBnClickedExtend()));
    if (parent)
        parent->installEventFilter(this);
}

CToolBar::~CToolBar() {
    for (const CChildWidget &child : m_children)
        child.widget->disconnect(this);
    TakeBackExtension();
}

CToolButton *CToolBar::AddButton(const QPixmap &pixmap, const QString &text, const QObject *receiver,
                                 const char *slot, int index, bool checkable, bool enabled) {
    CToolButton *button = new CToolButton(pixmap, text, QString(), this);
    button->setForeground(m_foreground);
    button->setCheckable(checkable);
    button->setEnabled(enabled);
    if (receiver && slot)
        connect(button, SIGNAL(clicked()), receiver, slot);
    AddChildWidget({CChildWidget::Button, button, true, true}, index);
    return button;
}

QComboBox *CToolBar::AddCombo(int index) {
    QComboBox *combo = new QComboBox(this);
    AddChildWidget({CChildWidget::Combo, combo, true, true}, index);
    return combo;
}

QSlider *CToolBar::AddSlider(int index) {
    QSlider *slider = new QSlider(Qt::Horizontal, this);
    slider->setFixedWidth(120);
    AddChildWidget({CChildWidget::Slider, slider, true, true}, index);
    return slider;
}

void CToolBar::AddWidget(QWidget *widget, int index) {
    widget->setParent(this);
    AddChildWidget({CChildWidget::Widget, widget, false, true}, index);
}

void CToolBar::AddSeparator(int index) {
    QFrame *line = new QFrame(this);
    line->setFrameStyle(QFrame::VLine | QFrame::Sunken);
    AddChildWidget({CChildWidget::Separator, line, true, true}, index);
}

void CToolBar::AddChildWidget(const CChildWidget &child, int index) {
    if (index < 0 || index > GetChildCount())
        index = GetChildCount();
    m_children.insert(m_children.begin() + index, child);
    // A widget that its owner deletes leaves the bar by itself.
    connect(child.widget, &QObject::destroyed, this, [this](QObject *gone) {
        for (std::size_t i = 0; i < m_children.size(); ++i) {
            if (static_cast<QObject *>(m_children[i].widget) == gone) {
                m_children.erase(m_children.begin() + static_cast<std::ptrdiff_t>(i));
                break;
            }
        }
    });
    child.widget->show();
    OnResize();
}

void CToolBar::DeleteChildWidget(int index) {
    if (index < 0 || index >= GetChildCount())
        return;
    const CChildWidget child = m_children[static_cast<std::size_t>(index)];
    m_children.erase(m_children.begin() + index);
    child.widget->disconnect(this);
    if (child.owned) {
        delete child.widget;
    } else {
        child.widget->setParent(nullptr);
        child.widget->hide();
    }
    OnResize();
}

void CToolBar::DeleteChildWidget(const QWidget *widget) {
    for (int i = 0; i < GetChildCount(); ++i) {
        if (m_children[static_cast<std::size_t>(i)].widget == widget) {
            DeleteChildWidget(i);
            return;
        }
    }
}

void CToolBar::SetBackground(const QColor &color) {
    m_background = color;
    update();
}

void CToolBar::SetBackgroundImage(const QImage &image) {
    m_backgroundImage = image;
    update();
}

void CToolBar::SetForeground(const QColor &color) {
    m_foreground = color;
    for (const CChildWidget &child : m_children) {
        if (CToolButton *button = qobject_cast<CToolButton *>(child.widget))
            button->setForeground(color);
    }
    m_extendButton->setForeground(color);
    update();
}

QSize CToolBar::sizeHint() const {
    int width = 0;
    int height = m_extendButton->sizeHint().height();
    for (const CChildWidget &child : m_children) {
        width += wantedWidth(child.widget) + gap;
        height = qMax(height, child.widget->sizeHint().height());
    }
    return QSize(width, height);
}

/// Lays the children out in a row over the width of the bar's parent; the rest goes into the extension.
void CToolBar::OnResize() {
    TakeBackExtension();
    const int rowHeight = sizeHint().height();
    const int room = parentWidget() ? parentWidget()->width() : sizeHint().width();
    setGeometry(0, 0, room, rowHeight);
    const int extendWidth = m_extendButton->GetWidthByContent();
    const bool allFit = sizeHint().width() <= room;
    int x = 0;
    bool full = false;
    for (CChildWidget &child : m_children) {
        const int width = wantedWidth(child.widget);
        full = full || (!allFit && x + width + gap + extendWidth > room);
        child.fits = !full;
        child.widget->setVisible(child.fits);
        if (child.fits)
            child.widget->setGeometry(x, 0, width, rowHeight);
        x += width + gap;
    }
    m_extendButton->setVisible(full);
    if (full)
        m_extendButton->setGeometry(room - extendWidth, 0, extendWidth, rowHeight);
}

void CToolBar::OnBnClickedExtend() {
    ShowMenu();
}

void CToolBar::ShowMenu() {
    TakeBackExtension();
    m_extension = new QFrame(this, Qt::Popup);
    m_extension->installEventFilter(this);
    QVBoxLayout *column = new QVBoxLayout(m_extension);
    column->setContentsMargins(gap, gap, gap, gap);
    column->setSpacing(gap);
    for (const CChildWidget &child : m_children) {
        if (!child.fits && child.kind != CChildWidget::Separator) {
            column->addWidget(child.widget);
            child.widget->show();
        }
    }
    const QPoint corner = m_extendButton->mapToGlobal(QPoint(0, m_extendButton->height()));
    m_extension->move(corner);
    m_extension->show();
}

void CToolBar::TakeBackExtension() {
    if (!m_extension)
        return;
    for (const CChildWidget &child : m_children) {
        if (child.widget->parentWidget() == m_extension) {
            child.widget->setParent(this);
            child.widget->hide();
        }
    }
    m_extension->removeEventFilter(this);
    m_extension->hide();
    m_extension->deleteLater();
    m_extension = nullptr;
}

bool CToolBar::IsMouseOver() const {
    return rect().contains(mapFromGlobal(QCursor::pos()));
}

void CToolBar::SetAutoHide(int on) {
    m_autoHide = on != 0;
    if (m_autoHide)
        hide();
    else if (m_showEnable && parentWidget())
        show();
}

void CToolBar::mouseMoveEvent(QMouseEvent *) {
    if (!IsMouseOver())
        return;
    if (isVisible()) {
        StopTimer(m_outTimer);
        m_outTimer = startTimer(outDelay);
        return;
    }
    if (!m_autoHide && m_showEnable && parentWidget())
        show();
    if (m_inTimer == 0)
        m_inTimer = startTimer(inDelay);
}

void CToolBar::timerEvent(QTimerEvent *event) {
    if (event->timerId() == m_outTimer) {
        if (!IsMouseOver() && m_autoHide) {
            StopTimer(m_outTimer);
            TakeBackExtension();
            hide();
        }
    } else if (event->timerId() == m_inTimer) {
        if (IsMouseOver() && m_showEnable && parentWidget())
            show();
        StopTimer(m_inTimer);
    }
}

void CToolBar::StopTimer(int &timer) {
    if (timer)
        killTimer(timer);
    timer = 0;
}

bool CToolBar::eventFilter(QObject *watched, QEvent *event) {
    if (watched == parentWidget() && event->type() == QEvent::Resize)
        OnResize();
    else if (watched == m_extension && event->type() == QEvent::Hide)
        QMetaObject::invokeMethod(this, [this] { OnResize(); }, Qt::QueuedConnection);
    return QWidget::eventFilter(watched, event);
}

void CToolBar::resizeEvent(QResizeEvent *event) {
    QWidget::resizeEvent(event);
    update();
}

void CToolBar::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.fillRect(rect(), m_background.isValid() ? m_background : palette().color(QPalette::Window));
    if (!m_backgroundImage.isNull())
        painter.drawImage(rect(), m_backgroundImage);
}
