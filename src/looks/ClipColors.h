#pragma once

#include <QColor>

class QPalette;

/// The colours of our own drawing in one of the two schemes. A value; whoever paints is given
/// a new one when the desktop changes between light and dark.
struct ClipColors
{
    bool isDark = false;
    QColor panel;        ///< Behind the search field and the list.
    QColor paper;        ///< Behind the preview.
    QColor border;       ///< The hairline around the window; translucent.
    QColor outline;      ///< Around a window without a shadow; stands out from `panel`.
    QColor separator;    ///< Lines inside the window.
    QColor text;         ///< What is read.
    QColor quietText;    ///< Running numbers, hints, the line under the preview.
    QColor selected;     ///< The selected row.
    QColor selectedText; ///< On top of `selected`.
    QColor match;        ///< Behind letters that a search has found.
    QColor control;      ///< A button at rest.
    QColor controlHover; ///< A button under the pointer.
    QColor warning;      ///< The warning sign.
    QColor accentText;   ///< Links and signs in the colour of the selection; readable on `paper`.
    QColor disabledText; ///< What cannot be used now.

    /// The scheme that fits `palette`, with the colour that it marks selections with.
    static ClipColors ofPalette(const QPalette &palette);
    /// One scheme, with the selection colour of `palette` if somebody chose it and else our own.
    static ClipColors ofScheme(bool isDark, const QPalette &palette);

    /// Of labels that are written in one of the colours.
    static QPalette inkPalette(const QColor &ink);
    /// Of a text that stands on the window's own ground.
    QPalette textPalette() const;

    /// The light scheme's `panel` and its `selected`, unless somebody chose another.
    static QColor lightPanel() { return QColor::fromRgbF(0.976F, 0.976F, 0.976F, 1.0F); }
    static QColor lightSelected() { return QColor::fromRgbF(0.0F, 0.41015625F, 0.84765625F, 1.0F); }

    /// Whether the palette's windows are darker than their text.
    static bool isDarkPalette(const QPalette &palette);

    /// `ground` with so much of `tint` on it, from 0 to 1.
    static QColor mixed(const QColor &ground, const QColor &tint, qreal amount);

    /// The least contrast of text to what lies behind it.
    static constexpr double kMinContrast = 4.5;
    /// From 1 (none) to 21 (black on white), by relative luminance.
    static double contrast(const QColor &first, const QColor &second);
    /// `color`, darker or lighter by as much as it takes to be readable with `other`.
    static QColor readable(QColor color, const QColor &other);
};
