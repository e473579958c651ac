#pragma once

#include <QLoggingCategory>

/// The room's log. No clip text is ever written to it.
Q_DECLARE_LOGGING_CATEGORY(lcHistory)
