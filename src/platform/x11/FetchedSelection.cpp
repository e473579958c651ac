#include "platform/x11/FetchedSelection.h"

#include "platform/pasteboard/SelectionText.h"

PasteboardContents FetchedSelection::contents(qint64 largestUsefulText) const
{
    PasteboardContents contents;
    contents.types = types;
    contents.isConcealed = isConcealed;
    contents.isComplete = isComplete;
    contents.fileNames = fileNames;
    contents.isTextTooLarge = isTextTooLarge || (text && text->size() > largestUsefulText);
    if (text && contents.isTextTooLarge)
        contents.tooLargeBytes = text->size();
    if (text && !contents.isTextTooLarge)
        contents.text = SelectionText::fromUtf8(*text);
    if (rtf && !contents.isTextTooLarge)
        contents.rtf = SelectionText::fromRtf(*rtf);
    return contents;
}
