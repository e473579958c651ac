#include "platform/x11/SelectionOffer.h"

#include "platform/pasteboard/FileUris.h"
#include "platform/pasteboard/PictureFormats.h"
#include "platform/pasteboard/SelectionText.h"

#include <algorithm>

namespace {

const QByteArray kKdeCut = QByteArrayLiteral("1");

} // namespace

std::shared_ptr<const SelectionOffer> SelectionOffer::of(const PasteboardItem &item)
{
    std::shared_ptr<SelectionOffer> offer(new SelectionOffer);
    if (item.text)
        offer->m_text = SelectionText::toUtf8(*item.text);
    else if (!item.fileNames.isEmpty())
        offer->m_text = SelectionText::toUtf8(FileUris::paths(item.fileNames));
    if (item.rtf)
        offer->m_rtf = SelectionText::toRtf(*item.rtf);
    offer->m_fileNames = item.fileNames;
    offer->m_uriList = FileUris::uriList(item.fileNames);
    offer->m_isTextLatin1 = offer->m_text && SelectionText::isLatin1(*offer->m_text);
    return offer;
}

std::shared_ptr<const SelectionOffer> SelectionOffer::of(const FetchedSelection &fetched)
{
    std::shared_ptr<SelectionOffer> offer(new SelectionOffer);
    offer->m_text = fetched.text;
    offer->m_rtf = fetched.rtf;
    offer->m_fileNames = fetched.fileNames;
    offer->m_fileAction = fetched.fileAction;
    offer->m_uriList =
        fetched.uriList.isEmpty() ? FileUris::uriList(fetched.fileNames) : fetched.uriList;
    offer->m_isTextLatin1 = offer->m_text && SelectionText::isLatin1(*offer->m_text);
    return offer;
}

std::shared_ptr<const SelectionOffer> SelectionOffer::textAlone() const
{
    if (!m_text)
        return nullptr;
    std::shared_ptr<SelectionOffer> offer(new SelectionOffer);
    offer->m_text = m_text;
    offer->m_isTextLatin1 = m_isTextLatin1;
    return offer;
}

std::shared_ptr<const SelectionOffer> SelectionOffer::with(const QList<Kept> &formats,
                                                           const QHash<QString, xcb_atom_t> &atoms,
                                                           xcb_atom_t imagePng) const
{
    std::shared_ptr<SelectionOffer> offer(new SelectionOffer(*this));
    offer->m_kept += formats;
    QHash<QString, xcb_atom_t> names = atoms;
    names[PictureFormats::kPng] = imagePng;
    for (const QString &name : PictureFormats::inOrder(atoms.keys())) {
        const auto kept = std::find_if(formats.begin(), formats.end(), [&](const Kept &format) {
            return format.target == atoms[name];
        });
        if (kept == formats.end())
            continue;
        offer->m_picture = kept->data.bytes;
        for (const QString &other : PictureFormats::writable(offer->m_picture, names.keys())) {
            if (other != name)
                offer->m_encodings[names[other]] = other;
        }
        break;
    }
    return offer;
}

qint64 SelectionOffer::byteCount() const
{
    qint64 bytes = (m_text ? m_text->size() : 0) + (m_rtf ? m_rtf->size() : 0) + m_uriList.size();
    for (const Kept &format : m_kept)
        bytes += format.data.bytes.size();
    return bytes;
}

QList<xcb_atom_t> SelectionOffer::targets(const SelectionAtoms &atoms) const
{
    QList<xcb_atom_t> targets;
    // Most faithful first: some requestors take the first one they know.
    if (!m_fileNames.isEmpty())
        targets << atoms.gnomeCopiedFiles;
    if (!m_uriList.isEmpty())
        targets << atoms.uriList;
    if (m_fileAction == FileUris::Action::Cut)
        targets << atoms.kdeCutSelection;
    if (m_text)
        targets << atoms.utf8String << atoms.textPlainUtf8 << atoms.textPlain << atoms.text;
    if (m_text && m_isTextLatin1)
        targets << XCB_ATOM_STRING;
    if (m_rtf)
        targets << atoms.textRtf << atoms.applicationRtf;
    for (const Kept &format : m_kept)
        targets << format.target;
    targets << m_encodings.keys();
    return targets;
}

std::optional<SelectionOffer::Data> SelectionOffer::convert(xcb_atom_t target,
                                                            const SelectionAtoms &atoms) const
{
    if (!targets(atoms).contains(target))
        return std::nullopt;
    const auto kept = std::find_if(m_kept.begin(), m_kept.end(),
                                   [&](const Kept &format) { return format.target == target; });
    if (kept != m_kept.end())
        return kept->data;
    if (m_encodings.contains(target)) {
        const auto picture = PictureFormats::convert(m_picture, m_encodings[target]);
        return picture ? std::optional(Data{target, *picture}) : std::nullopt;
    }
    if (target == atoms.gnomeCopiedFiles)
        return Data{target, FileUris::gnomeList(m_fileNames, m_fileAction)};
    if (target == atoms.kdeCutSelection)
        return Data{target, kKdeCut};
    if (target == atoms.uriList)
        return Data{target, m_uriList};
    if (target == atoms.textRtf || target == atoms.applicationRtf)
        return Data{target, *m_rtf};
    if (target == XCB_ATOM_STRING)
        return Data{target, SelectionText::utf8ToLatin1(*m_text)};
    // TEXT leaves the encoding to the owner, which tells it by the type.
    return Data{target == atoms.text ? atoms.utf8String : target, *m_text};
}
