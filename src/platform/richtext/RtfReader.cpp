#include "platform/richtext/RtfReader.h"

#include <QSet>

#include <algorithm>

namespace {

/// Writers nest some ten.
constexpr qsizetype kMaxDepth = 500;
constexpr qsizetype kMaxCollected = 4096;
constexpr qsizetype kMaxBytes = 4096;
constexpr int kMaxSkipped = 16;
constexpr size_t kMaxCodePages = 32;

/// Groups that hold no text of the body, where no star says so.
const QSet<QByteArray> &skippedGroups()
{
    static const QSet<QByteArray> kGroups{
        "info",         "pict",
        "object",       "header",
        "headerl",      "headerr",
        "headerf",      "footer",
        "footerl",      "footerr",
        "footerf",      "footnote",
        "annotation",   "xe",
        "tc",           "nonshppict",
        "nonesttables", "nesttableprops",
        "filetbl",      "revtbl",
        "themedata",    "shp",
        "shpinst",      "do",
        "listtable",    "listoverridetable",
        "generator",    "template",
        "txe",          "rxe",
        "bkmkstart",    "bkmkend",
        "private",
    };
    return kGroups;
}

/// Words that are a character.
const QHash<QByteArray, char16_t> &characterWords()
{
    static const QHash<QByteArray, char16_t> kWords{
        {"tab", u'\t'},           {"emdash", u'\u2014'},  {"endash", u'\u2013'},
        {"lquote", u'\u2018'},    {"rquote", u'\u2019'},  {"ldblquote", u'\u201C'},
        {"rdblquote", u'\u201D'}, {"bullet", u'\u2022'},  {"emspace", u'\u2003'},
        {"enspace", u'\u2002'},   {"nestcell", u'\t'},    {"zwj", u'\u200D'},
        {"zwnj", u'\u200C'},      {"ltrmark", u'\u200E'}, {"rtlmark", u'\u200F'},
    };
    return kWords;
}

/// The address in an instruction like HYPERLINK "http://…" \o "…"; empty for any other.
QString addressIn(const QString &instruction)
{
    const QString text = instruction.trimmed();
    if (!text.startsWith(QLatin1String("HYPERLINK"), Qt::CaseInsensitive))
        return {};
    const QString address =
        text.contains(u'"') ? text.section(u'"', 1, 1) : text.simplified().section(u' ', 1, 1);
    for (const char *scheme : {"http://", "https://", "mailto:"})
        if (address.startsWith(QLatin1String(scheme), Qt::CaseInsensitive))
            return address;
    return {};
}

/// A word that is on by itself and off with 0.
bool isOn(const RtfToken &token)
{
    return !token.hasNumber || token.number != 0;
}

} // namespace

std::optional<QByteArray> RtfReader::htmlOf(const QByteArray &rtf, qsizetype maxCharacters)
{
    if (!rtf.startsWith("{\\rtf"))
        return std::nullopt;
    return RtfReader(rtf, maxCharacters).read();
}

std::optional<QByteArray> RtfReader::read()
{
    for (RtfToken token; m_html.size() <= m_mostCharacters && m_tokens.next(&token);) {
        switch (token.kind) {
        case RtfToken::Kind::Open:
            openGroup();
            break;
        case RtfToken::Kind::Close:
            closeGroup();
            break;
        case RtfToken::Kind::Word:
            readWord(token);
            break;
        case RtfToken::Kind::Symbol:
            readSymbol(token);
            break;
        case RtfToken::Kind::Byte: {
            const char byte = static_cast<char>(token.number);
            addBytes(QByteArrayView(&byte, 1));
            break;
        }
        case RtfToken::Kind::Text:
            addBytes(token.text);
            break;
        }
    }
    flushBytes();
    const std::optional<QString> html = m_html.finished();
    if (!html)
        return std::nullopt;
    return "<meta http-equiv=\"content-type\" content=\"text/html; charset=utf-8\">" +
           html->toUtf8();
}

void RtfReader::openGroup()
{
    flushBytes();
    m_left = 0;
    if (m_outer.size() >= kMaxDepth)
        ++m_tooDeep;
    else
        m_outer.append(m_state);
}

