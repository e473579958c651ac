#pragma once

#include "Clipboard/settings/SettingsKeys.h"
#include "preferenceswindow/CCNPreferencesWindowControllerProtocol.h"

#include <QLabel>
#include <QObject>
#include <QPointer>

#include <memory>
#include <optional>

class Capabilities;
class Consent;
class GeneralPaneView;
class HistorySizeSlider;
class HotKeys;
class LoginItems;
class MASShortcut;
class MASShortcutView;
class PictureChoice;
class QCheckBox;
class PreferencesActions;
class QLineEdit;
class SettingsStore;

/// The "General" pane: owns the settings keys and their defaults, shows them in its controls, and
/// is where everybody reads the live limits. Owned by the application delegate, which loads it at
/// start, long before anybody opens the preferences: the limits are those that the controls show
/// and not the stored ones. A control that is missing when it is needed ends the program.
class PreferencesGeneralViewController : public QObject,
                                         public CCNPreferencesWindowControllerProtocol
{
    Q_OBJECT

public:
    const QString openAtLoginPrefKey = SettingsKeys::kOpenAtLogin;
    const QString openShortCutPrefKey = SettingsKeys::kOpenShortCut;
    const QString swopShortCutPrefKey = SettingsKeys::kSwopShortCut;
    const QString maxItemsPrefKey = SettingsKeys::kMaxItems;
    const QString maxStringSizePrefKey = SettingsKeys::kMaxStringSize;
    const QString notificationsPrefKey = SettingsKeys::kNotificationsEnabled;
    const QString welcomeWindowPrefKey = SettingsKeys::kWelcomeWindowShown;
    const QString welcomeMessagePrefKey = SettingsKeys::kWelcomeMessageShown;

    /// All must outlive the pane.
    PreferencesGeneralViewController(PreferencesActions &appDelegate, SettingsStore &settings,
                                     LoginItems &loginItems, HotKeys &hotKeys,
                                     const Capabilities &capabilities, Consent &consent);
    ~PreferencesGeneralViewController() override;

    /// Makes the controls; they show nothing yet.
    void loadView();
    /// Binds the shortcuts, writes the defaults that are missing and shows the settings: once, at
    /// start. Stops early, and leaves the rest as it is, without a recorder, the shared binder or
    /// the slider's label.
    void loadPreferences();

    /// How many clips the history may hold: the slider's number. A stored number beyond the
    /// slider's reach counts as it is, and one that is no size of a history as no limit, until the
    /// user moves the slider.
    qint64 getMaxItems() const;
    /// The largest text that is recorded, in bytes: the field's number; while the field is empty,
    /// the number before.
    qint64 getMaxStringSize() const;
    bool isNotificationsEnabled() const;
    /// Puts the keyboard into the field of the largest text, its number selected.
    void selectMaxStringSize();

    bool welcomeWindowShown() const { return m_welcomeWindowShown; }
    void setWelcomeWindowShown(bool isShown) { m_welcomeWindowShown = isShown; }
    /// Records that the welcome was completed, and the first time puts its message on the
    /// pasteboard.
    /// Largest picture that is kept, in bytes; 0 when none is.
    qint64 getMaxPictureSize() const;
    /// Where the user says whether, and up to which size. Only once the view is loaded.
    PictureChoice &pictures() const { return *m_pictures; }
    void setWelcomeWindowShown();
    /// Stores the choice and changes the login item.
    void setOpenAtLogin(bool isOn);

    /// The history has more clips or fewer.
    void clipItemArrChanged();
    void sliderMoved(int value) { showMaxItems(value); }
    void openAtLoginClicked();
    void notificationsClicked();

    // Outlets; null before the view is loaded.
    QPointer<QCheckBox> openAtLoginCB;
    QPointer<MASShortcutView> openShortcut;
    QPointer<MASShortcutView> swopShortcut;
    QPointer<HistorySizeSlider> maxItemsSlider;
    QPointer<QLineEdit> maxStringSizeTextField;
    QPointer<QCheckBox> notificationsCheckbox;
    QPointer<QLabel> sliderLabel;

    // ^CCNPreferencesWindowControllerProtocol
    QString preferenceIdentifier() const override;
    QString preferenceTitle() const override { return tr("General"); }
    QIcon preferenceIcon() const override;
    QWidget *view() override;

    /// The application ends, and that the pane goes with it does not mean that the user leaves it.
    void applicationWillTerminate() { m_isEnding = true; }

    // ^QObject
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool bindShortcuts();
    void loadOpenAtLogin();
    void loadShortcut(const QString &key, const MASShortcut &shortcut);
    bool loadMaxItems();
    void loadMaxStringSize();
    void loadNotifications();
    void loadWelcomeWindow();

    void maxItemsChosen(int value);
    void maxStringSizeEdited(const QString &text);
    void maxStringSizeLeft();
    void showMaxItems(qint64 maxItems);
    void explainMaxItems(qint64 maxItems);
    /// `wasWrittenNow`: the desktop's list was to be written a moment ago.
    void explainOpenAtLogin(bool wasWrittenNow);
    /// What the session lets us do, and what the user can do about the rest.
    void explainSession();
    /// The shortcut stored under a key, or else its default, as the desktop's configuration has it.
    QString bindingFor(const QString &key, const MASShortcut &byDefault, const QString &word) const;
    void viewDidDisappear();

    PreferencesActions &m_appDelegate;
    SettingsStore &m_settings;
    LoginItems &m_loginItems;
    HotKeys &m_hotKeys;
    const Capabilities &m_capabilities;
    Consent &m_consent;
    qint64 m_originalMaxItems = -1;
    bool m_welcomeWindowShown = false;
    bool m_isEnding = false; ///< The application's end hides the pane.
    /// What counts instead of the slider until it is moved; see getMaxItems().
    std::optional<qint64> m_unreachableMaxItems;
    qint64 m_maxStringSize = 0; ///< The last number that stood in the field.
    std::unique_ptr<PictureChoice> m_pictures;
    std::unique_ptr<GeneralPaneView> m_view;
};
