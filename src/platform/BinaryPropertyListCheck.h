#pragma once

#include <QByteArrayView>

/// Walks a binary property list without building anything and tells whether a parser may be let
/// loose on it: every offset and count lies within the bytes, nothing contains itself, and
/// neither the nesting nor the size after shared objects are repeated passes a limit. A file of a
/// few hundred bytes can otherwise claim more memory than exists.
bool isSafeBinaryPropertyList(QByteArrayView bytes);
