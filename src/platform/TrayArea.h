#pragma once

#include <QObject>

/// Whether the display has a tray of the older kind, in which items are windows (XEMBED). The
/// status bar is given one, because only the display's own adapter can tell. Used from the main
/// thread.
class TrayArea : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    virtual bool isPresent() const = 0;

Q_SIGNALS:
    void isPresentChanged(bool isPresent);
};
