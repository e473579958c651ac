#include "platform/portal/PortalControl.h"

#include "platform/pasteboard/CopyQuestions.h"
#include "platform/portal/PortalClipboard.h"
#include "platform/wayland/WaylandConnection.h"

#include <QDBusUnixFileDescriptor>
#include <QLoggingCategory>

#include <fcntl.h>
#include <unistd.h>

#include <chrono>
#include <deque>
#include <optional>
#include <utility>

namespace {

Q_LOGGING_CATEGORY(lcPortalPasteboard, "quillmarsh.pasteboard.portal", QtInfoMsg)

using namespace std::chrono_literals;
using Steady = std::chrono::steady_clock;

/// A portal that takes longer for a word hangs; usual is one millisecond.
constexpr std::chrono::milliseconds kRoundTripLimit{500};
/// After the last byte of one answer the desktop may take a moment for the next question.
constexpr std::chrono::milliseconds kBetweenReadings{10};
/// Of a question that is refused for a reason that nobody tells.
constexpr int kTries = 3;

QVariantMap options(const QStringList &names)
{
    return {{QStringLiteral("mime_types"), names}};
}

/// A descriptor of our own; -1 when the answer has none.
int descriptorIn(const QDBusMessage &reply)
{
    const auto descriptor = reply.arguments().value(0).value<QDBusUnixFileDescriptor>();
    if (reply.type() != QDBusMessage::ReplyMessage || !descriptor.isValid())
        return -1;
    return fcntl(descriptor.fileDescriptor(), F_DUPFD_CLOEXEC, 3);
}

/// The desktop reads one answer at a time, and the last of it may not be through.
bool isWorthAnotherTry(const QDBusMessage &reply, int refusals)
{
    const bool isBusy = reply.errorName().endsWith(QStringLiteral("LimitsExceeded")) ||
                        reply.errorMessage().contains(QStringLiteral("parallel"));
    return isBusy || refusals < kTries;
}

} // namespace

/// What the control, its offers and its source share; any of them may end first.
class PortalControl::Core : public std::enable_shared_from_this<Core>
{
public:
    Core(std::shared_ptr<WaylandConnection> connection, std::shared_ptr<PortalClipboard> clipboard,
         Listeners listeners)
        : m_connection(std::move(connection)), m_clipboard(std::move(clipboard)),
          m_listeners(std::move(listeners))
    {
    }

    void begin();
    void end();

    std::unique_ptr<DataSource> own(const QStringList &names, DataSource::Listeners listeners);
    void giveUp(quint64 source);
    void empty();
    bool roundTrip();
    void read(quint64 offer, const QString &name, DataOffer::Opened opened);

private:
    struct Owned
    {
        quint64 number = 0; ///< 0 while nothing is ours.
        QStringList names;
        DataSource::Listeners listeners;
        bool isConfirmed = false;
    };
    struct Question
    {
        quint64 offer;
        QString name;
        DataOffer::Opened opened;
        int refusals = 0;
    };

    void setSelection(const QStringList &names, const std::function<void(bool isDone)> &done);
    void handleChanged(const QStringList &names, bool isOurs);
    void handleAsked(const QString &name, quint32 serial);
    void handleEnded();
    void dropOutdated();
    void readNext();
    void handleOpened(const QDBusMessage &reply);
    void endReading();
    void tellGiven(quint32 serial, bool isWhole);
    std::optional<WaylandConnection::TimePoint> keepDeadlines(WaylandConnection::TimePoint now);

    const std::shared_ptr<WaylandConnection> m_connection;
    const std::shared_ptr<PortalClipboard> m_clipboard;
    const Listeners m_listeners;
    Owned m_own;
    quint64 m_sourcesMade = 0;
    quint64 m_offer = 0;  ///< The number of the latest.
    int m_unanswered = 0; ///< Words that change whose the clipboard is.
    std::deque<Question> m_questions;
    std::optional<Question> m_asked; ///< None when it became outdated meanwhile.
    bool m_isReading = false;        ///< One was asked, or its answer is read.
    std::optional<WaylandConnection::TimePoint> m_readAt; ///< Not before.
};

class PortalControl::Offer : public DataOffer
{
public:
    Offer(std::weak_ptr<Core> core, quint64 number, const QStringList &names)
        : m_core(std::move(core)), m_number(number)
    {
        m_names = names.mid(0, CopyQuestions::kMaxNamed);
    }

    // ^DataOffer
    void open(const QString &name, Opened opened) override
    {
        if (const auto core = m_core.lock())
            core->read(m_number, name, std::move(opened));
        else
            opened({});
    }

private:
    const std::weak_ptr<Core> m_core;
    const quint64 m_number;
};

