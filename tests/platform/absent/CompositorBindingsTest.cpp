#include "platform/absent/CompositorBindings.h"

#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"

#include <gtest/gtest.h>

namespace {

using CompositorBindings::Compositor;

TEST(CompositorBindings, speakTheLanguageOfEachCompositor)
{
    struct Row
    {
        const char *desktop;
        const char *variable;
        const char *line;
    };
    const std::vector<Row> rows{
        {"sway", "", "bindsym Mod4+Shift+v exec quillmarsh launch"},
        {"", "SWAYSOCK", "bindsym Mod4+Shift+v exec quillmarsh launch"},
        {"labwc:wlroots", "",
         R"(<keybind key="W-S-v"><action name="Execute" command="quillmarsh launch"/></keybind>)"},
        {"Hyprland", "", "bind = SUPER SHIFT, V, exec, quillmarsh launch"},
        {"niri", "", R"(Super+Shift+V { spawn "quillmarsh" "launch"; })"},
        {"river", "", "riverctl map normal Super+Shift V spawn 'quillmarsh launch'"},
        {"Wayfire", "SWAYSOCK",
         "binding_quillmarsh_launch = <super> <shift> KEY_V\n"
         "command_quillmarsh_launch = quillmarsh launch"},
        {"KDE", "", ""},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(std::string(row.desktop) + row.variable);
        QProcessEnvironment environment;
        environment.insert(QStringLiteral("XDG_CURRENT_DESKTOP"), QString::fromUtf8(row.desktop));
        environment.insert(QString::fromUtf8(row.variable), QStringLiteral("/run/x"));
        EXPECT_EQ(CompositorBindings::lineFor(
                      CompositorBindings::compositorIn(environment),
                      {VirtualKey::kV, CarbonModifiers::kCommand | CarbonModifiers::kShift},
                      QStringLiteral("v"), {QStringLiteral("quillmarsh"), QStringLiteral("launch")})
                      .toStdString(),
                  row.line);
    }
}

TEST(CompositorBindings, nameKeysByWhatIsPrintedOrByTheirPlace)
{
    struct Row
    {
        quint32 keyCode;
        const char16_t *printed;
        const char *sway;
        const char *wayfire;
    };
    const std::vector<Row> rows{
        {VirtualKey::kY, u"z", "z", "KEY_Y"}, // On a German keyboard.
        {VirtualKey::kPeriod, u".", "period", "KEY_DOT"},
        {VirtualKey::kSpace, u" ", "space", "KEY_SPACE"},
        {VirtualKey::kF5, u"", "F5", "KEY_F5"},
        {VirtualKey::kReturn, u"", "Return", "KEY_ENTER"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.sway);
        const auto line = [&row](Compositor compositor) {
            return CompositorBindings::lineFor(compositor, {row.keyCode, CarbonModifiers::kControl},
                                               QString::fromUtf16(row.printed),
                                               {QStringLiteral("q"), QStringLiteral("w")})
                .toStdString();
        };
        EXPECT_EQ(line(Compositor::Sway), std::string("bindsym Ctrl+") + row.sway + " exec q w");
        EXPECT_EQ(line(Compositor::Wayfire), std::string("binding_quillmarsh_w = <ctrl> ") +
                                                 row.wayfire + "\ncommand_quillmarsh_w = q w");
    }
}

} // namespace
