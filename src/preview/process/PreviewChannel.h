#pragma once

#include <QByteArray>

#include <optional>

/// One end of the socket between the application and what reads files for its previews. Messages
/// are bounded, numbered, and may carry one open file. Trusts nothing of what comes. On one thread
/// at a time.
class PreviewChannel
{
public:
    struct Message
    {
        quint32 number = 0;
        QByteArray bytes{};
        int descriptor = -1; ///< The receiver's own; negative without one.
    };

    enum class State {
        Open,
        Broken ///< Closed by the other end, or what came is no message; nothing else comes.
    };

    /// Takes the socket over. Negative for a broken one.
    explicit PreviewChannel(int socket);
    PreviewChannel(const PreviewChannel &) = delete;
    PreviewChannel &operator=(const PreviewChannel &) = delete;
    ~PreviewChannel();

    /// Two connected sockets, which no program that is started inherits.
    static std::optional<std::pair<int, int>> makePair();

    State state() const { return m_state; }

    /// Writes it all; false when the channel broke. The descriptor stays the caller's.
    [[nodiscard]] bool send(quint32 number, const QByteArray &bytes, int descriptor = -1);

    /// The next message of at most `maxBytes`. Waits for at most that many milliseconds, negative
    /// for ever, and takes in what has come by then; none when it is not complete or the channel
    /// broke. Descriptors are taken only by who wants them.
    enum class Descriptors { Refused, Taken };
    std::optional<Message> receive(qsizetype maxBytes, int milliseconds, Descriptors descriptors);

    /// Whether something has come, or the channel broke.
    bool isTouched() const;

private:
    bool takeIn(char *to, qsizetype size, Descriptors descriptors);

    const int m_socket;
    State m_state = State::Open;
    QByteArray m_head;  ///< Of the message that is coming, as far as it came.
    QByteArray m_bytes; ///< The same of what follows.
    qsizetype m_wanted = -1;
    qsizetype m_got = 0;
    quint32 m_number = 0;
    int m_descriptor = -1; ///< That came with it.
};
