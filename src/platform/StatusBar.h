#pragma once

#include <QIcon>
#include <QObject>
#include <QString>

class QMenu;

/// The status area of the desktop, with our one item in it. Owned by Platform; used from the main
/// thread. The item appears when a status area appears and comes back when it is restarted;
/// without one nothing is shown and nothing is lost.
class StatusBar : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Shows the item, now or as soon as there is a status area. Either button opens `menu` at the
    /// click; it is not owned and must outlive this object; its entries may change later. The
    /// colour of an `icon` that is a mask (QIcon::isMask) gives way to the panel's own where that
    /// is known.
    virtual void showItem(const QIcon &icon, const QString &toolTip, QMenu *menu) = 0;

    /// Whether the item is in a status area now.
    virtual bool isItemVisible() const = 0;

Q_SIGNALS:
    void isItemVisibleChanged(bool isVisible);
};
