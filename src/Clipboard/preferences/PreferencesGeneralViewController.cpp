#include "Clipboard/preferences/PreferencesGeneralViewController.h"

#include "Clipboard/preferences/GeneralPaneView.h"
#include "Clipboard/preferences/HistorySizeSlider.h"
#include "Clipboard/preferences/OnlyIntegerNumberFormatter.h"
#include "Clipboard/preferences/PictureChoice.h"
#include "Clipboard/preferences/PreferencesActions.h"
#include "Clipboard/settings/GlobalShortcuts.h"
#include "looks/WindowIcons.h"
#include "platform/Capabilities.h"
#include "platform/Consent.h"
#include "platform/HotKeys.h"
#include "platform/LoginItems.h"
#include "platform/SettingsStore.h"
#include "shortcut/MASShortcut.h"
#include "shortcut/MASShortcutBinder.h"
#include "shortcut/MASShortcutView.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QEvent>
#include <QLineEdit>
#include <QLocale>
#include <QLoggingCategory>
#include <QSignalBlocker>

#include <algorithm>
#include <limits>

namespace {

Q_LOGGING_CATEGORY(lcPreferences, "quillmarsh.preferences")

constexpr qint64 kNoLimit = std::numeric_limits<qint64>::max();

template <typename Outlet>
Outlet &required(const QPointer<Outlet> &outlet, const char *name)
{
    if (!outlet)
        qFatal("The General pane has no %s", name);
    return *outlet;
}

/// What a stored maximum stands for when the slider cannot show it. A number too large for the
/// slider is a limit that somebody chose; anything else that is no size of a history limits
/// nothing, because by such a value no clip may be lost.
std::optional<qint64> unreachableMaxItems(const QVariant &stored, qint64 asInteger)
{
    // A boolean reads as 1, which nobody means who stores one here.
    if (stored.typeId() == QMetaType::Bool || asInteger < HistorySizeSlider::kMinimum)
        return kNoLimit;
    if (asInteger > HistorySizeSlider::kMaximum)
        return asInteger;
    return std::nullopt;
}

} // namespace

PreferencesGeneralViewController::PreferencesGeneralViewController(
    PreferencesActions &appDelegate, SettingsStore &settings, LoginItems &loginItems,
    HotKeys &hotKeys, const Capabilities &capabilities, Consent &consent)
    : m_appDelegate(appDelegate), m_settings(settings), m_loginItems(loginItems),
      m_hotKeys(hotKeys), m_capabilities(capabilities), m_consent(consent)
{
    connect(&hotKeys, &HotKeys::controlChanged, this,
            &PreferencesGeneralViewController::explainSession);
    connect(&capabilities, &Capabilities::changed, this,
            &PreferencesGeneralViewController::explainSession);
    connect(&consent, &Consent::stateChanged, this,
            &PreferencesGeneralViewController::explainSession);
}

PreferencesGeneralViewController::~PreferencesGeneralViewController()
{
    // A pane that is being taken apart has not been left.
    if (m_view)
        m_view->removeEventFilter(this);
}

void PreferencesGeneralViewController::loadView()
{
    const auto copy = [this](const QString &text) {
        m_appDelegate.setPasteboardString(text, std::nullopt);
    };
    m_pictures = std::make_unique<PictureChoice>(m_settings);
    m_view = std::make_unique<GeneralPaneView>(m_settings, copy, *m_pictures);
    m_view->installEventFilter(this);
    connect(m_view.get(), &GeneralPaneView::desktopKeysWanted, &m_hotKeys, &HotKeys::configure);
    connect(m_view.get(), &GeneralPaneView::askingWanted, &m_consent, &Consent::ask);
    QCoreApplication::instance()->installEventFilter(this);
    openAtLoginCB = m_view->openAtLogin;
    openShortcut = m_view->openShortcut;
    swopShortcut = m_view->swopShortcut;
    maxItemsSlider = m_view->maxItems;
    maxStringSizeTextField = m_view->maxStringSize;
    notificationsCheckbox = m_view->notifications;
    sliderLabel = m_view->maxItemsLabel;

    connect(openAtLoginCB, &QCheckBox::clicked, this,
            &PreferencesGeneralViewController::openAtLoginClicked);
    connect(notificationsCheckbox, &QCheckBox::clicked, this,
            &PreferencesGeneralViewController::notificationsClicked);
    connect(maxItemsSlider, &QSlider::sliderMoved, this,
            &PreferencesGeneralViewController::sliderMoved);
    connect(maxItemsSlider, &QSlider::valueChanged, this,
            &PreferencesGeneralViewController::maxItemsChosen);
    connect(maxStringSizeTextField, &QLineEdit::textEdited, this,
            &PreferencesGeneralViewController::maxStringSizeEdited);
    connect(maxStringSizeTextField, &QLineEdit::editingFinished, this,
            &PreferencesGeneralViewController::maxStringSizeLeft);
}

