#include "shortcut/ShortcutLog.h"

Q_LOGGING_CATEGORY(lcShortcut, "quillmarsh.shortcut")
