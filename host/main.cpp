// The desk: a small trading terminal that hosts the chart module.
#include "host/window/Options.h"
#include "host/window/Session.h"
#include "host/window/Theme.h"
#include <QApplication>
#include <QDir>
#include <QLibraryInfo>
#include <cstdio>

namespace {

constexpr int nothingToShow = 2;

// A picture needs no display; otherwise the display that is there, and none at all as the last resort.
void choosePlatform(const QStringList &arguments) {
    if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        return;
    bool picture = false;
    for (const QString &argument : arguments)
        picture = picture || argument == "--screenshot" || argument.startsWith("--screenshot=");
    QStringList platforms;
    const QDir plugins(QLibraryInfo::location(QLibraryInfo::PluginsPath) + QStringLiteral("/platforms"));
    if (!picture && qEnvironmentVariableIsSet("WAYLAND_DISPLAY") &&
        !plugins.entryList({QStringLiteral("libqwayland*")}).isEmpty())
        platforms << QStringLiteral("wayland");
    if (!picture && !qEnvironmentVariableIsEmpty("DISPLAY"))
        platforms << QStringLiteral("xcb");
    platforms << QStringLiteral("offscreen");
    qputenv("QT_QPA_PLATFORM", platforms.join(QLatin1Char(';')).toLocal8Bit());
}

// The toolkit's own remarks are for developers; a user gets sentences of the desk.
void handleToolkitMessage(QtMsgType type, const QMessageLogContext &, const QString &message) {
    if (type == QtCriticalMsg || type == QtFatalMsg || qEnvironmentVariableIsSet("VELMAR_DESK_DEBUG"))
        std::fprintf(stderr, "%s\n", qPrintable(message));
}

int refuse(const QString &sentence) {
    std::fprintf(stderr, "%s\n", qPrintable(sentence));
    return nothingToShow;
}

} // namespace

int main(int argc, char **argv) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    qInstallMessageHandler(handleToolkitMessage);
    choosePlatform(arguments);
    // The rooms of the charts have window ids, and so has what they lie in; their neighbours need none.
    QCoreApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings);
    QApplication application(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("velmar"));
    QCoreApplication::setApplicationName(QStringLiteral("Velmar Desk"));

    desk::Options options;
    QString sentence;
    if (!options.parse(arguments, sentence))
        return refuse(sentence);
    if (options.help) {
        std::fputs(qPrintable(desk::Options::helpText()), stdout);
        return 0;
    }
    desk::theme::apply(application);
    const bool blind = QGuiApplication::platformName() == QLatin1String("offscreen");
    const bool ownPicture = blind && options.screenshot.isEmpty();
    if (ownPicture)
        options.screenshot = desk::Session::dataFolder(options) + QStringLiteral("/desk.png");

    desk::Session session(options);
    if (!options.screenshot.isEmpty())
        session.setUnattended();
    sentence = session.start();
    if (!sentence.isEmpty())
        return refuse(sentence);
    if (options.screenshot.isEmpty())
        return QApplication::exec();

    int result = 0;
    session.takePicture(options.screenshot, [&](const QString &refusal) {
        if (!refusal.isEmpty())
            result = refuse(refusal);
        else if (ownPicture)
            std::printf("There is no display: the desk's picture is in %s\n", qPrintable(options.screenshot));
        QApplication::exit(result);
    });
    QApplication::exec();
    return result;
}
