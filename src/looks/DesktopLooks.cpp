#include "looks/DesktopLooks.h"

#include "looks/ClipColors.h"
#include "platform/Appearance.h"

#include <QApplication>
#include <QEvent>
#include <QFile>
#include <QIcon>
#include <QPalette>
#include <QScopedValueRollback>

namespace {

/// For a desktop whose own palette is of the other scheme.
QPalette paletteOf(const ClipColors &colors)
{
    // Derives the shades of frames and grooves from the two.
    QPalette palette(colors.isDark ? colors.controlHover : colors.control, colors.panel);
    const auto setAll = [&palette](const QList<QPalette::ColorRole> &roles, const QColor &color) {
        for (const QPalette::ColorRole role : roles)
            palette.setColor(role, color);
    };
    // In the dark a field and a box stand out by being lighter than their window.
    setAll({QPalette::Base, QPalette::ToolTipBase}, colors.isDark ? colors.control : colors.paper);
    setAll({QPalette::AlternateBase}, colors.panel);
    setAll({QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText},
           colors.text);
    setAll({QPalette::Link, QPalette::LinkVisited}, colors.accentText);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, colors.disabledText);
    return palette;
}

/// The style draws the outline of a box or a field somewhat darker than the window, which in the
/// dark nobody sees.
void outlineBoxes(bool isDark, const ClipColors &colors)
{
    QPalette palette;
    if (isDark)
        palette.setColor(QPalette::Window, colors.quietText);
    for (const char *box : {"QCheckBox", "QRadioButton", "QLineEdit", "QPlainTextEdit", "QSlider"})
        QApplication::setPalette(palette, box);
}

/// A bare window manager names no icon theme, and then the one that names only applications' icons
/// is looked into: files would all look alike.
void chooseIconTheme()
{
    if (const QString named = QIcon::themeName(); !named.isEmpty() && named != u"hicolor")
        return;
    const QStringList folders = QIcon::themeSearchPaths();
    for (const QString &theme : {QStringLiteral("Adwaita"), QStringLiteral("breeze")})
        for (const QString &folder : folders)
            if (QFile::exists(folder + u'/' + theme + QStringLiteral("/index.theme")))
                return QIcon::setThemeName(theme);
}

} // namespace

DesktopLooks::DesktopLooks(const Appearance &appearance, QObject *parent)
    : QObject(parent), m_appearance(appearance)
{
    connect(&appearance, &Appearance::changed, this, &DesktopLooks::apply);
    qApp->installEventFilter(this);
    chooseIconTheme();
    apply();
}

bool DesktopLooks::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ApplicationPaletteChange && watched == qApp && !m_isApplying)
        apply();
    return QObject::eventFilter(watched, event);
}

void DesktopLooks::apply()
{
    const QScopedValueRollback<bool> applying(m_isApplying, true);
    QApplication::setPalette(QPalette()); // the desktop's own again
    const QPalette desktops = QApplication::palette();
    const bool isDark = ClipColors::isDarkPalette(desktops);
    const Appearance::ColorScheme asked = m_appearance.colorScheme();
    const bool isDarkWanted = asked == Appearance::ColorScheme::Unspecified
                                  ? isDark
                                  : asked == Appearance::ColorScheme::Dark;

    QPalette accented = desktops;
    if (const std::optional<QColor> accent = m_appearance.accentColor())
        accented.setColor(QPalette::Highlight, *accent);
    // A role that is not set here goes on to follow the desktop's palette.
    const ClipColors colors = ClipColors::ofScheme(isDarkWanted, accented);
    QPalette palette = isDarkWanted == isDark ? QPalette() : paletteOf(colors);
    // The style's own is half the text's colour, and too pale.
    palette.setColor(QPalette::PlaceholderText, colors.quietText);
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        palette.setColor(group, QPalette::Highlight, colors.selected);
        palette.setColor(group, QPalette::HighlightedText, colors.selectedText);
    }
    QApplication::setPalette(palette);
    outlineBoxes(isDarkWanted, colors);
}
