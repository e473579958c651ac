#pragma once

#include <QFont>

#include <optional>

/// The measures that all windows share, in points; a font's scales are relative to the desktop's
/// font. What only one widget needs stays with it. The colours are ClipColors and the palette.
namespace Looks {

constexpr int kPageMargin = 24;  ///< Around a page, a pane or a dialog.
constexpr int kTextMargin = 14;  ///< Beside what is previewed and written in the history window.
constexpr int kLinePadding = 12; ///< That a row or a button is higher than its text.

constexpr int kControlRadius = 5; ///< Of windows and buttons.
constexpr int kSurfaceRadius = 8; ///< Of what lies on a window: a stage, a bubble.

constexpr int kIconExtent = 16; ///< Beside a line of text.

constexpr double kSmallScale = 0.9;    ///< What explains something else.
constexpr double kLargeScale = 1.35;   ///< What a view is about.
constexpr double kHeadlineScale = 1.7; ///< The title of a page.

/// `font` in another size, and perhaps of another weight.
inline QFont scaled(QFont font, qreal scale, std::optional<QFont::Weight> weight = {})
{
    font.setPointSizeF(font.pointSizeF() * scale);
    font.setWeight(weight.value_or(static_cast<QFont::Weight>(font.weight())));
    return font;
}

} // namespace Looks
