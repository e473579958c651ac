#include "platform/typing/KeyChord.h"

#include "platform/ModifierFlags.h"

#include <QHash>
#include <QString>

#include <xkbcommon/xkbcommon.h>

namespace {

constexpr std::size_t kMaxChords = 64;

std::optional<quint32> modifierNamed(QStringView name)
{
    static const QHash<QString, quint32> kModifiers{
        {QStringLiteral("ctrl"), CarbonModifiers::kControl},
        {QStringLiteral("control"), CarbonModifiers::kControl},
        {QStringLiteral("shift"), CarbonModifiers::kShift},
        {QStringLiteral("alt"), CarbonModifiers::kOption},
        {QStringLiteral("super"), CarbonModifiers::kCommand},
    };
    const auto found = kModifiers.constFind(name.toString().toLower());
    return found == kModifiers.constEnd() ? std::nullopt : std::optional(*found);
}

xkb_keysym_t symbolNamed(QStringView name)
{
    const QByteArray bytes = name.toUtf8();
    const xkb_keysym_t symbol = xkb_keysym_from_name(bytes.constData(), XKB_KEYSYM_NO_FLAGS);
    if (symbol != XKB_KEY_NoSymbol)
        return symbol;
    const QList<uint> characters = name.toUcs4();
    return characters.size() == 1 ? xkb_utf32_to_keysym(characters.first())
                                  : xkb_keysym_t(XKB_KEY_NoSymbol);
}

std::optional<KeyChord> chordFrom(QStringView text)
{
    KeyChord chord;
    for (qsizetype end = text.indexOf(u'+'); end >= 0; end = text.indexOf(u'+')) {
        const std::optional<quint32> modifier = modifierNamed(text.first(end));
        if (!modifier)
            return std::nullopt;
        chord.carbonModifiers |= *modifier;
        text = text.sliced(end + 1);
    }
    chord.symbol = symbolNamed(text);
    if (chord.carbonModifiers != 0)
        chord.symbol = xkb_keysym_to_lower(chord.symbol);
    return chord.symbol == XKB_KEY_NoSymbol ? std::nullopt : std::optional(chord);
}

} // namespace

std::optional<KeySequence> KeySequences::fromText(QStringView text)
{
    KeySequence sequence;
    for (const QStringView part : text.split(u' ', Qt::SkipEmptyParts)) {
        const std::optional<KeyChord> chord = chordFrom(part);
        if (!chord || sequence.size() == kMaxChords)
            return std::nullopt;
        sequence.push_back(*chord);
    }
    return sequence.empty() ? std::nullopt : std::optional(sequence);
}
