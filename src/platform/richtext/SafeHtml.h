#pragma once

#include "platform/richtext/HtmlStyles.h"
#include "platform/richtext/HtmlTokens.h"

#include <QList>
#include <QString>

#include <optional>

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
    /// Of a source with about `mostCharacters` written at most.
    static Result of(QStringView source, qsizetype mostCharacters);

private:
    enum class Role { Inline, Block, Heading, List, Item, Table, Row, Cell, Single };

    struct Element
    {
        QString name;    ///< As in the source.
        QString opening; ///< As it was written, to be written again.
        QString closing;
        Role role = Role::Inline;
        bool isHidden = false;
        bool keepsSpace = false;
        int items = 0; ///< Of a list.
    };

    /// Of a cell, into the rows after its own.
    struct Reach
    {
        int columns;
        int rows;
    };

    struct Table
    {
        QList<Reach> reaches = {};
        int rows = 0;
        int columns = 0; ///< Of the row with the most.
        int columnsOfRow = 0;
    };

    explicit SafeHtml(QStringView source) : m_tokens(source) {}

    void read(qsizetype mostCharacters);
    void addText(QStringView text);
    void addComment(QStringView comment);
    void open(const HtmlToken &token);
    void close(const QString &name);
    bool passOver(const HtmlToken &token);
    void makeRoom(const QString &name, Role role);
    bool fits(const HtmlToken &token, Role role);
    static int reachedInto(Table &table);
    bool fitsCell(const HtmlToken &token);
    void countItem();
    Element made(const HtmlToken &token, Role role);
    void closeDownTo(qsizetype count);
    qsizetype lastOf(Role role, Role wall) const;
    static std::optional<Role> roleOf(const QString &name);

    HtmlTokens m_tokens;
    HtmlStyles m_styles;
    Result m_result;
    QList<Element> m_open;
    QList<Table> m_tables;
    int m_spanning = 0; ///< Cells that span others.
    bool m_isComplete = false;
};
