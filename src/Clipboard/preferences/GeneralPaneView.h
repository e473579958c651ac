#pragma once

#include "Clipboard/preferences/ConfigurationLine.h"
#include "platform/LoginItems.h"

#include <QWidget>

#include <optional>

class Capabilities;
class CapabilityTable;
class DesktopShortcut;
class HistorySizeSlider;
class MASShortcutView;
class PaneNote;
class PictureChoice;
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
    /// `settings` is where the recorders keep their shortcuts; `copy` puts a text on the
    /// pasteboard; the controls of `pictures` come into this view.
    GeneralPaneView(SettingsStore &settings, const ConfigurationLine::Copy &copy,
                    const PictureChoice &pictures);

    QCheckBox *openAtLogin;
    QCheckBox *notifications;
    HistorySizeSlider *maxItems;
    QLabel *maxItemsLabel;
    QLineEdit *maxStringSize;
    MASShortcutView *openShortcut;
    MASShortcutView *swopShortcut;

    /// What the desktop's configuration is to have for the two shortcuts, which stands in the place
    /// of the recorders; or the commands that it is to run, where its configuration is not known.
    struct Bindings
    {
        QString open;
        QString swop;
        bool areCommands = false;
    };
    /// Absent where the shortcuts are ours.
    void showBindings(const std::optional<Bindings> &bindings);
    /// Shows which keys they have and where those are chosen, in the place of the recorders.
    void showDesktopKeys(bool isDesktopsChoice);
    /// `configuration` is all that may be added to the desktop's, to be copied in one go.
    void showCapabilities(const Capabilities &capabilities, const QString &configuration);
    /// Offers to have the desktop ask its user for what it lets nobody do otherwise.
    void offerToAsk(bool isOffered);

    /// Says beside the box what the desktop does other than the box tells; nothing when it is the
    /// same. `wasRefused`: the desktop's list could not be written just now.
    void explainOpenAtLogin(bool isWanted, OwnEntry entry, bool wasRefused);
    /// Says what a history of that size does to the `clips` there are; absent: it has no limit.
    void explainMaxItems(const std::optional<qint64> &size, qint64 clips);
    /// Says the size as people do.
    void explainMaxStringSize(qint64 bytes);

Q_SIGNALS:
    /// The user wants to choose keys in the desktop's settings.
    void desktopKeysWanted();
    void askingWanted();

private:
    void explainShortcuts();
    void showWhatChooses();
    void layOut(const PictureChoice &pictures);
    void fit();

    PaneNote *m_openAtLoginNote;
    QLabel *m_maxItemsUnit;
    PaneNote *m_maxItemsNote;
    PaneNote *m_maxStringSizeReading;
    PaneNote *m_shortcutNote;
    QList<QWidget *> m_recorders; ///< With the notes beside them.
    ConfigurationLine *m_openBinding;
    ConfigurationLine *m_swopBinding;
    DesktopShortcut *m_openOfDesktop = nullptr;
    DesktopShortcut *m_swopOfDesktop = nullptr;
    std::optional<Bindings> m_bindings;
    bool m_isDesktopsChoice = false;
    CapabilityTable *m_capabilities;
};
