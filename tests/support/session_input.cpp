// The hands of a test in a Wayland session: a keyboard and a pointer that do what standard input
// tells, a line each. "done" is said once the compositor has read it, "ready" once they exist.
//
//   key CHORD...           presses and releases each, such as ctrl+shift+v, Return, a
//   type TEXT              as on a US keyboard
//   press NAME...          holds keys
//   release NAME...
//   layout NAME            the keyboard has that layout from now on (not where the compositor's
//                          own keyboard is borrowed)
//   move X Y               the pointer, in the pixels of the screen
//   click [COUNT]
//   windows                says what windows there are first, where compositors tell that to all
//   activate NUMBER        gives one of them the keyboard
//
//   session_input WIDTH HEIGHT
//
// They are the virtual devices of wlroots compositors, or KWin's, which allows them to a program
// whose desktop entry asks for that. Windows get the keyboard only where a keyboard is, so a
// session without devices needs this program for its whole life.

#include "session_windows.h"

#include <fake-input-client-protocol.h>
#include <virtual-keyboard-unstable-v1-client-protocol.h>
#include <wlr-virtual-pointer-unstable-v1-client-protocol.h>

#include <wayland-client.h>
#include <xkbcommon/xkbcommon.h>

#include <fcntl.h>
#include <linux/input-event-codes.h>
#include <poll.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr xkb_keycode_t kEvdevOffset = 8;

uint32_t now()
{
    const auto since = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<uint32_t>(
        std::chrono::duration_cast<std::chrono::milliseconds>(since).count());
}

struct Globals
{
    wl_seat *seat = nullptr;
    zwp_virtual_keyboard_manager_v1 *keyboards = nullptr;
    zwlr_virtual_pointer_manager_v1 *pointers = nullptr;
    org_kde_kwin_fake_input *fakeInput = nullptr;
    Windows windows;
};

template <typename T>
T *bind(wl_registry *registry, uint32_t name, const wl_interface &interface, uint32_t version)
{
    return static_cast<T *>(wl_registry_bind(registry, name, &interface, version));
}

const wl_registry_listener kRegistry = {
    [](void *data, wl_registry *registry, uint32_t name, const char *interface, uint32_t version) {
        auto &globals = *static_cast<Globals *>(data);
        const std::string offered = interface;
        if (offered == wl_seat_interface.name && !globals.seat)
            globals.seat = bind<wl_seat>(registry, name, wl_seat_interface, 1);
        else if (offered == zwp_virtual_keyboard_manager_v1_interface.name)
            globals.keyboards = bind<zwp_virtual_keyboard_manager_v1>(
                registry, name, zwp_virtual_keyboard_manager_v1_interface, 1);
        else if (offered == zwlr_virtual_pointer_manager_v1_interface.name)
            globals.pointers = bind<zwlr_virtual_pointer_manager_v1>(
                registry, name, zwlr_virtual_pointer_manager_v1_interface, 1);
        else if (offered == zwlr_foreign_toplevel_manager_v1_interface.name)
            globals.windows.listen(bind<zwlr_foreign_toplevel_manager_v1>(
                registry, name, zwlr_foreign_toplevel_manager_v1_interface, std::min(version, 3U)));
        else if (offered == org_kde_kwin_fake_input_interface.name && version >= 4)
            globals.fakeInput =
                bind<org_kde_kwin_fake_input>(registry, name, org_kde_kwin_fake_input_interface, 4);
    },
    [](void *, wl_registry *, uint32_t) {},
};

/// The devices; keys and buttons by the numbers that Linux gives them.
class Devices
{
public:
    virtual ~Devices() = default;
    virtual void setLayout(xkb_keymap *keymap) = 0;
    virtual void key(uint32_t code, bool isPress) = 0;
    virtual void move(uint32_t x, uint32_t y) = 0;
    virtual void button(uint32_t code, bool isPress) = 0;
};

