#include "updates/UpdatesLog.h"

Q_LOGGING_CATEGORY(lcUpdates, "quillmarsh.updates", QtInfoMsg)
