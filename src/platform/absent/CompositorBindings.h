#pragma once

#include "platform/HotKeys.h"

#include <QProcessEnvironment>
#include <QString>

/// How the configuration of a compositor says that keys run a command.
namespace CompositorBindings {

enum class Compositor { Unknown, Sway, Labwc, Hyprland, Niri, River, Wayfire };

/// The one that a session's environment tells of, by the desktop's name or else by the socket that
/// each compositor names for its own tools.
Compositor compositorIn(const QProcessEnvironment &environment);

struct Command
{
    QString program;
    QString word;
};

/// `printed` is what the layout prints on the key; empty when that is nothing. Empty for an unknown
/// compositor, and for a key without a name.
QString lineFor(Compositor compositor, const HotKeyCombination &combination, const QString &printed,
                const Command &command);

} // namespace CompositorBindings
