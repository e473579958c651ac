#pragma once

#include <QtGlobal>

#include <array>
#include <chrono>
#include <functional>

/// How long other programs are waited for and how much is read of them: no hung program may hold
/// the pasteboard up, and no large copy the memory. Tests bring their own clock.
struct PasteboardLimits
{
    /// Never more than this of one format.
    static constexpr qint64 kMaxFormat = qint64(64) * 1024 * 1024;

    /// By what they are measured.
    std::function<std::chrono::steady_clock::time_point()> now = &std::chrono::steady_clock::now;

    /// An owner that sends nothing for so long is given up.
    std::chrono::milliseconds ownerStall{2'000};
    /// And so is one that takes so long in all, however diligently it drips.
    std::chrono::milliseconds fetch{10'000};
    /// An owner that lists a text and refuses it is asked again after each of these: some say
    /// that they own the selection before they know it.
    std::array<std::chrono::milliseconds, 2> askAgain{std::chrono::milliseconds(50),
                                                      std::chrono::milliseconds(250)};
    /// What was copied is read whole, in case its owner dies, once the owner has had rest so long.
    std::chrono::milliseconds rest{200};
    /// And that takes no longer, nor does an owner wait longer that asks for it.
    std::chrono::milliseconds keep{5'000};
    /// Never more than this of one copy is kept, in bytes.
    qint64 maxKept = kMaxFormat;
    /// A requestor that takes nothing for so long gets no more.
    std::chrono::milliseconds requestorStall{10'000};
    /// For another clipboard manager to take the contents over when we quit.
    std::chrono::milliseconds handover{2'000};

    /// A text that is no use to the application is still worth keeping alive, up to this size.
    static constexpr qint64 kMaxIdleText = qint64(4) * 1024 * 1024;
};
