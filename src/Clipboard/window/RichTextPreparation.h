#pragma once

#include "platform/HelperThread.h"

#include <QString>

#include <atomic>
#include <functional>
#include <memory>

class RichTextDocument;
struct RichTextLooks;

/// Makes rich text ready to be shown, on a helper thread. Only the latest request counts: those
/// before it are given up. Main thread only.
class RichTextPreparation
{
public:
    using Receiver = std::function<void(std::unique_ptr<RichTextDocument>)>;

    ~RichTextPreparation() { giveUp(); }

    /// Hands the document of `rtf`, one character a byte, with these looks to `receive` later; null
    /// for one that has no text, is too much to be shown whole, or could not be laid out in time.
    void prepare(const QString &rtf, const RichTextLooks &looks, Receiver receive);

    /// Nobody waits any more.
    void giveUp();

private:
    std::atomic<int> m_latest = 0; ///< Number of the request that counts.
    HelperThread m_thread;
};
