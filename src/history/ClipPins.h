#pragma once

#include <QtGlobal>

#include <vector>

namespace SQLite {
class Database;
}

/// Which of the stored clips are pinned: their keys in a table "ClipPin" beside the clips', which
/// the first pin makes. A trigger takes the pin of a clip that is deleted, whoever deletes it,
/// because the key may be given to another clip. Every function throws SQLite::Exception where the
/// store does not answer.
namespace ClipPins {

/// False when table and trigger do not belong together: then clips could not be deleted, or their
/// pins would stay.
bool isWhole(SQLite::Database &database);
/// Makes it so, within a transaction of the caller's.
void repair(SQLite::Database &database);

/// The keys of the pinned clips, in rising order. None where a table of that name is not ours.
std::vector<qint64> read(SQLite::Database &database);
/// Pins the clip with the key `pk`, if there is one, or takes its pin; within a transaction.
void write(SQLite::Database &database, qint64 pk, bool isPinned);

} // namespace ClipPins
