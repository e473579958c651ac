#include "hotkey/HotKeyLog.h"

Q_LOGGING_CATEGORY(lcHotKey, "quillmarsh.hotkey")
