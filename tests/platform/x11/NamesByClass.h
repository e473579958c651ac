#pragma once

#include "platform/ApplicationNames.h"

/// Names a program by its window class; the class Terminal is one.
class NamesByClass : public ApplicationNames
{
public:
    // ^ApplicationNames
    ApplicationIdentity identify(const WindowIdentity &window) const override
    {
        return {window.resourceClass, window.resourceClass == QStringLiteral("Terminal")};
    }
};
