#include "platform/freedesktop/instance/SessionBus.h"

#include <QFileInfo>

// Where there is none, the bus library would start one for us alone, which costs time and reaches
// nobody; it looks for an address only once, and that is here.
QDBusConnection SessionBus::find()
{
    constexpr const char *kAddress = "DBUS_SESSION_BUS_ADDRESS";
    const bool isNamed = !qEnvironmentVariableIsEmpty(kAddress);
    const bool isInPlace =
        QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
    if (isNamed || isInPlace)
        return QDBusConnection::sessionBus();
    qputenv(kAddress, "disabled:");
    QDBusConnection bus = QDBusConnection::sessionBus();
    qunsetenv(kAddress);
    return bus;
}