class PortalControl::Source : public DataSource
{
public:
    Source(std::weak_ptr<Core> core, quint64 number) : m_core(std::move(core)), m_number(number) {}
    Source(const Source &) = delete;
    Source &operator=(const Source &) = delete;
    ~Source() override
    {
        if (const auto core = m_core.lock())
            core->giveUp(m_number);
    }

private:
    const std::weak_ptr<Core> m_core;
    const quint64 m_number;
};

void PortalControl::Core::begin()
{
    // Each holds it by a weak pointer only: what is told may come after the end.
    const auto guarded = [core = weak_from_this()](auto method) {
        return [core, method](const auto &...arguments) {
            if (const auto self = core.lock())
                (self.get()->*method)(arguments...);
        };
    };
    auto told = std::make_unique<PortalClipboard::Listeners>();
    told->changed = guarded(&Core::handleChanged);
    told->asked = guarded(&Core::handleAsked);
    told->ended = guarded(&Core::handleEnded);
    m_clipboard->listen(std::move(told));
    m_connection->addDeadlines(
        this, [this](WaylandConnection::TimePoint now) { return keepDeadlines(now); });
}

void PortalControl::Core::end()
{
    m_connection->removeListeners(this);
    m_clipboard->listen(nullptr);
    m_own = {};
    // Nobody is answered any more.
    ++m_offer;
    dropOutdated();
}

std::unique_ptr<DataSource> PortalControl::Core::own(const QStringList &names,
                                                     DataSource::Listeners listeners)
{
    m_own = {++m_sourcesMade, names, std::move(listeners)};
    setSelection(names, [this, number = m_own.number](bool isDone) {
        if (m_own.number != number)
            return;
        if (isDone) {
            m_own.isConfirmed = true;
            return;
        }
        const auto replaced = std::exchange(m_own, {}).listeners.replaced;
        replaced();
    });
    return std::make_unique<Source>(weak_from_this(), m_own.number);
}

void PortalControl::Core::setSelection(const QStringList &names,
                                       const std::function<void(bool)> &done)
{
    ++m_unanswered;
    m_clipboard->call(QStringLiteral("SetSelection"), {options(names)},
                      [core = weak_from_this(), done](const QDBusMessage &reply) {
                          const auto self = core.lock();
                          if (!self)
                              return;
                          --self->m_unanswered;
                          const bool isDone = reply.type() == QDBusMessage::ReplyMessage;
                          if (!isDone)
                              qCInfo(lcPortalPasteboard).noquote()
                                  << "The portal does not take the clipboard:"
                                  << reply.errorMessage();
                          done(isDone);
                      });
}

void PortalControl::Core::giveUp(quint64 source)
{
    if (m_own.number != source)
        return;
    m_own = {};
    setSelection({}, [](bool) {});
}

/// Only what is ours can be given up; and the desktop puts back in its place what it has kept of
/// it, which is nothing of what nobody can read.
void PortalControl::Core::empty()
{
    m_own = {};
    setSelection({QStringLiteral("application/x-quillmarsh-nothing")}, [](bool) {});
    setSelection({}, [](bool) {});
}

bool PortalControl::Core::roundTrip()
{
    const Steady::time_point limit = Steady::now() + kRoundTripLimit;
    // Whose the clipboard is was told before that was answered.
    if (m_unanswered > 0)
        return m_clipboard->handleUntil(limit, [this] { return m_unanswered == 0; });
    const auto answer = std::make_shared<std::optional<bool>>();
    m_clipboard->ping([answer](const QDBusMessage &reply) {
        *answer = reply.type() == QDBusMessage::ReplyMessage;
    });
    return m_clipboard->handleUntil(limit, [answer] { return answer->has_value(); }) &&
           answer->value_or(false);
}

void PortalControl::Core::handleChanged(const QStringList &names, bool isOurs)
{
    ++m_offer;
    std::shared_ptr<DataOffer> offer;
    if (isOurs && m_own.number != 0) {
        m_own.isConfirmed = true;
        offer = std::make_shared<Offer>(weak_from_this(), m_offer,
                                        names.isEmpty() ? m_own.names : names);
    } else if (!isOurs) {
        if (!names.isEmpty())
            offer = std::make_shared<Offer>(weak_from_this(), m_offer, names);
        // What is told before ours is confirmed came before ours.
        if (m_own.isConfirmed) {
            const auto replaced = std::exchange(m_own, {}).listeners.replaced;
            replaced();
        }
    }
    m_listeners.changed(Selection::Clipboard, std::move(offer));
    dropOutdated();
}

