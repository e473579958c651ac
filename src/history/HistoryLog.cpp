#include "history/HistoryLog.h"

Q_LOGGING_CATEGORY(lcHistory, "quillmarsh.history")
