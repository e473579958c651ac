#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QSemaphore>
#include <QString>
#include <QStringList>
#include <QThread>
#include <QVariantMap>

#include <functional>
#include <memory>
#include <utility>

/// A desktop's portals on the test's bus, with remote control and its clipboard, as a desktop's was
/// seen to answer. The clipboard is that of the compositor at hand. Answers on a thread of its own.
class PortalStandIn
{
public:
    /// What its user does and what becomes of it.
    struct Manners
    {
        enum class Answer { Yes, No, Other, None };
        Answer answer = Answer::Yes; ///< None: the dialog stays open.
        bool allowsClipboard = true;
        uint devices = 1;
        bool remembers = true; ///< The user's tick: there is a token then.
        bool hasRemoteDesktop = true;
    };

    /// What it has seen, in order, and what it knows.
    struct Notes
    {
        QStringList calls;   ///< Methods of all portals.
        QVariantMap devices; ///< The options of the last SelectDevices.
        int dialogs = 0;
        int requestsClosed = 0;
        QStringList applicationIds;
        QStringList tokens; ///< That are good.
        QList<std::pair<int, uint>> keys;
        QList<bool> given; ///< What was said of the answers to those who asked.
    };

    PortalStandIn();
    ~PortalStandIn();
    PortalStandIn(const PortalStandIn &) = delete;
    PortalStandIn &operator=(const PortalStandIn &) = delete;

    void setManners(const Manners &manners);
    Notes notes();
    void forgetTokens();

    /// The user ends the session by the sign in the top bar.
    void endSession();
    /// The portals end, and are started again.
    void vanish();
    void appear();
    /// From now on nothing is answered, until resume().
    void hang();
    void resume();

private:
    class Service;

    template <typename Task>
    void run(Task task);

    QThread m_thread;
    QSemaphore m_resumed;
    bool m_isHanging = false;
    std::unique_ptr<Service> m_service;
};