void PortalControl::Core::handleAsked(const QString &name, quint32 serial)
{
    if (m_own.number == 0) {
        tellGiven(serial, false);
        return;
    }
    m_clipboard->call(QStringLiteral("SelectionWrite"), {serial},
                      [core = weak_from_this(), asked = m_own.listeners.asked, name,
                       serial](const QDBusMessage &reply) {
                          const auto self = core.lock();
                          const int fd = descriptorIn(reply);
                          if (self && self->m_own.number != 0 && fd >= 0) {
                              asked(name, fd, [core, serial](bool isWhole) {
                                  if (const auto given = core.lock())
                                      given->tellGiven(serial, isWhole);
                              });
                              return;
                          }
                          if (fd >= 0)
                              close(fd);
                          if (self)
                              self->tellGiven(serial, false);
                      });
}

void PortalControl::Core::tellGiven(quint32 serial, bool isWhole)
{
    m_clipboard->call(QStringLiteral("SelectionWriteDone"), {serial, isWhole},
                      [](const QDBusMessage &) {});
}

void PortalControl::Core::handleEnded()
{
    // A copy: whoever is told ends this.
    const auto finished = m_listeners.finished;
    finished();
}

void PortalControl::Core::read(quint64 offer, const QString &name, DataOffer::Opened opened)
{
    if (offer != m_offer) {
        opened({});
        return;
    }
    m_questions.push_back({offer, name, std::move(opened)});
    readNext();
}

void PortalControl::Core::readNext()
{
    if (m_isReading || m_questions.empty() || m_readAt)
        return;
    m_isReading = true;
    m_asked = std::move(m_questions.front());
    m_questions.pop_front();
    m_clipboard->call(QStringLiteral("SelectionRead"), {m_asked->name},
                      [core = weak_from_this()](const QDBusMessage &reply) {
                          if (const auto self = core.lock())
                              self->handleOpened(reply);
                      });
}

void PortalControl::Core::handleOpened(const QDBusMessage &reply)
{
    const int fd = descriptorIn(reply);
    std::optional<Question> asked = std::exchange(m_asked, std::nullopt);
    if (asked && fd >= 0) {
        fcntl(fd, F_SETFL, O_NONBLOCK);
        asked->opened(ReadingEnd(fd, [core = weak_from_this(), connection = m_connection] {
            // Later: a reader that ends is not to be told anything meanwhile.
            connection->post([core] {
                if (const auto self = core.lock())
                    self->endReading();
            });
        }));
        return;
    }
    if (fd >= 0)
        close(fd);
    m_isReading = false;
    if (asked && isWorthAnotherTry(reply, ++asked->refusals)) {
        // Until its reader gives it up.
        m_questions.push_front(std::move(*asked));
        m_readAt = Steady::now() + kBetweenReadings;
        return;
    }
    readNext();
    if (asked)
        asked->opened({});
}

void PortalControl::Core::endReading()
{
    m_isReading = false;
    readNext();
}

/// Those that were asked of what is on the clipboard no more.
void PortalControl::Core::dropOutdated()
{
    std::deque<Question> outdated;
    std::deque<Question> current;
    for (Question &question : m_questions)
        (question.offer == m_offer ? current : outdated).push_back(std::move(question));
    m_questions = std::move(current);
    // Whoever answers that may be the owner of what was told since, and that may be a secret.
    if (m_asked && m_asked->offer != m_offer)
        outdated.push_front(std::move(*std::exchange(m_asked, std::nullopt)));
    for (const Question &question : outdated)
        question.opened({});
}

std::optional<WaylandConnection::TimePoint>
PortalControl::Core::keepDeadlines(WaylandConnection::TimePoint now)
{
    if (m_readAt && now >= *m_readAt) {
        m_readAt.reset();
        readNext();
    }
    return m_readAt;
}

std::unique_ptr<DataControl> PortalControl::make(std::shared_ptr<WaylandConnection> connection,
                                                 std::shared_ptr<PortalClipboard> clipboard,
                                                 Listeners listeners)
{
    if (clipboard->session().isEmpty())
        return nullptr;
    auto core =
        std::make_shared<Core>(std::move(connection), std::move(clipboard), std::move(listeners));
    core->begin();
    return std::unique_ptr<DataControl>(new PortalControl(std::move(core)));
}

PortalControl::~PortalControl()
{
    m_core->end();
}

std::unique_ptr<DataSource> PortalControl::own(Selection selection, const QStringList &names,
                                               DataSource::Listeners listeners)
{
    return selection == Selection::Clipboard ? m_core->own(names, std::move(listeners)) : nullptr;
}

void PortalControl::empty(Selection selection)
{
    if (selection == Selection::Clipboard)
        m_core->empty();
}

bool PortalControl::roundTrip()
{
    return m_core->roundTrip();
}