class VirtualDevices : public Devices
{
public:
    VirtualDevices(const Globals &globals, uint32_t width, uint32_t height)
        : m_width(width), m_height(height),
          m_keyboard(zwp_virtual_keyboard_manager_v1_create_virtual_keyboard(globals.keyboards,
                                                                             globals.seat)),
          m_pointer(zwlr_virtual_pointer_manager_v1_create_virtual_pointer(globals.pointers,
                                                                           globals.seat))
    {
    }
    ~VirtualDevices() override
    {
        xkb_state_unref(m_state);
        zwp_virtual_keyboard_v1_destroy(m_keyboard);
        zwlr_virtual_pointer_v1_destroy(m_pointer);
    }

    void setLayout(xkb_keymap *keymap) override
    {
        xkb_state_unref(m_state);
        m_state = xkb_state_new(keymap);
        char *text = xkb_keymap_get_as_string(keymap, XKB_KEYMAP_FORMAT_TEXT_V1);
        const size_t size = std::strlen(text) + 1;
        const int file = memfd_create("keymap", MFD_CLOEXEC);
        if (write(file, text, size) != static_cast<ssize_t>(size))
            throw std::runtime_error("the keymap cannot be written");
        zwp_virtual_keyboard_v1_keymap(m_keyboard, WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1, file,
                                       static_cast<uint32_t>(size));
        close(file);
        std::free(text);
    }
    void key(uint32_t code, bool isPress) override
    {
        zwp_virtual_keyboard_v1_key(m_keyboard, now(), code,
                                    isPress ? WL_KEYBOARD_KEY_STATE_PRESSED
                                            : WL_KEYBOARD_KEY_STATE_RELEASED);
        xkb_state_update_key(m_state, code + kEvdevOffset, isPress ? XKB_KEY_DOWN : XKB_KEY_UP);
        // The compositor leaves it to us what the keys that are down mean.
        zwp_virtual_keyboard_v1_modifiers(
            m_keyboard, xkb_state_serialize_mods(m_state, XKB_STATE_MODS_DEPRESSED),
            xkb_state_serialize_mods(m_state, XKB_STATE_MODS_LATCHED),
            xkb_state_serialize_mods(m_state, XKB_STATE_MODS_LOCKED),
            xkb_state_serialize_layout(m_state, XKB_STATE_LAYOUT_EFFECTIVE));
    }
    void move(uint32_t x, uint32_t y) override
    {
        zwlr_virtual_pointer_v1_motion_absolute(m_pointer, now(), x, y, m_width, m_height);
        zwlr_virtual_pointer_v1_frame(m_pointer);
    }
    void button(uint32_t code, bool isPress) override
    {
        zwlr_virtual_pointer_v1_button(m_pointer, now(), code,
                                       isPress ? WL_POINTER_BUTTON_STATE_PRESSED
                                               : WL_POINTER_BUTTON_STATE_RELEASED);
        zwlr_virtual_pointer_v1_frame(m_pointer);
    }

private:
    uint32_t m_width;
    uint32_t m_height;
    zwp_virtual_keyboard_v1 *m_keyboard;
    zwlr_virtual_pointer_v1 *m_pointer;
    xkb_state *m_state = nullptr;
};

class BorrowedDevices : public Devices
{
public:
    explicit BorrowedDevices(org_kde_kwin_fake_input *input) : m_input(input)
    {
        org_kde_kwin_fake_input_authenticate(m_input, "session_input", "a test");
    }

    void setLayout(xkb_keymap *) override {}
    void key(uint32_t code, bool isPress) override
    {
        org_kde_kwin_fake_input_keyboard_key(m_input, code, isPress ? 1 : 0);
    }
    void move(uint32_t x, uint32_t y) override
    {
        org_kde_kwin_fake_input_pointer_motion_absolute(m_input, wl_fixed_from_int(int(x)),
                                                        wl_fixed_from_int(int(y)));
    }
    void button(uint32_t code, bool isPress) override
    {
        org_kde_kwin_fake_input_button(m_input, code, isPress ? 1 : 0);
    }

private:
    org_kde_kwin_fake_input *m_input;
};

