#pragma once

#include <QString>

/// The keys of the settings store. What is stored under each is said with the pane that owns it.
namespace SettingsKeys {

inline const QString kOpenAtLogin = QStringLiteral("openAtLogin");
inline const QString kOpenShortCut = QStringLiteral("openShortCut");
inline const QString kSwopShortCut = QStringLiteral("swopShortCut");
inline const QString kMaxItems = QStringLiteral("maxItems");
inline const QString kMaxStringSize = QStringLiteral("maxStringSize");
inline const QString kKeepPictures = QStringLiteral("keepPictures");
inline const QString kMaxPictureSize = QStringLiteral("maxPictureMegabytes");
inline const QString kNotificationsEnabled = QStringLiteral("notificationsEnabled");
inline const QString kWelcomeWindowShown = QStringLiteral("welcomeWindowShown");
inline const QString kWelcomeMessageShown = QStringLiteral("welcomeMessageShown");
inline const QString kTraylessHintShown = QStringLiteral("traylessHintShown");
inline const QString kApplicationsToIgnore = QStringLiteral("applicationsToIgnore");
inline const QString kUpdaterIsInTestMode = QStringLiteral("SUUpdaterIsInTestMode");
inline const QString kUpdaterChecksForBetaUpdates = QStringLiteral("SUUpdaterChecksForBetaUpdates");

// What stands for those that nobody has set.
inline constexpr qlonglong kDefaultMaxItems = 1000;
inline constexpr qlonglong kDefaultMaxStringSize = 10000;

} // namespace SettingsKeys
