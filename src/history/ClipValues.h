#pragma once

#include <QString>
#include <QtGlobal>

#include <optional>

/// Attributes of a clip that a change may touch, as bits.
namespace ClipAttribute {

inline constexpr quint8 kStrValue = 0x01;
inline constexpr quint8 kRtfValue = 0x02;
inline constexpr quint8 kApplicationName = 0x04;
inline constexpr quint8 kFilepath = 0x08;
inline constexpr quint8 kCreateDate = 0x10;
inline constexpr quint8 kPasteCount = 0x20;

} // namespace ClipAttribute

/// When a clip was copied, in seconds since 1970 UTC; NaN for never.
namespace ClipDate {

/// Beyond these, ahead or back, a stored number is no date.
inline constexpr double kMaxSeconds = 1e12;

} // namespace ClipDate

/// A clip's attributes but its date; they mean what they mean in ClipItem.
struct ClipValues
{
    std::optional<qint64> id;
    std::optional<QString> strValue;
    std::optional<QString> rtfValue;
    std::optional<QString> applicationName;
    std::optional<QString> filepath;
    std::optional<qint32> pasteCount;
};

/// What a save writes of one record.
struct ClipChange
{
    qint64 pk = 0;         ///< 0 for a new record; the save fills it in.
    quint8 attributes = 0; ///< Which of the values are written.
    ClipValues values;
    double createDate = 0; ///< Seconds since 1970 UTC.
};