/// Which keys give a character or bear a name, on the layout at hand.
class Layout
{
public:
    explicit Layout(const std::string &name)
        : m_context(xkb_context_new(XKB_CONTEXT_NO_FLAGS), &xkb_context_unref),
          m_keymap(nullptr, &xkb_keymap_unref)
    {
        const xkb_rule_names names{"evdev", "pc105", name.c_str(), "", ""};
        m_keymap.reset(
            xkb_keymap_new_from_names(m_context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS));
        if (!m_keymap)
            throw std::runtime_error("no layout " + name);
        for (xkb_level_index_t level = 0; level < 2; ++level) {
            for (xkb_keycode_t code = kEvdevOffset; code < kEvdevOffset + KEY_F12 + 40; ++code) {
                const xkb_keysym_t *symbols = nullptr;
                if (xkb_keymap_key_get_syms_by_level(m_keymap.get(), code, 0, level, &symbols) == 1)
                    m_strokes.try_emplace(symbols[0], Stroke{code - kEvdevOffset, level == 1});
            }
        }
    }

    struct Stroke
    {
        uint32_t code;
        bool isShifted;
    };

    xkb_keymap *keymap() const { return m_keymap.get(); }
    Stroke strokeOf(xkb_keysym_t symbol) const
    {
        const auto found = m_strokes.find(symbol);
        if (found == m_strokes.end())
            throw std::runtime_error("no such key on this keyboard: " + std::to_string(symbol));
        return found->second;
    }
    uint32_t codeOf(const std::string &name) const
    {
        static const std::map<std::string, uint32_t> kModifiers = {{"super", KEY_LEFTMETA},
                                                                   {"shift", KEY_LEFTSHIFT},
                                                                   {"ctrl", KEY_LEFTCTRL},
                                                                   {"alt", KEY_LEFTALT}};
        const auto modifier = kModifiers.find(name);
        if (modifier != kModifiers.end())
            return modifier->second;
        return strokeOf(xkb_keysym_from_name(name.c_str(), XKB_KEYSYM_CASE_INSENSITIVE)).code;
    }

private:
    std::unique_ptr<xkb_context, decltype(&xkb_context_unref)> m_context;
    std::unique_ptr<xkb_keymap, decltype(&xkb_keymap_unref)> m_keymap;
    std::map<xkb_keysym_t, Stroke> m_strokes;
};

class Hands
{
public:
    Hands(Devices &devices, const Globals &globals) : m_devices(devices), m_globals(globals)
    {
        setLayout("us");
    }

