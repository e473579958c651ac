#pragma once

#include "platform/Pasteboard.h"

#include <functional>
#include <memory>
#include <optional>

/// A pasteboard and another program beside it, so that every pasteboard can be held to the same
/// contract. Each test program links one implementation.
class PasteboardStage
{
public:
    PasteboardStage() = default;
    PasteboardStage(const PasteboardStage &) = delete;
    PasteboardStage &operator=(const PasteboardStage &) = delete;
    virtual ~PasteboardStage() = default;

    static std::unique_ptr<PasteboardStage> make();

    virtual Pasteboard &pasteboard() = 0;

    /// The other program copies the text, RTF and files of `contents`, marked as a secret if they
    /// are concealed. Returns once the change was announced.
    virtual void copyElsewhere(const PasteboardContents &contents) = 0;

    /// What the other program would paste now; absent formats where there is nothing.
    virtual Copy pasteElsewhere() = 0;

    /// Whether what is marked goes from one program to another.
    virtual bool hasPrimary() const { return true; }
    /// The other program marks a text, and gives it when it is asked.
    virtual void markElsewhere(const QString &text) = 0;
    /// What its middle button would paste.
    virtual std::optional<QString> markedElsewhere() = 0;
    /// Has the other program work until the condition holds; false when it never does.
    virtual bool workUntil(const std::function<bool()> &isReached) = 0;
};
