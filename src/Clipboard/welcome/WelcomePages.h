#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

class WelcomePage;

/// The welcome's pages that only tell something. Their keys follow the user's settings.
namespace WelcomePages {

/// A page and what takes the keys that it shows.
struct KeysPage
{
    std::unique_ptr<WelcomePage> page;
    std::function<void(const QStringList &)> setKeys;
};

/// How to open the history, find a clip and paste it; its keys are those that open.
KeysPage makePage2();
/// What a swop does; its keys are those that start one.
KeysPage makePage3();
/// Where the history is, what is never recorded and how to get rid of it. `storeFolder` is shown
/// shortened.
std::unique_ptr<WelcomePage> makePage4(const QString &storeFolder);

} // namespace WelcomePages
