#pragma once

#include "Clipboard/preview/PreviewReader.h"

#include <optional>

/// Texts of every kind: the beginning, with its encoding detected. Markdown is shown as it means;
/// of a web page the text alone is shown, and nothing it names is fetched.
class TextReader : public PreviewReader
{
public:
    static constexpr qint64 kMaxBytes = 256 << 10;
    static constexpr qsizetype kMaxCharacters = 20'000;
    static constexpr qsizetype kMaxLines = 2'000;
    /// The time to break a line grows with the square of its length.
    static constexpr qsizetype kMaxOfLine = 2'000;

    // ^PreviewReader
    bool accepts(const QMimeType &type) const override;
    std::shared_ptr<const PreviewContent> read(PreviewFile &file, const QMimeType &type,
                                               QSize pixels,
                                               const Patience &patience) const override;

    /// The text that `bytes`, the beginning of a file, hold; none when they are no text.
    static std::optional<QString> decoded(const QByteArray &bytes);
};

/// The shown beginning of a text.
class TextContent : public PreviewContent
{
public:
    enum class Form {
        Prose,
        Code, ///< Each character as wide as another.
        Markdown
    };

    TextContent(QString text, Form form, bool isCut);

    const QString &text() const { return m_text; }
    Form form() const { return m_form; }
    /// Whether the file holds more than is shown.
    bool isCut() const { return m_isCut; }

    // ^PreviewContent
    PreviewBody *makeBody(FileQuestions &questions, QWidget *parent) const override;
    qint64 byteCount() const override { return m_text.size() * qint64(sizeof(QChar)); }

private:
    const QString m_text;
    const Form m_form;
    const bool m_isCut;
};
