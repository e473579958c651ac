#pragma once

#include <QWidget>

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
    QLabel *maxItemsUnit;
    PaneNote *maxItemsNote; ///< What the chosen size will do, when there is something to say.
    QLineEdit *maxStringSize;
    PaneNote *maxStringSizeReading; ///< The size as people say it.
    MASShortcutView *openShortcut;
    MASShortcutView *swopShortcut;

private:
    void explainShortcuts();
    void layOut();

    PaneNote *m_shortcutNote;
};
