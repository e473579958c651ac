#pragma once

#include "platform/Info.h"
#include "updates/updater/DM_SUUpdaterDelegate.h"
#include "updates/updater/Installation.h"
#include "updates/updater/UpdateSchedule.h"
#include "updates/updater/UpdaterPorts.h"

#include <QObject>
#include <QString>

#include <memory>
#include <optional>

class QWindow;
class UpdateRun;
class UpdateWindow;

/// The updater of one installed program: looks for an update, fetches, checks and installs it, and
/// has the program started anew, with windows when the user asked and without when nobody did.
/// Owned by whoever updates (the application itself, or the helper); main thread. At most one run
/// at a time: who asks meanwhile is shown the one under way.
class DM_SUUpdater : public QObject
{
    Q_OBJECT

public:
    /// The updater of the program in the prefix `bundlePath`; null when there is no program. `info`
    /// is the program's. Until it has a delegate it asks for no beta and no test versions, shows
    /// its windows and relaunches nothing.
    static std::unique_ptr<DM_SUUpdater>
    updaterForBundle(const QString &bundlePath, const UpdaterPorts &ports, const Info &info);

    /// The updater of the program that is running.
    static std::unique_ptr<DM_SUUpdater> updaterForMainBundle(const UpdaterPorts &ports,
                                                              const Info &info);

    /// Whether there is a program in the prefix.
    static bool isBundle(const QString &bundlePath);

    ~DM_SUUpdater() override;

    /// `delegate` is not owned and outlives this object; null for none.
    void setDelegate(DM_SUUpdaterDelegate *delegate)
    {
        m_delegate = delegate ? delegate : &m_noDelegate;
    }

    /// Looks for an update without windows and hands what it has found and checked to the delegate,
    /// or says through it why the run is over. Nothing while a run is under way.
    void checkForUpdatesInBackground();
    /// The check that the user asked for.
    void checkForUpdates();

    /// Switches the daily look on or off, for now and for later starts. Without a feed address it
    /// never takes place.
    void setAutomaticallyChecksForUpdates(bool isOn) { m_schedule.setEnabled(isOn); }
    bool automaticallyChecksForUpdates() const { return m_schedule.isEnabled(); }

    /// For tests and for who brings it to the front; null while none is open.
    UpdateWindow *window() const { return m_window.get(); }

Q_SIGNALS:
    /// The window that the user's own check has opened is to have the keyboard.
    void frontWanted(QWindow *window);

private:
    enum class Manner {
        Background,  ///< Never a window.
        Scheduled,   ///< A window when something was found.
        Interactive, ///< A window for everything.
    };

    /// Only the program itself looks once a day.
    enum class Owner { MainBundle, Helper };

    DM_SUUpdater(const QString &bundlePath, const UpdaterPorts &ports, Info info, Owner owner);

    std::optional<QString> obstacle() const;
    void start(Manner manner);
    void runFound();
    void runDownloaded();
    void runInstalled();
    void install();
    void relaunch();
    void abort(const std::optional<QString> &reason);
    void endRun();
    UpdateWindow &openWindow();
    void dismissed();
    bool hasWindow() const { return m_window != nullptr; }

    const UpdaterPorts m_ports;
    const Info m_info;
    const Installation m_installation;
    DM_SUUpdaterDelegate m_noDelegate;
    DM_SUUpdaterDelegate *m_delegate = &m_noDelegate;
    UpdateSchedule m_schedule;
    Manner m_manner = Manner::Interactive;
    std::unique_ptr<UpdateRun> m_run;
    std::unique_ptr<UpdateWindow> m_window;
};
