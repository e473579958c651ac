// The floor: what a clipboard history costs when nothing but the X protocol is paid for. A bare
// xcb client, deliberately without a toolkit, a store, threads or good manners. It records texts
// (TARGETS first, then UTF8_STRING), opens on Super-Shift-V, narrows by substring, and pastes on
// Return. Commands on standard input: "count" prints how many copies were recorded, "last" the
// newest one.
//
//   floor_xcb [FILE]    FILE: one text a line, the history to start with

#include "../XcbClient.h"

#include <xcb/xfixes.h>
#include <xcb/xtest.h>

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr uint16_t kWidth = 700;
constexpr uint16_t kHeight = 486;
constexpr int kRows = 20;
constexpr uint16_t kHotKeyModifiers = XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT;

class Floor
{
public:
    explicit Floor(const char *file)
    {
        m_connection = xcb_connect(nullptr, nullptr);
        if (xcb_connection_has_error(m_connection))
            std::exit(1);
        m_screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
        if (file) {
            std::ifstream lines(file);
            for (std::string line; std::getline(lines, line);)
                m_texts.push_back(line);
        }
        m_clipboard = atom(m_connection, "CLIPBOARD");
        m_targets = atom(m_connection, "TARGETS");
        m_utf8 = atom(m_connection, "UTF8_STRING");
        m_property = atom(m_connection, "FLOOR");
        makeWindow();
        watch();
        filter();
        xcb_flush(m_connection);
        std::fputs("ready\n", stderr);
    }
    ~Floor() { xcb_disconnect(m_connection); }

    void run()
    {
        pollfd fds[] = {{xcb_get_file_descriptor(m_connection), POLLIN, 0}, {0, POLLIN, 0}};
        for (;;) {
            while (xcb_generic_event_t *event = xcb_poll_for_event(m_connection)) {
                handle(event);
                std::free(event);
            }
            if (xcb_connection_has_error(m_connection))
                return;
            xcb_flush(m_connection);
            poll(fds, 2, -1);
            if (fds[1].revents) {
                std::string command;
                if (!std::getline(std::cin, command))
                    return;
                std::cout << (command == "count" ? std::to_string(m_recorded)
                              : m_texts.empty()  ? std::string()
                                                 : m_texts.front())
                          << std::endl;
            }
        }
    }

private:
    void makeWindow()
    {
        m_window = xcb_generate_id(m_connection);
        const uint32_t values[] = {m_screen->white_pixel, 1,
                                   XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_KEY_PRESS};
        xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_window, m_screen->root, 300, 150,
                          kWidth, kHeight, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                          XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
        const xcb_font_t font = xcb_generate_id(m_connection);
        xcb_open_font(m_connection, font, 5, "fixed");
        m_context = xcb_generate_id(m_connection);
        const uint32_t colours[] = {m_screen->black_pixel, m_screen->white_pixel, font};
        xcb_create_gc(m_connection, m_context, m_window,
                      XCB_GC_FOREGROUND | XCB_GC_BACKGROUND | XCB_GC_FONT, colours);
    }

    void watch()
    {
        const xcb_query_extension_reply_t *xfixes =
            xcb_get_extension_data(m_connection, &xcb_xfixes_id);
        m_ownerEvent = static_cast<uint8_t>(xfixes->first_event + XCB_XFIXES_SELECTION_NOTIFY);
        const Reply<xcb_xfixes_query_version_reply_t> version(xcb_xfixes_query_version_reply(
            m_connection, xcb_xfixes_query_version(m_connection, 5, 0), nullptr));
        xcb_xfixes_select_selection_input(m_connection, m_window, m_clipboard,
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER);
        xcb_grab_key(m_connection, 1, m_screen->root, kHotKeyModifiers, kKeyV, XCB_GRAB_MODE_ASYNC,
                     XCB_GRAB_MODE_ASYNC);
    }

    void handle(xcb_generic_event_t *event)
    {
        const uint8_t type = event->response_type & 0x7F;
        if (type == m_ownerEvent) {
            const auto &change = *reinterpret_cast<xcb_xfixes_selection_notify_event_t *>(event);
            if (change.owner != m_window && change.owner != XCB_NONE)
                ask(m_targets, change.timestamp);
            return;
        }
        switch (type) {
        case XCB_SELECTION_NOTIFY:
            receive(*reinterpret_cast<xcb_selection_notify_event_t *>(event));
            break;
        case XCB_SELECTION_REQUEST:
            answer(*reinterpret_cast<xcb_selection_request_event_t *>(event));
            break;
        case XCB_EXPOSE:
            paint();
            break;
        case XCB_KEY_PRESS:
            press(*reinterpret_cast<xcb_key_press_event_t *>(event));
            break;
        default:
            break;
        }
    }