void PreferencesGeneralViewController::loadPreferences()
{
    if (!bindShortcuts())
        return;
    // Whatever the user chose before: deliberate, both are set at every start.
    m_settings.setValue(SettingsKeys::kUpdaterIsInTestMode, true);
    m_settings.setValue(SettingsKeys::kUpdaterChecksForBetaUpdates, true);
    qCInfo(lcPreferences, "Loading Open at Login preference");
    loadOpenAtLogin();
    qCInfo(lcPreferences, "Loading launch shortcut preference");
    loadShortcut(openShortCutPrefKey, GlobalShortcuts::defaultOpenShortcut());
    qCInfo(lcPreferences, "Loading swop shortcut preference");
    loadShortcut(swopShortCutPrefKey, GlobalShortcuts::defaultSwopShortcut());
    explainSession();
    qCInfo(lcPreferences, "Loading max items preference");
    if (!loadMaxItems())
        return;
    qCInfo(lcPreferences, "Loading max string size preference");
    loadMaxStringSize();
    m_pictures->load();
    qCInfo(lcPreferences, "Loading notifications preference");
    loadNotifications();
    qCInfo(lcPreferences, "Loading welcomeWindow preference");
    loadWelcomeWindow();
}

qint64 PreferencesGeneralViewController::getMaxItems() const
{
    const HistorySizeSlider &slider = required(maxItemsSlider, "maxItemsSlider");
    return m_unreachableMaxItems.value_or(slider.value());
}

qint64 PreferencesGeneralViewController::getMaxStringSize() const
{
    const QString text = required(maxStringSizeTextField, "maxStringSizeTextField").text();
    return text.isEmpty() ? m_maxStringSize : OnlyIntegerNumberFormatter::integerValue(text);
}

qint64 PreferencesGeneralViewController::getMaxPictureSize() const
{
    return m_pictures ? m_pictures->maxBytes() : 0;
}

bool PreferencesGeneralViewController::isNotificationsEnabled() const
{
    return required(notificationsCheckbox, "notificationsCheckbox").isChecked();
}

void PreferencesGeneralViewController::setWelcomeWindowShown()
{
    m_welcomeWindowShown = true;
    m_settings.setValue(welcomeWindowPrefKey, true);
    if (m_settings.contains(welcomeMessagePrefKey))
        return;
    m_settings.setValue(welcomeMessagePrefKey, true);
    m_appDelegate.setPasteboardString(QStringLiteral("Quillmarsh setup complete"), std::nullopt);
}

void PreferencesGeneralViewController::setOpenAtLogin(bool isOn)
{
    required(openAtLoginCB, "openAtLoginCB").setChecked(isOn);
    m_settings.setValue(openAtLoginPrefKey, isOn);
    m_appDelegate.launchAtStartup(isOn);
    explainOpenAtLogin(isOn);
}

void PreferencesGeneralViewController::clipItemArrChanged()
{
    if (m_view)
        explainMaxItems(getMaxItems());
}

void PreferencesGeneralViewController::openAtLoginClicked()
{
    setOpenAtLogin(required(openAtLoginCB, "openAtLoginCB").isChecked());
}

void PreferencesGeneralViewController::notificationsClicked()
{
    // Nothing is stored, deliberately: the check box is read live, and a restart brings the stored
    // choice back.
}

QString PreferencesGeneralViewController::preferenceIdentifier() const
{
    return QStringLiteral("GeneralPreferencesIdentifier");
}

QIcon PreferencesGeneralViewController::preferenceIcon() const
{
    return WindowIcons::preferences();
}

QWidget *PreferencesGeneralViewController::view()
{
    if (!m_view)
        loadView();
    return m_view.get();
}

