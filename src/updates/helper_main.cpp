#include "looks/Translations.h"
#include "looks/WindowKeys.h"
#include "platform/Info.h"
#include "platform/PlatformLoader.h"
#include "platform/freedesktop/TerminationSignals.h"
#include "platform/freedesktop/UserFolders.h"
#include "updates/ProxyQuestion.h"
#include "updates/updater/DMHelperAppDelegate.h"

#include <QApplication>
#include <QIcon>

#include <cstdio>
#include <cstdlib>

namespace {

/// The whole life of the process, but for its last step.
int live(int argc, char **argv)
{
    UserFolders::settle();
    if (const std::optional<QString> problem = PlatformLoader::chooseDisplay()) {
        std::fprintf(stderr, "quillmarsh-updater: %s\n", qUtf8Printable(*problem));
        return EXIT_FAILURE;
    }
    if (qEnvironmentVariableIsEmpty("QT_MESSAGE_PATTERN"))
        qSetMessagePattern(QStringLiteral("%{message}"));
    QApplication application(argc, argv);
    const Translations translations;
    const Info info = Info::main();
    QCoreApplication::setApplicationName(QStringLiteral("Quillmarsh Updater"));
    QGuiApplication::setDesktopFileName(info.bundleIdentifier);
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/AppIcon")));
    QGuiApplication::setQuitOnLastWindowClosed(false);

    const std::unique_ptr<HelperPlatform> platform = PlatformLoader::makeHelperPlatform();
    DMHelperAppDelegate delegate(
        {*platform->clock, *platform->settings, *platform->runningApplications}, info,
        QCoreApplication::applicationFilePath());
    const TerminationSignals termination;
    QObject::connect(&termination, &TerminationSignals::terminationRequested, &application,
                     &QCoreApplication::quit);
    const WindowKeys keys(*platform->keyboardLayout, &QCoreApplication::quit);
    delegate.applicationDidFinishLaunching(*platform->statusBar);
    return QApplication::exec();
}

} // namespace

// The update helper: a status item of its own, from which the main application is updated while it
// does not run.
int main(int argc, char **argv)
{
    // Everything is saved by now, and nothing else may hold up the end.
    return ProxyQuestion::endingWith(live(argc, argv));
}
