#pragma once

#include "platform/richtext/Encapsulation.h"
#include "platform/richtext/RtfLists.h"

#include <QByteArray>
#include <QList>
#include <QRgb>
#include <QSet>
#include <QTextBlock>
#include <QTextFrame>

class QTextDocument;
class QTextTable;
class QTextTableCell;

/// Writes a document of the toolkit as RTF: the formatting of its text and paragraphs, links,
/// lists and tables; a table in a table as paragraphs of its cell.
class RtfWriter
{
public:
    /// `body` has to outlive it.
    explicit RtfWriter(Encapsulation &body) : m_body(body) {}

    void write(const QTextDocument &document);

    /// Fonts, colours, styles and lists that the body names.
    QByteArray tables() const;

private:
    enum class Place { Page, Cell };

    void writeFrame(QTextFrame::iterator begin, Place place);
    void writeBlock(const QTextBlock &block, Place place);
    void writeTable(const QTextTable &table, Place place);
    void writeRow(const QTextTable &table, int row);
    void writeText(const QTextBlock &block);
    void writeFragment(QStringView text);
    QByteArray paragraphWords(const QTextBlock &block, Place place);
    QByteArray characterWords(const QTextCharFormat &format, bool isHeading);
    QByteArray linkStart(const QString &address) const;
    int colourNumber(QRgb colour);

    Encapsulation &m_body;
    RtfLists m_lists;
    QList<QRgb> m_colours;
    QSet<int> m_headings;
    QByteArray m_paragraphWords; ///< That hold for the paragraph before.
    QByteArray m_rowWords;
    bool m_isFirst = true; ///< Of the paragraphs of its page or cell.
};
