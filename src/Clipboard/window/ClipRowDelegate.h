#pragma once

#include "looks/ClipColors.h"
#include "looks/FileIcons.h"

#include <QFont>
#include <QPixmap>
#include <QRect>
#include <QString>
#include <QTextLayout>

#include <array>
#include <optional>

class FoundPlaces;
class QPainter;

/// Draws one row of the clip list: a quiet running number and one line of the clip. Owned by the
/// table. A row costs the same however long its clip is.
class ClipRowDelegate
{
public:
    struct Row
    {
        QRect numberRect;
        QRect valueRect;
        QString number;
        QString value;
        std::optional<QString> filepath;    ///< Of a copied file.
        bool isFolder = false;              ///< What `filepath` names.
        QString note;                       ///< Said at the end of the row; empty for nothing.
        int mark = 0;                       ///< Place among the marked clips; 0 when not marked.
        const FoundPlaces *found = nullptr; ///< What a search has found is shown; null for none.
        bool isKeyCap = false;              ///< `number` is the key that pastes the row.
        bool isPinned = false;
        bool isSelected = false;
    };

    void setColors(const ClipColors &colors);
    void setFont(const QFont &font);

    int rowHeight() const;
    /// Width that the running numbers of a list of `rowCount` clips need.
    int numberWidth(int rowCount) const;

    void paint(QPainter &painter, const Row &row);

    /// What a row shows of a display text: its beginning without leading blanks, on one line; a
    /// word in brackets when there is nothing but blanks.
    static QString recognisableText(const QString &displayText);
    /// The same of a text with line breaks, each of which is a sign of its own; those at the end
    /// go.
    static QString textOnOneLine(const QString &text);

private:
    void drawText(QPainter &painter, const QRect &rect, const Row &row) const;
    void drawKeyCap(QPainter &painter, const QRect &rect, const Row &row) const;
    QString elided(const QString &text, int width) const;
    QList<QTextLayout::FormatRange> matches(const Row &row, const QString &text) const;
    /// Draws what stands at the end of a row, and gives what it leaves of `rect`, which like all
    /// places is as in a window that begins at the left; `placed` tells where it is.
    template <typename Placed>
    QRect drawEnd(QPainter &painter, QRect rect, const Row &row, const Placed &placed);
    /// With line breaks, emoji or what a search has found, which have a look of their own.
    void drawFormatted(QPainter &painter, const QRect &rect, const Row &row, QString text,
                       bool isRightToLeft) const;

    void drawPin(QPainter &painter, const QRect &rect, bool isSelected);

    ClipColors m_colors;
    QFont m_font;
    QFont m_numberFont;
    FileIcons m_fileIcons;
    std::array<QPixmap, 2> m_pins; ///< Of a row at rest and of the selected one.
};
