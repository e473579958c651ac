#pragma once

#include "platform/richtext/CodePage.h"
#include "platform/richtext/RtfHtml.h"
#include "platform/richtext/RtfTables.h"
#include "platform/richtext/RtfTokens.h"

#include <QByteArray>
#include <QList>

#include <map>
#include <optional>

/// Reads RTF for what HTML says as well: the formatting of text and paragraphs, headings, links,
/// lists and tables. Pictures, objects and all that is not text of the body are passed over. It
/// reads each byte once and does not recurse.
class RtfReader
{
public:
    static constexpr qsizetype kMaxCharacters = qsizetype(4) << 20;

    /// In UTF-8, which it says first, and not much more than `maxCharacters` of it. Absent when
    /// there is no text, or no RTF.
    static std::optional<QByteArray> htmlOf(const QByteArray &rtf,
                                            qsizetype maxCharacters = kMaxCharacters);

private:
    enum class Destination { Body, Skipped, Fonts, Colours, Styles, Instruction, Marker };

    /// What a group inherits and gives back when it ends.
    struct State
    {
        RtfHtml::Characters characters;
        Destination destination = Destination::Body;
        int font = -1;
        int skipped = 1; ///< Characters behind \u for readers that do not know it.
        bool isHidden = false;
    };

    RtfReader(const QByteArray &rtf, qsizetype maxCharacters)
        : m_tokens(rtf), m_mostCharacters(maxCharacters)
    {
    }

    std::optional<QByteArray> read();
    void openGroup();
    void closeGroup();
    void readWord(const RtfToken &token);
    void readSymbol(const RtfToken &token);
    bool readDestination(const QByteArray &word);
    bool readText(const QByteArray &word, const RtfToken &token);
    bool readCharacters(const QByteArray &word, const RtfToken &token);
    bool readParagraph(const QByteArray &word, const RtfToken &token);
    void addUnicode(int number);
    void addBytes(QByteArrayView bytes);
    void addCharacters(const QString &text);
    void flushBytes();

    RtfTokens m_tokens;
    const qsizetype m_mostCharacters;
    RtfHtml m_html;
    State m_state;
    QList<State> m_outer;
    qsizetype m_tooDeep = 0; ///< Groups open beyond what is kept.
    bool m_isIgnorable = false;
    int m_left = 0;     ///< Characters to be skipped yet.
    QByteArray m_bytes; ///< Not decoded yet.

    RtfTables m_tables;
    std::map<int, CodePage> m_codePages;
    QString m_collected; ///< Of an instruction or a list's marker.
};
