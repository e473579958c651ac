#pragma once

#include <QByteArray>

#include <optional>

/// How RTF carries HTML so that the same bytes come back. HTML that is text in a Unicode encoding
/// is written as text, which takes the least room and shows any reader of the encapsulation the
/// right characters; anything else byte by byte.
namespace CarriedHtml {

/// What the document says at its beginning, and the groups behind its tables: the HTML, and
/// between \htmlrtf words whatever is shown in its place.
struct Encapsulation
{
    int codePage; ///< The document's, which the rendering may write characters in.
    /// After "{\rtf1", up to the tables.
    QByteArray header;
    QByteArray group;
};
Encapsulation encapsulation(const QByteArray &html);

/// The owner's RTF with the HTML inside; absent when it is no RTF or never closes.
std::optional<QByteArray> added(const QByteArray &html, const QByteArray &rtf);

/// The HTML of either; absent when there is none.
std::optional<QByteArray> of(const QByteArray &rtf);

} // namespace CarriedHtml
