#include "platform/freedesktop/shortcuts/FreedesktopSymbolicHotKeys.h"

#include "platform/freedesktop/RegularFile.h"
#include "platform/freedesktop/shortcuts/GSettingsShortcuts.h"
#include "platform/freedesktop/shortcuts/PlasmaShortcuts.h"
#include "platform/freedesktop/shortcuts/XfceShortcuts.h"

#include <QDeadlineTimer>
#include <QProcess>
#include <QStandardPaths>

namespace {

// Each costs a start of another program.
constexpr int kMaxCustomShortcuts = 200;

/// The file of that name in each configuration folder, the user's first.
QList<QByteArray> configurationFiles(const QString &name)
{
    QList<QByteArray> files;
    for (const QString &path :
         QStandardPaths::locateAll(QStandardPaths::GenericConfigLocation, name))
        files.append(readRegularFile(path).value_or(QByteArray()));
    return files;
}

} // namespace

QStringList FreedesktopSymbolicHotKeys::currentDesktops()
{
    // Several names by the desktop entry standard, from the most particular to what it is built on.
    return qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':', Qt::SkipEmptyParts);
}

FreedesktopSymbolicHotKeys::FreedesktopSymbolicHotKeys(const QStringList &desktops,
                                                       std::chrono::milliseconds answerLimit)
    : m_desktops(desktops), m_answerLimit(answerLimit)
{
    m_thread.setMaxThreadCount(1);
}

FreedesktopSymbolicHotKeys::~FreedesktopSymbolicHotKeys()
{
    m_isEnding = true;
    m_thread.waitForDone();
}

void FreedesktopSymbolicHotKeys::refresh()
{
    if (m_isReading)
        return;
    m_isReading = true;
    m_thread.start([this] {
        const QList<SymbolicHotKey> found = read();
        const auto publish = [this, found] {
            m_hotKeys = found;
            m_isReading = false;
            Q_EMIT refreshed();
        };
        QMetaObject::invokeMethod(this, publish, Qt::QueuedConnection);
    });
}

QList<SymbolicHotKey> FreedesktopSymbolicHotKeys::read() const
{
    QList<SymbolicHotKey> hotKeys;
    for (const QString &desktop : m_desktops) {
        const QStringList schemas = GSettingsShortcuts::schemasOf(desktop);
        if (!schemas.isEmpty())
            hotKeys += readGSettings(schemas);
        else if (desktop.compare(u"XFCE", Qt::CaseInsensitive) == 0)
            hotKeys += XfceShortcuts::parse(configurationFiles(
                QStringLiteral("xfce4/xfconf/xfce-perchannel-xml/xfce4-keyboard-shortcuts.xml")));
        else if (desktop.compare(u"KDE", Qt::CaseInsensitive) == 0)
            hotKeys += PlasmaShortcuts::parse(
                configurationFiles(QStringLiteral("kglobalshortcutsrc")).value(0));
    }
    return hotKeys;
}

QList<SymbolicHotKey> FreedesktopSymbolicHotKeys::readGSettings(const QStringList &schemas) const
{
    // By the tool instead of the library: a schema that is not installed would end the process.
    const QByteArray listing = output({QStringLiteral("list-recursively")});
    QList<SymbolicHotKey> hotKeys = GSettingsShortcuts::parse(listing, schemas);
    const QStringList custom = GSettingsShortcuts::customSchemas(listing, schemas);
    // The user's own shortcuts lie in relocatable schemas, which the listing leaves out.
    for (const QString &schema : custom.first(qMin<qsizetype>(custom.size(), kMaxCustomShortcuts)))
        hotKeys +=
            GSettingsShortcuts::parseCustom(output({QStringLiteral("list-recursively"), schema}));
    return hotKeys;
}

/// What gsettings prints; nothing when it is not there, fails or does not end in time.
QByteArray FreedesktopSymbolicHotKeys::output(const QStringList &arguments) const
{
    if (m_isEnding)
        return {};
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(QStringLiteral("gsettings"), arguments, QIODevice::ReadOnly);
    const QDeadlineTimer deadline(m_answerLimit);
    while (process.state() != QProcess::NotRunning) {
        // In short steps, so that our own end need not wait for the other program's.
        process.waitForFinished(20);
        if (m_isEnding || deadline.hasExpired()) {
            process.kill();
            process.waitForFinished();
            return {};
        }
    }
    return process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0
               ? process.readAllStandardOutput()
               : QByteArray();
}
