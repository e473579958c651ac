#include "shortcut/ShortcutLog.h"

Q_LOGGING_CATEGORY(shortcutLog, "quillmarsh.shortcut")
