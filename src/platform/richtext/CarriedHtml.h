#pragma once

#include <QByteArray>

#include <optional>

/// HTML inside RTF: that of an Encapsulation, and that in an owner's RTF, where it is in an
/// ignorable destination of our own at the end.
namespace CarriedHtml {

/// The owner's RTF with the HTML inside; absent when it is no RTF or never closes.
std::optional<QByteArray> added(const QByteArray &html, const QByteArray &rtf);

/// The very bytes; absent when there are none.
std::optional<QByteArray> of(const QByteArray &rtf);

} // namespace CarriedHtml
