#include "platform/typing/KeyStrokes.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

/// "+29 +47 -47 -29", or "none".
QString text(const std::optional<std::vector<KeyStroke>> &strokes)
{
    if (!strokes)
        return u"none"_s;
    QStringList parts;
    for (const auto &[code, isPress] : *strokes)
        parts.append((isPress ? u"+"_s : u"-"_s) + QString::number(code));
    return parts.join(u' ');
}

struct Row
{
    const char *name;
    const char *layout; ///< "layout variant options"; null: no keymap.
    QString keys;
    QString strokes;
};

class KeyStrokesOn : public testing::TestWithParam<Row>
{
};

TEST_P(KeyStrokesOn, areThoseOfTheKeyboard)
{
    XkbPointer<xkb_keymap> keymap;
    if (GetParam().layout) {
        const QList<QByteArray> parts = QByteArray(GetParam().layout).split(' ');
        const XkbPointer<xkb_context> context(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
        const xkb_rule_names names{"evdev", "pc105", parts.value(0).constData(),
                                   parts.value(1).constData(), parts.value(2).constData()};
        keymap.reset(xkb_keymap_new_from_names(context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS));
        ASSERT_TRUE(keymap);
    }
    const auto sequence = KeySequences::fromText(GetParam().keys);
    ASSERT_TRUE(sequence);
    EXPECT_EQ(text(KeyStrokes::of(*sequence, keymap.get())), GetParam().strokes);
}

const Row kRows[] = {
    {"american", "us", u"Ctrl+v"_s, u"+29 +47 -47 -29"_s},
    {"twoModifiers", "us", u"Alt+Shift+k"_s, u"+56 +42 +37 -37 -42 -56"_s},
    {"aPlaceWithoutALetter", "us", u"Shift+Insert"_s, u"+42 +110 -110 -42"_s},
    {"severalChords", "us", u"Ctrl+o g P"_s, u"+29 +24 -24 -29 +34 -34 +42 +25 -25 -42"_s},
    {"theThirdLevel", "de", u"at"_s, u"+84 +16 -16 -84"_s},
    {"dvorak", "us dvorak", u"Ctrl+v"_s, u"+29 +52 -52 -29"_s},
    {"inAnotherGroup", "ru,us", u"Ctrl+v"_s, u"+29 +47 -47 -29"_s},
    {"inNoGroup", "ru", u"Ctrl+v"_s, u"+29 +47 -47 -29"_s},
    {"aCharacterOfAnotherGroup", "ru,us", u"v"_s, u"none"_s},
    {"aCharacterThatNoKeyHas", "us", u"hebrew_aleph"_s, u"none"_s},
    {"controlElsewhere", "us  ctrl:swapcaps", u"Ctrl+v"_s, u"+58 +47 -47 -58"_s},
    {"noKeymapAtAll", nullptr, u"Ctrl+v P"_s, u"+29 +47 -47 -29 +42 +25 -25 -42"_s}};

INSTANTIATE_TEST_SUITE_P(Keyboards, KeyStrokesOn, testing::ValuesIn(kRows),
                         [](const auto &row) { return std::string(row.param.name); });

} // namespace
