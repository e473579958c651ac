#include "platform/freedesktop/entries/DesktopEntryScan.h"

#include "platform/freedesktop/entries/DesktopEntry.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <optional>

namespace {

constexpr int kMaxFolderDepth = 8;
constexpr size_t kMaxEntries = 20'000;
constexpr qsizetype kMaxNameLength = 256;
constexpr std::chrono::nanoseconds kClockGrain = std::chrono::milliseconds(100);
constexpr QStringView kSuffix = u".desktop";

/// Programs that start others: their name says nothing about the application.
bool isLauncher(const QString &program)
{
    static const QSet<QString> kLaunchers{
        QStringLiteral("bash"),       QStringLiteral("dash"),         QStringLiteral("electron"),
        QStringLiteral("flatpak"),    QStringLiteral("gapplication"), QStringLiteral("gjs"),
        QStringLiteral("gtk-launch"), QStringLiteral("java"),         QStringLiteral("mono"),
        QStringLiteral("node"),       QStringLiteral("perl"),         QStringLiteral("pkexec"),
        QStringLiteral("python"),     QStringLiteral("python3"),      QStringLiteral("ruby"),
        QStringLiteral("sh"),         QStringLiteral("snap"),         QStringLiteral("sudo"),
        QStringLiteral("wine"),       QStringLiteral("xdg-open")};
    return kLaunchers.contains(program);
}

/// The command without `env` and the variables that it sets.
QStringList withoutEnvironment(QStringList command)
{
    if (command.isEmpty() || QFileInfo(command.first()).fileName() != u"env")
        return command;
    command.removeFirst();
    while (!command.isEmpty() &&
           (command.first().contains(u'=') || command.first().startsWith(u'-')))
        command.removeFirst();
    return command;
}

std::optional<DesktopApplication> application(const DesktopEntry &entry)
{
    // Hidden means deleted by the user, and hides entries of the same id in lesser folders too.
    if (entry.isTrue("Hidden") || entry.text("Type") != QStringLiteral("Application"))
        return std::nullopt;
    DesktopApplication application;
    application.name = entry.text("Name").value_or(QString()).simplified();
    if (application.name.isEmpty() || application.name.size() > kMaxNameLength)
        return std::nullopt;
    // The standard has an entry ignored whose TryExec is not installed.
    const auto needed = entry.text("TryExec");
    if (needed && !needed->isEmpty() && QStandardPaths::findExecutable(*needed).isEmpty())
        return std::nullopt;
    const QStringList command = withoutEnvironment(entry.command());
    if (!command.isEmpty()) {
        const QString program = QFileInfo(command.first()).fileName();
        if (!isLauncher(program)) {
            application.program = program;
            application.programFile =
                QFileInfo(QStandardPaths::findExecutable(command.first())).canonicalFilePath();
        }
        application.argumentCount = static_cast<int>(command.size()) - 1;
    }
    application.genericName = entry.text("GenericName").value_or(QString());
    application.iconName = entry.text("Icon").value_or(QString());
    application.startupWmClass = entry.text("StartupWMClass").value_or(QString());
    application.isDisplayed = !entry.isTrue("NoDisplay");
    application.isTerminal = entry.list("Categories").contains(QStringLiteral("TerminalEmulator"));
    return application;
}

class Scanner
{
public:
    DesktopEntryScan result;

    void scanFolder(const std::filesystem::path &folder, const QString &idPrefix, int depth);

private:
    void addEntry(const std::filesystem::path &file, const QString &id);

    /// Inodes of the folders above, so that a link cannot lead in circles.
    QSet<quint64> m_entered;
};

QString textOf(const std::filesystem::path &path)
{
    return QFile::decodeName(QByteArray::fromStdString(path.string()));
}

void Scanner::addEntry(const std::filesystem::path &file, const QString &id)
{
    if (result.ids.contains(id) || result.applications.size() >= kMaxEntries)
        return;
    result.ids.insert(id);
    const QString path = textOf(file);
    const auto entry = DesktopEntry::read(path);
    auto found = entry ? application(*entry) : std::nullopt;
    if (!found)
        return;
    found->id = id;
    found->path = path;
    result.applications.push_back(std::move(*found));
}

void Scanner::scanFolder(const std::filesystem::path &folder, const QString &idPrefix, int depth)
{
    // Taken before the folder is read: what changes meanwhile makes the stamp an old one.
    result.stamps.push_back(DesktopFolderStamp::of(textOf(folder)));
    const quint64 inode = result.stamps.back().inode;
    if (inode == 0 || depth > kMaxFolderDepth || m_entered.contains(inode))
        return;
    m_entered.insert(inode);
    std::error_code error;
    std::vector<std::filesystem::path> folders;
    for (auto item = std::filesystem::directory_iterator(folder, error);
         !error && item != std::filesystem::directory_iterator(); item.increment(error)) {
        const QString name = textOf(item->path().filename());
        std::error_code ignored;
        if (name.endsWith(kSuffix))
            addEntry(item->path(), idPrefix + name.chopped(kSuffix.size()));
        else if (item->is_directory(ignored))
            folders.push_back(item->path());
    }
    for (const std::filesystem::path &below : folders)
        // The id of an entry in a folder below begins with the names on the way, joined by "-".
        scanFolder(below, idPrefix + textOf(below.filename()) + u'-', depth + 1);
    m_entered.remove(inode);
}

} // namespace

DesktopFolderStamp DesktopFolderStamp::of(const QString &path)
{
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return {path, 0, 0};
    return {path, status.st_ino, status.st_mtim.tv_sec * 1'000'000'000 + status.st_mtim.tv_nsec};
}

QStringList DesktopEntryScan::standardFolders()
{
    return QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation);
}

DesktopEntryScan DesktopEntryScan::of(const QString &folder)
{
    const std::chrono::nanoseconds begin = std::chrono::system_clock::now().time_since_epoch();
    Scanner scanner;
    scanner.scanFolder(QFile::encodeName(folder).toStdString(), QString(), 0);
    for (const DesktopFolderStamp &stamp : scanner.result.stamps) {
        if (std::chrono::nanoseconds(stamp.modified) > begin - kClockGrain)
            scanner.result.isSettled = false;
    }
    return std::move(scanner.result);
}

std::vector<DesktopApplication>
DesktopEntryScan::merged(const std::vector<std::shared_ptr<const DesktopEntryScan>> &scans)
{
    std::vector<DesktopApplication> applications;
    QSet<QString> shadowed;
    for (const auto &scan : scans) {
        if (!scan)
            continue;
        for (const DesktopApplication &application : scan->applications) {
            if (!shadowed.contains(application.id))
                applications.push_back(application);
        }
        shadowed.unite(scan->ids);
    }
    return applications;
}

bool DesktopEntryScan::isCurrent() const
{
    return isSettled && std::all_of(stamps.begin(), stamps.end(), [](const auto &stamp) {
               return DesktopFolderStamp::of(stamp.path) == stamp;
           });
}
