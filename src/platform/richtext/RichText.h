#pragma once

#include <QByteArray>

#include <optional>

/// HTML within RTF and out of it, so that a clip, which keeps RTF, keeps the HTML of what was
/// copied as well. Functions of bytes alone: for any thread, with bounds to time and memory
/// whatever the bytes are.
namespace RichText {

/// What is larger than this is not carried.
constexpr qsizetype kMaxHtml = qsizetype(1) << 20;

/// RTF that carries `html` byte for byte.
///
/// Without `rtf` it is a document that encapsulates the HTML in the public way (\fromhtml1,
/// {\*\htmltag...}) and shows readers of RTF a rendering of it between \htmlrtf and \htmlrtf0;
/// text that both have stands there once. With the RTF of the same owner it is that, byte for byte,
/// and before the brace that closes it an ignorable destination with the HTML; nothing is added to
/// RTF that carries the HTML already.
///
/// Absent when the HTML is empty or too large, or when the RTF is none or never closes.
std::optional<QByteArray> withHtml(const QByteArray &html, const std::optional<QByteArray> &rtf);

/// The HTML for readers of HTML: the very bytes that withHtml() was given; where none are carried,
/// HTML in UTF-8, which says so, made of the RTF. Absent when there is no text in it, or no RTF.
std::optional<QByteArray> htmlOf(const QByteArray &rtf);

/// The very bytes that withHtml() was given; absent when `rtf` carries none. Takes much less time
/// than htmlOf() may.
std::optional<QByteArray> carriedHtml(const QByteArray &rtf);

} // namespace RichText
