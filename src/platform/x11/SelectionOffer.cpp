#include "platform/x11/SelectionOffer.h"

#include "platform/pasteboard/FileUris.h"
#include "platform/pasteboard/SelectionText.h"

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
    return targets;
}

std::optional<SelectionOffer::Data> SelectionOffer::convert(xcb_atom_t target,
                                                            const SelectionAtoms &atoms) const
{
    if (!targets(atoms).contains(target))
        return std::nullopt;
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
