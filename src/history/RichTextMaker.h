#pragma once

#include "platform/HelperThread.h"

#include <QString>

#include <functional>
#include <optional>

/// Makes the RTF that a clip keeps its HTML in, on a helper thread, one after the other: it may
/// take a while, which neither the next copy nor the main thread waits for. Owned by ClipHistory;
/// main thread only.
class RichTextMaker
{
public:
    /// Hands the RTF with `html` in it to `receive` later; nothing where it cannot be made. Both
    /// sources are one character a byte; without `rtf` it gets a rendering of the HTML.
    void make(const QString &html, const std::optional<QString> &rtf,
              std::function<void(const QString &)> receive);

private:
    HelperThread m_thread;
};
