#pragma once

#include <QFont>
#include <QPalette>
#include <QRectF>
#include <QString>

class QPainter;

/// Draws a MASShortcutView: a push button with a title and, at its right end, a small button with
/// one glyph. Owned by its view. Every line falls on whole device pixels at any scale, and every
/// colour comes from the palette.
class MASShortcutCell
{
public:
    enum class Style {
        Recessed = 0, ///< The default.
        TexturedRounded = 1,
        Rounded = 2,
        Borderless = 3, ///< Clear, without a border.
    };

    /// What the small button shows. The values are the characters.
    enum class Glyph : char16_t {
        None = 0,
        Delete = u'\u2715',
        Escape = u'\u238B',
    };

    /// Everything that the drawing depends on.
    struct State
    {
        QString title;
        Glyph glyph = Glyph::None;
        QRectF bounds;
        QRectF titleRect;
        QRectF glyphRect;
        QPalette palette;
        bool isPressed = false;
        bool isEnabled = true;
        bool isUnderMouse = false;
        bool isHinting = false;
        bool hasFocusRing = false;
        /// The title is a prompt rather than a shortcut.
        bool isPrompt = false;
    };

    Style style() const { return m_style; }
    void setStyle(Style style) { m_style = style; }

    /// The control's font, always of 11 points.
    const QFont &font() const { return m_font; }
    /// Takes everything but the size.
    void setFont(const QFont &font);

    /// Width of the small button in device-independent pixels.
    int buttonWidth() const;

    void draw(QPainter &painter, const State &state) const;

private:
    Style m_style = Style::Recessed;
    QFont m_font;
};
