#include "platform/memory/MemoryPasteboard.h"

#include <utility>

void MemoryPasteboard::copyFromOutside(PasteboardContents contents)
{
    contents.changeCount = m_changeCount + 1;
    contents.isOwnWrite = false;
    m_copiedText = contents.text;
    const qint64 bytes = contents.text.value_or(QString()).toUtf8().size();
    if (!contents.isConcealed && bytes > m_maxUsefulText) {
        contents.isTextTooLarge = true;
        contents.tooLargeBytes = bytes;
    }
    if (contents.isConcealed || contents.isTextTooLarge)
        static_cast<Copy &>(contents) = Copy();
    m_contents = contents;
    m_unexamined.append(contents);
    m_changeCount = contents.changeCount;
    Q_EMIT changed(m_changeCount);
}

void MemoryPasteboard::setFront(const QString &applicationName, bool isOurs)
{
    m_frontName = applicationName;
    m_isOursInFront = isOurs;
}

void MemoryPasteboard::setPasteRead(bool isRead)
{
    const bool isNews = isRead && !m_isPasteRead;
    m_isPasteRead = isRead;
    if (isNews)
        Q_EMIT pasteRead();
}

QList<PasteboardContents> MemoryPasteboard::changesAfter(qint64 changeCount) const
{
    QList<PasteboardContents> later;
    for (const PasteboardContents &contents : m_unexamined) {
        if (contents.changeCount > changeCount)
            later.append(contents);
    }
    return later;
}

void MemoryPasteboard::acknowledge(qint64 changeCount)
{
    m_acknowledged.append(changeCount);
    m_unexamined.removeIf(
        [&](const PasteboardContents &contents) { return contents.changeCount == changeCount; });
}

void MemoryPasteboard::discard(qint64 changeCount)
{
    acknowledge(changeCount);
    m_discarded.append(m_acknowledged.takeLast());
    if (m_contents && m_contents->changeCount == changeCount)
        m_contents.reset();
}

bool MemoryPasteboard::write(const Copy &copy)
{
    if (m_writeFails)
        return false;
    PasteboardContents contents{copy.withText(), m_frontName};
    contents.changeCount = m_changeCount + 1;
    contents.isOwnWrite = true;
    contents.isOursInFront = m_isOursInFront;
    m_unexamined.removeIf([](const PasteboardContents &earlier) { return earlier.isOwnWrite; });
    m_unexamined.append(contents);
    m_contents = contents;
    m_copiedText = contents.text;
    m_writes.append(copy);
    m_changeCount = contents.changeCount;
    return true;
}

void MemoryPasteboard::clear()
{
    m_contents.reset();
    m_copiedText.reset();
    ++m_changeCount;
}

void MemoryPasteboard::askText(Selection selection, QObject *context, TextAnswer answer)
{
    if (m_ownersHang)
        m_questions.append({context, std::move(answer)});
    else
        answer(selection == Selection::Clipboard ? m_copiedText : m_markedText);
}

void MemoryPasteboard::answerNow(const std::optional<QString> &text)
{
    const auto questions = std::exchange(m_questions, {});
    for (const auto &[context, answer] : questions) {
        if (context)
            answer(text);
    }
}
