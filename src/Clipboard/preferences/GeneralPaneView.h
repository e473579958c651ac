#pragma once

#include "platform/LoginItems.h"

#include <QWidget>

#include <optional>

class HistorySizeSlider;
class MASShortcutView;
class PaneNote;
class QCheckBox;
class QLabel;
class QLineEdit;
class SettingsStore;

/// The controls of the General pane and where they stand. Owned by its controller, which knows what
/// they mean.
class GeneralPaneView : public QWidget
{
    Q_OBJECT

public:
    /// `settings` is where the recorders keep their shortcuts.
    explicit GeneralPaneView(SettingsStore &settings);

    QCheckBox *openAtLogin;
    QCheckBox *notifications;
    HistorySizeSlider *maxItems;
    QLabel *maxItemsLabel;
    QLineEdit *maxStringSize;
    MASShortcutView *openShortcut;
    MASShortcutView *swopShortcut;

    /// Says beside the box what the desktop does other than the box tells; nothing when it is the
    /// same. `wasRefused`: the desktop's list could not be written just now.
    void explainOpenAtLogin(bool isWanted, OwnEntry entry, bool wasRefused);
    /// Says what a history of that size does to the `clips` there are; absent: it has no limit.
    void explainMaxItems(const std::optional<qint64> &size, qint64 clips);
    /// Says the size as people do.
    void explainMaxStringSize(qint64 bytes);

private:
    void explainShortcuts();
    void layOut();

    PaneNote *m_openAtLoginNote;
    QLabel *m_maxItemsUnit;
    PaneNote *m_maxItemsNote;
    PaneNote *m_maxStringSizeReading;
    PaneNote *m_shortcutNote;
};
