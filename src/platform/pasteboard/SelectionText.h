#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// Texts between the pasteboard's bytes and the application's QString.
///
/// Nothing is ever refused for its characters. A NUL is a character like any other and stays, also
/// at the end. Broken UTF-8, an encoded lone surrogate included, becomes U+FFFD, one for each byte
/// that means nothing; a lone surrogate of a QString likewise becomes U+FFFD in UTF-8. A byte order
/// mark at the start stays. What is served for a dead owner are its own bytes, broken or not.
namespace SelectionText {

QString fromUtf8(const QByteArray &bytes);
QByteArray toUtf8(const QString &text);

/// Whether every character of a text in UTF-8 exists in Latin-1, which is what STRING can carry.
bool isLatin1(const QByteArray &utf8);
QByteArray latin1ToUtf8(const QByteArray &latin1);
QByteArray utf8ToLatin1(const QByteArray &utf8);

/// By any other encoding's name; absent when that is not known.
std::optional<QString> decoded(const QByteArray &bytes, const char *encoding);

} // namespace SelectionText
