#pragma once

#include "platform/typing/ApplicationKeys.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <optional>
#include <utility>
#include <vector>

class QJsonObject;

/// Applications that take other keys than most, by the class of their windows (X11) or their
/// application id (Wayland). A value.
class KeyTable
{
public:
    struct Reading;

    /// Reads a list of entries in JSON:
    ///
    ///     [{"applications": ["xterm", "qemu-system-*"], "paste": "Shift+Insert", "primary": true,
    ///       "copy": "marked", "replace": "BackSpace Shift+Insert"}]
    ///
    /// "paste" and "copy" are keys, or "none" where none are known or safe; "copy" may be "marked":
    /// what is marked is taken as it is. Left out they are Ctrl+v and Ctrl+c; "replace" is "paste".
    /// "remote", for what shows another computer, is "asks" or "tells".
    /// An entry that cannot be understood is left out, and told among the reading's problems.
    static Reading read(const QByteArray &json);

    /// Null when there is no entry of that name, in whatever case.
    const ApplicationKeys *find(const QString &name) const;

private:
    static std::optional<QString> add(KeyTable &table, const QJsonObject &entry);

    QHash<QString, ApplicationKeys> m_entries;
    /// Those that are told by the beginning of their names.
    std::vector<std::pair<QString, ApplicationKeys>> m_families;
};

struct KeyTable::Reading
{
    KeyTable table;
    QStringList problems; ///< A line each, for whoever wrote the table.
};
