#include "Clipboard/AppDelegate.h"
#include "Clipboard/ClipWords.h"
#include "Clipboard/CommandLine.h"
#include "Clipboard/InstanceActions.h"
#include "Clipboard/StoreClips.h"
#include "history/StoredClips.h"
#include "looks/DesktopLooks.h"
#include "looks/FieldPasteboard.h"
#include "looks/Translations.h"
#include "platform/Info.h"
#include "platform/PlatformLoader.h"
#include "platform/freedesktop/FreedesktopSettingsStore.h"
#include "platform/freedesktop/SystemClock.h"
#include "platform/freedesktop/TerminationSignals.h"
#include "platform/freedesktop/UserFolders.h"
#include "platform/freedesktop/instance/InstanceCall.h"
#include "updates/ProxyQuestion.h"

#include <QApplication>
#include <QFile>
#include <QIcon>
#include <QSessionManager>
#include <QStandardPaths>

#include <malloc.h>

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

/// `action` is what this start was asked for, performed once everything stands.
int runApplication(QApplication &application, SingleInstance &instance, const QString &action)
{
    const Info info = Info::main();
    const std::unique_ptr<Platform> platform = PlatformLoader::makePlatform();
    const DesktopLooks looks(*platform->appearance);
    const FieldPasteboard fields(*platform->pasteboard);
    AppDelegate delegate(*platform, info, storeFolder(info));
    delegate.setTrace(isTraceWanted(*platform->settings));
    g_delegate = &delegate;
    std::atexit(saveAtExit);

    TerminationSignals termination;
    QObject::connect(&termination, &TerminationSignals::terminationRequested, &delegate,
                     &AppDelegate::quit);
    QObject::connect(&application, &QCoreApplication::aboutToQuit, &instance,
                     &SingleInstance::close);
    QObject::connect(&application, &QCoreApplication::aboutToQuit, &delegate,
                     &AppDelegate::applicationWillTerminate);
    QObject::connect(&application, &QGuiApplication::commitDataRequest, &delegate,
                     [&delegate] { delegate.saveContext(); });
    // Whether it starts at login is a setting; a session must not start it beside that.
    QObject::connect(
        &application, &QGuiApplication::saveStateRequest, &delegate,
        [](QSessionManager &session) { session.setRestartHint(QSessionManager::RestartNever); });
    InstanceActions actions(delegate, instance, *platform->frontApplication, *platform->keySender);
    // Before the event loop, because a copy that is there already would be captured by an
    // application whose panes are not loaded yet.
    delegate.applicationDidFinishLaunching();
    QMetaObject::invokeMethod(
        &actions, [&actions, action] { actions.perform(action); }, Qt::QueuedConnection);
    instance.share(&actions.clips());
    instance.open();
    // Behind the action, which may open the window itself.
    QMetaObject::invokeMethod(&delegate, &AppDelegate::prepareWindow, Qt::QueuedConnection);

    const int status = QApplication::exec();
    g_delegate = nullptr;
    return status;
}

/// The words of the command line without the program's name.
QStringList wordsOf(int argc, char **argv)
{
    QStringList words;
    for (int i = 1; i < argc; ++i)
        words.append(QFile::decodeName(argv[i]));
    return words;
}

InstanceCall::Answer answerOf(SingleInstance::Entry entry)
{
    switch (entry) {
    case SingleInstance::Entry::Refused:
        return InstanceCall::Answer::Refused;
    case SingleInstance::Entry::Unable:
        return InstanceCall::Answer::Unable;
    case SingleInstance::Entry::Unreachable:
        return InstanceCall::Answer::None;
    case SingleInstance::Entry::First:
    case SingleInstance::Entry::Forwarded:
        break;
    }
    return InstanceCall::Answer::Taken;
}

