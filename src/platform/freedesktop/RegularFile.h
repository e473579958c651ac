#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// The bytes of a small file that anybody may have put there; absent when `path` is no regular
/// file of at most 1 MiB that may be read. Never waits for what is behind a pipe or a device.
std::optional<QByteArray> readRegularFile(const QString &path);
