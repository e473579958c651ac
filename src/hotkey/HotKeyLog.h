#pragma once

#include <QLoggingCategory>

/// The room's log lines.
Q_DECLARE_LOGGING_CATEGORY(lcHotKey)
