#pragma once

#include <QString>

/// Texts in Markdown, made ready for the text engine.
namespace MarkdownText {

/// The text without the HTML that it holds outside of its code: headings and line breaks stay as
/// Markdown has them, comments and other tags go. The engine drops whatever follows a tag that is
/// not closed, and many a text holds a mere <br> or <img>.
QString withoutTags(const QString &text);

} // namespace MarkdownText