    void ask(xcb_atom_t target, xcb_timestamp_t time)
    {
        xcb_convert_selection(m_connection, m_window, m_clipboard, target, m_property, time);
    }

    void receive(const xcb_selection_notify_event_t &event)
    {
        if (event.property == XCB_NONE)
            return;
        std::string text = takeProperty(m_connection, m_window, m_property);
        if (event.target == m_targets) {
            ask(m_utf8, event.time);
            return;
        }
        m_texts.push_front(std::move(text));
        ++m_recorded;
        filter();
    }

    void answer(const xcb_selection_request_event_t &request)
    {
        const bool isAnswered = request.target == m_utf8 && !m_shown.empty();
        if (isAnswered) {
            const std::string &text = *m_shown.front();
            xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, request.requestor,
                                request.property, m_utf8, 8, static_cast<uint32_t>(text.size()),
                                text.data());
        }
        notify(m_connection, request, isAnswered ? request.property : xcb_atom_t{XCB_ATOM_NONE});
    }

    void press(const xcb_key_press_event_t &event)
    {
        if (event.detail == kKeyV && (event.state & kHotKeyModifiers) == kHotKeyModifiers) {
            open();
        } else if (event.detail == kKeyEscape) {
            hide();
        } else if (event.detail == kKeyReturn) {
            paste();
        } else {
            // Letters of the home row's neighbourhood suffice to measure typing.
            static constexpr char kLetters[] = "qwertyuiop[]\r\0asdfghjkl;'`\0\\zxcvbnm";
            if (event.detail == kKeyBackspace)
                m_term.clear();
            else if (event.detail >= 24 && event.detail < 24 + sizeof(kLetters))
                m_term += kLetters[event.detail - 24];
            filter();
            paint();
        }
    }

    void open()
    {
        const Reply<xcb_get_input_focus_reply_t> focus(
            xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
        m_target = focus->focus;
        xcb_map_window(m_connection, m_window);
        xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_PARENT, m_window, XCB_CURRENT_TIME);
    }

    void hide()
    {
        m_term.clear();
        filter();
        xcb_unmap_window(m_connection, m_window);
        xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_PARENT, m_target, XCB_CURRENT_TIME);
    }

    void paste()
    {
        hide();
        xcb_set_selection_owner(m_connection, m_window, m_clipboard, XCB_CURRENT_TIME);
        for (const auto &[type, key] : {std::pair{XCB_KEY_PRESS, kKeyControl},
                                        {XCB_KEY_PRESS, kKeyV},
                                        {XCB_KEY_RELEASE, kKeyV},
                                        {XCB_KEY_RELEASE, kKeyControl}})
            xcb_test_fake_input(m_connection, type, key, XCB_CURRENT_TIME, m_screen->root, 0, 0, 0);
    }

    void filter()
    {
        m_shown.clear();
        for (const std::string &text : m_texts) {
            if (text.find(m_term) != std::string::npos)
                m_shown.push_back(&text);
        }
    }

    void paint()
    {
        xcb_clear_area(m_connection, 0, m_window, 0, 0, 0, 0);
        for (int row = 0; row < kRows && row < static_cast<int>(m_shown.size()); ++row) {
            const std::string &text = *m_shown[static_cast<size_t>(row)];
            xcb_image_text_8(m_connection, static_cast<uint8_t>(std::min<size_t>(text.size(), 80)),
                             m_window, m_context, 10, static_cast<int16_t>(30 + row * 22),
                             text.data());
        }
    }

    xcb_connection_t *m_connection = nullptr;
    xcb_screen_t *m_screen = nullptr;
    xcb_window_t m_window = 0;
    xcb_window_t m_target = 0;
    xcb_gcontext_t m_context = 0;
    xcb_atom_t m_clipboard = 0;
    xcb_atom_t m_targets = 0;
    xcb_atom_t m_utf8 = 0;
    xcb_atom_t m_property = 0;
    uint8_t m_ownerEvent = 0;
    size_t m_recorded = 0;
    std::string m_term;
    std::deque<std::string> m_texts; ///< The newest first.
    std::vector<const std::string *> m_shown;
};

} // namespace

int main(int argc, char **argv)
{
    Floor(argc > 1 ? argv[1] : nullptr).run();
    return 0;
}
