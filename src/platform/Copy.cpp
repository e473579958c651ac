#include "platform/Copy.h"

#include <algorithm>
#include <limits>

namespace {

/// RTF is bytes in a code page that it names itself, and HTML in whatever encoding, so each byte
/// becomes one character and the source comes back byte for byte.
QString fromSource(const QByteArray &bytes)
{
    return QString::fromLatin1(bytes);
}

/// A character beyond a byte, which no RTF that was read here has, is written as RTF escapes it.
QByteArray toRtf(const QString &rtf)
{
    const auto isByte = [](QChar character) { return character.unicode() <= 0xFF; };
    if (std::all_of(rtf.begin(), rtf.end(), isByte))
        return rtf.toLatin1();
    QByteArray bytes;
    for (const QChar character : rtf) {
        if (isByte(character))
            bytes += static_cast<char>(character.unicode());
        else // RTF counts in signed 16-bit numbers.
            bytes += "\\u" + QByteArray::number(static_cast<qint16>(character.unicode())) + '?';
    }
    return bytes;
}

QByteArray toHtml(const QString &html)
{
    return html.toLatin1();
}

qint64 maxRtf(qint64)
{
    return std::numeric_limits<qint64>::max();
}

/// Pages give everything that a text stands in, and would fill the history with markup.
qint64 maxHtml(qint64 textBytes)
{
    constexpr qint64 kMax = 1024 * 1024;
    constexpr qint64 kAlways = 64 * 1024;
    constexpr qint64 kPerTextByte = 20;
    return textBytes > kMax / kPerTextByte ? kMax : std::max(kAlways, textBytes * kPerTextByte);
}

} // namespace

Copy Copy::withText() const
{
    Copy copy = *this;
    if (!copy.text && !fileNames.isEmpty())
        copy.text = fileNames.join(u'\n');
    return copy;
}

const QList<CopyFormat> &copyFormats()
{
    static const QList<CopyFormat> kFormats{
        {&Copy::rtf,
         "rtfValue",
         {QStringLiteral("text/rtf"), QStringLiteral("application/rtf")},
         &fromSource,
         &toRtf,
         &maxRtf},
        {&Copy::html, nullptr, {QStringLiteral("text/html")}, &fromSource, &toHtml, &maxHtml},
    };
    return kFormats;
}

const QList<CopyFormat> &storedFormats()
{
    static const QList<CopyFormat> kFormats = [] {
        QList<CopyFormat> formats = copyFormats();
        formats.removeIf([](const CopyFormat &format) { return !format.attribute; });
        return formats;
    }();
    return kFormats;
}
