#pragma once

#include "platform/HotKeys.h"
#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"

#include <QCoreApplication>

#include <tuple>

/// Returns when everything that the keyboard did before has been delivered. The answer to a trial
/// grab comes after all earlier events of its connection, and the second question is taken up
/// after those were handled.
inline void settle(HotKeys &hotKeys)
{
    for (int i = 0; i < 2; ++i)
        std::ignore = hotKeys.isAvailable(VirtualKey::kF20, CarbonModifiers::kOption);
    QCoreApplication::processEvents();
}
