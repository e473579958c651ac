#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <memory>
#include <optional>

struct UConverter;

/// An encoding by the number that Windows gave it, as RTF names encodings. One that is not known
/// is Western. A value to be used from one thread.
class CodePage
{
public:
    static constexpr int kWestern = 1252;

    explicit CodePage(int number);
    /// By a name as HTML gives it; absent when it is not known.
    static std::optional<CodePage> named(const QByteArray &name);
    /// The one of single bytes that has most of a text, so that its RTF is short.
    static int bestFor(QStringView text);
    /// That of a font's charset; `fallback` where the charset means none.
    static int ofFontCharset(int charset, int fallback);
    /// The other way round, for those that bestFor() gives.
    static int fontCharsetOf(int number);

    QString decoded(const QByteArray &bytes) const;

    /// What is above ASCII in an encoding of single bytes.
    using Bytes = QHash<char16_t, uchar>;
    Bytes upperHalf() const;

private:
    using Converter = std::unique_ptr<UConverter, void (*)(UConverter *)>;
    explicit CodePage(Converter converter);

    Converter m_converter;
};
