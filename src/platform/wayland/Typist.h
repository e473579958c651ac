#pragma once

#include "platform/KeySender.h"
#include "platform/typing/KeyChord.h"

/// The keys of a keyboard that the compositor takes for one. Used from the main thread.
class Typist
{
public:
    Typist() = default;
    Typist(const Typist &) = delete;
    Typist &operator=(const Typist &) = delete;
    virtual ~Typist() = default;

    /// Whether there is one.
    virtual bool isAvailable() const = 0;

    /// Whether what the user holds at the time has no part in what it types.
    virtual bool canTypeBesideUser() const = 0;

    /// Types into whatever has the keyboard. Returns once the compositor has taken the keys.
    [[nodiscard]] virtual KeySender::Outcome type(const KeySequence &sequence) = 0;
};
