#pragma once

#include <QSet>
#include <QString>
#include <QStringList>

#include <memory>
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
    /// That program's absolute path, links followed; empty as well when there is no such program.
    QString programFile;
    int argumentCount = 0;
    bool isDisplayed = true; ///< False for NoDisplay: a program without a place in menus.
    bool isTerminal = false; ///< A terminal emulator.
};

/// The state of a scanned folder, to tell whether a scan would find something else.
struct DesktopFolderStamp
{
    QString path;
    quint64 inode = 0;   ///< 0 for a folder that does not exist.
    qint64 modified = 0; ///< Nanoseconds since 1970.

    bool operator==(const DesktopFolderStamp &) const = default;
    static DesktopFolderStamp of(const QString &path);
};

/// What the desktop entries of one folder and those below it say.
struct DesktopEntryScan
{
    std::vector<DesktopApplication> applications;
    /// Of every entry, also of those that are hidden or no applications.
    QSet<QString> ids;
    std::vector<DesktopFolderStamp> stamps;
    /// False when a folder changed so shortly before the scan that a further change might bear
    /// the same time.
    bool isSettled = true;

    /// The `applications` folders of the user and the system, the most important first.
    static QStringList standardFolders();

    /// Reads every desktop entry below `folder`; what is broken or not an application is left out.
    static DesktopEntryScan of(const QString &folder);

    /// The applications of several folders, the most important first, null for one that is not
    /// known. An entry shadows those of the same id in later folders, also when it is hidden.
    static std::vector<DesktopApplication>
    merged(const std::vector<std::shared_ptr<const DesktopEntryScan>> &scans);

    /// Whether the folders still are as they were.
    bool isCurrent() const;
};