void RtfReader::closeGroup()
{
    flushBytes();
    m_left = 0;
    m_isIgnorable = false;
    if (m_tooDeep > 0) {
        --m_tooDeep;
        return;
    }
    if (m_outer.isEmpty())
        return;
    const Destination ended = m_state.destination;
    m_state = m_outer.takeLast();
    if (ended == m_state.destination)
        return;
    if (ended == Destination::Instruction)
        // It holds for the field, whose result comes next.
        m_state.characters.address = addressIn(m_collected);
    else if (ended == Destination::Marker)
        m_html.setMarker(m_collected);
    m_collected.clear();
}

void RtfReader::readWord(const RtfToken &token)
{
    const QByteArray word = token.text.toByteArray();
    if (m_left > 0 && word != "u") {
        --m_left;
        return;
    }
    // Decoded before what may change the encoding.
    flushBytes();
    const bool isIgnorable = m_isIgnorable;
    m_isIgnorable = false;
    if (m_state.destination == Destination::Skipped || readDestination(word))
        return;
    // A field's result is its text, though there are writers who mark it as ignorable.
    if (isIgnorable && word != "fldrslt") {
        m_state.destination = Destination::Skipped;
        return;
    }
    switch (m_state.destination) {
    case Destination::Fonts:
        m_tables.readFontWord(word, token);
        return;
    case Destination::Colours:
        m_tables.readColourWord(word, token);
        return;
    case Destination::Styles:
        m_tables.readStyleWord(word, token);
        return;
    default:
        break;
    }
    // A list's marker begins with \pard, which is not meant for the paragraph that it stands in.
    if (!readText(word, token) && !readCharacters(word, token) &&
        m_state.destination == Destination::Body)
        readParagraph(word, token);
}

bool RtfReader::readDestination(const QByteArray &word)
{
    static const QHash<QByteArray, Destination> kDestinations{
        {"fonttbl", Destination::Fonts},     {"colortbl", Destination::Colours},
        {"stylesheet", Destination::Styles}, {"fldinst", Destination::Instruction},
        {"listtext", Destination::Marker},   {"pntext", Destination::Marker},
    };
    const auto found = kDestinations.constFind(word);
    if (found != kDestinations.cend()) {
        m_state.destination = *found;
        m_collected.clear();
        return true;
    }
    if (!skippedGroups().contains(word))
        return false;
    m_state.destination = Destination::Skipped;
    return true;
}

bool RtfReader::readText(const QByteArray &word, const RtfToken &token)
{
    if (word == "u" && token.hasNumber) {
        addUnicode(token.number);
        return true;
    }
    if (const auto character = characterWords().constFind(word);
        character != characterWords().cend()) {
        addCharacters(QString(QChar(*character)));
        return true;
    }
    if (m_state.destination != Destination::Body)
        return false;
    if (word == "par" || word == "sect" || word == "page")
        m_html.endParagraph();
    else if (word == "line" || word == "nestrow")
        m_html.addLineBreak();
    else if (word == "cell")
        m_html.endCell();
    else if (word == "row")
        m_html.endRow();
    else
        return false;
    return true;
}

bool RtfReader::readCharacters(const QByteArray &word, const RtfToken &token)
{
    RtfHtml::Characters &characters = m_state.characters;
    if (word == "b") {
        characters.isBold = isOn(token);
    } else if (word == "i") {
        characters.isItalic = isOn(token);
    } else if (word == "ulnone") {
        characters.isUnderlined = false;
    } else if (word.startsWith("ul") && word != "ulc") {
        characters.isUnderlined = isOn(token);
    } else if (word == "strike" || word == "striked") {
        characters.isStruckOut = isOn(token);
    } else if (word == "super" || word == "sub") {
        characters.raised = !isOn(token) ? 0 : word == "super" ? 1 : -1;
    } else if (word == "nosupersub") {
        characters.raised = 0;
    } else if (word == "fs") {
        characters.halfPoints = token.hasNumber ? std::clamp(token.number, 2, 400) : 24;
    } else if (word == "cf") {
        characters.colour = m_tables.colour(token.number);
    } else if (word == "chcbpat" || word == "cb" || word == "highlight") {
        characters.ground = m_tables.colour(token.number);
    } else if (word == "v") {
        m_state.isHidden = isOn(token);
    } else if (word == "f") {
        m_state.font = token.number;
        characters.isFixed = m_tables.font(token.number).isFixed;
    } else if (word == "plain") {
        const QString address = characters.address;
        characters = {};
        characters.address = address;
        m_state.font = -1;
        m_state.isHidden = false;
    } else if (word == "uc") {
        m_state.skipped = std::clamp(token.number, 0, kMaxSkipped);
    } else {
        return false;
    }
    return true;
}

