#pragma once

#include "platform/Copy.h"

/// A widget whose text is copied with its formatting.
class FormattedText
{
public:
    FormattedText() = default;
    FormattedText(const FormattedText &) = delete;
    FormattedText &operator=(const FormattedText &) = delete;
    virtual ~FormattedText() = default;

    /// What is marked, in every format that it has.
    virtual Copy selectedCopy() const = 0;
};
