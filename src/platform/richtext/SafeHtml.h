#pragma once

#include "platform/richtext/HtmlElements.h"
#include "platform/richtext/HtmlStyles.h"
#include "platform/richtext/HtmlTokens.h"

#include <QList>
#include <QString>

/// Makes HTML of any kind into the little HTML that is safe to give to the toolkit: elements of
/// text only, well nested and not deeper than it bears, tables of a bounded number of cells, and
/// of attributes none that refers to anything. A link is told by the attribute "title", which has
/// its address and nothing else has: the toolkit's own links would have the desktop's colours.
/// Reads the source once, from its beginning to its end.
class SafeHtml
{
public:
    struct Result
    {
        QString html;
        bool hasText = false;
        bool isCut = false;
    };
    /// Of a source with about `maxCharacters` written at most.
    static Result of(QStringView source, qsizetype maxCharacters);

private:
    using Role = HtmlElements::Role;

    struct Element
    {
        QString name;         ///< As in the source.
        QString opening = {}; ///< As it was written, to be written again; empty where it is hidden.
        QString closing = {};
        Role role = Role::Inline;
        bool isKept = true; ///< As what it is; of tables, something else may stand for it.
        bool isHidden = false;
        bool keepsSpace = false;
        int items = 0; ///< Of a list.

        bool isInline() const { return role == Role::Inline || (role == Role::Cell && !isKept); }
    };

    /// Of a cell, into the rows after its own.
    struct Reach
    {
        int columns;
        int rows;
    };

    struct Table
    {
        bool isKept = true;
        QList<Reach> reaches = {};
        int rows = 0;
        int columns = 0; ///< Of the row with the most.
        int columnsOfRow = 0;
    };

    explicit SafeHtml(QStringView source) : m_tokens(source) {}

    void read(qsizetype maxCharacters);
    void addText(QStringView text);
    void reachEdge();
    void addComment(QStringView comment);
    void open(const HtmlToken &token);
    void close(const QString &name);
    bool passOver(const HtmlToken &token);
    void makeRoom(const QString &name, Role role);
    bool fits(const HtmlToken &token, Role role);
    static int reachedInto(Table &table);
    bool fitsCell(const HtmlToken &token);
    void countItem();
    QString spans(const HtmlToken &token);
    Element made(const HtmlToken &token, Role role, bool isKept);
    void closeDownTo(qsizetype count);
    qsizetype lastOf(Role role, Role wall) const;

    HtmlTokens m_tokens;
    HtmlStyles m_styles;
    Result m_result;
    QList<Element> m_open;
    QList<Table> m_tables;
    int m_mostCells = 0;
    int m_spanning = 0;     ///< Cells that span others.
    bool m_isAtEdge = true; ///< Of a block, with no text of it yet.
    bool m_isComplete = false;
};
