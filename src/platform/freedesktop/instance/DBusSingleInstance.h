#pragma once

#include "platform/SingleInstance.h"
#include "platform/freedesktop/instance/InstanceSocket.h"

#include <QDBusConnection>
#include <QList>

#include <utility>

class ClipsAdaptor;

/// org.freedesktop.Application and org.quillmarsh.Clips on the session bus for other programs, and
/// the lock with its socket beside the store for a second start, which therefore needs neither a
/// bus nor an application object. Owned by main. Whatever comes before open() waits: bus calls in a
/// list, other starts in the socket.
class DBusSingleInstance : public SingleInstance
{
    Q_OBJECT

public:
    /// How long the running instance has to take an action.
    static constexpr std::chrono::milliseconds kAnswerLimit{InstanceCall::kAnswerLimit};
    /// How long it has to save and end once it takes nothing more.
    static constexpr std::chrono::milliseconds kLeaveLimit{5000};
    /// Longer activation tokens count as none: telling the display of one takes time by its length.
    static constexpr qsizetype kMaxTokenLength = InstanceCall::kMaxTokenLength;

    explicit DBusSingleInstance(const QString &storeFolder,
                                std::chrono::milliseconds answerLimit = kAnswerLimit);
    ~DBusSingleInstance() override { close(); }

    // ^SingleInstance
    Entry enter(const QString &action) override;
    QString activationToken() const override { return m_activationToken; }
    void open() override;
    void setActionCheck(ActionCheck check) override { m_canDo = std::move(check); }
    void share(SharedClips *clips) override;
    void close() override;

private:
    /// Becomes the only instance of the store, or hands the message over.
    Entry enterBySocket(const InstanceMessage &message);
    /// Takes the bus name, or hands the message to the one who has it.
    Entry enterByBus(const InstanceMessage &message);
    /// Whether nobody else has the name, so that it is ours.
    bool ownsNameOn(QDBusConnection &bus);

    InstanceSocket::Answer receive(InstanceMessage message);
    void deliver(const InstanceMessage &message);

    /// Read before an application object is made, which takes it out of the environment.
    QString m_activationToken;
    InstanceSocket m_socket;
    const std::chrono::milliseconds m_answerLimit;
    ActionCheck m_canDo;
    ClipsAdaptor *m_clips = nullptr; ///< A child.
    bool m_ownsName = false;
    bool m_isOpen = false;
    QList<InstanceMessage> m_waiting;
};
