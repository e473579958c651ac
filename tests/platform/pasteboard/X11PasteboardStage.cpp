#include "platform/pasteboard/X11Stage.h"

std::unique_ptr<PasteboardStage> PasteboardStage::make()
{
    return std::make_unique<X11Stage>();
}
