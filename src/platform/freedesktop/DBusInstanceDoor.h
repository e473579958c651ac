#pragma once

#include "platform/InstanceDoor.h"
#include "platform/freedesktop/InstanceSocket.h"

#include <QDBusConnection>
#include <QList>

#include <utility>

/// org.freedesktop.Application on the session bus for other programs, and the lock with its socket
/// beside the store for a second start, which therefore needs neither a bus nor an application
/// object. Owned by main. Whatever comes before open() waits: bus calls in a list, other starts in
/// the socket.
class DBusInstanceDoor : public InstanceDoor
{
    Q_OBJECT

public:
    /// How long the running instance has to take an action.
    static constexpr std::chrono::milliseconds kAnswerLimit{1000};
    /// How long it has to save and end once it takes nothing more.
    static constexpr std::chrono::milliseconds kLeaveLimit{5000};
    /// Longer activation tokens count as none: telling the display of one takes time by its length.
    static constexpr qsizetype kLongestToken = 1024;

    explicit DBusInstanceDoor(const QString &storeFolder, QObject *parent = nullptr);
    ~DBusInstanceDoor() override;

    // ^InstanceDoor
    Entry enter(const QString &action) override;
    QString activationToken() const override { return m_activationToken; }
    void open() override;
    void setJudge(Judge judge) override { m_judge = std::move(judge); }
    void close() override;

private:
    /// Becomes the only instance of the store, or hands the message over.
    Entry enterBySocket(const DoorMessage &message);
    /// Takes the bus name, or hands the message to the one who has it.
    Entry enterByBus(const DoorMessage &message);
    /// Whether nobody else has the name, so that it is ours.
    bool ownsNameOn(QDBusConnection &bus);

    InstanceSocket::Answer receive(DoorMessage message);
    void deliver(const DoorMessage &message);

    /// Read before an application object is made, which takes it out of the environment.
    QString m_activationToken;
    InstanceSocket m_socket;
    Judge m_judge;
    bool m_ownsName = false;
    bool m_isOpen = false;
    QList<DoorMessage> m_waiting;
};