bool PreferencesGeneralViewController::eventFilter(QObject *watched, QEvent *event)
{
    // The application's end closes every window, which a session's end does without asking us.
    if (watched == QCoreApplication::instance() && event->type() == QEvent::Quit)
        applicationWillTerminate();
    if (watched == m_view.get() && event->type() == QEvent::Show)
        m_isEnding = false;
    // Looked at when somebody looks: the desktop's own settings change it too, and the keyboard's
    // layout names the keys of a binding.
    if (watched == m_view.get() && event->type() == QEvent::Show && !event->spontaneous()) {
        explainOpenAtLogin(false);
        explainSession();
    }
    // A spontaneous one tells that the window was minimised: the pane has not been left.
    if (watched == m_view.get() && event->type() == QEvent::Hide && !event->spontaneous() &&
        !m_isEnding)
        viewDidDisappear();
    return QObject::eventFilter(watched, event);
}

bool PreferencesGeneralViewController::bindShortcuts()
{
    if (openShortcut)
        openShortcut->setAssociatedUserDefaultsKey(openShortCutPrefKey);
    if (swopShortcut)
        swopShortcut->setAssociatedUserDefaultsKey(swopShortCutPrefKey);
    MASShortcutBinder *binder = MASShortcutBinder::sharedBinder();
    if (!openShortcut || !swopShortcut || !binder)
        return false;
    // The titles stand in the desktop's own settings, which list them under our name.
    binder->bindShortcutWithDefaultsKey(
        openShortCutPrefKey, [this] { m_appDelegate.launch(); },
        HotKeyAction{openShortCutPrefKey, tr("Show clipboard history")});
    binder->bindShortcutWithDefaultsKey(
        swopShortCutPrefKey, [this] { m_appDelegate.swop(); },
        HotKeyAction{swopShortCutPrefKey, tr("Swop selection with a clip"), true});
    return true;
}

void PreferencesGeneralViewController::loadOpenAtLogin()
{
    if (!m_settings.contains(openAtLoginPrefKey))
        m_settings.setValue(openAtLoginPrefKey, true);
    required(openAtLoginCB, "openAtLoginCB").setChecked(m_settings.boolForKey(openAtLoginPrefKey));
}

void PreferencesGeneralViewController::loadShortcut(const QString &key, const MASShortcut &shortcut)
{
    if (!m_settings.contains(key))
        m_settings.setValue(key, shortcut.archive());
}

bool PreferencesGeneralViewController::loadMaxItems()
{
    if (!m_settings.contains(maxItemsPrefKey))
        m_settings.setValue(maxItemsPrefKey, SettingsKeys::kDefaultMaxItems);
    const qint64 stored = m_settings.integerForKey(maxItemsPrefKey);
    HistorySizeSlider &slider = required(maxItemsSlider, "maxItemsSlider");
    {
        const QSignalBlocker blocker(slider);
        slider.setValue(static_cast<int>(
            std::clamp<qint64>(stored, HistorySizeSlider::kMinimum, HistorySizeSlider::kMaximum)));
    }
    m_unreachableMaxItems = unreachableMaxItems(m_settings.value(maxItemsPrefKey), stored);
    if (!sliderLabel)
        return false;
    showMaxItems(getMaxItems());
    return true;
}

void PreferencesGeneralViewController::loadMaxStringSize()
{
    if (!m_settings.contains(maxStringSizePrefKey))
        m_settings.setValue(maxStringSizePrefKey, SettingsKeys::kDefaultMaxStringSize);
    m_maxStringSize = std::max<qint64>(0, m_settings.integerForKey(maxStringSizePrefKey));
    QLineEdit &field = required(maxStringSizeTextField, "maxStringSizeTextField");
    field.setText(QString::number(m_maxStringSize));
    field.setValidator(new OnlyIntegerNumberFormatter(&field));
    m_view->explainMaxStringSize(getMaxStringSize());
}

void PreferencesGeneralViewController::loadNotifications()
{
    if (!m_settings.contains(notificationsPrefKey))
        m_settings.setValue(notificationsPrefKey, true);
    required(notificationsCheckbox, "notificationsCheckbox")
        .setChecked(m_settings.boolForKey(notificationsPrefKey));
}

void PreferencesGeneralViewController::loadWelcomeWindow()
{
    if (m_settings.contains(welcomeWindowPrefKey))
        m_welcomeWindowShown = m_settings.boolForKey(welcomeWindowPrefKey);
}