    void obey(const std::string &line)
    {
        std::istringstream words(line);
        std::string order;
        words >> order;
        if (order == "type") {
            type(line.substr(std::min(line.size(), order.size() + 1)));
            return;
        }
        std::vector<std::string> rest;
        for (std::string word; words >> word;)
            rest.push_back(word);
        if (order == "move")
            m_devices.move(static_cast<uint32_t>(std::stoul(rest.at(0))),
                           static_cast<uint32_t>(std::stoul(rest.at(1))));
        else if (order == "click")
            click(rest.empty() ? 1 : std::stoi(rest[0]));
        else if (order == "windows")
            std::fputs(m_globals.windows.told().c_str(), stdout);
        else if (order == "activate")
            m_globals.windows.activate(static_cast<uint32_t>(std::stoul(rest.at(0))),
                                       m_globals.seat);
        else if (order == "layout")
            setLayout(rest.at(0));
        else
            for (const std::string &word : rest)
                use(order, word);
    }

private:
    void setLayout(const std::string &name)
    {
        m_layout.emplace(name);
        m_devices.setLayout(m_layout->keymap());
    }
    void use(const std::string &order, const std::string &word)
    {
        if (order == "press")
            m_devices.key(m_layout->codeOf(word), true);
        else if (order == "release")
            m_devices.key(m_layout->codeOf(word), false);
        else if (order == "key")
            chord(word);
        else
            throw std::runtime_error("no such order: " + order);
    }
    void tap(Layout::Stroke stroke)
    {
        if (stroke.isShifted)
            m_devices.key(KEY_LEFTSHIFT, true);
        m_devices.key(stroke.code, true);
        m_devices.key(stroke.code, false);
        if (stroke.isShifted)
            m_devices.key(KEY_LEFTSHIFT, false);
    }
    void chord(const std::string &keys)
    {
        std::vector<uint32_t> codes;
        std::istringstream parts(keys);
        std::string name;
        while (std::getline(parts, name, '+'))
            codes.push_back(m_layout->codeOf(name));
        // A capital letter by itself is one with Shift.
        if (codes.size() == 1 && keys.size() == 1) {
            tap(m_layout->strokeOf(xkb_utf32_to_keysym(static_cast<unsigned char>(keys[0]))));
            return;
        }
        for (const uint32_t code : codes)
            m_devices.key(code, true);
        for (auto code = codes.rbegin(); code != codes.rend(); ++code)
            m_devices.key(*code, false);
    }
    void type(const std::string &text)
    {
        for (const char letter : text)
            tap(letter == '\t'
                    ? Layout::Stroke{KEY_TAB, false}
                    : m_layout->strokeOf(xkb_utf32_to_keysym(static_cast<unsigned char>(letter))));
    }
    void click(int count)
    {
        for (int i = 0; i < count; ++i) {
            m_devices.button(BTN_LEFT, true);
            m_devices.button(BTN_LEFT, false);
        }
    }

    Devices &m_devices;
    const Globals &m_globals;
    std::optional<Layout> m_layout;
};

std::unique_ptr<Devices> devicesOf(const Globals &globals, char **size)
{
    if (globals.keyboards && globals.pointers && globals.seat)
        return std::make_unique<VirtualDevices>(globals, static_cast<uint32_t>(std::stoul(size[0])),
                                                static_cast<uint32_t>(std::stoul(size[1])));
    if (globals.fakeInput)
        return std::make_unique<BorrowedDevices>(globals.fakeInput);
    throw std::runtime_error("this compositor allows no keys of ours");
}

/// Obeys until the input or the compositor ends.
void serve(wl_display *display, Hands &hands)
{
    std::string told;
    pollfd ready[] = {{wl_display_get_fd(display), POLLIN, 0}, {STDIN_FILENO, POLLIN, 0}};
    while (poll(ready, 2, -1) > 0) {
        if ((ready[0].revents && wl_display_dispatch(display) < 0) || ready[0].revents & POLLHUP)
            return;
        if (!ready[1].revents)
            continue;
        char read[4096];
        const ssize_t size = ::read(STDIN_FILENO, read, sizeof read);
        if (size <= 0)
            return;
        told.append(read, static_cast<size_t>(size));
        for (size_t end = told.find('\n'); end != std::string::npos; end = told.find('\n')) {
            hands.obey(told.substr(0, end));
            told.erase(0, end + 1);
            wl_display_roundtrip(display);
            std::puts("done");
            std::fflush(stdout);
        }
    }
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3) {
        std::fputs("usage: session_input WIDTH HEIGHT\n", stderr);
        return 2;
    }
    wl_display *display = wl_display_connect(nullptr);
    if (!display) {
        std::fputs("session_input: no compositor answers\n", stderr);
        return 1;
    }
    Globals globals;
    wl_registry_add_listener(wl_display_get_registry(display), &kRegistry, &globals);
    wl_display_roundtrip(display);
    int code = 0;
    try {
        const std::unique_ptr<Devices> devices = devicesOf(globals, argv + 1);
        Hands hands(*devices, globals);
        wl_display_roundtrip(display);
        std::puts("ready");
        std::fflush(stdout);
        serve(display, hands);
    } catch (const std::exception &problem) {
        std::fprintf(stderr, "session_input: %s\n", problem.what());
        code = 1;
    }
    wl_display_disconnect(display);
    return code;
}
