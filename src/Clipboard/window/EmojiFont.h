#pragma once

#include <QTextCharFormat>

/// The font that emoji are drawn with: one in colour, if there is any, because many fonts of
/// letters have some of them in outline and would draw a family as its members.
namespace EmojiFont {

/// For the runs of VisibleCharacters::emoji(); absent font families when no such font is
/// installed.
QTextCharFormat format();

} // namespace EmojiFont
