#pragma once

#include <QIcon>
#include <QString>

#include <optional>

class QWidget;

/// A page of the preferences window. Each pane implements it; the window controller that is given
/// a pane refers to it and never owns it, so panes outlive their controller.
class CCNPreferencesWindowControllerProtocol
{
public:
    CCNPreferencesWindowControllerProtocol() = default;
    CCNPreferencesWindowControllerProtocol(const CCNPreferencesWindowControllerProtocol &) = delete;
    CCNPreferencesWindowControllerProtocol &
    operator=(const CCNPreferencesWindowControllerProtocol &) = delete;
    virtual ~CCNPreferencesWindowControllerProtocol() = default;

    /// Unique among the panes of a window; also the identifier of the pane's toolbar item.
    virtual QString preferenceIdentifier() const = 0;

    /// Label of the toolbar item or segment, and the window's title.
    virtual QString preferenceTitle() const = 0;

    virtual QIcon preferenceIcon() const = 0;

    /// Absent when the toolbar item shall have none.
    virtual std::optional<QString> preferenceToolTip() const { return std::nullopt; }

    /// What the pane shows. Its size decides the window's size. The pane keeps owning it while the
    /// window shows it.
    virtual QWidget *view() = 0;
};
