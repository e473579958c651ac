#include "platform/DisplayChoice.h"

#include <gtest/gtest.h>

namespace {

using Display = DisplayChoice::Display;

TEST(DisplayChoice, waylandIsTakenWhereItHasAllAndX11WhereItHasNot)
{
    const std::optional<QString> all;
    const std::optional<QString> gone = QString();
    const std::optional<QString> lack = QStringLiteral("it has no paste");
    struct Row
    {
        const char *name;
        QByteArray wish, x11, wayland;
        std::optional<QString> lacks;
        bool asksX11;
        Display display;
        const char *problem, *notice; ///< Part of them; empty for none.
    };
    const Row rows[] = {
        {"X11 alone", "", ":0", "", gone, true, Display::X11, "", ""},
        {"Wayland alone", "", "", "w", all, false, Display::Wayland, "", ""},
        {"both", "", ":0", "w", all, false, Display::Wayland, "", ""},
        {"a compositor that withholds", "", ":0", "w", lack, true, Display::X11, "",
         "because it has no paste"},
        {"and no X11", "", "", "w", lack, false, Display::X11, "it has no paste; and", ""},
        {"a compositor that is gone", "", ":0", "w", gone, true, Display::X11, "",
         "no compositor answers"},
        {"nothing", "", "", "", gone, false, Display::X11, "DISPLAY is not set", ""},
        {"X11 wished for", "x11", ":0", "w", all, true, Display::X11, "", "QUILLMARSH_DISPLAY"},
        {"Wayland wished for though it withholds", "wayland", ":0", "w", lack, false,
         Display::Wayland, "", "it has no paste"},
        {"Wayland wished for where there is none", "wayland", ":0", "", gone, false, Display::X11,
         "WAYLAND_DISPLAY is not set", ""},
        {"and where it is gone", "wayland", ":0", "w", gone, false, Display::X11,
         "w cannot be reached", ""},
        {"a wish for something else", "mir", ":0", "w", all, false, Display::X11, "\"mir\"", ""},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        bool asked = false;
        const DisplayChoice choice =
            DisplayChoice::in({row.wish, row.x11, row.wayland, [&] { return asked = true; },
                               [&] { return row.lacks; }});
        EXPECT_EQ(choice.display, row.display);
        EXPECT_EQ(asked, row.asksX11);
        for (const auto &[told, part] :
             {std::pair(choice.problem, row.problem), std::pair(choice.notice, row.notice)}) {
            EXPECT_EQ(told.isEmpty(), *part == '\0') << qUtf8Printable(told);
            EXPECT_TRUE(told.contains(QLatin1String(part))) << qUtf8Printable(told);
        }
    }
}

} // namespace
