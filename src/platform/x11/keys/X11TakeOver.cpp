#include "platform/x11/keys/X11TakeOver.h"

#include "platform/x11/windows/X11FrontApplication.h"

#include <algorithm>
#include <utility>

namespace {

using std::chrono::milliseconds;

/// Longer than this nobody waits for a paste.
constexpr milliseconds kLimit{600};
constexpr milliseconds kLookInterval{20};
/// For the other computer to hear of it: what the keys start must find it there.
constexpr milliseconds kJourney{150};

} // namespace

X11TakeOver::X11TakeOver(const X11FrontApplication &frontApplication, Askers askers)
    : m_front(frontApplication), m_askers(std::move(askers))
{
    m_timer.setSingleShot(true);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
}

void X11TakeOver::await(xcb_window_t target, ApplicationKeys::Remote remote,
                        std::function<void(bool isTakenOver)> done)
{
    m_target = target;
    m_done = std::move(done);
    m_deadline = std::chrono::steady_clock::now() + kLimit;
    m_isAsked = remote == ApplicationKeys::Remote::Tells;
    m_timer.start(m_isAsked ? kJourney : milliseconds(0));
}

void X11TakeOver::look()
{
    const bool isAsked = hasAsked();
    if (m_isAsked || (!isAsked && std::chrono::steady_clock::now() >= m_deadline)) {
        std::exchange(m_done, nullptr)(m_isAsked);
        return;
    }
    m_isAsked = isAsked;
    m_timer.start(isAsked ? kJourney : kLookInterval);
}

bool X11TakeOver::hasAsked() const
{
    const std::vector<xcb_window_t> askers = m_askers();
    return std::any_of(askers.begin(), askers.end(), [this](xcb_window_t asker) {
        return m_front.isOfSameProgram(asker, m_target);
    });
}
