#include "Clipboard/welcome/WelcomePages.h"

#include "Clipboard/welcome/KeyCaps.h"
#include "Clipboard/welcome/SwopPicture.h"
#include "Clipboard/welcome/WelcomePage.h"
#include "Clipboard/welcome/WelcomeRows.h"
#include "looks/ReadingDirection.h"

#include <QCoreApplication>
#include <QDir>

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("WelcomePages", text);
}

QString key(const char *name)
{
    return QString::fromUtf8(name);
}

QString shortened(const QString &path)
{
    const QString home = QDir::homePath() + u'/';
    return path.startsWith(home) ? QStringLiteral("~/") + path.mid(home.size()) : path;
}

} // namespace

WelcomePages::KeysPage WelcomePages::makePage2()
{
    auto *rows = new WelcomeRows;
    KeyCaps *open = rows->addKeys({}, tr("opens the history over any application"));
    open->setAbsence(tr("(turned off)"));
    rows->addKeys({key("m"), key("i"), key("l"), key("l")},
                  tr("typing narrows it: part of a word is enough"));
    rows->addKeys({key("↑"), key("↓")}, tr("choose a clip"));
    rows->addKeys({tr("Return")}, tr("pastes it where you were typing"));
    rows->addKeys({tr("Shift"), tr("Return")}, tr("pastes it IN UPPER CASE"));
    rows->addKeys({tr("Alt"), tr("Return")}, tr("pastes it in lower case"));
    return {std::make_unique<WelcomePage>(
                rows, tr("Open, find, paste"),
                tr("Your hands stay on the keyboard, and the text goes into the window you came "
                   "from.")),
            [open](const QStringList &keys) { open->setKeys(keys); }};
}

WelcomePages::KeysPage WelcomePages::makePage3()
{
    auto *picture = new SwopPicture;
    picture->keys()->setAbsence(tr("(turned off)"));
    return {std::make_unique<WelcomePage>(
                picture, tr("Swop a selection for a clip"),
                tr("Select a text, press the keys, choose a clip. The clip takes the selection’s "
                   "place, and the selection becomes your newest clip.")),
            [picture](const QStringList &keys) { picture->setKeys(keys); }};
}

std::unique_ptr<WelcomePage> WelcomePages::makePage4(const QString &storeFolder)
{
    auto *rows = new WelcomeRows;
    rows->addIcon(QStringLiteral("kept"),
                  tr("The history is one file that only you can read, in\n%1.")
                      .arg(ReadingDirection::leftToRight(shortened(storeFolder))));
    rows->addIcon(QStringLiteral("unseen"),
                  tr("Never recorded: what a password manager marks as secret, and copies from the "
                     "applications that you list in Preferences."));
    rows->addIcon(QStringLiteral("delete"),
                  tr("To delete a clip for good, press Super + Backspace in the history. To delete "
                     "them all, choose “Clear All” in the menu."));
    return std::make_unique<WelcomePage>(rows, tr("Yours alone"),
                                         tr("Your clips never leave this computer."));
}
