#pragma once

#include "platform/Appearance.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>

class QDBusVariant;

/// The desktop portal's settings, followed while they change: org.freedesktop.appearance, and
/// whether things move by the names that GNOME and KDE have for it. Nothing here waits: without a
/// portal, or a portal that says nothing, all stays unspecified.
class PortalAppearance : public Appearance
{
    Q_OBJECT

public:
    explicit PortalAppearance(QDBusConnection bus = QDBusConnection::sessionBus());

    // ^Appearance
    ColorScheme colorScheme() const override { return m_colorScheme; }
    std::optional<QColor> accentColor() const override { return m_accentColor; }

    /// False when the desktop's user wants nothing to move that need not move.
    bool areAnimationsWanted() const { return m_areAnimationsWanted; }

private Q_SLOTS:
    void settingChanged(const QString &space, const QString &key, const QDBusVariant &value);

private:
    void readAll();
    void take(ColorScheme colorScheme, const std::optional<QColor> &accentColor);

    QDBusConnection m_bus;
    QDBusServiceWatcher m_portalWatcher;
    ColorScheme m_colorScheme = ColorScheme::Unspecified;
    std::optional<QColor> m_accentColor;
    bool m_areAnimationsWanted = true;
};