void PreferencesGeneralViewController::maxItemsChosen(int value)
{
    m_unreachableMaxItems.reset();
    m_settings.setValue(maxItemsPrefKey, qlonglong(value));
    sliderMoved(value);
}

void PreferencesGeneralViewController::selectMaxStringSize()
{
    QLineEdit &field = required(maxStringSizeTextField, "maxStringSizeTextField");
    field.setFocus(Qt::OtherFocusReason);
    field.selectAll();
}

void PreferencesGeneralViewController::maxStringSizeEdited(const QString &text)
{
    if (!text.isEmpty()) {
        m_maxStringSize = OnlyIntegerNumberFormatter::integerValue(text);
        m_settings.setValue(maxStringSizePrefKey, qlonglong(m_maxStringSize));
    }
    m_view->explainMaxStringSize(getMaxStringSize());
}

/// The field is left with the number that counts: the last one when it is empty, the largest there
/// is for one that is larger.
void PreferencesGeneralViewController::maxStringSizeLeft()
{
    QLineEdit &field = required(maxStringSizeTextField, "maxStringSizeTextField");
    field.setText(QString::number(m_maxStringSize));
    m_view->explainMaxStringSize(getMaxStringSize());
}

void PreferencesGeneralViewController::showMaxItems(qint64 maxItems)
{
    const bool hasLimit = maxItems != kNoLimit;
    required(sliderLabel, "sliderLabel")
        .setText(hasLimit ? QLocale().toString(maxItems) : tr("No limit"));
    explainMaxItems(maxItems);
}

void PreferencesGeneralViewController::explainMaxItems(qint64 maxItems)
{
    const auto clips = static_cast<qint64>(m_appDelegate.getClipItemArr().size());
    m_view->explainMaxItems(maxItems == kNoLimit ? std::nullopt : std::optional(maxItems), clips);
}

void PreferencesGeneralViewController::explainOpenAtLogin(bool wasWrittenNow)
{
    m_view->explainOpenAtLogin(m_settings.boolForKey(openAtLoginPrefKey), m_loginItems.ownEntry(),
                               wasWrittenNow);
}

QString PreferencesGeneralViewController::bindingFor(const QString &key,
                                                     const MASShortcut &byDefault,
                                                     const QString &word) const
{
    const MASShortcut shortcut =
        GlobalShortcuts::storedShortcut(m_settings, key).value_or(byDefault);
    return m_hotKeys.configurationFor({shortcut.carbonKeyCode(), shortcut.carbonFlags()}, word);
}

void PreferencesGeneralViewController::explainSession()
{
    if (!m_view)
        return;
    QStringList configuration;
    std::optional<GeneralPaneView::Bindings> bindings;
    if (m_hotKeys.control() == HotKeys::Control::Nobody) {
        bindings = GeneralPaneView::Bindings{
            bindingFor(openShortCutPrefKey, GlobalShortcuts::defaultOpenShortcut(),
                       QStringLiteral("launch")),
            bindingFor(swopShortCutPrefKey, GlobalShortcuts::defaultSwopShortcut(),
                       QStringLiteral("swop"))};
        bindings->areCommands = bindings->open.isEmpty() || bindings->swop.isEmpty();
        if (bindings->areCommands)
            bindings = {QStringLiteral("quillmarsh launch"), QStringLiteral("quillmarsh swop"),
                        true};
        else
            configuration = {bindings->open, bindings->swop};
    }
    for (const Capability &capability : m_capabilities.all()) {
        if (!capability.configuration.isEmpty())
            configuration.append(capability.configuration);
    }
    m_view->showBindings(bindings);
    m_view->showDesktopKeys(m_hotKeys.control() == HotKeys::Control::Desktop);
    // One alone has a button of its own.
    m_view->showCapabilities(m_capabilities,
                             configuration.size() > 1 ? configuration.join(u'\n') : QString());
    m_view->offerToAsk(m_consent.isWanted());
}

void PreferencesGeneralViewController::viewDidDisappear()
{
    maxStringSizeLeft();
    // The first comparison never finds them equal: the member keeps its -1, so the history is cut
    // to size whenever the pane disappears. Deliberate.
    const qint64 maxItems = required(maxItemsSlider, "maxItemsSlider").value();
    if (m_originalMaxItems != maxItems)
        m_appDelegate.maxItemsModified(m_unreachableMaxItems ? kNoLimit : maxItems);
}
