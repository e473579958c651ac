#include "platform/freedesktop/entries/DesktopEntryApplicationNames.h"

#include "platform/freedesktop/entries/DesktopEntryCatalog.h"

#include <QSet>

namespace {

/// Terminals are known by their class too: some have no entry, or one without a category.
bool isTerminalClass(const QString &windowClass)
{
    static const QSet<QString> kTerminals{
        QStringLiteral("alacritty"),
        QStringLiteral("com.mitchellh.ghostty"),
        QStringLiteral("com.raggesilver.blackbox"),
        QStringLiteral("contour"),
        QStringLiteral("cool-retro-term"),
        QStringLiteral("deepin-terminal"),
        QStringLiteral("foot"),
        QStringLiteral("footclient"),
        QStringLiteral("gnome-terminal"),
        QStringLiteral("gnome-terminal-server"),
        QStringLiteral("guake"),
        QStringLiteral("hyper"),
        QStringLiteral("kitty"),
        QStringLiteral("konsole"),
        QStringLiteral("koi8rxterm"),
        QStringLiteral("lxterminal"),
        QStringLiteral("mate-terminal"),
        QStringLiteral("mlterm"),
        QStringLiteral("org.codeberg.dnkl.foot"),
        QStringLiteral("org.gnome.console"),
        QStringLiteral("org.gnome.ptyxis"),
        QStringLiteral("org.gnome.terminal"),
        QStringLiteral("org.kde.konsole"),
        QStringLiteral("org.wezfurlong.wezterm"),
        QStringLiteral("pterm"),
        QStringLiteral("qterminal"),
        QStringLiteral("rio"),
        QStringLiteral("rxvt"),
        QStringLiteral("sakura"),
        QStringLiteral("st"),
        QStringLiteral("st-256color"),
        QStringLiteral("terminator"),
        QStringLiteral("terminology"),
        QStringLiteral("termite"),
        QStringLiteral("tilda"),
        QStringLiteral("tilix"),
        QStringLiteral("urxvt"),
        QStringLiteral("uxterm"),
        QStringLiteral("wezterm"),
        QStringLiteral("xfce4-terminal"),
        QStringLiteral("xterm"),
        QStringLiteral("yakuake"),
        QStringLiteral("zutty"),
    };
    return kTerminals.contains(windowClass.toLower());
}

} // namespace

DesktopEntryApplicationNames::DesktopEntryApplicationNames(
    std::shared_ptr<DesktopEntryCatalog> catalog)
    : m_catalog(std::move(catalog))
{
}

ApplicationIdentity DesktopEntryApplicationNames::identify(const WindowIdentity &window) const
{
    const bool isTerminal =
        isTerminalClass(window.resourceClass) || isTerminalClass(window.resourceName);
    const auto index = m_catalog->index();
    if (const DesktopApplication *application = index->find(window))
        return {application->name, isTerminal || application->isTerminal};
    const QString &name =
        window.resourceClass.isEmpty() ? window.processName : window.resourceClass;
    return {name, isTerminal};
}
