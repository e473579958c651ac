#include "platform/richtext/Encapsulation.h"

#include <algorithm>

namespace {

/// To change from one side to the other and back takes some thirty characters.
constexpr int kWorthSharing = 36;
/// Enough to be the same text, not just a like one.
constexpr qsizetype kAnchor = 16;
/// A head with its style sheet lies before the first text.
constexpr qsizetype kFarthest = qsizetype(64) << 10;
/// All the looking for texts that are not there takes as long as going through the HTML so often.
constexpr qsizetype kPatience = 100;

int writtenSize(QStringView text)
{
    int size = 0;
    for (const QChar character : text)
        size += character.unicode() < 0x80 ? 1 : character.unicode() < 0x800 ? 4 : 7;
    return size;
}

} // namespace

Encapsulation::Encapsulation(const QByteArray &html)
    : m_source(HtmlSource::of(html)), m_markup(m_source.markup()),
      m_patience(m_source.form == HtmlSource::Form::Bytes ? 0 : m_source.text.size() * kPatience)
{
}

void Encapsulation::setOnlyShown(bool isOnlyShown)
{
    if (isOnlyShown != m_isOnlyShown)
        m_markup.addWord(isOnlyShown ? "\\htmlrtf" : "\\htmlrtf0");
    m_isOnlyShown = isOnlyShown;
}

void Encapsulation::addWord(const QByteArray &word)
{
    setOnlyShown(true);
    m_markup.addWord(word);
}

void Encapsulation::addRaw(const QByteArray &markup)
{
    setOnlyShown(true);
    m_markup.addRaw(markup);
}

void Encapsulation::addOwn(QStringView text)
{
    if (text.isEmpty())
        return;
    setOnlyShown(true);
    m_markup.addText(text);
}

void Encapsulation::carryUpTo(qsizetype place)
{
    if (place <= m_carried)
        return;
    setOnlyShown(false);
    m_markup.addRaw("{");
    m_markup.addWord("\\*\\htmltag0");
    m_source.write(QStringView(m_source.text).sliced(m_carried, place - m_carried), &m_markup);
    m_markup.addRaw("}");
    m_carried = place;
}

/// How much of a text stands at a place in the HTML.
qsizetype Encapsulation::lengthOf(QStringView text, qsizetype place) const
{
    const QStringView html = QStringView(m_source.text).sliced(place);
    const auto ends = std::mismatch(text.begin(), text.end(), html.begin(), html.end());
    return ends.first - text.begin();
}

Encapsulation::Match Encapsulation::found(QStringView text)
{
    const QStringView near =
        QStringView(m_source.text)
            .sliced(m_carried, std::min(m_source.text.size() - m_carried, kFarthest));
    const qsizetype place = near.indexOf(text.first(std::min(text.size(), kAnchor)));
    m_patience -= place < 0 ? near.size() : place;
    return place < 0 ? Match{0, 0} : Match{m_carried + place, lengthOf(text, m_carried + place)};
}

void Encapsulation::share(QStringView text, qsizetype place)
{
    carryUpTo(place);
    setOnlyShown(false);
    m_markup.addText(text);
    m_carried = place + text.size();
}

void Encapsulation::addText(QStringView text)
{
    while (m_patience > 0 &&
           writtenSize(text.first(std::min<qsizetype>(text.size(), kWorthSharing))) >=
               kWorthSharing) {
        const Match match = found(text);
        const QStringView same = text.first(match.length);
        if (writtenSize(same) >= kWorthSharing) {
            share(same, match.place);
            text = text.sliced(match.length);
            continue;
        }
        // Behind the next space it may be the same again: spaces and entities differ.
        const qsizetype space = text.indexOf(u' ', std::max<qsizetype>(match.length, 1));
        const qsizetype own = space < 0 ? text.size() : space + 1;
        addOwn(text.first(own));
        text = text.sliced(own);
    }
    addOwn(text);
}

QByteArray Encapsulation::finished(const QByteArray &tables)
{
    carryUpTo(m_source.text.size());
    setOnlyShown(false);
    return "{\\rtf1\\ansi\\ansicpg" + QByteArray::number(m_source.codePage) +
           "\\fromhtml1\\deff0{\\*\\quillmarshform" + m_source.number() + '}' + tables +
           m_markup.source() + '}';
}