/// What is to be done with the clips, by the instance that runs or with the store alone.
int doWithClips(const QStringList &words)
{
    // Only the store's history needs an application object, for its timers.
    int noArguments = 0;
    std::unique_ptr<QCoreApplication> application;
    SystemClock clock;
    std::unique_ptr<FreedesktopSettingsStore> settings;
    const auto stored = [&]() -> std::unique_ptr<SharedClips> {
        application = std::make_unique<QCoreApplication>(noArguments, nullptr);
        settings = std::make_unique<FreedesktopSettingsStore>();
        return StoreClips::open(storeFolder(Info::main()), clock, *settings);
    };
    ClipWords clipWords(PlatformLoader::findRunningClips, stored, {stdin, stdout, stderr});
    return clipWords.run(words);
}

/// The exit code of a start that ends before it becomes the application; absent when it becomes it.
std::optional<int> endEarly(const CommandLine &line, SingleInstance &instance)
{
    if (line.answer) {
        std::fputs(qUtf8Printable(*line.answer), stdout);
        return EXIT_SUCCESS;
    }
    if (line.problem) {
        std::fprintf(stderr, "quillmarsh: %s; quillmarsh --help tells what there is\n",
                     qUtf8Printable(*line.problem));
        return CommandLine::kNotUnderstood;
    }
    if (!line.clipWords.isEmpty())
        return doWithClips(line.clipWords);
    const SingleInstance::Entry entry = instance.enter(line.action);
    if (entry != SingleInstance::Entry::First)
        return InstanceCall::endWith(answerOf(entry), line.action.toUtf8().constData());
    // Nobody runs, and nobody need: the clips are on disk.
    if (line.action == u"clear-all")
        return StoredClips::clear(storeFolder(Info::main())) ? EXIT_SUCCESS : EXIT_FAILURE;
    if (line.action == u"quit")
        return EXIT_SUCCESS;
    return std::nullopt;
}

/// The whole life of the process, but for its last step.
int live(int argc, char **argv)
{
    // A log line is its text and nothing else, unless somebody who looks for a fault asks for more.
    if (qEnvironmentVariableIsEmpty("QT_MESSAGE_PATTERN"))
        qSetMessagePattern(QStringLiteral("%{message}"));
    UserFolders::settle();
    // First of all, so that a second start is over before it talks to the display.
    const CommandLine line =
        CommandLine::parse(wordsOf(argc, argv), *Info::main().bundleShortVersionString);
    std::unique_ptr<SingleInstance> entered =
        PlatformLoader::makeSingleInstance(storeFolder(Info::main()));
    if (const std::optional<int> status = endEarly(line, *entered))
        return *status;
    if (const std::optional<QString> problem = PlatformLoader::chooseDisplay()) {
        std::fprintf(stderr, "quillmarsh: %s\n", qUtf8Printable(*problem));
        return EXIT_FAILURE;
    }
    QApplication application(argc, argv);
    const Translations translations;
    // WM_CLASS's class, which the desktop entry names, and the icon follow from these two.
    QCoreApplication::setApplicationName(QStringLiteral("Quillmarsh"));
    QGuiApplication::setDesktopFileName(QStringLiteral(QUILLMARSH_BUNDLE_IDENTIFIER));
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/AppIcon")));
    QGuiApplication::setQuitOnLastWindowClosed(false);
    // The instance listens on the application's event loop and so is closed before it.
    const std::unique_ptr<SingleInstance> instance = std::move(entered);
    return runApplication(application, *instance, line.action);
}

/// What is large goes back to the system as soon as it is freed. Else the allocator would take the
/// largest copy for the measure of what to keep.
void giveLargeMemoryBack()
{
    constexpr int kLarge = 1024 * 1024; // bytes
    ::mallopt(M_MMAP_THRESHOLD, kLarge);
    ::mallopt(M_TRIM_THRESHOLD, kLarge);
}

} // namespace

int main(int argc, char **argv)
{
    giveLargeMemoryBack();
    // Everything is saved by now, and nothing else may hold up the end.
    return ProxyQuestion::endingWith(live(argc, argv));
}
