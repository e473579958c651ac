#include "platform/BinaryPropertyListCheck.h"

#include <optional>
#include <vector>

namespace {

constexpr int kMaxDepth = 128;
constexpr quint64 kMaxReferences = 500'000;
constexpr quint64 kMaxExpansion = 64 * 1024 * 1024;
/// What one node costs in memory, roughly.
constexpr quint64 kNodeCost = 128;
constexpr quint64 kTrailerSize = 32;
constexpr quint64 kHeaderSize = 8;

class Walk
{
public:
    explicit Walk(QByteArrayView bytes) : m_bytes(bytes) {}

    bool isSafe() { return readTrailer() && costOf(m_top, 0).has_value(); }

private:
    struct Extent
    {
        quint64 begin;
        quint64 count;
    };

    bool readTrailer();
    quint64 number(quint64 at, quint64 size) const;
    std::optional<Extent> extent(quint64 offset) const;
    std::optional<quint64> costOf(quint64 index, int depth);
    std::optional<quint64> costOfReferences(quint64 begin, quint64 count, int depth);
    std::optional<quint64> measure(quint64 offset, int depth);
    bool holdsNul(quint64 begin, quint64 count, quint64 unit) const;
    /// Whether `count` items of `size` bytes fit between `begin` and the offset table.
    bool fits(quint64 begin, quint64 count, quint64 size) const
    {
        return begin <= m_tableBegin && count <= (m_tableBegin - begin) / size;
    }

    static constexpr quint64 kUnknown = ~quint64(0);
    static constexpr quint64 kEntered = kUnknown - 1;

    QByteArrayView m_bytes;
    quint64 m_offsetSize = 0;
    quint64 m_referenceSize = 0;
    quint64 m_top = 0;
    quint64 m_tableBegin = 0;
    quint64 m_references = 0;
    std::vector<quint64> m_costs;
};

quint64 Walk::number(quint64 at, quint64 size) const
{
    quint64 value = 0;
    for (quint64 i = 0; i < size; ++i)
        value = value << 8 | static_cast<quint8>(m_bytes[static_cast<qsizetype>(at + i)]);
    return value;
}

bool Walk::readTrailer()
{
    const auto size = static_cast<quint64>(m_bytes.size());
    if (size < kHeaderSize + kTrailerSize || !m_bytes.startsWith("bplist0"))
        return false;
    const quint64 trailer = size - kTrailerSize;
    m_offsetSize = number(trailer + 6, 1);
    m_referenceSize = number(trailer + 7, 1);
    const quint64 objects = number(trailer + 8, 8);
    m_top = number(trailer + 16, 8);
    m_tableBegin = number(trailer + 24, 8);
    if (m_offsetSize < 1 || m_offsetSize > 8 || m_referenceSize < 1 || m_referenceSize > 8)
        return false;
    if (m_tableBegin < kHeaderSize || m_tableBegin > trailer)
        return false;
    if (objects == 0 || objects > (trailer - m_tableBegin) / m_offsetSize)
        return false;
    m_costs.assign(objects, kUnknown);
    return true;
}

/// libplist ends the process over a key with a NUL in it.
bool Walk::holdsNul(quint64 begin, quint64 count, quint64 unit) const
{
    for (quint64 i = 0; i < count; ++i) {
        if (number(begin + i * unit, unit) == 0)
            return true;
    }
    return false;
}

/// Where the payload of a counted object begins and how many items it has: the count is in the
/// marker, or, when that says 15, in an integer object after it.
std::optional<Walk::Extent> Walk::extent(quint64 offset) const
{
    const quint64 inMarker = number(offset, 1) & 0x0F;
    if (inMarker != 0x0F)
        return Extent{offset + 1, inMarker};
    if (!fits(offset + 1, 1, 1))
        return std::nullopt;
    const quint64 marker = number(offset + 1, 1);
    if (marker >> 4 != 1 || (marker & 0x0F) > 3)
        return std::nullopt;
    const quint64 size = quint64(1) << (marker & 0x0F);
    if (!fits(offset + 2, 1, size))
        return std::nullopt;
    return Extent{offset + 2 + size, number(offset + 2, size)};
}

std::optional<quint64> Walk::costOfReferences(quint64 begin, quint64 count, int depth)
{
    if (!fits(begin, count, m_referenceSize))
        return std::nullopt;
    quint64 total = kNodeCost;
    for (quint64 i = 0; i < count; ++i) {
        if (++m_references > kMaxReferences)
            return std::nullopt;
        const auto cost = costOf(number(begin + i * m_referenceSize, m_referenceSize), depth + 1);
        if (!cost)
            return std::nullopt;
        total += *cost;
        if (total > kMaxExpansion)
            return std::nullopt;
    }
    return total;
}

std::optional<quint64> Walk::measure(quint64 offset, int depth)
{
    const quint64 marker = number(offset, 1);
    const quint64 low = marker & 0x0F;
    const auto plain = [&](quint64 size) {
        return fits(offset + 1, 1, size) ? std::optional(kNodeCost) : std::nullopt;
    };
    switch (marker >> 4) {
    case 0x0: // the two truth values; nothing else of this row occurs in a property list
        return low == 8 || low == 9 ? std::optional(kNodeCost) : std::nullopt;
    case 0x1:
        return low <= 4 ? plain(quint64(1) << low) : std::nullopt;
    case 0x2:
        return low == 2 || low == 3 ? plain(quint64(1) << low) : std::nullopt;
    case 0x3:
        return low == 3 ? plain(8) : std::nullopt;
    case 0x8:
        return low <= 7 ? plain(low + 1) : std::nullopt;
    default:
        break;
    }
    const auto counted = extent(offset);
    if (!counted)
        return std::nullopt;
    switch (marker >> 4) {
    case 0x4:
    case 0x5:
    case 0x6: {
        const quint64 unit = marker >> 4 == 0x6 ? 2 : 1;
        if (!fits(counted->begin, counted->count, unit) ||
            (marker >> 4 != 0x4 && holdsNul(counted->begin, counted->count, unit)))
            return std::nullopt;
        return kNodeCost + counted->count * unit;
    }
    case 0xA:
        return costOfReferences(counted->begin, counted->count, depth);
    case 0xD:
        if (counted->count > kMaxReferences)
            return std::nullopt;
        return costOfReferences(counted->begin, counted->count * 2, depth);
    default:
        return std::nullopt;
    }
}

std::optional<quint64> Walk::costOf(quint64 index, int depth)
{
    if (index >= m_costs.size() || depth > kMaxDepth || m_costs[index] == kEntered)
        return std::nullopt;
    if (m_costs[index] != kUnknown)
        return m_costs[index];
    const quint64 offset = number(m_tableBegin + index * m_offsetSize, m_offsetSize);
    if (offset < kHeaderSize || offset >= m_tableBegin)
        return std::nullopt;
    m_costs[index] = kEntered;
    const auto cost = measure(offset, depth);
    if (cost)
        m_costs[index] = *cost;
    return cost;
}

} // namespace

bool isSafeBinaryPropertyList(QByteArrayView bytes)
{
    return Walk(bytes).isSafe();
}
