#include "hotkey/HotKeyLog.h"

Q_LOGGING_CATEGORY(hotKeyLog, "quillmarsh.hotkey")
