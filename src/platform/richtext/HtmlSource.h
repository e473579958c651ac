#pragma once

#include "platform/richtext/CodePage.h"
#include "platform/richtext/RtfMarkup.h"

#include <QByteArray>
#include <QString>

#include <optional>

/// HTML as RTF carries it so that the same bytes come back. HTML that is text in a Unicode encoding
/// is carried as text, which takes the least room and shows any reader of the encapsulation the
/// right characters; anything else byte by byte. A value.
struct HtmlSource
{
    /// What the bytes are, and the number that says so in the RTF. Stored: the numbers stay.
    enum class Form { Bytes = 0, Utf8 = 1, Utf16Little = 2, Utf16Big = 3 };

    static HtmlSource of(const QByteArray &html);
    static std::optional<Form> formOf(int number);
    /// The bytes of what was carried as text.
    static QByteArray bytesOf(const QString &text, Form form);

    /// One character a byte where it is carried byte by byte.
    QString text = {};
    Form form = Form::Bytes;
    int codePage = CodePage::kWestern;
    RtfMarkup::Replacements replacements = RtfMarkup::Replacements::One;

    QByteArray number() const { return QByteArray::number(static_cast<int>(form)); }
    /// For writing it, and what is written with it.
    RtfMarkup markup() const { return RtfMarkup(codePage, replacements); }
    /// Writes a part of the text.
    void write(QStringView part, RtfMarkup *markup) const;
};
