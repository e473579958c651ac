#include "platform/typing/KeySymbols.h"

#include "platform/VirtualKeys.h"
#include "platform/typing/Xkb.h"

#include <array>

namespace {

constexpr quint32 kXkbOffset = 8;

QString nameOfSymbol(xkb_keysym_t symbol)
{
    std::array<char, 64> name{};
    return symbol != XKB_KEY_NoSymbol && xkb_keysym_get_name(symbol, name.data(), name.size()) > 0
               ? QString::fromLatin1(name.data())
               : QString();
}

} // namespace

QString KeySymbols::americanName(quint32 keyCode)
{
    const std::optional<quint16> evdevCode = VirtualKey::toEvdev(keyCode);
    // It takes tens of milliseconds to make.
    static const XkbPointer<xkb_keymap> keymap = Xkb::americanKeymap();
    return evdevCode && keymap
               ? nameOfSymbol(Xkb::plainSymbol(keymap.get(), *evdevCode + kXkbOffset, 0))
               : QString();
}

QString KeySymbols::nameOf(quint32 keyCode, const QString &printed)
{
    if (printed.size() == 1 && !printed.front().isSpace()) {
        QString name = nameOfSymbol(xkb_utf32_to_keysym(printed.toLower().front().unicode()));
        if (!name.isEmpty())
            return name;
    }
    return americanName(keyCode);
}
