#pragma once

#include "updates/updater/UpdateItem.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QList>
#include <QString>

#include <optional>
#include <variant>

/// Reads a feed and picks from it. A feed with one item that cannot be understood is refused as a
/// whole, because whoever publishes it must learn of it; only items of another channel or address
/// than ours, as a later Quillmarsh may know them, are passed over.
class UpdateFeed
{
    Q_DECLARE_TR_FUNCTIONS(UpdateFeed)

public:
    /// No feed may be longer.
    static constexpr qint64 kMaxBytes = 256 * 1024;

    /// What the running program can make use of.
    struct Wanted
    {
        QString installedVersion;
        std::optional<QString> system; ///< The version of the C library; absent for any.
        QString kind;
        QString machine;
        bool withBeta = false;
        bool withTest = false;
    };

    /// For any thread. The items, or a sentence for the user that says why there are none.
    static std::variant<QList<UpdateItem>, QString> parse(const QByteArray &xml);

    /// What makes an item unusable, as a sentence; nothing when all is there.
    static std::optional<QString> faultOf(const UpdateItem &item);

    /// The newest suitable item that is newer than what is installed; null when there is none.
    static const UpdateItem *newest(const QList<UpdateItem> &items, const Wanted &wanted);
};
