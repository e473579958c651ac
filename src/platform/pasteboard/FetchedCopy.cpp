#include "platform/pasteboard/FetchedCopy.h"

#include <algorithm>

namespace {

PasteboardContents::Media mediaOf(const QStringList &names)
{
    using Media = PasteboardContents::Media;
    const auto isPicture = [](const QString &name) {
        return name.startsWith(QStringLiteral("image/"));
    };
    if (std::any_of(names.begin(), names.end(), isPicture))
        return Media::Picture;
    // Owners of nothing have names too, which tell about the copy.
    const auto isMedia = [](const QString &name) { return name.contains(u'/'); };
    return std::any_of(names.begin(), names.end(), isMedia) ? Media::Other : Media::None;
}

} // namespace

PasteboardContents FetchedCopy::contents(qint64 maxUsefulText) const
{
    PasteboardContents contents;
    contents.media = mediaOf(names);
    contents.isConcealed = isConcealed;
    contents.isPictureTooLarge = isPictureTooLarge;
    contents.isTextTooLarge = isTextTooLarge || (copy.text && copy.text->size() > maxUsefulText);
    if (!contents.isTextTooLarge)
        static_cast<Copy &>(contents) = copy.copy();
    else if (copy.text)
        contents.tooLargeBytes = copy.text->size();
    return contents;
}
