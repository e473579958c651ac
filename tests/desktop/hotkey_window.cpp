// A window with a hot-key field on the real display, for the journeys of the hot-key center. Tells
// on standard output, one line each: "ready" and "idle" as the field gets and loses the keyboard,
// "pressed" and "released KEYCODE" for its hot keys Super-Shift-V and Super-Shift-X, and
// "recorded KEYCODE FLAGS NAME" for every record that the field takes.

#include "hotkey/HotKeyCenter.h"
#include "hotkey/HotKeyTextField.h"
#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"
#include "platform/x11/keys/X11HotKeys.h"
#include "platform/x11/keys/X11KeyboardLayout.h"

#include <QApplication>
#include <QPushButton>
#include <QVBoxLayout>

#include <cstdio>

namespace {

void tell(const QString &line)
{
    std::printf("%s\n", qUtf8Printable(line));
    std::fflush(stdout);
}

} // namespace

int main(int argc, char **argv)
{
    using namespace ModifierFlags;
    QApplication application(argc, argv);
    X11HotKeys hotKeys;
    const X11KeyboardLayout layout;
    QObject::connect(&hotKeys, &HotKeys::pressed, &hotKeys,
                     [] { tell(QStringLiteral("pressed")); });
    HotKeyCenter::connectShared(hotKeys);
    HotKeyCenter &center = *HotKeyCenter::sharedHotKeyCenter();
    for (const quint16 keyCode : {VirtualKey::kV, VirtualKey::kX}) {
        const auto registered = center.registerHotKeyWithKeyCode(
            keyCode, kCommand | kShift, [](const KeyUpEvent &event) {
                tell(QStringLiteral("released %1").arg(event.keyCode));
            });
        if (!registered)
            tell(QStringLiteral("refused %1").arg(keyCode));
    }

    QWidget window;
    window.setWindowTitle(QStringLiteral("Hot key"));
    auto *field = new HotKeyTextField(hotKeys, layout, &window);
    field->setHotKey(std::make_shared<HotKey>(VirtualKey::kX, kControl, HotKey::Task()));
    QObject::connect(field, &HotKeyTextField::hotKeyChanged, field, [field] {
        tell(QStringLiteral("recorded %1 %2 %3")
                 .arg(field->hotKey()->keyCode())
                 .arg(field->hotKey()->modifierFlags(), 0, 16)
                 .arg(field->text()));
    });
    QObject::connect(&application, &QApplication::focusChanged, field, [field] {
        tell(field->hasFocus() ? QStringLiteral("ready") : QStringLiteral("idle"));
    });
    auto *box = new QVBoxLayout(&window);
    box->addWidget(field);
    box->addWidget(new QPushButton(QStringLiteral("Default"), &window));
    window.resize(260, 90);
    field->setFocus();
    window.show();
    return QApplication::exec();
}
