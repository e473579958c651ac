#pragma once

#include <QIcon>
#include <QList>
#include <QString>

#include <optional>

/// An application that a person can choose by name and icon.
struct InstalledApplication
{
    /// The same name that ApplicationNames tells for its windows. The application stands for a
    /// bundle whose file name is this name with ".app" behind it.
    QString name;
    /// Where it is described: the path of its desktop entry. For an application without one its
    /// program's, links followed; empty when that cannot be told.
    QString path;
    /// For InstalledApplications::icon(); empty when it has none.
    QString iconName;
    /// A guess, for suggestions only.
    bool isPasswordManager = false;
};

/// The applications on this machine: those that are installed, and what else has a window. Owned by
/// Platform; used from the main thread.
class InstalledApplications
{
public:
    InstalledApplications() = default;
    InstalledApplications(const InstalledApplications &) = delete;
    InstalledApplications &operator=(const InstalledApplications &) = delete;
    virtual ~InstalledApplications() = default;

    /// As they are installed now, without those that hide themselves from menus, and beside them
    /// the programs that have a window open, by name. Two that are installed may bear the same
    /// name.
    virtual QList<InstalledApplication> applications() = 0;

    /// What a file stands for that somebody chose by hand: a desktop entry for the application that
    /// it describes; a program for the application that starts it, else for what its open window is
    /// called, else for an application of its file name. Absent for any other file.
    virtual std::optional<InstalledApplication> applicationAtPath(const QString &path) = 0;

    /// The application's icon, drawn when it is first painted; a plain one when it has none that
    /// can be used.
    virtual QIcon icon(const InstalledApplication &application) = 0;
};
