#include "Clipboard/AppDelegate.h"
#include "platform/Info.h"
#include "platform/PlatformLoader.h"
#include "platform/freedesktop/TerminationSignals.h"

#include <QApplication>
#include <QIcon>
#include <QStandardPaths>

#include <cstdio>
#include <cstdlib>

namespace {

AppDelegate *g_delegate = nullptr;

// Qt leaves by exit() when the display connection breaks: no event loop ends and nothing is
// unwound, but what is unsaved must still reach the store.
void saveAtExit()
{
    if (g_delegate)
        g_delegate->applicationWillTerminate();
}

bool isTraceWanted(const SettingsStore &settings)
{
    return qEnvironmentVariableIntValue("QUILLMARSH_TRACE") == 1 ||
           settings.boolForKey(QStringLiteral("trace"));
}

QString storeFolder(const Info &info)
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u'/' +
           info.bundleIdentifier;
}

int runApplication(QApplication &application, InstanceDoor &door)
{
    const Info info = Info::main();
    const std::unique_ptr<Platform> platform = PlatformLoader::makePlatform();
    AppDelegate delegate(*platform, info, storeFolder(info));
    delegate.setTrace(isTraceWanted(*platform->settings));
    g_delegate = &delegate;
    std::atexit(saveAtExit);

    TerminationSignals termination;
    QObject::connect(&termination, &TerminationSignals::terminationRequested, &delegate,
                     &AppDelegate::quit);
    QObject::connect(&application, &QCoreApplication::aboutToQuit, &delegate,
                     &AppDelegate::applicationWillTerminate);
    QObject::connect(&application, &QGuiApplication::commitDataRequest, &delegate,
                     [&delegate] { delegate.saveContext(); });
    QObject::connect(&door, &InstanceDoor::activated, &delegate, &AppDelegate::launch);
    QObject::connect(&door, &InstanceDoor::actionRequested, &delegate,
                     [&delegate](const QString &action) {
                         if (action == u"preferences")
                             delegate.openPreferences();
                     });
    // Before the event loop, because a copy that is there already would be captured by an
    // application whose panes are not loaded yet.
    delegate.applicationDidFinishLaunching();
    door.open();

    const int status = QApplication::exec();
    g_delegate = nullptr;
    return status;
}

} // namespace

int main(int argc, char **argv)
{
    // First of all, so that a second start is over before it talks to the display.
    std::unique_ptr<InstanceDoor> entered = PlatformLoader::makeDoor();
    switch (entered->enter(QString())) {
    case InstanceDoor::Entry::First:
        break;
    case InstanceDoor::Entry::Forwarded:
        return EXIT_SUCCESS;
    case InstanceDoor::Entry::Unreachable:
        std::fputs("quillmarsh: it is already running but does not answer\n", stderr);
        return EXIT_FAILURE;
    }
    if (const std::optional<QString> problem = PlatformLoader::chooseDisplay()) {
        std::fprintf(stderr, "quillmarsh: %s\n", qUtf8Printable(*problem));
        return EXIT_FAILURE;
    }
    // A log line is its text and nothing else, unless somebody who looks for a fault asks for more.
    if (qEnvironmentVariableIsEmpty("QT_MESSAGE_PATTERN"))
        qSetMessagePattern(QStringLiteral("%{message}"));
    QApplication application(argc, argv);
    // WM_CLASS's class, which the desktop entry names, and the icon follow from these two.
    QCoreApplication::setApplicationName(QStringLiteral("Quillmarsh"));
    QGuiApplication::setDesktopFileName(QStringLiteral(QUILLMARSH_BUNDLE_IDENTIFIER));
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/AppIcon")));
    QGuiApplication::setQuitOnLastWindowClosed(false);
    // The door listens on the application's event loop and so is closed before it.
    const std::unique_ptr<InstanceDoor> door = std::move(entered);
    return runApplication(application, *door);
}
