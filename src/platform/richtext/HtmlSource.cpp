#include "platform/richtext/HtmlSource.h"

#include "platform/richtext/HtmlText.h"

#include <QStringConverter>
#include <QtEndian>

#include <algorithm>

namespace {

/// One character of so many takes little room whatever it takes.
constexpr qsizetype kFewOf = 10;

QString fromUtf16(const QByteArray &bytes, HtmlSource::Form form)
{
    QString text(bytes.size() / 2, Qt::Uninitialized);
    for (qsizetype unit = 0; unit < text.size(); ++unit) {
        const char *place = bytes.constData() + unit * 2;
        text[unit] = QChar(form == HtmlSource::Form::Utf16Little ? qFromLittleEndian<quint16>(place)
                                                                 : qFromBigEndian<quint16>(place));
    }
    return text;
}

} // namespace

std::optional<HtmlSource::Form> HtmlSource::formOf(int number)
{
    if (number < static_cast<int>(Form::Bytes) || number > static_cast<int>(Form::Utf16Big))
        return std::nullopt;
    return static_cast<Form>(number);
}

QByteArray HtmlSource::bytesOf(const QString &text, Form form)
{
    if (form == Form::Bytes)
        return text.toLatin1();
    if (form == Form::Utf8)
        return text.toUtf8();
    QByteArray bytes(text.size() * 2, Qt::Uninitialized);
    for (qsizetype unit = 0; unit < text.size(); ++unit) {
        const quint16 value = text.at(unit).unicode();
        if (form == Form::Utf16Little)
            qToLittleEndian(value, bytes.data() + unit * 2);
        else
            qToBigEndian(value, bytes.data() + unit * 2);
    }
    return bytes;
}

HtmlSource HtmlSource::of(const QByteArray &html)
{
    HtmlSource source;
    const auto marked = QStringConverter::encodingForData(html);
    const bool isLittle = marked == QStringConverter::Utf16LE;
    const bool isBig = marked == QStringConverter::Utf16BE;
    if ((isLittle || isBig) && html.size() % 2 == 0) {
        source.form = isLittle ? Form::Utf16Little : Form::Utf16Big;
        source.text = fromUtf16(html, source.form);
    } else if (const QString text = QString::fromUtf8(html); text.toUtf8() == html) {
        source.form = Form::Utf8;
        source.text = text;
    } else {
        source.text = QString::fromLatin1(html);
        // What it says that it is, so that its bytes mean the same there.
        source.codePage = CodePage::bestFor(htmlText(html));
        return source;
    }
    source.codePage = CodePage::bestFor(source.text);
    // Of a script without a code page the replacements would be an eighth of the document.
    const CodePage::Bytes bytes = CodePage(source.codePage).upperHalf();
    const auto isBeyond = [&bytes](QChar character) {
        return character.unicode() >= 0x80 && !bytes.contains(character.unicode());
    };
    const auto beyond = std::count_if(source.text.begin(), source.text.end(), isBeyond);
    if (beyond > source.text.size() / kFewOf)
        source.replacements = RtfMarkup::Replacements::None;
    return source;
}

void HtmlSource::write(QStringView part, RtfMarkup *markup) const
{
    for (qsizetype place = 0; place < part.size(); ++place) {
        const char16_t unit = part[place].unicode();
        if (unit == u'\r' && place + 1 < part.size() && part[place + 1] == u'\n') {
            markup->addWord("\\par");
            ++place;
        } else if (form == Form::Bytes && unit >= 0x80) {
            markup->addByte(static_cast<uchar>(unit));
        } else {
            markup->add(unit);
        }
    }
}
