#pragma once

#include "dialogs/PropertyHead.h"
#include "objects/ToolBar.h"

#include <QPointer>
#include <QWidget>

class CModule;
struct PROPERTY_CHANGE;

// Base of the chart window: a widget with a property page, a tool bar and its host handles.
class CSimpleGUIWidget : public QWidget, public CPropertyHead {
    Q_OBJECT

public:
    // `handle` is the module's interface handle; the tool bar becomes a child of `toolBarParent`.
    CSimpleGUIWidget(CModule *module, void *handle, QWidget *parent, QWidget *toolBarParent, const char *name,
                     Qt::WindowFlags flags);
    ~CSimpleGUIWidget() override;

    virtual int Create();
    virtual int ShowPropertyPage();
    virtual int ApplyPropertyPage(PROPERTY_CHANGE *change);

    void *ComponentHandle() const { return m_hComponent; }
    void *ParentHandle() const { return m_hParentHandle; }
    CToolBar *ToolBar() const { return m_pToolBar.data(); }

protected:
    void mouseMoveEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

    QPointer<CToolBar> m_pToolBar;   // null once the host has taken its parent away
    void *m_hComponent = nullptr;    // the host's main window, target of the window messages
    void *m_hParentHandle = nullptr; // this module's interface handle
    CModule *m_pModule = nullptr;
};
