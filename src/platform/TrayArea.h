#pragma once

#include <QColor>
#include <QObject>

#include <optional>

/// Whether the display has a tray of the older kind, in which items are windows (XEMBED). The
/// status bar is given one, because only the display's own adapter can tell. Used from the main
/// thread.
class TrayArea : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    virtual bool isPresent() const = 0;

    /// The colour that the tray wants items of one colour to have; absent when it does not say, as
    /// most do not.
    virtual std::optional<QColor> foreground() = 0;

Q_SIGNALS:
    void isPresentChanged(bool isPresent);
    void foregroundChanged();
};
