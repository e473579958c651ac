#pragma once

#include <QGuiApplication>
#include <QString>

/// For what is read from the left in every language, in windows that may be written from the right.
namespace ReadingDirection {

/// `text`, a path or a shortcut, as a part of a sentence that may run the other way.
inline QString leftToRight(const QString &text)
{
    constexpr QChar kIsolate(0x2066);
    constexpr QChar kEnd(0x2069);
    return QGuiApplication::isRightToLeft() ? kIsolate + text + kEnd : text;
}

} // namespace ReadingDirection
