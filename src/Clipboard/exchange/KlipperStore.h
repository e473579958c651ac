#pragma once

#include "Clipboard/exchange/ForeignFormats.h"

#include <QString>

/// The history of Plasma's clipboard from version 6 on: an SQLite database with the texts, and a
/// folder beside it with all else.
namespace KlipperStore {

/// Reads it as it lies there, also while its program has it open, and changes nothing. As bounded
/// as what ForeignFormats reads; any thread.
ForeignFormats::Contents read(const QString &path);

} // namespace KlipperStore
