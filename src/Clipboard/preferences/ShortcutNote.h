#pragma once

#include "looks/PaneParts.h"

#include <QPointer>

class MASShortcutView;

/// Stands beside a recorder and says its signs in the words that a Linux keyboard bears; when the
/// shortcut does nothing, why. Owned by the pane; takes the recorder's one report of changes.
class ShortcutNote : public PaneNote
{
    Q_OBJECT

public:
    /// `recorder` is not owned; the note keeps its words when it goes.
    explicit ShortcutNote(MASShortcutView &recorder);

private:
    void refresh();

    const QPointer<MASShortcutView> m_recorder;
};
