#pragma once
// A whole desk with the built library, a store of its own and no user: tests are the user.
#include "host/core/CalculatedObject.h"
#include "host/core/Trace.h"
#include "host/window/ChartDeck.h"
#include "host/window/ChartPane.h"
#include "host/window/MainWindow.h"
#include "host/window/Session.h"
#include <QApplication>
#include <QFile>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>
#include <QWidget>
#include <gtest/gtest.h>

namespace desk::test {

// Bars of one hour that rise for `rising` bars and fall for the same number, and so on.
inline QString writeBars(const QTemporaryDir &folder, const QString &name, int count, int rising = 20) {
    QFile file(folder.path() + QLatin1Char('/') + name);
    if (!file.open(QIODevice::WriteOnly))
        return QString();
    file.write("time,open,high,low,close,volume\n");
    const QDateTime start(QDate(2024, 1, 1), QTime(0, 0), Qt::UTC);
    double price = 1.1;
    QDateTime time = start;
    for (int written = 0; written < count; time = time.addSecs(3600)) {
        if (time.date().dayOfWeek() > 5)
            continue;
        const double close = price + ((written / rising) % 2 == 0 ? 0.0008 : -0.0008);
        file.write(QStringLiteral("%1,%2,%3,%4,%5,100\n")
                       .arg(time.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")))
                       .arg(price, 0, 'f', 5)
                       .arg(std::max(price, close) + 0.0003, 0, 'f', 5)
                       .arg(std::min(price, close) - 0.0003, 0, 'f', 5)
                       .arg(close, 0, 'f', 5)
                       .toLatin1());
        price = close;
        ++written;
    }
    return file.fileName();
}

class DeskTest : public testing::Test {
protected:
    Options options() const {
        Options result;
        result.library = QStringLiteral(VELMAR_LIBRARY);
        result.store = m_folder.path() + QStringLiteral("/store");
        result.trace = m_folder.path() + QStringLiteral("/trace.txt");
        result.size = QSize(1200, 760);
        return result;
    }
    void start(const Options &wanted) {
        m_session = std::make_unique<Session>(wanted);
        ASSERT_EQ(m_session->start().toStdString(), "");
        QTest::qWait(50);
    }
    // One chart of one hour, EUR/USD, 300 bars, with its positions built.
    void startWithOneChart() {
        Options wanted = options();
        wanted.quoteFiles.push_back(
            QuoteFile::fromArgument(writeBars(m_folder, "bars.csv", 300) + "=EUR/USD"));
        wanted.period = Period{'I', 60};
        start(wanted);
        settle();
    }
    // The charts build their positions on a timer of one second.
    void settle() { QTest::qWait(1300); }

    Session &session() { return *m_session; }
    MainWindow &window() { return m_session->window(); }
    ChartDeck &deck() { return m_session->window().deck(); }
    QWidget *chart() { return deck().active() ? deck().active()->chart() : nullptr; }
    const QTemporaryDir &folder() const { return m_folder; }

    template <class T>
    T *child(const char *name) {
        T *found = m_session->window().findChild<T *>(QString::fromLatin1(name));
        EXPECT_TRUE(found) << name;
        return found;
    }
    void click(QWidget *widget, Qt::MouseButton button = Qt::LeftButton) {
        ASSERT_TRUE(widget);
        QTest::mouseClick(widget, button);
    }
    // The button of an action in a tool bar.
    QWidget *buttonOf(const char *bar, const char *action) {
        QToolBar *tools = child<QToolBar>(bar);
        return tools ? tools->widgetForAction(window().action(QString::fromLatin1(action))) : nullptr;
    }
    void move(QWidget *widget, const QPoint &point, Qt::MouseButtons buttons = Qt::NoButton) {
        QMouseEvent event(QEvent::MouseMove, point, widget->mapToGlobal(point), Qt::NoButton, buttons,
                          Qt::NoModifier);
        QApplication::sendEvent(widget, &event);
    }
    QString traced() {
        QFile file(m_folder.path() + QStringLiteral("/trace.txt"));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }
    int countTraced(const QString &text) { return traced().count(text); }
    const CalculatedObject *instrument() {
        for (const Handle handle : session().host().subscriptions().objects(deck().active()->window())) {
            const auto object = session().host().objects().find(handle);
            if (object && object->isInstrument())
                return object.get();
        }
        return nullptr;
    }
    static int countPixels(const QImage &image, const QColor &colour) {
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                count += image.pixelColor(x, y) == colour ? 1 : 0;
        }
        return count;
    }

private:
    QTemporaryDir m_folder;
    std::unique_ptr<Session> m_session;
};

} // namespace desk::test
