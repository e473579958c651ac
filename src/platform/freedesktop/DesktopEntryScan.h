#pragma once

#include <QString>
#include <QStringList>

#include <vector>

/// What one installed desktop entry says about an application, ready for comparing.
struct DesktopApplication
{
    QString id;   ///< Desktop id without ".desktop".
    QString path; ///< Of the entry.
    QString name; ///< Untranslated, never empty.
    QString genericName;
    QString iconName;
    QString startupWmClass;
    QString program; ///< Base name of the program it starts; empty when that tells nothing.
    int argumentCount = 0;
    bool isDisplayed = true; ///< False for NoDisplay: a program without a place in menus.
    bool isTerminal = false; ///< A terminal emulator.
};

/// The state of the scanned folders, to tell whether a scan would find something else.
struct DesktopFolderStamp
{
    QString path;
    quint64 inode = 0;   ///< 0 for a folder that does not exist.
    qint64 modified = 0; ///< Nanoseconds since 1970.

    bool operator==(const DesktopFolderStamp &) const = default;
    static DesktopFolderStamp of(const QString &path);
};

struct DesktopEntryScan
{
    std::vector<DesktopApplication> applications; ///< Of earlier folders first.
    std::vector<DesktopFolderStamp> stamps;
    /// False when a folder changed so shortly before the scan that a further change might bear
    /// the same time.
    bool isSettled = true;

    /// The `applications` folders of the user and the system, the most important first.
    static QStringList standardFolders();

    /// Reads every desktop entry below `folders`. An entry shadows those of the same id in later
    /// folders, also when it is hidden; what is broken or not an application is left out.
    static DesktopEntryScan of(const QStringList &folders);

    /// Whether the folders still are as they were.
    bool isCurrent() const;
};
