#include "updates/UpdatesLog.h"

Q_LOGGING_CATEGORY(updatesLog, "quillmarsh.updates", QtInfoMsg)
