#pragma once

#include "platform/ApplicationNames.h"
#include "platform/freedesktop/entries/DesktopEntryScan.h"

#include <QHash>

/// Finds the desktop entry behind a window. Made whole and never changed afterwards, so any
/// number of threads may ask it.
class DesktopEntryIndex
{
public:
    explicit DesktopEntryIndex(std::vector<DesktopApplication> applications);

    /// Of the more important folders first.
    const std::vector<DesktopApplication> &applications() const { return m_applications; }

    /// By what the entry says of its windows, then the application id, then the desktop id, then
    /// the program; letter case does not matter but in a path. Null when no entry fits.
    const DesktopApplication *find(const WindowIdentity &window) const;

    /// The entry that starts the program at `path`, an absolute path without links; null when none
    /// does.
    const DesktopApplication *findProgram(const QString &path) const;

private:
    using Table = QHash<QString, const DesktopApplication *>;

    static const DesktopApplication *first(const Table &table,
                                           std::initializer_list<QStringView> keys);

    std::vector<DesktopApplication> m_applications;
    Table m_byWindowClass;
    Table m_byId;
    Table m_byLastPart; ///< What follows the last dot of an id: "org.gnome.Nautilus".
    Table m_byProgram;
    Table m_byProgramFile;
};
