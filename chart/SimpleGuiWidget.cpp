#include "chart/SimpleGuiWidget.h"

#include "module/HostCalls.h"
#include "objects/ToolBar.h"

#include <new>
#include <stdexcept>

CSimpleGUIWidget::CSimpleGUIWidget(CModule *module, void *handle, QWidget *parent, QWidget *toolBarParent,
                                   const char *name, Qt::WindowFlags flags)
    : QWidget(parent, flags), m_hParentHandle(handle), m_pModule(module) {
    // The host is asked before there is anything to lose.
    m_hComponent = HostCalls::findInterface("MAINWINDOW", "VELMAR", nullptr);
    m_pToolBar = new (std::nothrow) CToolBar(toolBarParent);
    if (!m_pToolBar)
        throw std::runtime_error("Error memo in <CSimpleGUIWidget::CSimpleGUIWidget>");
    setAttribute(Qt::WA_MouseTracking);
    setObjectName(QString::fromLatin1(name));
}

CSimpleGUIWidget::~CSimpleGUIWidget() {
    delete m_pToolBar.data();
}

int CSimpleGUIWidget::Create() {
    return 0;
}

int CSimpleGUIWidget::ShowPropertyPage() {
    return 0;
}

int CSimpleGUIWidget::ApplyPropertyPage(PROPERTY_CHANGE *) {
    return 0;
}

void CSimpleGUIWidget::mouseMoveEvent(QMouseEvent *event) {
    if (m_pToolBar)
        m_pToolBar->mouseMoveEvent(event);
}

void CSimpleGUIWidget::resizeEvent(QResizeEvent *event) {
    QWidget::resizeEvent(event);
    if (m_pToolBar)
        m_pToolBar->OnResize();
}