bool RtfReader::readParagraph(const QByteArray &word, const RtfToken &token)
{
    static const QHash<QByteArray, const char *> kAlignments{
        {"ql", nullptr}, {"qc", "center"}, {"qr", "right"}, {"qj", "justify"}};
    RtfHtml::Paragraph &paragraph = m_html.paragraph;
    if (const auto alignment = kAlignments.constFind(word); alignment != kAlignments.cend())
        paragraph.alignment = *alignment;
    else if (word == "pard")
        paragraph = {};
    else if (word == "s")
        paragraph.heading = m_tables.headingOf(token.number);
    else if (word == "outlinelevel")
        paragraph.heading = token.number >= 0 && token.number < 6 ? token.number + 1 : 0;
    else if (word == "ls")
        paragraph.list = token.number;
    else if (word == "ilvl")
        paragraph.level = token.number;
    else if (word == "intbl")
        paragraph.isInTable = true;
    else if (word == "rtlpar" || word == "ltrpar")
        paragraph.isRightToLeft = word == "rtlpar";
    else if (word == "ansicpg")
        m_tables.setCodePage(token.number);
    else if (word == "mac")
        m_tables.setCodePage(10000);
    else if (word == "pc" || word == "pca")
        m_tables.setCodePage(word == "pc" ? 437 : 850);
    else if (word == "deff")
        m_tables.setDefaultFont(token.number);
    else
        return false;
    return true;
}

void RtfReader::readSymbol(const RtfToken &token)
{
    if (token.text.isEmpty())
        return;
    if (m_left > 0) {
        --m_left;
        return;
    }
    flushBytes();
    switch (token.text.front()) {
    case '*':
        m_isIgnorable = true;
        break;
    case '~':
        addCharacters(QString(QChar(QChar::Nbsp)));
        break;
    case '_':
        addCharacters(QString(QChar(u'\u2011')));
        break;
    case '-':
        addCharacters(QString(QChar(QChar::SoftHyphen)));
        break;
    case '\t':
        addCharacters(QString(u'\t'));
        break;
    case '\r':
    case '\n':
        if (m_state.destination == Destination::Body)
            m_html.endParagraph();
        break;
    default:
        break;
    }
}

void RtfReader::addUnicode(int number)
{
    addCharacters(QString(QChar(static_cast<char16_t>(number))));
    // Also where the one before had none behind it, against the rules.
    m_left = m_state.skipped;
}

void RtfReader::addBytes(QByteArrayView bytes)
{
    m_isIgnorable = false;
    const qsizetype skipped = std::min<qsizetype>(m_left, bytes.size());
    m_left -= static_cast<int>(skipped);
    if (m_state.destination == Destination::Skipped)
        return;
    for (const char byte : bytes.sliced(skipped)) {
        if (m_state.destination == Destination::Colours) {
            if (byte == ';')
                m_tables.endColour();
            continue;
        }
        m_bytes += byte;
    }
    if (m_bytes.size() > kMaxBytes)
        flushBytes();
}

void RtfReader::flushBytes()
{
    if (m_bytes.isEmpty())
        return;
    const QByteArray bytes = std::exchange(m_bytes, {});
    const bool isAscii = std::all_of(bytes.begin(), bytes.end(),
                                     [](char byte) { return static_cast<uchar>(byte) < 0x80; });
    if (isAscii) {
        addCharacters(QString::fromLatin1(bytes));
        return;
    }
    const int number = m_tables.font(m_state.font).codePage;
    auto page = m_codePages.find(number);
    if (page == m_codePages.end()) {
        // A document names a few; one that names thousands has them made again.
        if (m_codePages.size() > kMaxCodePages)
            m_codePages.clear();
        page = m_codePages.emplace(number, CodePage(number)).first;
    }
    addCharacters(page->second.decoded(bytes));
}

void RtfReader::addCharacters(const QString &text)
{
    switch (m_state.destination) {
    case Destination::Body:
        if (!m_state.isHidden)
            m_html.addText(text, m_state.characters);
        break;
    case Destination::Instruction:
    case Destination::Marker:
        if (m_collected.size() < kMaxCollected)
            m_collected += text;
        break;
    case Destination::Styles:
        m_tables.nameStyle(text);
        break;
    default:
        break;
    }
}
