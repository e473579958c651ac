#pragma once

#include <QByteArray>
#include <QString>

/// The characters of HTML that came as bytes, whatever it calls its encoding: a byte order mark
/// tells it, then whether it is UTF-8, as labels are often wrong about that, then UTF-16 by its
/// many NULs, then the label, and else it is Western. What means nothing becomes U+FFFD.
QString htmlText(const QByteArray &html);
