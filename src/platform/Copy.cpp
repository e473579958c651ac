#include "platform/Copy.h"

#include <algorithm>

namespace {

/// RTF is bytes in a code page that it names itself, so each byte becomes one character and the
/// source comes back byte for byte.
QString fromRtf(const QByteArray &bytes)
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
         &fromRtf,
         &toRtf},
    };
    return kFormats;
}
