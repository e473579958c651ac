#pragma once

#include <QDBusConnection>

/// The session's bus; not connected where there is none. Asked before anything else of the process
/// asks for it. Needs no application object.
namespace SessionBus {

QDBusConnection find();

} // namespace SessionBus
