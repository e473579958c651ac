#pragma once

#include <QByteArray>

/// The encoding of the oldest programs: pieces of several character sets, each announced by an
/// escape sequence.
namespace CompoundText {

/// What its announcement does not tell becomes U+FFFD, and an announcement itself never shows.
QByteArray toUtf8(const QByteArray &compoundText);

} // namespace CompoundText
