#pragma once

#include "platform/richtext/CodePage.h"

#include <QByteArray>
#include <QStringView>

/// RTF being written: text that is escaped as it must be, in ASCII throughout. A value.
class RtfMarkup
{
public:
    /// What \u has behind it for readers that do not know it, as \uc says.
    enum class Replacements { One, None };

    RtfMarkup(int codePage, Replacements replacements);

    /// One code unit, any at all.
    void add(char16_t character);
    void addText(QStringView text);
    /// A byte as it is, whatever it means.
    void addByte(uchar byte);
    /// A control word, with the backslash; what follows it may be anything.
    void addWord(const QByteArray &word);
    /// Markup that ends in no control word.
    void addRaw(const QByteArray &markup);

    const QByteArray &source() const { return m_source; }

private:
    void separate(char next);

    CodePage::Bytes m_bytes;
    Replacements m_replacements;
    QByteArray m_source;
    bool m_endsInWord = false;
};
