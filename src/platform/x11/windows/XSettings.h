#pragma once

#include <QByteArray>

#include <optional>

/// The settings that a desktop's settings daemon hands to all toolkits, in its wire format.
namespace XSettings {

/// The integer named `name`; absent when it is not there, is of another type, or `bytes` breaks
/// off before it.
std::optional<qint32> integer(const QByteArray &bytes, const QByteArray &name);

} // namespace XSettings
