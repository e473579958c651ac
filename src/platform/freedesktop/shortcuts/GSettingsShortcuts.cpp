#include "platform/freedesktop/shortcuts/GSettingsShortcuts.h"

#include "platform/freedesktop/shortcuts/ShortcutText.h"

#include <QRegularExpression>

#include <functional>
#include <utility>

namespace {

/// The texts within a printed value: none, one, or those of a list.
QStringList textsOf(const QString &value)
{
    // The values are printed as GVariant texts: in single quotes, or in double ones if they contain
    // a single one, and with a type before empty lists ("@as []").
    static const QRegularExpression pattern(
        QStringLiteral(R"re('((?:[^'\\]|\\.)*)'|"((?:[^"\\]|\\.)*)")re"));
    static const QRegularExpression escape(QStringLiteral(R"(\\(.))"));
    QStringList texts;
    for (auto matches = pattern.globalMatch(value); matches.hasNext();) {
        const auto match = matches.next();
        QString text = match.captured(1) + match.captured(2);
        text.replace(escape, QStringLiteral("\\1"));
        texts.append(text);
    }
    return texts;
}

using Visitor =
    std::function<void(const QString &schema, const QString &key, const QString &value)>;

void visit(const QByteArray &listing, const Visitor &visitor)
{
    for (const QByteArray &line : listing.split('\n')) {
        const QString text = QString::fromUtf8(line);
        // Schema, key and value; the value has blanks of its own.
        const QString schema = text.section(u' ', 0, 0);
        const QString key = text.section(u' ', 1, 1);
        if (!key.isEmpty())
            visitor(schema, key, text.section(u' ', 2));
    }
}

void appendShortcuts(const QString &value, QList<SymbolicHotKey> *hotKeys)
{
    for (const QString &text : textsOf(value)) {
        if (const auto hotKey = ShortcutText::fromGtk(text))
            hotKeys->append(*hotKey);
    }
}

} // namespace

QStringList GSettingsShortcuts::schemasOf(const QString &desktop)
{
    const auto is = [&desktop](QStringView name) {
        return desktop.compare(name, Qt::CaseInsensitive) == 0;
    };
    // Each desktop keeps those of the window manager, of the shell and of the media keys apart. The
    // others are built on the same settings daemon, or on a branch of it with its own names.
    if (is(u"GNOME") || is(u"Unity") || is(u"Budgie") || is(u"Pantheon"))
        return {QStringLiteral("org.gnome.desktop.wm.keybindings"),
                QStringLiteral("org.gnome.mutter.keybindings"),
                QStringLiteral("org.gnome.settings-daemon.plugins.media-keys"),
                QStringLiteral("org.gnome.shell.keybindings")};
    if (is(u"X-Cinnamon") || is(u"Cinnamon"))
        return {QStringLiteral("org.cinnamon.desktop.keybindings"),
                QStringLiteral("org.cinnamon.desktop.keybindings.media-keys"),
                QStringLiteral("org.cinnamon.desktop.keybindings.wm"),
                QStringLiteral("org.cinnamon.muffin.keybindings")};
    if (is(u"MATE"))
        return {QStringLiteral("org.mate.Marco.global-keybindings"),
                QStringLiteral("org.mate.Marco.window-keybindings"),
                QStringLiteral("org.mate.SettingsDaemon.plugins.media-keys")};
    return {};
}

QList<SymbolicHotKey> GSettingsShortcuts::parse(const QByteArray &listing,
                                                const QStringList &schemas)
{
    QList<SymbolicHotKey> hotKeys;
    visit(listing, [&](const QString &schema, const QString &, const QString &value) {
        if (schemas.contains(schema))
            appendShortcuts(value, &hotKeys);
    });
    return hotKeys;
}

QStringList GSettingsShortcuts::customSchemas(const QByteArray &listing, const QStringList &schemas)
{
    QStringList custom;
    visit(listing, [&](const QString &schema, const QString &key, const QString &value) {
        if (!schemas.contains(schema))
            return;
        // The one lists whole paths, the other names below a path that is fixed.
        if (key == u"custom-keybindings") {
            for (const QString &path : textsOf(value))
                custom.append(schema + QStringLiteral(".custom-keybinding:") + path);
        } else if (key == u"custom-list") {
            for (const QString &name : textsOf(value))
                custom.append(schema +
                              QStringLiteral(".custom-keybinding:/org/cinnamon/desktop/keybindings/"
                                             "custom-keybindings/%1/")
                                  .arg(name));
        }
    });
    return custom;
}

QList<SymbolicHotKey> GSettingsShortcuts::parseCustom(const QByteArray &listing)
{
    QList<SymbolicHotKey> hotKeys;
    visit(listing, [&](const QString &, const QString &key, const QString &value) {
        if (key == u"binding")
            appendShortcuts(value, &hotKeys);
    });
    return hotKeys;
}
