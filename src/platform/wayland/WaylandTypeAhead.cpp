#include "platform/wayland/WaylandTypeAhead.h"

#include "platform/ModifierFlags.h"
#include "platform/wayland/Typist.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QWindow>

#include <xkbcommon/xkbcommon.h>

#include <tuple>
#include <utility>

namespace {

/// Later nobody remembers what it was typed for.
constexpr std::chrono::milliseconds kLimit{500};

KeyChord chordOf(const QKeyEvent &press)
{
    const quint32 symbol = press.nativeVirtualKey();
    const quint32 modifiers = CarbonModifiers::ofFlags(ModifierFlags::ofEvent(press));
    const bool isCharacter = !press.text().isEmpty() && press.text().front().isPrint() &&
                             (modifiers & ~CarbonModifiers::kShift) == 0;
    // Of a character Shift is a part already.
    return isCharacter ? KeyChord{0, symbol} : KeyChord{modifiers, xkb_keysym_to_lower(symbol)};
}

} // namespace

WaylandTypeAhead::WaylandTypeAhead(Typist &typist) : m_typist(typist)
{
    m_limit.setSingleShot(true);
    connect(&m_limit, &QTimer::timeout, this, [this] {
        // The user may have come back to us.
        m_isPasted &= !QGuiApplication::focusWindow();
        typeKept();
    });
    qGuiApp->installEventFilter(this);
}

void WaylandTypeAhead::begin()
{
    m_isPasted = true;
    m_isRead = false;
    m_limit.start(kLimit);
}

void WaylandTypeAhead::letGo()
{
    m_isRead = true;
    if (m_limit.isActive())
        typeKept();
}

bool WaylandTypeAhead::eventFilter(QObject *watched, QEvent *event)
{
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease ||
                       event->type() == QEvent::ShortcutOverride;
    if (!isKey || !watched->isWindowType() || static_cast<QWindow *>(watched)->isVisible())
        return QObject::eventFilter(watched, event);
    if (event->type() == QEvent::KeyPress)
        take(static_cast<const QKeyEvent &>(*event));
    return true;
}

void WaylandTypeAhead::take(const QKeyEvent &press)
{
    if (press.isAutoRepeat() || ModifierFlags::isModifierKey(press))
        return;
    // They come while the window is being hidden, before anything is typed.
    if (!m_limit.isActive()) {
        m_kept.clear();
        m_isPasted = false;
        m_limit.start(kLimit);
    }
    m_kept.push_back(chordOf(press));
    if (m_isPasted && m_isRead)
        typeKept();
}

/// Each by itself: what no key of the keyboard gives is left out.
void WaylandTypeAhead::typeKept()
{
    for (const KeyChord &chord : std::exchange(m_kept, {})) {
        if (m_isPasted && m_typist.canTypeBesideUser())
            std::ignore = m_typist.type({chord});
    }
}
