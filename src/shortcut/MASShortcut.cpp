#include "shortcut/MASShortcut.h"

#include "platform/KeyedArchive.h"
#include "shortcut/KeyNames.h"

#include <QKeyEvent>

#include <array>

namespace {

constexpr char16_t kF1Character = 0xF704;

// F1 to F19: their key equivalents are consecutive characters.
constexpr std::array<quint16, 19> kFunctionKeys{
    VirtualKey::kF1,  VirtualKey::kF2,  VirtualKey::kF3,  VirtualKey::kF4,  VirtualKey::kF5,
    VirtualKey::kF6,  VirtualKey::kF7,  VirtualKey::kF8,  VirtualKey::kF9,  VirtualKey::kF10,
    VirtualKey::kF11, VirtualKey::kF12, VirtualKey::kF13, VirtualKey::kF14, VirtualKey::kF15,
    VirtualKey::kF16, VirtualKey::kF17, VirtualKey::kF18, VirtualKey::kF19};

QString className()
{
    return QStringLiteral("MASShortcut");
}

QString keyCodeField()
{
    return QStringLiteral("KeyCode");
}

QString modifierFlagsField()
{
    return QStringLiteral("ModifierFlags");
}

/// The two's complement of an archived integer, whichever way the archive told its sign.
std::optional<qint64> integerField(const ArchivedObject &object, const QString &name)
{
    const QVariant value = object.fields.value(name);
    if (value.typeId() == QMetaType::LongLong)
        return value.toLongLong();
    if (value.typeId() == QMetaType::ULongLong)
        return static_cast<qint64>(value.toULongLong());
    return std::nullopt;
}

} // namespace

MASShortcut MASShortcut::shortcutWithEvent(const QKeyEvent &event)
{
    const quint64 keyCode = VirtualKey::ofEvent(event);
    const bool isKnown = keyCode != VirtualKey::kNotFound;
    return {isKnown ? static_cast<quint16>(keyCode) : keyCode, ModifierFlags::ofEvent(event)};
}

std::optional<MASShortcut> MASShortcut::unarchive(const QByteArray &data)
{
    const std::optional<ArchivedObject> object = KeyedArchive::unarchiveObject(data);
    if (!object || object->className != className())
        return std::nullopt;
    const std::optional<qint64> keyCode = integerField(*object, keyCodeField());
    const std::optional<qint64> flags = integerField(*object, modifierFlagsField());
    if (!keyCode || !flags)
        return std::nullopt;
    MASShortcut shortcut(*keyCode < 0 ? VirtualKey::kNotFound : static_cast<quint64>(*keyCode), 0);
    // Not masked, deliberately: decoding differs from the constructors in this.
    shortcut.m_modifierFlags = static_cast<quint64>(*flags);
    return shortcut;
}

QByteArray MASShortcut::archive() const
{
    const qlonglong keyCode =
        m_keyCode == VirtualKey::kNotFound ? -1 : static_cast<qlonglong>(m_keyCode);
    return KeyedArchive::archive(
        {className(),
         {className(), QStringLiteral("NSObject")},
         {{keyCodeField(), keyCode},
          {modifierFlagsField(), static_cast<qlonglong>(m_modifierFlags)}}});
}

quint32 MASShortcut::carbonKeyCode() const
{
    return m_keyCode == VirtualKey::kNotFound ? 0 : static_cast<quint32>(m_keyCode);
}

QString MASShortcut::keyCodeString() const
{
    return KeyNames::current().name(m_keyCode);
}

QString MASShortcut::keyCodeStringForKeyEquivalent() const
{
    const QString name = keyCodeString();
    if (name.size() < 2)
        return name.toLower();
    if (m_keyCode == VirtualKey::kSpace)
        return QStringLiteral(" ");
    for (size_t i = 0; i < kFunctionKeys.size(); ++i) {
        if (kFunctionKeys[i] == m_keyCode)
            return QChar(static_cast<char16_t>(kF1Character + i));
    }
    return {};
}

QString MASShortcut::modifierFlagsString() const
{
    QString glyphs;
    if (m_modifierFlags & ModifierFlags::kControl)
        glyphs += u'\u2303';
    if (m_modifierFlags & ModifierFlags::kOption)
        glyphs += u'\u2325';
    if (m_modifierFlags & ModifierFlags::kShift)
        glyphs += u'\u21E7';
    if (m_modifierFlags & ModifierFlags::kCommand)
        glyphs += u'\u2318';
    return glyphs;
}
