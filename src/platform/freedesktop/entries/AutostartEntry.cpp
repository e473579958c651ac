#include "platform/freedesktop/entries/AutostartEntry.h"

#include "platform/Info.h"
#include "platform/freedesktop/entries/DesktopEntry.h"

#include <QRegularExpression>
#include <QStringConverter>
#include <QStringList>

namespace {

bool isOurs(const QString &key)
{
    // Hidden and TryExec keep an entry from starting, and DBusActivatable starts it by other means
    // than Exec: none of the old ones may stay.
    static const QStringList kOurs{
        QStringLiteral("Type"),   QStringLiteral("Name"),     QStringLiteral("Exec"),
        QStringLiteral("Icon"),   QStringLiteral("Terminal"), QStringLiteral("StartupNotify"),
        QStringLiteral("Hidden"), QStringLiteral("TryExec"),  QStringLiteral("DBusActivatable")};
    return kOurs.contains(key);
}

constexpr const char *kSwitch = "X-GNOME-Autostart-enabled";

bool keepsFromStarting(const QString &key, const QString &value)
{
    return key == QLatin1String(kSwitch) && value != u"true";
}

/// The user's additions to the main group, then every other group as it stood.
class Additions
{
public:
    explicit Additions(const QByteArray &former);

    QStringList keys;
    QStringList groups;

private:
    void addKey(const QString &line);

    QStringList m_seen;
};

Additions::Additions(const QByteArray &former)
{
    enum { BeforeGroups, MainGroup, OtherGroup } place = BeforeGroups;
    QStringDecoder decoder(QStringConverter::Utf8);
    const QString text = decoder(former);
    // A file in another encoding, or none at all, has nothing that could be told apart.
    if (decoder.hasError() || text.contains(QChar::Null))
        return;
    for (const QString &untrimmed : text.split(u'\n')) {
        const QString line = untrimmed.trimmed();
        if (line == u"[Desktop Entry]")
            place = MainGroup;
        else if (line.startsWith(u'['))
            place = OtherGroup;
        if (place == OtherGroup)
            groups.append(line);
        else if (place == MainGroup)
            addKey(line);
    }
}

void Additions::addKey(const QString &line)
{
    static const QRegularExpression pattern(
        QStringLiteral(R"(^([A-Za-z0-9-]+)(\[[^\]]+\])?\s*=\s*(.*)$)"));
    const auto match = pattern.match(line);
    if (!match.hasMatch())
        return;
    const QString key = match.captured(1) + match.captured(2);
    if (isOurs(key) || m_seen.contains(key) || keepsFromStarting(key, match.captured(3)))
        return;
    m_seen.append(key);
    keys.append(key + u'=' + match.captured(3));
}

} // namespace

bool AutostartEntry::isSwitchedOff(const DesktopEntry &entry)
{
    const auto state = entry.text(kSwitch);
    // Hidden is the standard's word for it. The other is what several desktops' own settings write.
    return entry.isTrue("Hidden") || (state && keepsFromStarting(QLatin1String(kSwitch), *state));
}

QByteArray AutostartEntry::compose(const QString &path, const QByteArray &former)
{
    const Additions additions(former);
    QStringList lines{
        QStringLiteral("[Desktop Entry]"),
        QStringLiteral("Type=Application"),
        QStringLiteral("Name=Quillmarsh"),
        QStringLiteral("Exec=") + DesktopEntry::execValue({path}),
        QStringLiteral("Icon=") + Info::main().bundleIdentifier,
        QStringLiteral("Terminal=false"),
        QStringLiteral("StartupNotify=false"),
    };
    lines += additions.keys;
    if (!additions.groups.isEmpty())
        lines += QStringList{QString()} + additions.groups;
    while (lines.last().isEmpty())
        lines.removeLast();
    return (lines.join(u'\n') + u'\n').toUtf8();
}
