#pragma once

#include <QObject>
#include <QString>
#include <QVariant>

#include <chrono>
#include <functional>
#include <optional>

class PortalBus;

/// A question to a portal whose answer comes later, because the user may have to give it: the
/// portal makes an object of it, which tells the answer once. Taken back when this object ends
/// before. Owned by whoever asks; main thread.
class PortalRequest : public QObject
{
    Q_OBJECT

public:
    struct Question
    {
        QString interface;
        QString method;
        QVariantList arguments = {}; ///< Without the options, which come last.
        QVariantMap options = {};
    };

    enum class Outcome {
        Granted,
        Cancelled, ///< By the user.
        Ended,     ///< In any other way; some portals say so of what they have granted.
        Failed     ///< The portal does not have this, or has not answered in time.
    };

    struct Answer
    {
        Outcome outcome = Outcome::Failed;
        QVariantMap results = {};
        QString error = {}; ///< Of a failure.
    };

    /// Told once, later; may end the request.
    using Receiver = std::function<void(const Answer &answer)>;

    /// Without a limit it waits for the user. `bus` must outlive this object.
    PortalRequest(PortalBus &bus, const Question &question,
                  std::optional<std::chrono::milliseconds> limit, Receiver receive,
                  QObject *parent = nullptr);
    ~PortalRequest() override;

private:
    void listen(const QString &path);
    void finish(const Answer &answer);
    void close();

private Q_SLOTS: // The bus knows receivers by name.
    void handleResponse(uint code, const QVariantMap &results);

private:
    PortalBus &m_bus;
    Receiver m_receive; ///< Null once it was told.
    QString m_path;
};
