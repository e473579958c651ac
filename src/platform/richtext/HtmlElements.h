#pragma once

#include <QString>

#include <optional>

struct HtmlToken;

/// The elements of HTML that are kept, as what, and with which of their attributes.
namespace HtmlElements {

enum class Role { Inline, Block, Heading, List, Item, Table, Row, Cell, Single };

/// Absent for one whose tags are left out and whose text is kept.
std::optional<Role> roleOf(const QString &name);

/// What the toolkit knows an element as.
QString tagOf(const QString &name, Role role);

/// What an element looks like besides its style, as a style.
QString looksOf(const HtmlToken &token);

/// Those of its other attributes that are kept, to be written in a tag. An alignment that its
/// style has is one of them: as a style the toolkit does not know all of them.
QString attributesOf(const HtmlToken &token, Role role, const QString &alignment);
QString attribute(const char *name, const QString &value);

/// Whether the text of an element is left out as well.
enum class Text {
    Kept,
    LeftOut,     ///< Up to its end tag, if there is one.
    LeftOutToEnd ///< Also where there is none, as browsers do.
};
Text textOf(const QString &name);

} // namespace HtmlElements
