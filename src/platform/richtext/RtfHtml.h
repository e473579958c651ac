#pragma once

#include <QColor>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

/// HTML being made of the runs and paragraphs of RTF: well nested, in one go.
class RtfHtml
{
public:
    /// How a run of text looks.
    struct Characters
    {
        bool isBold = false;
        bool isItalic = false;
        bool isUnderlined = false;
        bool isStruckOut = false;
        bool isFixed = false;
        int raised = 0; ///< 1 for superscript, -1 for subscript.
        int halfPoints = 24;
        std::optional<QRgb> colour = {};
        std::optional<QRgb> ground = {};
        QString address = {}; ///< Of a link.

        bool operator==(const Characters &) const = default;
    };

    /// What holds for the paragraph that is under way, and those after it.
    struct Paragraph
    {
        const char *alignment = nullptr; ///< As HTML has it.
        int heading = 0;                 ///< 1 to 6.
        int list = 0;                    ///< The RTF's number of the list.
        int level = 0;                   ///< 0 for a list that is in no other.
        bool isInTable = false;
        bool isRightToLeft = false;

        bool operator==(const Paragraph &) const = default;
    };

    void addText(const QString &text, const Characters &characters);
    void addLineBreak();
    void setMarker(const QString &marker) { m_marker = marker; }
    void endParagraph();
    void endCell();
    void endRow();
    /// All of it; absent when there is no text.
    std::optional<QString> finished();

    /// Characters so far.
    qsizetype size() const;

    Paragraph paragraph;

private:
    struct List
    {
        int number;
        bool isCounted;
    };

    void closeRun();
    void openRun(const Characters &characters);
    void closeLists(qsizetype depth);
    void closeTable();
    QString takenParagraph(bool isOnlyOne);
    void addItem(const QString &content);
    QString attributes() const;

    QString m_html;
    QString m_content; ///< Of the paragraph.
    QString m_cell;    ///< Its paragraphs that are done.
    QStringList m_cells;
    qsizetype m_waiting = 0; ///< Characters in cells that are done.
    QString m_marker;
    QString m_closing; ///< Of the run.
    Characters m_run;
    QList<List> m_lists;
    bool m_isRunOpen = false;
    bool m_isTableOpen = false;
    bool m_hasText = false;
};
