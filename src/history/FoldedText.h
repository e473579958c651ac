#pragma once

#include <QByteArray>
#include <QByteArrayView>

/// Text prepared for a search that ignores case: each character folded by itself, as UTF-8.
namespace FoldedText {

/// Bytes that are no UTF-8 become the replacement character.
QByteArray fold(QByteArrayView utf8);

} // namespace FoldedText
