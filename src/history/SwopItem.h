#pragma once

#include <QString>

#include <optional>

/// The selection that a swop took from the front application. Never stored; the fields mean what
/// they mean in ClipItem.
struct SwopItem
{
    std::optional<QString> strValue;
    std::optional<QString> rtfValue;
    std::optional<QString> applicationName;
    std::optional<QString> filepath;
    /// Larger than what the history records: it is left on the pasteboard and nowhere else.
    bool isTooLarge = false;
};
