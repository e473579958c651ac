#pragma once

#include <QStringList>

namespace SQLite {
class Database;
}

/// The shape of the stored record: a table "ClipItem" with the key `pk` and a column for each
/// attribute, and what may be done to a store of another shape.
///
/// A missing column is added, an unknown one is kept and ignored. The store's `user_version` is
/// its major version: a higher one than ours was written by a program whose shape we cannot infer.
class StoreModel
{
public:
    static constexpr int kMajorVersion = 1;

    enum class Fit {
        Ready,     ///< Nothing to change.
        Readable,  ///< Only what makes reading fast is missing, or what keeps pins in order.
        Adaptable, ///< Empty, or something is missing that can be added.
    };

    static QString entityName() { return QStringLiteral("ClipItem"); }
    /// In the order in which they are stored.
    static QStringList attributeNames();

    /// Compares the store with the model; only reads. Throws SQLite::Exception, with what does not
    /// fit, when the way from its shape to ours cannot be inferred.
    static Fit inspect(SQLite::Database &database);

    /// Gives a store our shape, in one transaction.
    static void adapt(SQLite::Database &database);
};
