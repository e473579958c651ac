#include "platform/memory/MemoryPasteboard.h"
#include "platform/pasteboard/PasteboardStage.h"

namespace {

class MemoryPasteboardStage : public PasteboardStage
{
public:
    // ^PasteboardStage
    Pasteboard &pasteboard() override { return m_pasteboard; }
    void copyElsewhere(const PasteboardContents &contents) override
    {
        m_pasteboard.copyFromOutside(contents);
    }
    Copy pasteElsewhere() override
    {
        Copy copy = m_pasteboard.contents().value_or(PasteboardContents());
        if (copy.offer == Copy::Offer::Picture)
            copy.text.reset();
        return copy;
    }
    void markElsewhere(const QString &text) override { m_pasteboard.markOutside(text); }
    std::optional<QString> markedElsewhere() override { return m_pasteboard.markedText(); }
    bool workUntil(const std::function<bool()> &isReached) override { return isReached(); }

private:
    MemoryPasteboard m_pasteboard;
};

} // namespace

std::unique_ptr<PasteboardStage> PasteboardStage::make()
{
    return std::make_unique<MemoryPasteboardStage>();
}
