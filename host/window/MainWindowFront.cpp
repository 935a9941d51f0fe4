// What the services and the module ask of the main window.
#include "host/core/CalculatedObject.h"
#include "host/core/Host.h"
#include "host/core/Journal.h"
#include "host/pages/Page.h"
#include "host/pages/PropertyDock.h"
#include "host/pages/PropertyService.h"
#include "host/window/ChartDeck.h"
#include "host/window/ChartPane.h"
#include "host/window/InformationPanel.h"
#include "host/window/LogPanel.h"
#include "host/window/MainWindow.h"
#include "host/window/ObjectDialog.h"
#include "host/window/SymbolPanel.h"
#include "module/HostMessages.h"
#include <QCoreApplication>
#include <QDesktopServices>
#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QStatusBar>
#include <QStyle>
#include <QToolButton>
#include <QUrl>

namespace desk {

void MainWindow::tell(Level level, const QString &sentence) {
    m_journal.add(level, QStringLiteral("Desk"), sentence);
    m_message->setText(sentence);
    m_message->setToolTip(sentence);
    m_message->setProperty("level", int(level) >= int(Level::Error)     ? QStringLiteral("error")
                                    : int(level) >= int(Level::Warning) ? QStringLiteral("warning")
                                                                        : QString());
    m_message->style()->unpolish(m_message);
    m_message->style()->polish(m_message);
}

void MainWindow::progress(const QString &what, int percent) {
    m_progress->setVisible(percent < 100);
    m_progress->setValue(percent);
    if (percent < 100)
        m_message->setText(what);
    // The import holds the event loop: what it tells is painted here.
    statusBar()->repaint();
}

bool MainWindow::confirm(CalculatedObject &object) {
    if (m_unattended || !object.page())
        return true;
    // The dialog runs an event loop, in which anything may close: the object is held, the window is asked
    // for.
    const std::shared_ptr<CalculatedObject> held = m_host.objects().find(object.handle());
    ObjectDialog dialog(object, this);
    return dialog.exec() == QDialog::Accepted;
}

void MainWindow::showObject(CalculatedObject &object) {
    if (m_services.properties)
        m_services.properties->showObject(object);
}

void MainWindow::refreshObject(CalculatedObject &object) {
    if (m_services.properties)
        m_services.properties->refreshObject(object);
    scheduleChartState();
}

QToolButton *MainWindow::toolButton(unsigned message) {
    switch (message) {
    case ToHost::ZoomInButton:
        return m_zoomIn;
    case ToHost::ZoomOutButton:
        return m_zoomOut;
    case ToHost::LastCandleButton:
        return m_lastCandle;
    case ToHost::InformationBoxButton:
        return m_informationButton;
    default:
        return nullptr;
    }
}

void MainWindow::captionChanged(Handle window, const QString &caption) {
    if (ChartPane *pane = m_deck->find(window))
        pane->setCaption(caption);
    m_stateTimer.start();
}

void MainWindow::milestone(const QString &text) {
    if (!text.isEmpty())
        m_actions->add(text);
    scheduleChartState();
}

void MainWindow::crossCursorChanged(bool on) {
    m_cross->setChecked(on);
}

void MainWindow::showLocator(const std::vector<LocatorLine> &lines, const QColor &background) {
    if (m_information->isVisible())
        m_information->showLines(lines, background);
}

void MainWindow::openInstrumentPicker(const QString &name) {
    m_symbols->show();
    m_symbols->raise();
    m_symbols->filter(name);
}

void MainWindow::askForLogin() {
    tell(Level::Warning, tr("The practice account takes no orders: log in to a dealing account first."));
}

// The guide is one page: every question for help leads to it.
void MainWindow::openHelp(const QString &) {
    if (!m_unattended)
        showGuide();
}

void MainWindow::openAlert(const QString &symbol) {
    if (m_unattended)
        return;
    auto *box = new QMessageBox(QMessageBox::Information, tr("New alert"),
                                tr("Alert for %1: alerts need a dealing account.").arg(symbol),
                                QMessageBox::Ok, this);
    box->setObjectName(QStringLiteral("alertBox"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

QLabel *MainWindow::statusPane(unsigned id, int width) {
    QLabel *&label = m_statusPanes[id];
    if (!label) {
        label = new QLabel(statusBar());
        label->setObjectName(QStringLiteral("statusPane%1").arg(id));
        label->setMinimumWidth(width);
        label->setAlignment(Qt::AlignCenter);
        statusBar()->addPermanentWidget(label);
    }
    return label;
}

} // namespace desk
