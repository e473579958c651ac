#pragma once

#include "preview/PreviewContent.h"

#include <QString>

/// The shown beginning of a text, as much as is laid out within a frame.
class TextContent : public PreviewContent
{
public:
    enum class Form : quint8 {
        Prose,
        Code, ///< Each character as wide as another.
        Markdown
    };

    static constexpr qsizetype kMaxCharacters = 20'000;
    static constexpr qsizetype kMaxLines = 2'000;
    /// The time to break a line grows with the square of its length.
    static constexpr qsizetype kMaxOfLine = 2'000;
    /// Unlike that of plain text, all of its layout is made at once.
    static constexpr qsizetype kMaxOfMarkdown = 10'000;

    TextContent(QString text, Form form, bool isCut)
        : m_text(std::move(text)), m_form(form), m_isCut(isCut)
    {
    }

    const QString &text() const { return m_text; }
    Form form() const { return m_form; }
    /// Whether the file holds more than is shown.
    bool isCut() const { return m_isCut; }

    // ^PreviewContent
    qint64 byteCount() const override { return m_text.size() * qint64(sizeof(QChar)); }

private:
    const QString m_text;
    const Form m_form;
    const bool m_isCut;
};
