#include "platform/pasteboard/CopyBytes.h"

#include "platform/pasteboard/PictureFormats.h"
#include "platform/pasteboard/SelectionText.h"
#include "platform/richtext/RichText.h"

namespace {

/// The text as HTML, for RTF that has none.
QByteArray htmlOfText(const QByteArray &text)
{
    const QString escaped = SelectionText::fromUtf8(text).toHtmlEscaped();
    return "<meta http-equiv=\"content-type\" content=\"text/html; charset=utf-8\">"
           "<div style=\"white-space: pre-wrap\">" +
           escaped.toUtf8() + "</div>";
}

bool isOffered(const CopyFormat &format, Copy::Offer offer)
{
    return offer == Copy::Offer::Everything ||
           (offer == Copy::Offer::NoHtml && format.source != &Copy::html);
}

} // namespace

CopyBytes CopyBytes::of(const Copy &copy)
{
    CopyBytes bytes;
    if (copy.text && copy.offer != Copy::Offer::Picture)
        bytes.text = SelectionText::toUtf8(*copy.text);
    for (const CopyFormat &format : copyFormats()) {
        if (const std::optional<QString> &source = copy.*format.source;
            source && isOffered(format, copy.offer))
            bytes.formats[&format] = format.toBytes(*source);
    }
    bytes.makesHtml = copy.offer == Copy::Offer::Everything;
    bytes.fileNames = copy.fileNames;
    bytes.picture = copy.picture;
    if (!copy.picture.isEmpty())
        bytes.pictureName = PictureFormats::kPng;
    return bytes;
}

Copy CopyBytes::copy() const
{
    Copy copy;
    if (text)
        copy.text = SelectionText::fromUtf8(*text);
    for (auto format = formats.begin(); format != formats.end(); ++format)
        copy.*format.key()->source = format.key()->fromBytes(*format);
    copy.fileNames = fileNames;
    copy.picture = picture;
    return copy;
}

qint64 CopyBytes::byteCount() const
{
    qint64 count = text.value_or(QByteArray()).size() + uriList.size() + picture.size();
    for (const QByteArray &bytes : formats)
        count += bytes.size();
    return count;
}

QList<CopyBytes::Offer> CopyBytes::offers() const
{
    QList<Offer> offers;
    const auto add = [&](const QString &name, const QByteArray &bytes) {
        offers.append({name, name, bytes, nullptr});
    };
    // Before the file that it is in, so that it lands as a picture with those who take either.
    if (pictureName == PictureFormats::kPng)
        add(pictureName, picture);
    // Before the plain list, which cannot say whether the files were copied or cut: file managers
    // look for theirs first.
    if (!fileNames.isEmpty())
        add(FileUris::kGnomeList, FileUris::gnomeList(fileNames, fileAction));
    // The owner's own list, if there was one: it may name what is no file of this machine.
    const QByteArray list = uriList.isEmpty() ? FileUris::uriList(fileNames) : uriList;
    if (!list.isEmpty())
        add(FileUris::kUriList, list);
    if (!list.isEmpty() && fileAction == FileUris::Action::Cut)
        add(FileUris::kKdeCut, QByteArrayLiteral("1"));
    if (text) {
        // Under the names of X and those of MIME: each toolkit asks for its own, some for one only.
        const QString utf8 = QStringLiteral("UTF8_STRING");
        for (const QString &name :
             {utf8, QStringLiteral("text/plain;charset=utf-8"), QStringLiteral("text/plain")})
            add(name, *text);
        // It leaves the encoding to the owner, which tells it by the type.
        offers.append({QStringLiteral("TEXT"), utf8, *text, nullptr});
    }
    // ICCCM 2.6.2 fixes STRING to Latin-1. Offered for any other text it would lose characters with
    // those who prefer it.
    if (text && SelectionText::isLatin1(*text)) {
        const QString latin1 = QStringLiteral("STRING");
        offers.append({latin1, latin1, *text, &SelectionText::utf8ToLatin1});
    }
    const QByteArray *rtf = nullptr;
    for (const CopyFormat &format : copyFormats()) {
        const auto bytes = formats.constFind(&format);
        if (format.source == &Copy::rtf && bytes != formats.cend())
            rtf = &*bytes;
        for (const QString &name : format.names) {
            if (bytes != formats.cend())
                add(name, *bytes);
            else if (format.source == &Copy::html && makesHtml && rtf)
                offers.append(
                    {name, name, *rtf, [text = text.value_or(QByteArray())](const auto &source) {
                         const auto html = RichText::htmlOf(source);
                         return html ? *html : htmlOfText(text);
                     }});
        }
    }
    return offers;
}

QStringList CopyBytes::names()
{
    CopyBytes everything;
    everything.text = QByteArray();
    for (const CopyFormat &format : copyFormats())
        everything.formats[&format] = QByteArray();
    everything.fileNames = QStringList{QStringLiteral("/")};
    everything.fileAction = FileUris::Action::Cut;
    everything.pictureName = PictureFormats::kPng;
    QStringList names;
    for (const Offer &offer : everything.offers())
        names.append(offer.name);
    return names;
}
