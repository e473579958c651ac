#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <optional>

/// A desktop entry file: the untranslated keys of its "Desktop Entry" group. A value; reading is
/// total, whatever the file holds.
class DesktopEntry
{
public:
    /// Absent when there is no "Desktop Entry" group.
    static std::optional<DesktopEntry> parse(const QByteArray &bytes);

    /// Absent as well when `path` is no small regular file.
    static std::optional<DesktopEntry> read(const QString &path);

    /// The value with its escapes resolved; absent when the key is missing.
    std::optional<QString> text(const char *key) const;
    bool isTrue(const char *key) const { return m_values.value(key) == "true"; }
    /// The parts of a list value.
    QStringList list(const char *key) const;

    /// Program and arguments of Exec, field codes left out; empty when there is no Exec or its
    /// quotes do not close.
    QStringList command() const;

    /// A command in the form in which Exec carries it, so that command() gives it back.
    static QString execValue(const QStringList &command);

private:
    QHash<QByteArray, QByteArray> m_values;
};
