#pragma once

#include <QString>

/// A number of bytes as people say it: "10 KB", "1.5 MB". Units are powers of 1000.
QString byteCount(qint64 bytes);
