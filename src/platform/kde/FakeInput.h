#pragma once

#include "platform/Mutex.h"
#include "platform/kde/KeyStates.h"
#include "platform/typing/Xkb.h"
#include "platform/wayland/SeatKeyboard.h"
#include "platform/wayland/Toplevels.h"
#include "platform/wayland/Typist.h"

#include <QByteArray>

#include <atomic>
#include <chrono>
#include <memory>

class WaylandConnection;
struct org_kde_kwin_fake_input;

/// Presses keys of the user's own keyboard in KWin, which lets programs do so whose desktop entry
/// asks for it. What the user holds counts with our keys and cannot be released by us, so it is
/// waited for.
class FakeInput : public Typist
{
public:
    /// Its name among the globals, and the first version that has keys.
    static constexpr const char *kInterface = "org_kde_kwin_fake_input";
    static constexpr quint32 kLeastVersion = 4;
    /// For whoever lets go of the modifiers of a shortcut.
    static constexpr std::chrono::milliseconds kPatience{500};

    /// Before the connection is started, or on its thread.
    FakeInput(std::shared_ptr<WaylandConnection> connection, std::shared_ptr<Toplevels> toplevels);
    ~FakeInput() override;

    // ^Typist
    bool isAvailable() const override { return m_isAvailable; }
    bool canTypeBesideUser() const override { return false; }
    [[nodiscard]] KeySender::Outcome type(const KeySequence &sequence) override;

private:
    XkbPointer<xkb_keymap> keymap() const;
    void follow();
    void end();

    const std::shared_ptr<WaylandConnection> m_connection;
    const std::shared_ptr<Toplevels> m_toplevels;
    org_kde_kwin_fake_input *m_input = nullptr; ///< Null while there is none. Thread only.
    std::atomic<bool> m_isAvailable = false;
    mutable Mutex m_mutex;
    QByteArray m_keymap QUILLMARSH_GUARDED_BY(m_mutex); ///< The user's, as text.
    const KeyStates m_states;
    const SeatKeyboard m_keyboard; ///< After what it tells of the keymap.
};
