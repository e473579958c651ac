#pragma once

/// Why a file has no preview, where it is more than that nobody can read its kind.
enum class PreviewTrouble {
    None,
    Crashed,    ///< What reads it ended while it did.
    TookLong,   ///< What reads it had to be ended.
    GivenUp,    ///< It could not be read in time, perhaps for want of that alone.
    TooLarge,   ///< More memory than a preview may have.
    NotApart,   ///< The system cannot keep what reads it apart from the rest.
    NotStarted, ///< What reads it is not there.
    Resting,    ///< After too many starts in a row.
};

namespace PreviewTroubles {

/// Whether it would be the same with the same file at another time.
constexpr bool isOfFile(PreviewTrouble trouble)
{
    return trouble == PreviewTrouble::Crashed || trouble == PreviewTrouble::TookLong ||
           trouble == PreviewTrouble::TooLarge;
}

} // namespace PreviewTroubles
